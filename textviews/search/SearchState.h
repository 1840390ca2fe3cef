#pragma once

namespace textviews
{
/// How far something is that looks for a line in steps.
enum class SearchState
{
    Idle,
    Running,
    Found,
    NotFound
};
} // namespace textviews
