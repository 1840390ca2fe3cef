#pragma once

#include "vesta/String.h"

#include <functional>
#include <memory>
#include <vector>

namespace listviews
{
/// A row that is to be found again when the rows are others.
struct RowMark
{
    String key;      ///< Empty: it is known by its index.
    int    row = -1; ///< Its index; -1: there is none.
};

/// The rows of a list that a user has made something of.
struct RowMarks
{
    std::vector<RowMark> selected; ///< In order of selection.
    std::vector<RowMark> seen;     ///< From the top of the view.
    RowMark              anchor;
    RowMark              caret;
    int                  scroll = 0; ///< Pixels that the view is scrolled down by.
};

/// Finds marked rows among those that are there now, some at a time: each row is asked for its key
/// once at most, those around the places where marked rows were before all others. Of rows that are
/// only seen one is enough then. Of rows with the same key any are taken.
class MarkSearch
{
public:
    using KeyOf = std::function<String(int row)>;

    /// `count`: rows. `first`: rows that are asked before any other.
    MarkSearch(const RowMarks& marks, int count, std::vector<int> first = {});
    ~MarkSearch();

    bool            Step(const KeyOf& keyOf);         ///< A few rows; false when it is done.
    const RowMarks& Found() const { return m_Found; } ///< Those that are not found have row -1.

private:
    class Waiting;

    int NextRow();

    RowMarks                 m_Found;
    std::unique_ptr<Waiting> m_Waiting; ///< Marks that are not found yet.
    std::vector<bool>        m_IsKnown; ///< Rows that have been asked.
    std::vector<int>         m_First;
    std::vector<int>         m_Places;
    int                      m_Reach;        ///< Rows on either side of a place.
    int                      m_Distance = 0; ///< From the places: what is asked now.
    size_t                   m_Next = 0;     ///< Of `m_First`, then of the places, each twice.
    bool                     m_IsNear = true;
    int                      m_Row = 0; ///< The next one when all are asked.
};

/// Where the view has to be scrolled to (pixels), so that the topmost of the rows seen that is
/// still there is where it was.
long long ScrollAfter(const RowMarks& before, const RowMarks& found, int rowHeight);
} // namespace listviews
