#pragma once

#include "vesta/Export.h"

#include <wx/event.h>

/// A view follows its end, `GetInt()` 1, or no longer does, 0 (`wxCommandEvent`). It comes a moment
/// later.
wxDECLARE_EXPORTED_EVENT(TOLVAN_API, wxtEVT_TEXT_FOLLOW, wxCommandEvent);

/// The user has changed the size of the text, `GetInt()` points (`wxCommandEvent`). It comes a
/// moment later.
wxDECLARE_EXPORTED_EVENT(TOLVAN_API, wxtEVT_TEXT_SIZE, wxCommandEvent);

/// The user has had lines wrapped, `GetInt()` 1, or no longer, 0 (`wxCommandEvent`). It comes a
/// moment later.
wxDECLARE_EXPORTED_EVENT(TOLVAN_API, wxtEVT_TEXT_WRAP, wxCommandEvent);
