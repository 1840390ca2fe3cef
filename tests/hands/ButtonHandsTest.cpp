#include "tests/hands/HandsTest.h"

#include "appearance/wxtCheckBox.h"

namespace
{
using ButtonHandsTest = HandsTest;

// What a hand does to a control, what the host hears of it, and whether a control that is checked
// or not is so afterwards ('x', '.', or ' ').
struct Row
{
    const char* control;
    const char* deeds;
    const char* heard;
    char        checked = ' ';
};

const Row kRows[] = {
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
    {"Normal", "enter press destroy leave release", ""},
    {"Default", "leave alt+d", "button"},
    {"Disabled", "enter press release double", ""},

    {"Check box", "enter press release", "check1", 'x'},
    {"Check box", "enter press leave release", "", '.'},
    {"Check box", "enter double", "check1 check0", '.'},
    {"Check box", "click click", "check1 check0", '.'},
    {"Check box", "enter right press release", "", '.'},
    {"Check box", "click space", "check1 check0", '.'},
    {"Check box", "click Return KP_Enter a Up", "check1", 'x'},
    {"Check box", "enter press disable release enable click", "check1", 'x'},
    {"Check box", "enter press hide leave release show click", "check1", 'x'},
    {"Check box", "enter press theme release", "check1", 'x'},
    {"Check box", "enter press destroy leave release", ""},
    {"Checked", "click", "check0", '.'},
};
} // namespace

TEST_F(ButtonHandsTest, EveryDeedIsHeardAsOftenAsItWasDone)
{
    for (const Row& row : kRows)
    {
        SCOPED_TRACE(std::string(row.control) + ": " + row.deeds);
        Open();
        const wxWeakRef<wxWindow> control(Named(row.control));
        Do(control, row.deeds);
        EXPECT_EQ(row.heard, Heard());
        if (const auto* const box = dynamic_cast<wxtCheckBox*>(control.get()))
        {
            EXPECT_EQ(row.checked == 'x', box->GetValue());
        }
    }
}
