#include "textviews/wxTextLinePanes.h"

#include "appearance/wxtStockControls.h"
#include "textviews/matching/MatchesView.h"
#include "textviews/wxTextLineSearchPanel.h"
#include "vesta/Application.h"
#include "vesta/CallEntry.h"

#include <wx/sizer.h>

#include <algorithm>

namespace
{
constexpr int     kFirstHeight = 180; // pixels
constexpr int     kLeastLines = 3;    // of the view, where the lower pane can become so low
const char* const kSection = "TextSearch";
const char* const kHeight = "MatchingHeight"; // pixels
const char* const kBefore = "LinesBefore";
const char* const kAfter = "LinesAfter";

// A program may have none.
OptionsFile* Options()
{
    return Application::the_Application ? &Application::the_Application->Options() : nullptr;
}

void Keep(const char* key, int number)
{
    if (OptionsFile* const options = Options())
    {
        options->SetValue(kSection, key, String::FromInt(number));
    }
}
} // namespace

wxTextLinePanes::wxTextLinePanes(wxWindow* parent)
    : wxtSplitterWindow(parent, ""), m_Upper(new wxtPanel(this)), m_Height(kFirstHeight)
{
    CALL_ENTRY("wxTextLinePanes::wxTextLinePanes");
    Recall();
    Initialize(m_Upper);
    Bind(wxEVT_SIZE, &wxTextLinePanes::OnPaneSize, this);
    // Both: a size event in the middle of a drag puts the sash where the height has it.
    Bind(wxEVT_SPLITTER_SASH_POS_CHANGING, &wxTextLinePanes::OnSashMoved, this);
    Bind(wxEVT_SPLITTER_SASH_POS_CHANGED, &wxTextLinePanes::OnSashMoved, this);
    Bind(wxEVT_CHAR_HOOK, &wxTextLinePanes::OnPaneKey, this);
}

// The matches before the view, whose lines they are; all while this can still hear of it.
wxTextLinePanes::~wxTextLinePanes()
{
    CALL_ENTRY("wxTextLinePanes::~wxTextLinePanes");
    if (m_Matches)
    {
        m_Matches->Destroy();
    }
    DestroyChildren();
}

void wxTextLinePanes::Recall()
{
    if (const OptionsFile* const options = Options())
    {
        m_Height = options->GetInt(kSection, kHeight, m_Height);
        m_Before = options->GetInt(kSection, kBefore, m_Before);
        m_After = options->GetInt(kSection, kAfter, m_After);
    }
    SetLinesAround(m_Before, m_After);
}

wxWindow* wxTextLinePanes::GetViewParent() const
{
    return m_Upper;
}

void wxTextLinePanes::ShowView(wxTextLineCtrl* view)
{
    CALL_ENTRY("wxTextLinePanes::ShowView");
    m_View = view;
    auto* const sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(view, 1, wxEXPAND);
    sizer->Add(view->GetSearchPanel(), 0, wxEXPAND);
    m_Upper->SetSizer(sizer);
    view->Bind(wxEVT_DESTROY,
               [this, view](wxWindowDestroyEvent& event)
               {
                   event.Skip();
                   if (event.GetEventObject() == view && m_Matches)
                   {
                       ShowMatches(false);
                   }
               });
    const wxWeakRef<wxTextLinePanes> self(this);
    view->GetSearchPanel()->OfferOnlyMatching(
        [self](bool on)
        {
            if (self)
            {
                self->ShowMatches(on);
            }
        });
}

textviews::MatchesView* wxTextLinePanes::Matches() const
{
    return static_cast<textviews::MatchesView*>(m_Matches.get());
}

wxTextLineCtrl* wxTextLinePanes::GetMatches() const
{
    return Matches();
}

bool wxTextLinePanes::IsMatchingComplete() const
{
    return !Matches() || Matches()->IsComplete();
}

