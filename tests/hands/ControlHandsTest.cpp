#include "tests/hands/HandsTest.h"

#include "gallery/FontSizes.h"

#include "appearance/wxExpandablePanel.h"
#include "appearance/wxTolvanString.h"
#include "appearance/wxtCheckBox.h"
#include "appearance/wxtCheckListBox.h"
#include "appearance/wxtComboBox.h"
#include "appearance/wxtNotebook.h"
#include "dialogs/wxTolvanDlg.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBTreeListCtrl.h"
#include "listviews/wxtListCtrl.h"
#include "textviews/wxTextLineCtrl.h"
#include "textviews/wxTextLinePanes.h"

#include <gtk/gtk.h>

#include <algorithm>

namespace
{
constexpr int kColumnWidth = 90; // of the second column of the list, as the gallery has it

// What a hand does to a control, what the host hears of it, and what a person
// sees of the control afterwards; null when that is not looked at.
struct Row
{
    const char* control;
    const char* deeds;
    const char* heard;
    const char* look = nullptr;
};

// Checked or not; what a field holds; the items of a check list; the selected
// rows of a list, and another column that comes second, its width, or how much it is wider than at
// first; of a text view what is selected, its bookmarks and the hit.
wxString LookOf(wxWindow* control)
{
    wxString look;
    if (const auto* const items = dynamic_cast<wxtCheckListBox*>(control))
    {
        look << items->GetSelection() << ":";
        for (unsigned i = 0; i < items->GetCount(); ++i)
        {
            look << (items->IsChecked(i) ? "x" : ".");
        }
    }
    else if (auto* const list = dynamic_cast<wxtListCtrl*>(control))
    {
        for (const int row : list->GetSelection())
        {
            look << row << ",";
        }
        const auto& second = list->GetColumn(1);
        const int   width = second.width;
        if (second.label != "State")
        {
            look << second.label;
        }
        else if (const int first = InFontOf(*list, kColumnWidth); width != first)
        {
            look << "w" << (width > first ? width - first : width);
        }
    }
    else if (auto* const tree = TreeOf(control))
    {
        const bool isOfJobs = tree != control;
        for (const int row : tree->GetSelection())
        {
            look << (isOfJobs ? wxtToWx(tree->GetDisplayText(row, 0)) : wxString() << row) << ",";
        }
    }
    else if (const auto* const lines = dynamic_cast<wxTextLineCtrl*>(control))
    {
        const wxString part = wxtToWx(lines->GetSelectedPart());
        look << (part.empty() ? wxString() : "'" + part + "'");
        if (lines->GetSelectionAnchor() >= 0)
        {
            look << lines->GetSelectionAnchor() << "-" << lines->GetSelectionEnd();
        }
        look << " ";
        for (const int line : lines->GetBookmarks())
        {
            look << line << ",";
        }
        if (lines->GetMarkedLine() >= 0)
        {
            look << " m" << lines->GetMarkedLine();
        }
    }
    else if (auto* const book = dynamic_cast<wxtNotebook*>(control))
    {
        for (size_t i = 0; i < book->GetPageCount(); ++i)
        {
            look << book->GetPageText(i)[0]
                 << (book->GetSelection() == static_cast<int>(i) ? "*" : "");
        }
        look << wxString('+', book->PagesInWindows().size());
    }
    else if (const auto* const box = dynamic_cast<wxtCheckBox*>(control))
    {
        look = box->GetValue() ? "x" : ".";
    }
    else if (const auto* const text = dynamic_cast<wxTextEntryBase*>(control))
    {
        look = text->GetValue();
    }
    else if (auto* const panel = dynamic_cast<wxExpandablePanel*>(control->GetParent()))
    {
        look = panel->IsExpanded() ? "open" : "closed";
    }
    return look;
}

const Row kButtons[] = {
    {"Normal", "enter press release", "button"},
    {"Normal", "enter press leave release", ""},
    {"Normal", "enter press leave enter release", "button"},
    {"Normal", "leave press enter release leave", ""},
    {"Normal", "enter double", "button"},
    {"Normal", "click click click", "button button button"},
    {"Normal", "enter right press release", ""},
    {"Normal", "enter notch+ notch-", ""},
    {"Normal", "click space Return KP_Enter", "button button button button"},
    {"Normal", "click a Escape Up F4", "button"},
    {"Normal", "enter press disable release enable click", "button"},
    {"Normal", "enter press hide leave release show click", "button"},
    {"Normal", "enter press theme release", "button"},
    {"Normal", "enter press destroy leave release", "", "gone"},
    {"Default", "leave alt+d", "button"},
    {"Disabled", "enter press release double", ""},

    {"Check box", "enter press release", "check1", "x"},
    {"Check box", "enter press leave release", "", "."},
    {"Check box", "enter double", "check1 check0", "."},
    {"Check box", "enter right press release", "", "."},
    {"Check box", "click space", "check1 check0", "."},
    {"Check box", "click Return KP_Enter a Up", "check1", "x"},
    {"Check box", "enter press disable release enable click", "check1", "x"},
    {"Check box", "enter press hide leave release show click", "check1", "x"},
    {"Check box", "enter press theme release", "check1", "x"},
    {"Check box", "enter press destroy leave release", "", "gone"},

    {"Radio button", "enter press release", "radio", "x"},
    {"Radio button", "enter press leave release", "", "."},
    {"Radio button", "click space", "radio radio", "x"},
    {"Radio button", "click Left Down", "radio radio radio", "x"},
    {"Radio button", "enter press disable release enable click", "radio", "x"},
    {"Radio button", "enter press hide leave release show", "", "."},
    {"Radio button", "enter press destroy leave release", "", "gone"},
    {"Chosen", "focus Right Right Up", "radio radio radio", "."},

    {"An open panel", "enter press release", "", "closed"},
    {"An open panel", "enter press leave release", "", "open"},
    {"An open panel", "click click", "", "open"},
    {"A closed panel", "enter press theme release", "", "open"},
    {"A closed panel", "enter press destroy leave release", "", "gone"},
};

// The choice holds "Ray Tracer", "Checksum", "Another product", and so do the
// combo box and the check list.
const Row kFields[] = {
    {"choice", "focus F4 opened F4 closed", "open close", "Ray Tracer"},
    {"choice", "focus F4 opened Escape closed Tab shift+Tab Down", "open close choice1 combo1",
     "Checksum"},
    {"choice", "focus alt+Down opened alt+Up closed", "open close", "Ray Tracer"},
    {"choice", "focus F4 opened Return closed", "open close choice0 combo0", "Ray Tracer"},
    {"choice", "focus F4 opened Down Down KP_Enter closed", "open close choice2 combo2",
     "Another product"},
    {"choice", "focus F4 opened Tab closed", "open close", "Ray Tracer"},
    {"choice", "click opened leave press release closed", "open close", "Ray Tracer"},
    {"choice", "click opened click closed", "open close", "Ray Tracer"},
    {"choice", "focus Down Down Up", "choice1 combo1 choice2 combo2 choice1 combo1", "Checksum"},
    {"choice", "focus a", "choice2 combo2", "Another product"},
    {"choice", "focus enter notch+ notch+ notch-", "choice1 combo1 choice2 combo2 choice1 combo1",
     "Checksum"},
    {"choice", "focus F4 opened theme Down Return closed", "open close choice1 combo1", "Checksum"},
    {"choice", "click opened disable closed", "open close", "Ray Tracer"},
    {"choice", "click opened hide closed", "open close", "Ray Tracer"},
    {"choice", "click opened destroy leave press release", "open", "gone"},
    {"choice", "focus then refill Down Up", "choice1 combo1 choice0 combo0", "Another"},

    {"choice", "click opened page-hide closed", "open close", "Ray Tracer"},
    {"choice", "click opened page-disable closed", "open close", "Ray Tracer"},
    {"choice", "focus Down F4 opened below notch+ notch- press release closed",
     "choice1 combo1 open close choice0 combo0", "Ray Tracer"},
    {"choice", "focus F4 opened Home Next Prior End Return closed", "open close choice2 combo2",
     "Another product"},

    {"comboBox", "focus F4 opened Return closed", "open close", "Combo box"},
    {"comboBox", "focus F4 opened below notch+ press release closed", "open close combo0",
     "Ray Tracer"},
    {"comboBox", "focus F4 opened below notch+ Escape closed", "open close", "Combo box"},
    {"comboBox", "focus F4 opened page-hide closed", "open close", "Combo box"},
    {"comboBox", "focus F4 opened Down Tab closed", "open close combo0", "Ray Tracer"},
    {"comboBox", "focus F4 opened theme Down Return closed", "open close combo0", "Ray Tracer"},
    {"comboBox", "focus F4 opened leave press release closed", "open close", "Combo box"},
    {"comboBox", "focus F4 opened disable closed", "open close", "Combo box"},
    {"comboBox", "focus F4 opened hide closed", "open close", "Combo box"},
    {"comboBox", "focus F4 opened destroy Escape", "open", "gone"},
    {"comboBox", "focus ctrl+a x y Return", "", "xy"},

    {"text", "focus ctrl+a x y z Return", "", "xyz"},
    {"text", "focus ctrl+a o opened theme Tab closed", "", "o"},
    {"text", "focus ctrl+a o opened Tab closed Tab Tab Tab Down", "choice1 combo1", "o"},
    {"text", "focus ctrl+a o opened shift+Tab closed space", "radio", "o"},
    {"text", "focus ctrl+a o opened hide closed", "", "o"},
    {"text", "focus ctrl+a o opened disable closed", "", "o"},
    {"text", "focus ctrl+a o opened destroy Escape closed", "", "gone"},
    {"text", "focus ctrl+a o opened page-hide closed", "", "o"},
    {"text", "focus ctrl+a o opened page-disable closed", "", "o"},
    {"text", "focus ctrl+a o opened below notch+ notch- Escape closed", "", "o"},
    {"text", "focus ctrl+a o opened Down later Return closed", "", "Off"},
    {"text", "focus ctrl+a o opened Down Up later Return", "", "o"},
    {"text", "focus ctrl+a o opened below leave later Return", "", "o"},
};

const Row kLists[] = {
    {"listBox", "focus Down Down Up", "row0 row1 row0", "0:x.."},
    {"listBox", "focus End Home Next", "row2 row0 row2", "2:x.."},
    {"listBox", "focus End space space", "row2 tick2 tick2", "2:x.."},
    {"listBox", "focus c space", "row1 tick1", "1:xx."},
    {"listBox", "focus theme End", "row2", "2:x.."},
    {"listBox", "focus End then refill space", "row2 tick2", "-1:."},
    {"listBox", "enter press disable leave release", "row1", "1:x.."},
    {"listBox", "enter press hide leave release show", "row1", "1:x.."},
    {"listBox", "box press leave release", "tick2 row2", "2:x.x"},
    {"listBox", "box double", "tick2 row2 tick2", "2:x.."},
    {"listBox", "enter double", "row1 rowdouble1", "1:x.."},
    {"listBox", "box right press release", "", "-1:x.."},
    {"listBox", "box press theme release", "tick2 row2", "2:x.x"},
    {"listBox", "enter notch+ notch-", "", "-1:x.."},

    // Its second row is selected, the hand is on the third.
    {"list", "enter press release", "deselect1 select2", "2,"},
    {"list", "enter press leave release", "deselect1 select2", "2,"},
    {"list", "click Down Down Up", "deselect1 select2 deselect2 select3 deselect3 select2", "2,"},
    {"list", "click shift+Up", "deselect1 select2 select1", "2,1,"},
    {"list", "click ctrl+Home space Return", "deselect1 select2 deselect2 select0 open0", "0,"},
    {"list", "click shift+End shift+F10", "deselect1 select2 select3 right3", "2,3,"},
    {"list", "click o theme ctrl+a", "deselect1 select2 deselect2 select3 select0 select1 select2",
     "3,0,1,2,"},
    {"list", "click ctrl+Right ctrl+shift+Right ctrl+Return", "deselect1 select2 columns1 title1",
     "2,Name"},
    {"list", "enter right press release", "deselect1 select2 right2", "2,"},
    {"list", "enter double", "deselect1 select2 open2", "2,"},
    {"list", "enter press disable leave release", "deselect1 select2", "2,"},
    {"list", "enter press hide leave release show Up", "deselect1 select2", "2,"},
    {"list", "then refill enter double", "deselect1 open2", ""},

    // Its second column is 90 pixels wide.
    {"list", "title press release", "title1", "1,"},
    {"list", "title double", "title1 title1", "1,"},
    {"list", "title press leave release", "columns0", "1,Name"},
    {"list", "title right press release", "titleright1", "1,"},
    {"list", "title press wider release", "", "1,"},
    {"list", "title press wider Escape release", "", "1,"},
    {"list", "title press wider disable freed release", "", "1,"},
    {"list", "title press wider refill release", "", ""},
    {"list", "title press disable freed release enable title press release", "title1", "1,"},
    {"list", "title press hide freed release show title press release", "title1", "1,"},
    {"list", "title press refill release", "title1", ""},
    {"list", "title notch+ notch-", "", "1,"},
    {"list", "click title press release Down", "deselect1 select2 title1 deselect2 select3", "3,"},
    {"list", "edge press wider release", "begin1 end1", "1,w60"},
    {"list", "edge press narrower release", "begin1 end1", "1,w20"},
    {"list", "edge double", "begin1 end1 columns1", nullptr},
    {"list", "edge right press wider release", "titleright2", "1,"},
    {"list", "edge press wider theme release", "begin1 end1", "1,w60"},
    {"list", "edge press disable freed wider release enable", "begin1", "1,"},
    {"list", "edge press hide freed wider release show", "begin1", "1,"},
    {"list", "edge press refill wider release", "begin1 end1", "w60"},

    // Its fourth row is selected, a job of the second node; the box is the first one's expander.
    {"tree", "box press release", "expanding0 expanded0", "15,"},
    {"tree", "box double", "expanding0 expanded0", "3,"},
    {"tree", "box press leave release", "expanding0 expanded0", "15,"},
    {"tree", "box press disable release enable press release", "expanding0 expanded0", "3,"},
    {"tree", "box press hide leave release show", "expanding0 expanded0", "15,"},
    {"tree", "box press theme release", "expanding0 expanded0", "15,"},
    {"tree", "enter press release", "deselect3 select2", "2,"},
    {"tree", "enter double", "deselect3 select2 expanding2 expanded2", "2,"},
    {"tree", "click Right Right Left",
     "deselect3 select2 expanding2 expanded2 deselect2 select3 deselect3 select2", "2,"},
    {"tree", "click Left Left Left", "deselect3 select2 deselect2 select1", "1,"},
    {"tree", "click KP_Add KP_Subtract KP_Multiply BackSpace",
     "deselect3 select2 expanding2 expanded2 expanding2 expanded2 deselect2 select1", "1,"},
};

// Three users with three jobs each, all open; the hand is on the second job of the first one. Keys
// go to the field at first; the box is the first user's expander.
const Row kJobs[] = {
    {"jobs", "enter press release", "jobs", "bounce_sh020,"},
    {"jobs", "enter double", "jobs picked", "bounce_sh020,"},
    {"jobs", "click Down KP_Enter", "jobs jobs picked", "orbit_sh010,"},
    {"jobs", "click Up Up Return Up Down", "jobs jobs jobs", "jonas (3),"},
    {"jobs", "box press release click", "jobs", "checksum_sh060,"},
    {"jobs", "focus Down Down", "jobs jobs", "bounce_sh020,"},
    {"jobs", "focus m e i Return", "jobs", "checksum_sh090,"},
    {"jobs", "focus m e i Down Down Return", "jobs jobs picked", "bounce_sh080,"},
    {"jobs", "focus m e i Return shift+Tab shift+Tab Escape", "jobs", "checksum_sh090,"},
    {"jobs", "click focus m e i Escape", "jobs jobs jobs", "bounce_sh020,"},
    {"jobs", "click focus Tab Down Tab Down", "jobs jobs", "orbit_sh010,"},
    {"jobs", "enter press hide leave release show click", "jobs", "bounce_sh020,"},
    {"jobs", "enter press disable leave release enable click", "jobs", "bounce_sh020,"},
    {"jobs", "click theme Down", "jobs jobs", "orbit_sh010,"},
    {"jobs", "enter press destroy leave release", "jobs", "gone"},
};

// The second line from the top is the fourth of the log, a warning; the sixth is an error; the
// third has a bookmark.
const Row kTexts[] = {
    {"lines", "enter press release", "", "2-2 2,"},
    {"lines", "enter press edge release", "", "2-4 2,"},
    {"lines", "enter press leave release", "", nullptr},
    {"lines", "enter double", "", "'FRAME' 2,"},
    {"lines", "click shift+Down shift+Down shift+Up", "", "2-3 2,"},
    {"lines", "click ctrl+a Escape", "", " 2,"},
    {"lines", "click ctrl+F2 edge press release ctrl+F2 F2", "", "4-4 4,"},
    {"lines", "click F8 shift+F8", "", "5-5 2,"},
    {"lines", "enter press disable leave release enable", "", "2-2 2,"},
    {"lines", "enter press hide leave release show shift+Down", "", nullptr},
    {"lines", "enter press theme edge release", "", "2-4 2,"},
    {"lines", "click ctrl+Next ctrl+Prior", "follow1 follow0", "2-2 2,"},
    {"lines", "click ctrl+minus ctrl+0", "size8 size9", "2-2 2,"},
    {"lines", "click F3 F3", "", "2-2 2, m29"},
    {"lines", "focus notch+ notch-", "", " 2,"},
    {"lines", "enter press destroy leave release", "", "gone"},

    {"overview", "enter press release", "", ""},
    {"overview", "enter press leave release", "", ""},
    {"overview", "enter press theme release", "", ""},
    {"overview", "enter press hide leave release freed show", "", ""},
    {"overview", "enter press disable leave release freed enable", "", ""},
    {"overview", "enter press destroy leave release freed", "", "gone"},
    {"overview", "enter notch+ notch-", "", ""},

    {"corner", "click click", "follow1 follow0", ""},
    {"corner", "enter press leave release", "", ""},
    {"corner", "enter press theme release", "follow1", ""},
    {"corner", "enter press hide leave release show", "", ""},
    {"corner", "enter press disable leave release enable", "", ""},
    {"corner", "enter press destroy leave release", "", "gone"},
};

// Five pages, of which the first is shown; the hand goes to their tabs.
const Row kTabs[] = {
    {"book", "enter press release", "", "S*sLFN"},
    {"book", "title press release", "page1", "Ss*LFN"},
    {"book", "title double", "page1", "Ss*LFN"},
    {"book", "title press enter release", "page1 drag1 moved0", "s*SLFN"},
    {"book", "title press wider release", "page1 drag1 moved2", "SLs*FN"},
    {"book", "title press enter held Escape release", "page1 drag1", "Ss*LFN"},
    {"book", "title press leave release freed", "page1 drag1 page1 moved-1", "SL*FN+"},
    {"book", "title press leave held Escape release", "page1 drag1", "Ss*LFN"},
    {"book", "title press leave held enter theme release", "page1 drag1 moved0", "s*SLFN"},
    {"book", "title press leave held disable freed release enable", "page1 drag1", "Ss*LFN"},
    {"book", "title press leave held hide freed release show", "page1 drag1", "Ss*LFN"},
    {"book", "title press leave held destroy freed release", "page1 drag1", "gone"},
    {"book", "title press leave held page-disable freed release page-enable", "page1 drag1",
     "Ss*LFN"},
    {"book", "title press leave held page-hide freed release page-show", "page1 drag1", "Ss*LFN"},
    {"book", "title press hide leave release show", "page1", "Ss*LFN"},
    {"book", "box press release", "closing1", "S*LFN"},
    {"book", "box press leave release", "", "S*sLFN"},
    {"book", "box press leave box release", "closing1", "S*LFN"},
    {"book", "box press disable release enable", "", "S*sLFN"},
    {"book", "box press theme release", "closing1", "S*LFN"},
    {"book", "title middle press release", "closing1", "S*LFN"},
    {"book", "title middle press leave release", "", "S*sLFN"},
    {"book", "title right press release", "tabright1", "S*sLFN"},
    {"book", "enter notch+ notch-", "", "S*sLFN"},
    {"book", "click Right Right End Home", "page1 page2 page4 page0", "S*sLFN"},
    {"book", "click Right Delete", "page1 closing1 page1", "SL*FN"},
    {"book", "click ctrl+Next ctrl+Next ctrl+Prior", "page1 page2 page1", "Ss*LFN"},
    {"book", "click ctrl+shift+Next", "moved1", "sS*LFN"},
    {"book", "wider press release ctrl+Tab ctrl+Tab", "page2 page0 page2", "SsL*FN"},
    {"book", "click Return ctrl+a x ctrl+Tab", "page1", "Ss*LFN"},
};

// What causes an event, and what causes another one afterwards.
struct Handled
{
    const char* control;
    const char* before;
    const char* deed;
    const char* heard;
    const char* again;
};

const Handled kHandledControls[] = {
    {"Normal", "", "click", "button", "click"},
    {"expander", "", "click", "button", ""},
    {"Check box", "", "click", "check1", "click"},
    {"Radio button", "", "click", "radio", "click"},
    {"An open panel", "", "click", "button", ""},
    {"choice", "focus", "Down", "choice1", "focus Up"},
    {"choice", "focus", "F4", "open", "focus F4"},
    {"choice", "focus F4 opened", "Escape", "close", "focus Down"},
    {"choice", "focus F4 opened", "Down Return", "close", "focus Up"},
    {"comboBox", "focus F4 opened", "Down Return", "text", "focus Down"},
    {"comboBox", "focus", "a", "text", "focus F4"},
    {"text", "focus", "ctrl+a 9", "text", ""},
};

const Handled kHandledViews[] = {
    {"listBox", "focus", "End", "row2", "focus Home"},
    {"listBox", "box", "press release", "tick2", "focus Home"},
    {"list", "", "click", "deselect1", "enter double"},
    {"list", "click", "shift+Up", "select1", "enter double"},
    {"list", "click", "double", "open2", "leave double enter double"},
    {"list", "title", "press release", "title1", "title press release"},
    {"list", "click", "enter right press release", "right2", "click"},
    {"list", "title", "right press release", "titleright1", "title press release"},
    {"list", "edge", "press leave release", "begin1", "title press release"},
    {"list", "edge press wider", "release", "end1", "title press release"},
    {"tree", "box", "press release", "expanding0", "enter double"},
    {"tree", "enter", "double", "deselect3", "enter double"},
    {"jobs", "", "click", "jobs", "focus Down Down"},
    {"jobs", "click leave enter", "double", "picked", "focus Return"},
    {"lines", "focus", "ctrl+Next", "follow1", "focus ctrl+Prior"},
    {"lines", "focus", "ctrl+minus", "size8", "focus ctrl+Next"},
    {"corner", "", "click", "follow1", "click"},
    {"book", "title", "press release", "page1", "wider press release"},
    {"book", "click", "Right", "page1", "wider press release"},
    {"book", "box", "press release", "closing1", "wider press release"},
    {"book", "title press", "enter release", "drag1", "wider press release"},
    {"book", "title press enter held", "release", "moved0", "wider press release"},
};

// The controls that take keys, by label or name.
const std::vector<wxString> kStops = {"Default",
                                      "Normal",
                                      "Highlighted",
                                      "button",
                                      "Check box",
                                      "Checked",
                                      "Chosen",
                                      "text",
                                      "text",
                                      "text",
                                      "text",
                                      "choice",
                                      "text",
                                      "listBox",
                                      "expander",
                                      "button",
                                      "Scrolled 1",
                                      "Scrolled 2",
                                      "Scrolled 3",
                                      "Scrolled 4",
                                      "Scrolled 5",
                                      "Scrolled 6",
                                      "panel",
                                      "lines",
                                      "button",
                                      "text",
                                      "Previous",
                                      "Next",
                                      "follow",
                                      "Match Case",
                                      "Whole Words",
                                      "Regular Expression",
                                      "Mark All",
                                      "As You Type",
                                      "Only Matching Lines",
                                      "text",
                                      "panel",
                                      "panel",
                                      "text",
                                      "choice",
                                      "panel",
                                      "wxAuiTabCtrl",
                                      "text",
                                      "Pick Jobs...",
                                      "Go On"};

class ControlHandsTest : public HandsTest
{
protected:
    template <class Rows> void TryAll(const Rows& rows)
    {
        for (const Row& row : rows)
        {
            SCOPED_TRACE(std::string(row.control) + ": " + row.deeds);
            Open();
            const wxWeakRef<wxWindow> control(Named(row.control));
            Do(control, row.deeds);
            EXPECT_EQ(row.heard, Heard());
            EXPECT_TRUE(!row.look || row.look == (control ? LookOf(control) : "gone"))
                << (control ? LookOf(control) : "gone");
        }
    }

