#pragma once

#include "dialogs/colours/SchemeColours.h"
#include "listviews/wxDBListCtrl.h"

#include <functional>

namespace dialogs
{
/// A list of which one row is selected.
class OneOfList : public wxDBListCtrl
{
public:
    explicit OneOfList(wxWindow* parent);

    int  Selected() const { return m_Selected; } ///< -1: none.
    void Select(int row);                        ///< Tells nothing, and shows the row.

    std::function<void()> m_OnSelected = [] {}; ///< By the user.

    bool             IsRowSelected(int row) override { return row == m_Selected; }
    std::vector<int> GetSelection() override;
    /// To be read whatever the colours have become.
    wxColour GetRowColor(int row) override;
    int      WidthOfColumns() const; ///< Pixels.

protected:
    void FitNames(const std::vector<int>& types);

private:
    int m_Selected = -1;
};

/// The colours of a scheme: each with a sample, its name, its value and its key.
class ColourList : public OneOfList
{
public:
    /// `colours`: outlive the list.
    ColourList(wxWindow* parent, const SchemeColours& colours);

    String GetDisplayText(int row, int column) override;
    void   DrawCell(wxDC& dc, int row, int column, wxRect rect, bool selected) override;

private:
    const SchemeColours& m_Colours;
};

/// The pairs of text and ground of a scheme, with how well each can be read.
class PairList : public OneOfList
{
public:
    /// `colours`: outlive the list.
    PairList(wxWindow* parent, const SchemeColours& colours);

    String GetDisplayText(int row, int column) override;
    void   DrawCell(wxDC& dc, int row, int column, wxRect rect, bool selected) override;

private:
    const SchemeColours& m_Colours;
};

/// A colour in a frame; none is a crossed field.
class ColourSample : public wxtPanel
{
public:
    explicit ColourSample(wxWindow* parent);

    void SetColour(const wxColour& colour);

private:
    wxColour m_Colour;
};
} // namespace dialogs
