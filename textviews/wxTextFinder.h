#pragma once

#include "textviews/wxTextSource.h"
#include "vesta/Export.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

/// Bytes after which a line that does not end is cut, between two characters, into several: nobody
/// can read such a line, but a file may hold nothing else.
constexpr size_t k_LongestTextLine = 1u << 20;

/// Finds the lines of some bytes that lie at that place of a source, and adds the stretches that
/// they make. Gives how many of the bytes that are: those behind the last line feed are no line
/// yet, unless there are more than `k_LongestTextLine` of them. Any thread.
TOLVAN_API size_t wxFindTextLines(std::string_view bytes, uint64_t offset,
                                  std::vector<wxTextStretch>& stretches);
/// Adds the stretch of bytes without a line feed that are a line all the same.
TOLVAN_API void wxAddTextLine(std::string_view bytes, uint64_t offset,
                              std::vector<wxTextStretch>& stretches);
