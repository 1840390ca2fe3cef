#pragma once

#include <string>

/// A theme of the port that no desktop has, in colours that are in no scheme: where one of them is
/// seen, a part of a window does not follow the scheme.
namespace StrangeTheme
{
/// Writes it to that folder and has every program that is started from now on use it, on both
/// ports.
void Use(const std::string& folder);

/// One of its colours, as the display has them: red, green and blue in a byte each.
bool Has(unsigned long pixel);
} // namespace StrangeTheme