    template <class Rows> void TryHandlers(const Rows& rows)
    {
        for (const Handled& row : rows)
        {
            for (const std::string effect :
                 {"throw", "disable", "dialog", "destroy", "page-destroy"})
            {
                SCOPED_TRACE(std::string(row.control) + ": " + row.before + " then " + effect +
                             " " + row.deed);
                Open();
                const wxWeakRef<wxWindow> control(Named(row.control));
                const wxWeakRef<wxWindow> other(Named("Highlighted"));
                Do(control, row.before);
                Heard();
                Do(control, "then " + effect + " " + row.deed + " freed");
                const std::string heard = Heard();
                EXPECT_EQ(0u, heard.find(row.heard)) << heard;
                EXPECT_EQ(effect.find("destroy") == std::string::npos, bool(control));
                if (control)
                {
                    Do(control, std::string("enable show shut leave ") + row.again);
                    EXPECT_TRUE(!*row.again || !Heard().empty());
                    Do(control, "shut");
                    Heard();
                }
                if (other)
                {
                    Do(other, "click");
                    EXPECT_EQ("button", Heard());
                    EXPECT_TRUE(HasTheKeys(other));
                }
            }
        }
    }
};
} // namespace

TEST_F(ControlHandsTest, ButtonsAreClickedAsOftenAsAHandClicks)
{
    TryAll(kButtons);
}

