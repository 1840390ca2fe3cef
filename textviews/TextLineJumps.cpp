#include "appearance/wxTolvanString.h"
#include "internal/windows/UpperFloors.h"
#include "textviews/gutter/Gutter.h"
#include "textviews/jumps/LineTarget.h"
#include "textviews/lines/LineStore.h"
#include "textviews/lines/TextGeometry.h"
#include "textviews/lines/TextSelection.h"
#include "textviews/rules/Ruling.h"
#include "textviews/wrap/Wrapping.h"
#include "textviews/wxTextLineCtrl.h"
#include "vesta/CallEntry.h"

#include <wx/intl.h>
#include <wx/menu.h>
#include <wx/weakref.h>

#include <algorithm>

namespace
{
const char* const kPositionName = "GoToLine"; // where the dialog stood

/// A command in the context menu, and its key; no other modifier is held with it.
struct ReadingCommand
{
    int         id; ///< 0 for a separator.
    const char* label;
    int         key; ///< 0: none.
    int         modifiers;
    enum Needs
    {
        kNothing,
        kTick,
        kBookmark,
        kRules
    } needs;
};

constexpr ReadingCommand kCommands[] = {
    {0, nullptr, 0, 0, ReadingCommand::kNothing},
    {wxTextLineCtrl::id_GoToLine, wxTRANSLATE("Go to Line...\tCtrl+G"), 'G', wxMOD_CONTROL,
     ReadingCommand::kNothing},
    {0, nullptr, 0, 0, ReadingCommand::kNothing},
    {wxTextLineCtrl::id_ToggleBookmark, wxTRANSLATE("Set or Remove Bookmark\tCtrl+F2"), WXK_F2,
     wxMOD_CONTROL, ReadingCommand::kNothing},
    {wxTextLineCtrl::id_NextBookmark, wxTRANSLATE("Next Bookmark\tF2"), WXK_F2, wxMOD_NONE,
     ReadingCommand::kBookmark},
    {wxTextLineCtrl::id_PreviousBookmark, wxTRANSLATE("Previous Bookmark\tShift+F2"), WXK_F2,
     wxMOD_SHIFT, ReadingCommand::kBookmark},
    {wxTextLineCtrl::id_RemoveBookmarks, wxTRANSLATE("Remove All Bookmarks"), 0, 0,
     ReadingCommand::kBookmark},
    {0, nullptr, 0, 0, ReadingCommand::kNothing},
    {wxTextLineCtrl::id_WrapLines, wxTRANSLATE("Wrap Long Lines\tAlt+Z"), 'Z', wxMOD_ALT,
     ReadingCommand::kTick},
    {0, nullptr, 0, 0, ReadingCommand::kRules},
    {wxTextLineCtrl::id_NextError, wxTRANSLATE("Next Error\tF8"), WXK_F8, wxMOD_NONE,
     ReadingCommand::kRules},
    {wxTextLineCtrl::id_PreviousError, wxTRANSLATE("Previous Error\tShift+F8"), WXK_F8, wxMOD_SHIFT,
     ReadingCommand::kRules},
};

textviews::NumberedLines Numbered(const textviews::Gutter& gutter, int count, int current)
{
    return {gutter.NumberOf(0), gutter.NumberOf(count - 1), gutter.NumberOf(current)};
}

wxString LinesText(const textviews::NumberedLines& lines)
{
    if (lines.last < lines.first)
    {
        return wxGetTranslation("There are no lines any more.");
    }
    return wxString::Format(wxGetTranslation("The lines are %lld to %lld."),
                            static_cast<long long>(lines.first),
                            static_cast<long long>(lines.last));
}
} // namespace

bool wxTextLineCtrl::IsPlaceChosen() const
{
    return m_MenuLine >= 0 || m_Selection->Place() != -1;
}

// Where the keys are: there is no caret.
int wxTextLineCtrl::CurrentLine() const
{
    if (IsPlaceChosen())
    {
        return m_MenuLine >= 0 ? m_MenuLine : m_Selection->Place();
    }
    const textviews::TextGeometry geometry = Geometry();
    const int                     first = geometry.WholeLine(true);
    const bool isHitSeen = m_MarkedLine >= first && m_MarkedLine <= geometry.WholeLine(false);
    return isHitSeen ? m_MarkedLine : first;
}

void wxTextLineCtrl::ShowInMiddle(int line)
{
    AdjustScrollbars(); // they may take part of the view away
    if (IsWrapped())
    {
        GoToTop(Wrap().Around({line, 0}, Wrap().Rows().RowsOf(line)));
        return;
    }
    const long long top = static_cast<long long>(line) * m_LineHeight;
    ScrollTo(wxVERTICAL, top - std::max(GetClientSize().y - m_LineHeight, 0) / 2);
}

void wxTextLineCtrl::GoToLine(int line)
{
    CALL_ENTRY("wxTextLineCtrl::GoToLine");
    if (!IsLine(line, "GoToLine"))
    {
        return;
    }
    m_Selection->Click(line, m_Lines->Count());
    ShowInMiddle(line);
    m_FollowEnd = false; // the next line could push it out of sight
    TellFollowing();
    GatherLater();
}

