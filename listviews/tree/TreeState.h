#pragma once

#include "listviews/tree/ArrangeJob.h"
#include "listviews/tree/HiddenNodes.h"
#include "listviews/tree/OpenTree.h"
#include "listviews/tree/TreeRemains.h"

#include "appearance/wxtSearchField.h"

#include <wx/gdicmn.h>
#include <wx/weakref.h>

#include <chrono>
#include <memory>
#include <vector>

namespace listviews
{
class Slices;

/// What a tree list knows beside what any list does.
struct TreeState
{
    /// The row that was looked up last: it is asked for over and over while it is drawn.
    struct Row
    {
        int          row = -1;
        TreePlace    place;
        wxDBTreeNode node = wxDBTreeModel::k_Root;
    };
    struct Seen
    {
        TreePlace place;
        uint64_t  identity = 0;
    };

    /// Rows that are told of, as much as a slice allows.
    struct Telling
    {
        std::vector<int64_t> rows;
        size_t               told = 0;
        unsigned             revision = 0; ///< Of the rows; with another one they are out of date.
    };

    wxDBTreeModel*            model = nullptr;
    std::unique_ptr<OpenTree> shown = std::make_unique<OpenTree>();
    std::unique_ptr<OpenTree> aside; ///< What was open before anything was filtered; else null.
    bool                      isStale = false; ///< The model has changed since `shown` was made.
    int64_t                   matches = 0;
    HiddenNodes               hidden;       ///< What the filter has deselected.
    HiddenNodes               hiddenAnchor; ///< Where ranges began before it hid that row.
    bool   isFiltering = false;             ///< The filter deselects, or selects again, just now.
    bool   isTelling = false;               ///< Rows are being told of by the tree itself.
    String words;                           ///< Of the filter, if it is one of words.
    wxWeakRef<wxtSearchField> field;        ///< Where they come from.

    TreeWish                    wish;
    std::unique_ptr<ArrangeJob> job;                 ///< Null when nothing is being arranged.
    bool                        isDue = false;       ///< It is to begin.
    bool                        isAgain = false;     ///< The model has changed since it began.
    unsigned                    jobs = 0;            ///< That have been begun, or ended.
    std::shared_ptr<Telling>    leaving;             ///< What the tree that is made does not have.
    std::shared_ptr<Telling>    returning;           ///< What was hidden and is shown again.
    bool                        isReturning = false; ///< To be looked for, or told of.
    std::unique_ptr<Slices>     slices;
    TreeRemains                 remains;

    int               asking = 0;   ///< Functions of the model that run, with what they call.
    unsigned          revision = 0; ///< Of the rows.
    Row               row;
    std::vector<Seen> seen;          ///< Rows that were drawn last, from the first to the last.
    int               lastSeen = -1; ///< The last row of them.
    wxPoint           pointer = wxDefaultPosition; ///< As it was seen last over the rows.
    int               hoverRow = -1;               ///< The one whose expander it is on.
    std::chrono::steady_clock::time_point typed;   ///< When a letter was, last.
    int                                   columnType = 0;
    bool                                  isTooLong = false; ///< For a list to show; logged.

    OpenTree& Unfiltered() { return aside ? *aside : *shown; }
};
} // namespace listviews
