#include "tests/textviews/TextViewTest.h"

#include "appearance/wxTolvanString.h"

#include <wx/clipbrd.h>
#include <wx/sizer.h>
#include <wx/utils.h>

wxImage TestView::Picture()
{
    if (!m_Buffer)
    {
        m_Buffer = std::make_unique<wxBitmap>(GetClientSize());
    }
    m_Buffer.get(); // the bitmap from now on
    DrawBitmap();
    return m_Buffer->ConvertToImage();
}

void TestView::DrawBitmap()
{
    wxTextLineCtrl::DrawBitmap();
    ++m_Drawn;
}

void TestView::PaintNow()
{
    wxTimerEvent due(m_RedrawTimer);
    m_RedrawTimer.Stop();
    Timeout(due);
    Update();
}

void TestView::Mouse(wxEventType type, int x, int y)
{
    wxMouseEvent event(type);
    event.SetEventObject(this);
    event.SetPosition(wxPoint(x, y));
    ProcessWindowEvent(event);
}

void TestView::Menu(int id)
{
    wxCommandEvent event(wxEVT_MENU, id);
    event.SetEventObject(this);
    ProcessWindowEvent(event);
}

TextViewTest::TextViewTest() : m_View(new TestView(Frame()))
{
    auto* const sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(m_View, 1, wxEXPAND);
    sizer->Add(m_View->GetSearchPanel(), 0, wxEXPAND);
    Frame()->SetSizer(sizer);
    Frame()->Layout();
    EXPECT_TRUE(WaitFor([this] { return m_View->Drawn() > 0; }));
}

TextViewTest::~TextViewTest()
{
    wxTheClipboard->Clear();
}

void TextViewTest::Append(std::initializer_list<String> lines)
{
    for (const String& line : lines)
    {
        m_View->Append(line, false);
    }
}

void TextViewTest::AppendNumbered(int count)
{
    for (int i = 0; i < count; ++i)
    {
        m_View->Append(SFormat("line %d", i), false);
    }
}

String TextViewTest::Lines() const
{
    String all;
    for (int i = 0; i < m_View->GetLineCount(); ++i)
    {
        all += (i > 0 ? "|" : "") + m_View->GetLine(i);
    }
    return all;
}

void TextViewTest::Drag(int from, int to) const
{
    m_View->Mouse(wxEVT_LEFT_DOWN, 5, m_View->MiddleOf(from));
    m_View->Mouse(wxEVT_MOTION, 5, m_View->MiddleOf(to));
    m_View->Mouse(wxEVT_LEFT_UP, 5, m_View->MiddleOf(to));
}

bool TextViewTest::IsSelected(int anchor, int end) const
{
    return m_View->GetSelectionAnchor() == anchor && m_View->GetSelectionEnd() == end;
}

String TextViewTest::PastedElsewhere(const String& format) const
{
    const String   file = TempFile("pasted").Text();
    const wxString command = "sh -c 'timeout 10 xclip -selection clipboard -o -t " +
                             wxtToWx(format) + " > " + wxtToWx(file) + "'";
    // Events are handled meanwhile: it is this program that has the text.
    EXPECT_GE(wxExecute(command, wxEXEC_SYNC | wxEXEC_NODISABLE), 0);
    return ReadFile(file);
}