// A press whose control has gone ends on whatever the hand is on by then.
TEST_F(ControlHandsTest, AReleaseClicksNothingThatWasNotPressed)
{
    for (const char* const pressed : {"Normal", "Check box", "text"})
    {
        for (const char* const goes : {"enter press hide", "enter press destroy"})
        {
            for (const char* const other :
                 {"Highlighted", "Checked", "Radio button", "An open panel"})
            {
                SCOPED_TRACE(std::string(pressed) + ": " + goes + ", released on " + other);
                Open();
                wxWindow* const control = Named(other);
                const wxString  before = LookOf(control);
                Do(Named(pressed), goes);
                Do(control, "enter release");
                EXPECT_EQ("", Heard());
                EXPECT_EQ(before, LookOf(control));
                Do(control, "leave click");
                EXPECT_TRUE(!Heard().empty() || LookOf(control) != before);
            }
        }
    }
}

// A release that waits while a handler works comes to whatever has the keys by then.
TEST_F(ControlHandsTest, AKeyClicksNothingThatItWasNotPressedOn)
{
    for (const auto& [name, clicked] : {std::pair("Normal", "button"), {"Check box", "check1"}})
    {
        SCOPED_TRACE(name);
        Open();
        wxWindow* const next = Named(name);
        Named("listBox")->Bind(wxEVT_CHECKLISTBOX, [=](wxCommandEvent&) { next->SetFocus(); });
        Do(Named("listBox"), "focus End space");
        EXPECT_EQ("row2", Heard());
        EXPECT_TRUE(HasTheKeys(next));
        Press("space");
        EXPECT_EQ(clicked, Heard());
    }
}

