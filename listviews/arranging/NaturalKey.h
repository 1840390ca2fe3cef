#pragma once

#include <string>
#include <string_view>

namespace listviews
{
/// Appends a key of the text: keys compare byte by byte as people sort names, numbers in them by
/// their value and letters without regard to case ("shot 9" before "Shot 10"). Texts that differ in
/// case or in leading zeros only have the same key. Any thread.
void AppendNaturalKey(std::string& key, std::string_view text);

/// Appends a key of the number: keys compare byte by byte as the numbers do. All NaN are one,
/// behind every number.
void AppendNumberKey(std::string& key, double number);

/// Appends a key of a cell, of its number or its text, of which 512 bytes count. Numbers stand
/// before texts. Keys of several cells may stand behind one another.
/// @{
void AppendCellKey(std::string& key, double number, bool ascending);
void AppendCellKey(std::string& key, std::string_view text, bool ascending);
/// @}
} // namespace listviews
