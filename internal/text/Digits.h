#pragma once

#include <wx/string.h>

namespace internal
{
/// The number with a comma before each three digits, as "1,034".
wxString Grouped(long long number);
} // namespace internal
