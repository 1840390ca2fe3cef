#pragma once

#include <functional>

class wxDBListBody;
class wxDBListSource;

namespace listviews
{
struct ListModel;
struct RowsToTell;
class SelectionWork;

/// Selects rows by telling the list's handlers, of what changes only. Each of them may do anything:
/// an answer of false says that the list is gone, and with it this object.
class RowSelector
{
public:
    RowSelector(wxDBListBody& body, wxDBListSource& source, const ListModel& model);

    /// `then`: once all rows are told of.
    bool Alone(int row, std::function<void()> then = {});
    /// `first` at most `last`. `adding`: the rows outside stay as they are.
    bool Range(int first, int last, bool adding);
    bool All();
    bool Toggle(int row);

private:
    bool Tell(RowsToTell rows, bool adding, std::function<void()> then);

    SelectionWork&   m_Work;
    wxDBListSource&  m_Source;
    const ListModel& m_Model;
};
} // namespace listviews
