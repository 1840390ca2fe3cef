#pragma once

#include "textviews/escapes/TextStyle.h"

#include <string_view>

namespace textviews
{
/// Changes the style by the numbers of a sequence that sets it: "1;31", "38;5;208",
/// "38:2::10:20:30". Numbers that mean nothing here are passed over. False, and the style is as it
/// was, when the numbers are none, or those of a colour are missing or too large.
bool ApplyStyleCodes(std::string_view numbers, TextStyle& style);
} // namespace textviews