// The port tells windows apart by their addresses when it looks for double clicks.
TEST_F(ControlHandsTest, AClickIsNoneOnAWindowThatHasGone)
{
    const auto click = [this]
    {
        auto* const list = First<wxtListCtrl>();
        Do(list, "click");
        return G_OBJECT(list->GetBody()->GTKGetDrawingWindow());
    };
    GObject* pressed = click();
    g_object_add_weak_pointer(pressed, reinterpret_cast<void**>(&pressed));
    Open();
    EXPECT_TRUE(pressed);
    click();
    EXPECT_FALSE(pressed);
}

TEST_F(ControlHandsTest, FieldsAndTheirListsAreLeftByEveryWay)
{
    TryAll(kFields);
}

TEST_F(ControlHandsTest, RowsAreChosenByPointerAndKeys)
{
    TryAll(kLists);
}

TEST_F(ControlHandsTest, JobsArePickedByPointerAndKeys)
{
    TryAll(kJobs);
}

TEST_F(ControlHandsTest, LinesAreSelectedFoundAndFollowed)
{
    TryAll(kTexts);
}

TEST_F(ControlHandsTest, PagesAreChosenMovedAndClosed)
{
    TryAll(kTabs);
}

// The job that the hand is on is the first one that is done.
TEST_F(ControlHandsTest, AJobThatGoesIsNotSelected)
{
    wxWindow* const jobs = Named("jobs");
    Do(jobs, "click Down");
    EXPECT_EQ("jobs jobs", Heard());
    for (int i = 0; i < 6; ++i)
    {
        Do(Named("Go On"), "click");
    }
    EXPECT_TRUE(WaitFor([&] { return LookOf(jobs).empty(); }));
    Do(jobs, "click Return");
    EXPECT_EQ("jobs jobs picked", Heard());
}