void wxTextLinePanes::ShowMatches(bool show)
{
    auto* const view = static_cast<wxTextLineCtrl*>(m_View.get());
    if (show == (Matches() != nullptr) || (show && !view))
    {
        return;
    }
    if (!show)
    {
        textviews::MatchesView* const matches = Matches();
        if (matches->HasFocus() && view)
        {
            view->SetFocus(); // before what has the keyboard goes
        }
        // A key or the menu of it may be what ends it.
        const wxWeakRef<wxWindow> ended = m_Matches;
        m_Matches = nullptr;
        if (ended)
        {
            matches->Leave();
            Unsplit(matches);
            CallAfter(
                [ended]
                {
                    if (ended)
                    {
                        ended->Destroy();
                    }
                });
        }
        return;
    }
    Recall(); // another view of the program may have changed it
    auto* const matches = new textviews::MatchesView(this, *view);
    m_Matches = matches;
    matches->SetAround({m_Before, m_After});
    matches->onAround = [this](const textviews::LinesAround& around)
    {
        m_Before = around.before;
        m_After = around.after;
        Keep(kBefore, m_Before);
        Keep(kAfter, m_After);
    };
    SplitHorizontally(m_Upper, matches, -m_Height);
    PlaceSash();
}

void wxTextLinePanes::SetOnlyMatching(bool on)
{
    CALL_ENTRY("wxTextLinePanes::SetOnlyMatching");
    if (auto* const view = static_cast<wxTextLineCtrl*>(m_View.get()))
    {
        view->GetSearchPanel()->SetOnlyMatching(on);
    }
}

bool wxTextLinePanes::GetOnlyMatching() const
{
    return Matches() != nullptr;
}

void wxTextLinePanes::SetLinesAround(int before, int after)
{
    CALL_ENTRY("wxTextLinePanes::SetLinesAround");
    m_Before = std::clamp(before, 0, k_MostAround);
    m_After = std::clamp(after, 0, k_MostAround);
    if (Matches())
    {
        Matches()->SetAround({m_Before, m_After});
    }
}

void wxTextLinePanes::SetMatchesHeight(int height)
{
    CALL_ENTRY("wxTextLinePanes::SetMatchesHeight");
    m_Height = std::max(height, GetMinimumPaneSize());
    PlaceSash();
}

// Some lines, with the bar below them.
int wxTextLinePanes::LeastUpper() const
{
    const auto* const     view = static_cast<const wxTextLineCtrl*>(m_View.get());
    const wxWindow* const bar = view ? view->GetSearchPanel() : nullptr;
    const int             lines = view ? kLeastLines * view->GetCharHeight() : 0;
    return std::max(lines + (bar && bar->IsShown() ? bar->GetSize().y : 0), GetMinimumPaneSize());
}

// The lower pane keeps its height as long as the upper one has room; what the window gains or loses
// is the upper one's.
void wxTextLinePanes::PlaceSash()
{
    const int least = GetMinimumPaneSize();
    if (IsSplit())
    {
        const int room = GetClientSize().y - GetSashSize();
        const int lower = std::min(m_Height, room - LeastUpper());
        SetSashPosition(std::max(room - std::max(lower, least), least));
    }
}

void wxTextLinePanes::OnPaneSize(wxSizeEvent& event)
{
    CALL_ENTRY("wxTextLinePanes::OnPaneSize");
    OnSize(event);
    PlaceSash();
}

void wxTextLinePanes::OnSashMoved(wxSplitterEvent& event)
{
    CALL_ENTRY("wxTextLinePanes::OnSashMoved");
    event.Skip();
    if (event.GetEventObject() != this || !IsSplit())
    {
        return;
    }
    // The toolkit moves it, too, when the window is too small for a moment.
    m_IsDragged = m_IsDragged || HasCapture();
    if (m_IsDragged)
    {
        m_Height = GetClientSize().y - GetSashSize() - event.GetSashPosition();
        if (event.GetEventType() == wxEVT_SPLITTER_SASH_POS_CHANGED)
        {
            m_IsDragged = false;
            Keep(kHeight, m_Height);
        }
    }
}

void wxTextLinePanes::OnPaneKey(wxKeyEvent& event)
{
    if (event.GetKeyCode() == WXK_F6 && !event.HasAnyModifiers() && IsSplit())
    {
        SwitchPane();
        return;
    }
    event.Skip();
}
