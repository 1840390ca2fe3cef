#pragma once

class wxDBListBody;
class wxDBListSource;

namespace listviews
{
struct ListModel;

/// Selects rows by telling the list's handlers, of what changes only, row after row. Each of them
/// may do anything: an answer of false says that the list is gone, and with it this object.
class RowSelector
{
public:
    RowSelector(wxDBListBody& body, wxDBListSource& source, const ListModel& model);

    bool Alone(int row);
    /// `first` at most `last`. `adding`: the rows outside stay as they are.
    bool Range(int first, int last, bool adding);
    bool Toggle(int row);

private:
    bool Set(int row, bool selected);

    wxDBListBody&    m_Body;
    wxDBListSource&  m_Source;
    const ListModel& m_Model;
};
} // namespace listviews
