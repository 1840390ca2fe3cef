#pragma once

#include "tests/support/FrameTest.h"
#include "tests/support/Pictures.h"
#include "textviews/wxTextLineCtrl.h"
#include "textviews/wxTextLineSearchPanel.h"

/// The view with what the tests look at.
class TestView : public wxTextLineCtrl
{
public:
    using wxTextLineCtrl::wxTextLineCtrl;

    int  LineHeight() const { return m_LineHeight; }
    int  ColumnWidth() const { return m_ColumnWidth; }
    int  VirtualWidth() const { return m_ContentWidth; }
    int  VirtualLines() const { return m_LineCount; }
    bool RedrawPending() const { return m_RedrawTimer.IsRunning(); }
    int  Drawn() const { return m_Drawn; }
    int  MiddleOf(int line) const
    {
        return line * m_LineHeight + m_LineHeight / 2 - GetScrollPos(wxVERTICAL);
    }

    /// What the view draws now, without the screen.
    wxImage Picture();

    /// The delay of the redraw is over now.
    void PaintNow();

    void Mouse(wxEventType type, int x, int y);
    void Menu(int id);

protected:
    void DrawBitmap() override;

private:
    int m_Drawn = 0;
};

/// A shown view that fills the frame, with its search bar under it.
class TextViewTest : public FrameTest
{
protected:
    TextViewTest();
    ~TextViewTest() override;

    void Append(std::initializer_list<String> lines);
    /// "line 0" and so on.
    void                   AppendNumbered(int count);
    String                 Lines() const; ///< All, separated by a bar.
    wxTextLineSearchPanel& Panel() const { return *m_View->GetSearchPanel(); }
    /// Selects lines with the mouse.
    void Drag(int from, int to) const;
    /// The vertical position that shows the end.
    int Bottom() const
    {
        return m_View->GetScrollRange(wxVERTICAL) - m_View->GetScrollThumb(wxVERTICAL);
    }
    bool IsSelected(int anchor, int end) const;
    /// What another program gets from the clipboard in that format.
    String PastedElsewhere(const String& format) const;

    TestView* m_View;
};
