#include "listviews/copying/TableCopy.h"

#include "internal/clipboard/TextDataObject.h"
#include "vesta/Guarded.h"
#include "vesta/Log.h"

#include <wx/clipbrd.h>

#include <algorithm>

namespace listviews
{
namespace
{
constexpr int kFewRows = 4; // between two looks at the clock: their texts may be long
} // namespace

TableCopy::TableCopy(std::vector<int> rows, TableText table, AddRow addRow)
    : m_Rows(std::move(rows)), m_Table(std::move(table)), m_AddRow(std::move(addRow))
{
}

bool TableCopy::Step()
{
    for (int i = 0; i < kFewRows && m_Next < m_Rows.size(); ++i)
    {
        m_AddRow(m_Rows[m_Next++], m_Table);
    }
    return m_Next < m_Rows.size();
}

void TableCopy::Finish()
{
    if (!Guarded("Copying rows",
                 [this]
                 {
                     while (Step())
                     {
                     }
                 }))
    {
        Drop();
    }
}

void TableCopy::Drop()
{
    m_Rows.clear();
    m_Table = TableText();
}

String TableCopy::Take()
{
    Finish();
    return m_Table.Take();
}

void TableCopy::RowsInserted(int row, int count)
{
    for (size_t i = m_Next; i < m_Rows.size(); ++i)
    {
        m_Rows[i] += m_Rows[i] >= row ? count : 0;
    }
}

void TableCopy::RowsRemoved(int first, int last)
{
    const auto left = m_Rows.begin() + static_cast<std::ptrdiff_t>(std::min(m_Next, m_Rows.size()));
    m_Rows.erase(
        std::remove_if(left, m_Rows.end(), [=](int row) { return row >= first && row <= last; }),
        m_Rows.end());
    std::for_each(left, m_Rows.end(), [=](int& row) { row -= row > last ? last - first + 1 : 0; });
}

Copier::Copier() : m_Slices([this] { Work(); })
{
}

Copier::~Copier()
{
    Drop();
}

void Copier::Drop()
{
    const std::shared_ptr<TableCopy> copy = std::move(m_Copy);
    if (!copy || copy.use_count() == 1)
    {
        return;
    }
    copy->Drop();
    LogWarning("The rows that were being copied are not on the clipboard");
    if (!wxTheClipboard->IsOpened() && wxTheClipboard->Open())
    {
        wxTheClipboard->Clear();
        wxTheClipboard->Close();
    }
}

void Copier::Begin(std::vector<int> rows, TableText table, TableCopy::AddRow addRow)
{
    const auto copy =
        std::make_shared<TableCopy>(std::move(rows), std::move(table), std::move(addRow));
    const bool isMore = RunSlice([&copy] { return copy->Step(); });
    if (!wxTheClipboard->Open())
    {
        return;
    }
    wxTheClipboard->SetData(new internal::TextDataObject([copy] { return copy->Take(); }, &HtmlOf));
    m_Copy = isMore ? copy : nullptr;
    if (isMore)
    {
        m_Slices.GoOn();
    }
    else
    {
        wxTheClipboard->Flush(); // asks for all forms at once, which takes long for many rows
    }
    wxTheClipboard->Close();
}

void Copier::Finish()
{
    if (const auto copy = std::move(m_Copy))
    {
        copy->Finish();
    }
}

void Copier::RowsInserted(int row, int count)
{
    if (m_Copy)
    {
        m_Copy->RowsInserted(row, count);
    }
}

void Copier::RowsRemoved(int first, int last)
{
    if (m_Copy)
    {
        m_Copy->RowsRemoved(first, last);
    }
}

void Copier::Work()
{
    if (!m_Copy || m_Copy.use_count() == 1) // the clipboard has something else by now
    {
        m_Copy.reset();
        return;
    }
    bool isMore = false;
    if (!Guarded("Copying rows", [&] { isMore = RunSlice([this] { return m_Copy->Step(); }); }))
    {
        Drop();
    }
    if (isMore)
    {
        m_Slices.GoOn();
    }
    else
    {
        m_Copy.reset();
    }
}
} // namespace listviews
