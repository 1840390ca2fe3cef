#include "common/FollowingText.h"

#include "appearance/wxtMenuKey.h"
#include "common/KeptRules.h"
#include "textviews/wxTextLinePanes.h"
#include "vesta/Application.h"

#include <wx/menu.h>
#include <wx/sizer.h>

#include <set>

namespace
{
const char* const kSection = "Logs";
const char* const kReadable = "ReadableSelection";
const char* const kTextSize = "TextSize";
const char* const kEscapes = "EscapeSequences";

constexpr struct
{
    wxTextLineCtrl::Escapes escapes;
    const char*             name; ///< As it is kept.
} kEscapeNames[] = {{wxTextLineCtrl::Escapes::Coloured, "coloured"},
                    {wxTextLineCtrl::Escapes::Plain, "plain"},
                    {wxTextLineCtrl::Escapes::Raw, "raw"}};
const char* const kLineNumbers = "LineNumbers";
const char* const kArrivalTimes = "ArrivalTimes";
const char* const kWrap = "WrapLines";

std::set<FollowingText*>& All()
{
    static std::set<FollowingText*> s_All;
    return s_All;
}

bool IsWanted(const char* key)
{
    return Application::the_Application->Options().GetBool(kSection, key, false);
}

void Want(const char* key, bool wanted, void (wxTextLineCtrl::*show)(bool))
{
    Application::the_Application->Options().SetValue(kSection, key, wanted ? "1" : "0");
    for (FollowingText* const text : All())
    {
        (text->*show)(wanted);
    }
}
} // namespace

FollowingText::FollowingText(wxWindow* parent) : FollowingText(new wxTextLinePanes(parent))
{
    auto* const sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(GetParent()->GetParent(), 1, wxEXPAND);
    parent->SetSizer(sizer);
}

FollowingText::FollowingText(wxTextLinePanes* panes) : wxTextLineCtrl(panes->GetViewParent())
{
    All().insert(this);
    SetReadableSelection(IsReadableWanted());
    SetEscapes(WantedEscapes());
    const String size = Application::the_Application->Options().GetValue(kSection, kTextSize);
    SetTextSize(static_cast<int>(size.ToInt(GetTextSize())));
    ShowLineNumbers(AreNumbersWanted());
    ShowArrivalTimes(AreTimesWanted());
    SetWrap(IsWrapWanted());
    OfferReadingCommands(true);
    SelectWithinLines(true);
    SetRules(ShownLogRules());
    ShowOverview(IsOverviewWanted());
    Bind(wxtEVT_TEXT_SIZE, [](wxCommandEvent& event) { WantTextSize(event.GetInt()); });
    Bind(wxtEVT_TEXT_WRAP, [](wxCommandEvent& event) { WantWrap(event.GetInt() != 0); });
    SetFollowEnd(true);
    ShowFollowButton(true);
    panes->ShowView(this);
}

FollowingText::~FollowingText()
{
    All().erase(this);
}

void FollowingText::ForEach(const std::function<void(FollowingText&)>& act)
{
    for (FollowingText* const text : All())
    {
        act(*text);
    }
}

bool FollowingText::IsReadableWanted()
{
    return Application::the_Application->Options().GetBool(kSection, kReadable, true);
}

bool FollowingText::AreNumbersWanted()
{
    return IsWanted(kLineNumbers);
}

void FollowingText::WantNumbers(bool wanted)
{
    Want(kLineNumbers, wanted, &wxTextLineCtrl::ShowLineNumbers);
}

bool FollowingText::AreTimesWanted()
{
    return IsWanted(kArrivalTimes);
}

void FollowingText::WantTimes(bool wanted)
{
    Want(kArrivalTimes, wanted, &wxTextLineCtrl::ShowArrivalTimes);
}

bool FollowingText::IsWrapWanted()
{
    return IsWanted(kWrap);
}

void FollowingText::WantWrap(bool wanted)
{
    Want(kWrap, wanted, &wxTextLineCtrl::SetWrap);
}

void FollowingText::WantTextSize(int points)
{
    Application::the_Application->Options().SetValue(kSection, kTextSize, String::FromInt(points));
    for (FollowingText* const text : All())
    {
        text->SetTextSize(points);
    }
}

void FollowingText::WantReadable(bool wanted)
{
    Application::the_Application->Options().SetValue(kSection, kReadable, wanted ? "1" : "0");
    for (FollowingText* const text : All())
    {
        text->SetReadableSelection(wanted);
    }
}

wxTextLineCtrl::Escapes FollowingText::WantedEscapes()
{
    const String kept = Application::the_Application->Options().GetValue(kSection, kEscapes);
    for (const auto& entry : kEscapeNames)
    {
        if (kept == entry.name)
        {
            return entry.escapes;
        }
    }
    return Escapes::Coloured;
}

void FollowingText::WantEscapes(Escapes wanted)
{
    for (const auto& entry : kEscapeNames)
    {
        if (entry.escapes == wanted)
        {
            Application::the_Application->Options().SetValue(kSection, kEscapes, entry.name);
        }
    }
    for (FollowingText* const text : All())
    {
        text->SetEscapes(wanted);
    }
}

int FollowingText::LinesInSight() const
{
    return GetClientSize().y / m_LineHeight;
}

int FollowingText::FirstSeenLine() const
{
    return GetScrollPos(wxVERTICAL) / m_LineHeight;
}

void FollowingText::ShowFrom(int line)
{
    ScrollTo(wxVERTICAL, static_cast<long long>(line) * m_LineHeight);
}

int FollowingText::Add(const String& line)
{
    return Append(line, false);
}

void AppendTextCommands(wxMenu& menu)
{
    const struct
    {
        int      id;
        wxString label;
        wxString key;
    } entries[] = {
        {wxTextLineCtrl::id_Copy, wxGetTranslation("&Copy"), "Ctrl+C"},
        {wxTextLineCtrl::id_CopyPlain, wxGetTranslation("Copy as Plain &Text"), ""},
        {wxTextLineCtrl::id_SelectAll, wxGetTranslation("Select &All"), "Ctrl+A"},
        {wxTextLineCtrl::id_Search, wxGetTranslation("&Search..."), "Ctrl+F"},
        {wxTextLineCtrl::id_OnlyMatching, wxGetTranslation("Only &Matching Lines"), "Ctrl+Shift+F"},
    };
    for (const auto& entry : entries)
    {
        wxtShowMenuKey(*menu.Append(entry.id, entry.label), entry.key);
    }
    menu.Bind(wxEVT_MENU_OPEN,
              [&menu](wxMenuEvent& event)
              {
                  event.Skip();
                  menu.Enable(wxTextLineCtrl::id_CopyPlain,
                              FollowingText::WantedEscapes() != wxTextLineCtrl::Escapes::Raw);
              });
}

void AppendSave(wxMenu& menu, const wxString& label)
{
    wxtShowMenuKey(*menu.Append(wxTextLineCtrl::id_SaveAs, label), "Ctrl+S");
}
