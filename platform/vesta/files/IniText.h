#pragma once

#include "vesta/String.h"

namespace vesta
{
/// How names and values stand in a line of an ini file: plain, or between double quotes with
/// backslash escapes. Positions are byte offsets into the line. Not exported.
namespace IniText
{

/// Length of the line without its line end.
size_t ContentLength(const String& line);
/// The first byte from `start` on that is no blank, at most `end`.
size_t SkipBlanks(const String& line, size_t start, size_t end);

/// Reads the quoted text whose opening quote stands at `start`. Gives the position behind the
/// closing quote; `npos` when there is none before `end`.
size_t ReadQuoted(const String& line, size_t start, size_t end, String& text);

/// What stands between `[` at `bracket` and its `]`; false when the header is damaged.
bool ReadSectionName(const String& line, size_t bracket, String& name);
/// The key that begins at `start`, and where its value begins; false when there is none.
bool   ReadKey(const String& line, size_t start, String& key, size_t& valueStart);
String ReadValue(const String& line, size_t valueStart);

/// The text in the form that reads back as the same bytes.
/// @{
String WriteSectionName(const String& name);
String WriteKey(const String& key);
String WriteValue(const String& value);
/// @}

} // namespace IniText
} // namespace vesta
