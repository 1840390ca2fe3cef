#include "dialogs/messages/MessageText.h"

#include "appearance/wxtStockControls.h"
#include "internal/port/Scrollbars.h"
#include "internal/windows/Geometry.h"

#include <wx/control.h>
#include <wx/dcclient.h>
#include <wx/textctrl.h>
#include <wx/tokenzr.h>

#include <algorithm>
#include <cstddef>

namespace dialogs
{
namespace
{
// Characters; more fill any screen, and measuring them would hold up the dialog.
constexpr size_t kMostMeasured = 4000;

// Characters; a paragraph no longer than this is wrapped by the toolkit, whose cost grows with the
// square of the length.
constexpr size_t kMostWrapped = 200;

constexpr int kScrollbarRoom = 30; // pixels

// Scrolls and wraps within words too; the user can select and copy.
class MessageView : public wxTextCtrl, public wxtColorManaged
{
public:
    MessageView(wxWindow* parent, const wxString& text, const wxSize& size)
        : wxTextCtrl(parent, wxID_ANY, "", wxDefaultPosition, size,
                     wxTE_MULTILINE | wxTE_READONLY | wxTE_BESTWRAP | wxBORDER_NONE),
          wxtColorManaged(this)
    {
        SetMinSize(size);
        ChangeValue(text);
        SetInsertionPoint(0);
    }

protected:
    void DoMoveWindow(int x, int y, int width, int height) override
    {
        internal::FitScrollbars(*this, {width, height});
        wxTextCtrl::DoMoveWindow(x, y, width, height);
    }
};

// Measured here: before it is shown the label itself may not know its font yet.
bool Fits(wxtStaticText& label, const wxSize& limit)
{
    wxClientDC dc(&label);
    dc.SetFont(label.GetFont());
    const wxSize size = dc.GetMultiLineTextExtent(label.GetLabelText());
    return size.x <= limit.x && size.y <= limit.y;
}

// What neither a label nor a text can hold is shown as a blank.
wxString Displayable(const wxString& message)
{
    wxString text = message;
    std::replace(text.begin(), text.end(), wxUniChar(0), wxUniChar(' '));
    text.Replace("\r\n", "\n");
    text.Replace("\r", "\n");
    return text;
}

wxWindow* NewLabel(wxWindow* parent, const wxString& text, const wxSize& limit)
{
    if (text.length() > kMostMeasured)
    {
        return nullptr;
    }
    auto* const label = new wxtStaticText(parent, wxID_ANY, wxControl::EscapeMnemonics(text));
    if (!Fits(*label, limit))
    {
        label->Wrap(limit.x);
    }
    if (!Fits(*label, limit))
    {
        label->Destroy();
        return nullptr;
    }
    return label;
}

// Where the line that begins at `start` ends: behind its last blank if that is not too early, so
// that no text is lost. `ends`: how far the text reaches after each of its characters, pixels.
size_t EndOfLine(const wxString& text, const wxArrayInt& ends, size_t start, int width)
{
    const int  origin = start ? ends[start - 1] : 0;
    const auto last = std::upper_bound(ends.begin() + static_cast<std::ptrdiff_t>(start),
                                       ends.end(), origin + width);
    const auto end = std::max(start + 1, static_cast<size_t>(last - ends.begin()));
    if (end >= text.length())
    {
        return text.length();
    }
    const size_t blank = text.rfind(' ', end - 1);
    return blank != wxString::npos && blank >= start + (end - start) / 2 ? blank + 1 : end;
}

wxString BrokenParagraph(const wxDC& dc, const wxString& text, int width)
{
    wxArrayInt ends;
    if (text.length() <= kMostWrapped || !dc.GetPartialTextExtents(text, ends) ||
        ends.size() != text.length())
    {
        return text;
    }
    wxString broken;
    for (size_t start = 0, end = 0; start < text.length(); start = end)
    {
        end = EndOfLine(text, ends, start, width);
        broken += broken.empty() ? wxString() : wxString("\n");
        broken += text.substr(start, end - start);
    }
    return broken;
}

wxString Broken(wxWindow* parent, const wxString& text, int width)
{
    wxClientDC dc(parent);
    dc.SetFont(parent->GetFont());
    wxString broken;
    for (wxStringTokenizer rest(text, "\n", wxTOKEN_RET_EMPTY_ALL); rest.HasMoreTokens();)
    {
        const wxString paragraph = rest.GetNextToken();
        broken += BrokenParagraph(dc, paragraph, width);
        broken += rest.HasMoreTokens() ? "\n" : "";
    }
    return broken;
}

int HeightOf(wxWindow* parent, const wxString& text, const wxSize& limit)
{
    if (text.length() > kMostMeasured)
    {
        return limit.y;
    }
    wxClientDC dc(parent);
    dc.SetFont(parent->GetFont());
    int lines = 1; // a spare one: words leave gaps at the ends of lines
    for (wxStringTokenizer rest(text, "\n", wxTOKEN_RET_EMPTY_ALL); rest.HasMoreTokens();)
    {
        lines += 1 + dc.GetTextExtent(rest.GetNextToken()).x / limit.x;
    }
    return std::min(limit.y, lines * dc.GetCharHeight());
}
} // namespace

wxSize MessageLimit(const wxWindow* window)
{
    const wxSize area = internal::DisplayAreaOf(window).GetSize();
    return wxSize(area.x / 2, area.y * 3 / 5);
}

wxWindow* NewMessage(wxWindow* parent, const wxString& message, const wxSize& limit)
{
    const wxString text = Displayable(message);
    if (wxWindow* const label = NewLabel(parent, text, limit))
    {
        return label;
    }
    const wxSize size(limit.x, HeightOf(parent, text, limit));
    return new MessageView(parent, Broken(parent, text, size.x - kScrollbarRoom), size);
}
} // namespace dialogs