// The dialog that the button asks for jobs with.
TEST_F(ControlHandsTest, ADialogReturnsWhatWasPicked)
{
    const struct
    {
        const char* deeds;
        const char* picked;
    } rows[] = {{"Return Return", "checksum_sh030"}, // the first one, which it goes to
                {"Down shift+Down Return", "checksum_sh030, bounce_sh020"},
                {"s u s p Return Down Return", "bounce_sh080"},
                {"Return Escape", ""},
                {"Escape", ""}};
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.deeds);
        Open();
        wxWindow* const ask = Named("Pick Jobs...");
        wxWindow* const answer = ask->GetParent()->GetChildren().back();
        HasSlots        slots;
        wxTolvanDlg::s_ModalStarted.Connect(
            &slots,
            [&]
            {
                wxTolvanDlg* const dialog = *wxTolvanDlg::s_Dialogs.begin();
                dialog->CallAfter(
                    [this, dialog, &row]
                    {
                        EXPECT_TRUE(WaitFor([dialog] { return dialog->IsActive(); }));
                        Do(dialog, row.deeds);
                    });
            });
        Do(ask, "click");
        EXPECT_TRUE(
            WaitFor([this] { return wxTolvanDlg::s_Dialogs.empty() && m_Frame->IsActive(); }));
        EXPECT_EQ(row.picked, answer->GetLabel());
    }
}

