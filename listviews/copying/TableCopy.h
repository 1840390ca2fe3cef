#pragma once

#include "listviews/copying/TableText.h"
#include "listviews/slices/Slices.h"

#include <functional>
#include <memory>
#include <vector>

namespace listviews
{
/// Rows that are read one after another, and become a text.
class TableCopy
{
public:
    using AddRow = std::function<void(int row, TableText& table)>;

    /// `rows`: in ascending order. `table` has the titles already.
    TableCopy(std::vector<int> rows, TableText table, AddRow addRow);

    bool   Step();   ///< A few rows; false when there are no more.
    void   Finish(); ///< Reads all that are left. What a row throws is logged, and drops the text.
    void   Drop();
    String Take(); ///< Once; finishes it.

    /// Rows that are still to be read keep theirs; those that go are left out.
    /// @{
    void RowsInserted(int row, int count);
    void RowsRemoved(int first, int last);
    /// @}

private:
    std::vector<int> m_Rows;
    size_t           m_Next = 0; ///< The row to be read next.
    TableText        m_Table;
    AddRow           m_AddRow;
};

/// Brings rows to the clipboard: so many as a slice allows at once, the others beside the window's
/// life, or when somebody wants to have them.
class Copier
{
public:
    Copier();
    ~Copier(); ///< What is not read yet can't be any more: the clipboard has nothing then.

    void Begin(std::vector<int> rows, TableText table, TableCopy::AddRow addRow);
    bool IsBusy() const { return m_Copy != nullptr; }
    void Finish(); ///< Before the rows become others.
    void RowsInserted(int row, int count);
    void RowsRemoved(int first, int last);

private:
    void Work();
    void Drop();

    std::shared_ptr<TableCopy> m_Copy; ///< With the clipboard; null when all is read.
    Slices                     m_Slices;
};
} // namespace listviews