// Lines may come and go while the user is asked: what they say is about those that they see.
void wxTextLineCtrl::AskForLine()
{
    CALL_ENTRY("wxTextLineCtrl::AskForLine");
    if (m_Lines->Count() == 0)
    {
        return;
    }
    const wxWeakRef<wxTextLineCtrl> self(this);
    const auto                      lines = [self]
    { return Numbered(*self->m_Gutter, self->m_Lines->Count(), self->CurrentLine()); };
    const auto problem = [self, lines](const wxString& text)
    {
        return !self || textviews::LineAskedFor(wxtFromWx(text), lines())
                   ? wxString()
                   : wxString::Format(wxGetTranslation("There is no line \"%s\"."), text) + "\n" +
                         LinesText(lines());
    };
    wxString       text = wxString() << static_cast<long long>(lines().current);
    const wxString message =
        LinesText(lines()) + "\n" +
        wxGetTranslation("A number, +100 or -5 for lines from here on, or 50% of the way.");
    if (!internal::g_UpperFloors.askText(wxGetTopLevelParent(this), message,
                                         wxGetTranslation("Go to Line"), text, kPositionName,
                                         problem) ||
        !self)
    {
        return;
    }
    if (const auto number = textviews::LineAskedFor(wxtFromWx(text), lines()))
    {
        GoToLine(static_cast<int>(*number - m_Gutter->NumberOf(0)));
    }
}

void wxTextLineCtrl::SetBookmark(int line, bool on)
{
    CALL_ENTRY("wxTextLineCtrl::SetBookmark");
    if (IsLine(line, "SetBookmark"))
    {
        m_Gutter->bookmarks.Set(line, on);
        Watch(m_Gutter->bookmarks, !m_Gutter->bookmarks.IsEmpty());
        FitGutter();
        TellLook();
        GatherLater();
    }
}

bool wxTextLineCtrl::HasBookmark(int line) const
{
    return m_Gutter->bookmarks.Has(line);
}

std::vector<int> wxTextLineCtrl::GetBookmarks() const
{
    CALL_ENTRY("wxTextLineCtrl::GetBookmarks");
    return m_Gutter->bookmarks.All();
}

void wxTextLineCtrl::RemoveBookmarks()
{
    CALL_ENTRY("wxTextLineCtrl::RemoveBookmarks");
    m_Gutter->bookmarks.Clear();
    Watch(m_Gutter->bookmarks, false);
    FitGutter();
    TellLook();
    GatherLater();
}

bool wxTextLineCtrl::GoToBookmark(bool forward)
{
    CALL_ENTRY("wxTextLineCtrl::GoToBookmark");
    // From no selection on, the first line that is seen may be the next one.
    const int  from = CurrentLine() - (IsPlaceChosen() || !forward ? 0 : 1);
    const auto line = m_Gutter->bookmarks.Next(from, forward);
    if (line)
    {
        GoToLine(*line);
    }
    return line.has_value();
}

void wxTextLineCtrl::ToggleBookmark()
{
    if (m_Lines->Count() > 0)
    {
        const int line = CurrentLine();
        SetBookmark(line, !HasBookmark(line));
    }
}

void wxTextLineCtrl::OfferReadingCommands(bool offer)
{
    CALL_ENTRY("wxTextLineCtrl::OfferReadingCommands");
    m_Gutter->offersCommands = offer;
}

bool wxTextLineCtrl::OffersReadingCommands() const
{
    CALL_ENTRY("wxTextLineCtrl::OffersReadingCommands");
    return Whole().m_Gutter->offersCommands;
}

int wxTextLineCtrl::ReadingCommandOf(const wxKeyEvent& event)
{
    CALL_ENTRY("wxTextLineCtrl::ReadingCommandOf");
    const auto* const command = std::find_if(std::begin(kCommands), std::end(kCommands),
                                             [&event](const ReadingCommand& each)
                                             {
                                                 return each.key != 0 &&
                                                        each.key == event.GetKeyCode() &&
                                                        each.modifiers == event.GetModifiers();
                                             });
    return command == std::end(kCommands) ? static_cast<int>(wxID_NONE) : command->id;
}

void wxTextLineCtrl::AddReadingCommands(wxMenu& menu) const
{
    const wxTextLineCtrl& whole = Whole();
    if (!OffersReadingCommands())
    {
        return;
    }
    for (const ReadingCommand& command : kCommands)
    {
        if (command.needs == ReadingCommand::kRules && !whole.m_Ruling->index.CanFind())
        {
            continue;
        }
        if (command.id == 0)
        {
            menu.AppendSeparator();
            continue;
        }
        if (command.needs == ReadingCommand::kTick)
        {
            menu.AppendCheckItem(command.id, wxGetTranslation(command.label))->Check(IsWrapped());
            continue;
        }
        menu.Append(command.id, wxGetTranslation(command.label))
            ->Enable(command.needs != ReadingCommand::kBookmark ||
                     !whole.m_Gutter->bookmarks.IsEmpty());
    }
}

bool wxTextLineCtrl::RunReadingCommand(int id)
{
    switch (id)
    {
    case id_GoToLine:
        // Not in the middle of a key or a menu: the view may be gone when the user has answered.
        CallAfter(&wxTextLineCtrl::AskForLine);
        return true;
    case id_ToggleBookmark:
        ToggleBookmark();
        return true;
    case id_NextBookmark:
    case id_PreviousBookmark:
        GoToBookmark(id == id_NextBookmark);
        return true;
    case id_RemoveBookmarks:
        RemoveBookmarks();
        return true;
    case id_WrapLines:
        ChangeWrap();
        return true;
    case id_NextError:
    case id_PreviousError:
        FindError(id == id_NextError);
        return true;
    default:
        return false;
    }
}
