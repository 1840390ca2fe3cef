#pragma once

#include <string>
#include <string_view>

namespace internal
{
/// Appends the text in lower case, for comparing without regard to case in every language. Bytes
/// that are no valid text stay as they are. Any thread.
void AppendFolded(std::string& folded, std::string_view text);
} // namespace internal
