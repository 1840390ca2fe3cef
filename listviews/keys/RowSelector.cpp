#include "listviews/keys/RowSelector.h"

#include "listviews/model/ListModel.h"
#include "listviews/selecting/SelectionWork.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBListSource.h"

namespace listviews
{
RowSelector::RowSelector(wxDBListBody& body, wxDBListSource& source, const ListModel& model)
    : m_Work(body.Selecting()), m_Source(source), m_Model(model)
{
}

bool RowSelector::Alone(int row, std::function<void()> then)
{
    return Tell({{}, row, row}, false, std::move(then));
}

bool RowSelector::Range(int first, int last, bool adding)
{
    return (!adding || m_Work.Finish()) && Tell({{}, first, last}, adding, nullptr);
}

bool RowSelector::All()
{
    return Tell({{}, 0, m_Model.rowCount - 1}, true, nullptr);
}

bool RowSelector::Toggle(int row)
{
    if (!m_Work.Finish())
    {
        return false;
    }
    return m_Source.IsRowSelected(row) ? Tell({{row}}, true, nullptr) : Range(row, row, true);
}

// What has not been told of an earlier wish is out of date.
bool RowSelector::Tell(RowsToTell rows, bool adding, std::function<void()> then)
{
    m_Work.Drop();
    rows.onlyChanges = true;
    if (!adding)
    {
        for (const int row : m_Source.GetSelection())
        {
            if (row < rows.first || row > rows.last)
            {
                rows.off.push_back(row);
            }
        }
    }
    return m_Work.Begin(std::move(rows), std::move(then));
}
} // namespace listviews
