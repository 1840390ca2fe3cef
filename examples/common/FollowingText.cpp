#include "common/FollowingText.h"

#include "appearance/wxtMenuKey.h"
#include "textviews/wxTextLineSearchPanel.h"
#include "vesta/Application.h"

#include <wx/menu.h>
#include <wx/sizer.h>

#include <set>

namespace
{
const char* const kSection = "Logs";
const char* const kReadable = "ReadableSelection";
const char* const kTextSize = "TextSize";

std::set<FollowingText*>& All()
{
    static std::set<FollowingText*> s_All;
    return s_All;
}
} // namespace

FollowingText::FollowingText(wxWindow* parent) : wxTextLineCtrl(parent)
{
    All().insert(this);
    SetReadableSelection(IsReadableWanted());
    const String size = Application::the_Application->Options().GetValue(kSection, kTextSize);
    SetTextSize(static_cast<int>(size.ToInt(GetTextSize())));
    Bind(wxtEVT_TEXT_SIZE, [](wxCommandEvent& event) { WantTextSize(event.GetInt()); });
    SetFollowEnd(true);
    ShowFollowButton(true);
    auto* const sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(this, 1, wxEXPAND);
    sizer->Add(GetSearchPanel(), 0, wxEXPAND);
    parent->SetSizer(sizer);
}

FollowingText::~FollowingText()
{
    All().erase(this);
}

bool FollowingText::IsReadableWanted()
{
    return Application::the_Application->Options().GetBool(kSection, kReadable, true);
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
        {wxTextLineCtrl::id_SelectAll, wxGetTranslation("Select &All"), "Ctrl+A"},
        {wxTextLineCtrl::id_Search, wxGetTranslation("&Search..."), "Ctrl+F"},
    };
    for (const auto& entry : entries)
    {
        wxtShowMenuKey(*menu.Append(entry.id, entry.label), entry.key);
    }
}

void AppendSave(wxMenu& menu, const wxString& label)
{
    wxtShowMenuKey(*menu.Append(wxTextLineCtrl::id_SaveAs, label), "Ctrl+S");
}
