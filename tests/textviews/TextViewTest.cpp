#include "tests/textviews/TextViewTest.h"

#include "appearance/wxTolvanString.h"

#include <wx/clipbrd.h>
#include <wx/process.h>
#include <wx/sizer.h>
#include <wx/stream.h>

wxImage TestView::Picture()
{
    // The same way that a paint takes, on a bitmap of the same kind.
    if (!m_Buffer)
    {
        m_Buffer = std::make_unique<wxBitmap>(GetClientSize());
    }
    DrawBitmap();
    return m_Buffer->ConvertToImage();
}

void TestView::DrawBitmap()
{
    wxTextLineCtrl::DrawBitmap();
    ++m_Drawn;
}

void TestView::Mouse(wxEventType type, int x, int y)
{
    wxMouseEvent event(type);
    event.SetEventObject(this);
    event.SetPosition(wxPoint(x, y));
    ProcessWindowEvent(event);
}

void TestView::Key(int key, bool ctrl)
{
    wxKeyEvent event(wxEVT_KEY_DOWN);
    event.SetEventObject(this);
    event.m_keyCode = key;
    event.SetControlDown(ctrl);
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

namespace
{
class Reader : public wxProcess
{
public:
    Reader() : wxProcess(wxPROCESS_REDIRECT) {}
    void OnTerminate(int, int) override { m_Ended = true; }

    bool m_Ended = false;
};
} // namespace

String PastedElsewhere(const String& format)
{
    Reader         reader;
    const wxString command = "xclip -selection clipboard -o -t " + wxtToWx(format);
    EXPECT_GT(wxExecute(command, wxEXEC_ASYNC, &reader), 0) << "xclip is missing";
    String     text;
    const auto drain = [&]
    {
        while (reader.IsInputAvailable())
        {
            char buffer[4096];
            reader.GetInputStream()->Read(buffer, sizeof buffer);
            text.append(buffer, reader.GetInputStream()->LastRead());
        }
    };
    EXPECT_TRUE(WaitFor(
        [&]
        {
            drain();
            return reader.m_Ended;
        }));
    drain();
    return text;
}
