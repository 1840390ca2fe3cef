#include "dialogs/wxTextFromUserDlg.h"

#include "appearance/wxtTextCtrl.h"
#include "dialogs/messages/MessageText.h"
#include "dialogs/wxQuestion.h"
#include "internal/windows/Geometry.h"
#include "internal/windows/UpperFloors.h"
#include "vesta/CallEntry.h"

#include <wx/sizer.h>

#include <algorithm>
#include <functional>
#include <utility>

namespace
{
// Pixels.
constexpr int kBorder = 12;
constexpr int kFieldWidth = 320;
constexpr int kMessageWidth = 480; // before its lines are broken

// The field and the buttons must find room on the display too.
wxSize MessageLimit(const wxWindow* window)
{
    const wxSize area = internal::DisplayAreaOf(window).GetSize();
    return wxSize(std::min(kMessageWidth, area.x / 2), area.y * 3 / 5);
}

using Problem = std::function<wxString(const wxString&)>;

/// Tells what is wrong with a text, and leaves the dialog open.
class _CheckedText : public wxValidator
{
public:
    explicit _CheckedText(Problem problem) : m_Problem(std::move(problem)) {}

    wxObject* Clone() const override { return new _CheckedText(m_Problem); }
    bool      Validate(wxWindow* parent) override
    {
        const auto* const field = dynamic_cast<const wxTextEntry*>(GetWindow());
        const wxString    problem = field ? m_Problem(field->GetValue()) : wxString();
        if (!problem.empty())
        {
            wxTellProblem(problem, parent);
        }
        return problem.empty();
    }
    bool TransferToWindow() override { return true; }
    bool TransferFromWindow() override { return true; }

private:
    Problem m_Problem;
};

bool AskText(wxWindow* parent, const wxString& message, const wxString& title, wxString& text,
             const String& positionName, const Problem& problem)
{
    return wxTolvanTextFromUser(parent, message, title, text, positionName, _CheckedText(problem));
}

const bool kAsksForBelow = (internal::g_UpperFloors.askText = &AskText, true);
} // namespace

wxTextFromUserDlg::wxTextFromUserDlg(wxWindow* parent, const wxString& message,
                                     const wxString& title, const wxString& value,
                                     const String& positionName, long style,
                                     const wxValidator& validator)
    : wxTolvanDlg(parent, title, positionName, true)
{
    CALL_ENTRY("wxTextFromUserDlg::wxTextFromUserDlg");
    CreateControls(message, value, style, validator);
    Fit();
    // No height but its own makes sense.
    SetSizeHints(GetSize().x, GetSize().y, wxDefaultCoord, GetSize().y);
    CentreOnParent();
}

void wxTextFromUserDlg::CreateControls(const wxString& message, const wxString& value, long style,
                                       const wxValidator& validator)
{
    wxBoxSizer* const column = StartControls();
    m_Field = new wxtTextCtrl(this, wxID_ANY, value, wxDefaultPosition, wxSize(kFieldWidth, -1),
                              style, validator);
    m_Field->SetFocus();
    m_Field->SelectAll();
    column->Add(m_Field, wxSizerFlags().Expand().Border(wxALL, kBorder));
    AddButtonRow(column, kBorder);
    if (!message.empty())
    {
        // Made last: a long one takes the keyboard, after the field and the buttons.
        column->Insert(0, dialogs::NewMessage(this, message, MessageLimit(this)),
                       wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT | wxTOP, kBorder));
    }
}

wxString wxTextFromUserDlg::GetValue() const
{
    return m_Field->GetValue();
}

void wxTextFromUserDlg::SetValue(const wxString& value)
{
    CALL_ENTRY("wxTextFromUserDlg::SetValue");
    m_Field->SetValue(value);
    m_Field->SelectAll();
}

bool wxTolvanTextFromUser(wxWindow* parent, const wxString& message, const wxString& title,
                          wxString& text, const String& positionName, const wxValidator& validator)
{
    CALL_ENTRY("wxTolvanTextFromUser");
    wxTextFromUserDlg dialog(parent, message, title, text, positionName, 0, validator);
    if (dialog.ShowModal() != wxID_OK)
    {
        return false;
    }
    text = dialog.GetValue();
    return true;
}
