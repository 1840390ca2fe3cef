#pragma once

#include <wx/event.h>

namespace listviews
{
/// A list has other columns, or shows others, by whomever; for what works for the list. No other
/// window hears of it.
wxDECLARE_EVENT(EVT_COLUMNS_CHANGED, wxCommandEvent);
} // namespace listviews