// Neither an exception nor anything else takes the keys or the pointer from the program.
TEST_F(ControlHandsTest, HandlersOfControlsMayDoAnything)
{
    TryHandlers(kHandledControls);
}

TEST_F(ControlHandsTest, HandlersOfViewsMayDoAnything)
{
    TryHandlers(kHandledViews);
}

TEST_F(ControlHandsTest, WhatIsHeldMayGo)
{
    for (const auto& [name, place] : {std::pair("list", "enter"),
                                      {"list", "title"},
                                      {"list", "edge"},
                                      {"lines", "enter"},
                                      {"overview", "enter"},
                                      {"corner", "enter"},
                                      {"matches", "title"},
                                      {"listBox", "box"},
                                      {"book", "title"}})
    {
        for (const char* const end :
             {"destroy", "hide", "disable", "theme", "page-destroy", "page-hide", "page-disable"})
        {
            SCOPED_TRACE(std::string(name) + ": " + place + " press " + end);
            Open();
            if (std::string(name) == "matches")
            {
                First<wxTextLinePanes>()->SetOnlyMatching(true);
                PumpEvents();
            }
            const wxWeakRef<wxWindow> control(Named(name));
            const wxWeakRef<wxWindow> page(control->GetParent());
            Do(control, std::string(place) + " press " + end);
            Do(m_Frame, "release freed leave");
            if (page)
            {
                Do(page, "enable show");
                Heard();
                Do(Named("Normal"), "click");
                EXPECT_EQ("button", Heard());
                wxWindow* const next = Named(std::string(name) == "list" ? "lines" : "list");
                Do(next, "enter press");
                EXPECT_TRUE(wxWindow::GetCapture());
                Do(next, "leave release freed");
            }
        }
    }
}

