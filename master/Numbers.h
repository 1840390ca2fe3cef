#pragma once

#include "vesta/CommandLine.h"

namespace master
{
/// Reads a whole number from the command line into `value`, which holds the default. Returns an
/// empty text, or what is wrong when it is no number from `low` to `high`.
inline String ReadNumber(const CommandLine& commandLine, const char* option, int low, int high,
                         int& value)
{
    if (!commandLine.Has(option))
    {
        return String();
    }
    const String    text = commandLine.Value(option).Trim();
    const long long number = text.ToInt(low - 1LL);
    // The way back shows what ToInt leaves out: "12x" is not 12.
    if (number < low || number > high || String::FromInt(number) != text)
    {
        return SFormat("--%s must be a number from %d to %d, not '%s'", option, low, high,
                       text.c_str());
    }
    value = static_cast<int>(number);
    return String();
}
} // namespace master
