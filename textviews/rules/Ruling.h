#pragma once

#include "textviews/rules/RuleIndex.h"
#include "textviews/rules/VisibleRules.h"

#include <wx/timer.h>
#include <wx/weakref.h>
#include <wx/window.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <functional>
#include <vector>

namespace textviews
{
/// What a view has for its rules, and for what it shows of all of its lines.
struct Ruling
{
    /// `wake`: there is something to do in idle time.
    Ruling(const LineStore& lines, const std::function<void()>& wake) : index(lines, wake)
    {
        waiting.Bind(wxEVT_TIMER, [wake](wxTimerEvent&) { wake(); });
    }

    std::vector<wxTextRule> rules; ///< As they were given.
    VisibleRules            visible;
    RuleIndex               index;
    wxTimer                 waiting;         ///< For a disk.
    bool                    finding = false; ///< What comes of it is still to be shown.

    std::vector<uint8_t>   rows;      ///< Of the strip, but for bookmarks,
    std::array<int64_t, 4> rowsAre{}; ///< when bands, height and lines were these.

    wxWeakRef<wxWindow>                   strip; ///< A child; none unless it is shown.
    wxWeakRef<wxWindow>                   note;  ///< A child; none before the first one.
    std::chrono::steady_clock::time_point shown; ///< When the strip has last shown what is found.
};
} // namespace textviews