TEST_F(ControlHandsTest, TabLeadsRoundTheWindowAndBack)
{
    Do(Named("Default"), "focus");
    std::vector<wxWindow*> way;
    std::vector<wxString>  stops;
    for (size_t i = 0; i <= kStops.size(); ++i, Press("Tab"))
    {
        way.push_back(WhoHasTheKeys());
        ASSERT_TRUE(way.back());
        const wxString label = wxControl::RemoveMnemonics(way.back()->GetLabel());
        stops.push_back(label.empty() ? way.back()->GetName() : label);
    }
    EXPECT_EQ(way[0], way.back());
    stops.pop_back();
    EXPECT_EQ(kStops, stops);
    for (auto at = way.rbegin(); at != way.rend(); ++at)
    {
        Press("shift+Tab");
        EXPECT_EQ(*at, WhoHasTheKeys());
    }
}

// The port reports an item that keys chose before its menu was shown once it is shown, but ends the
// program when several such reports wait.
TEST_F(ControlHandsTest, MenusAreReportedOnceForEachChoice)
{
    GtkWidget* const menu = gtk_menu_new();
    GtkWidget* const item = gtk_menu_item_new_with_label("Colours");
    gtk_menu_shell_append(GTK_MENU_SHELL(menu), item);
    gtk_menu_shell_select_item(GTK_MENU_SHELL(menu), item);
    gtk_menu_shell_deselect(GTK_MENU_SHELL(menu));
    EXPECT_FALSE(g_signal_has_handler_pending(item, g_signal_lookup("map", GTK_TYPE_WIDGET), 0, 1));
    gtk_widget_destroy(menu);
}
