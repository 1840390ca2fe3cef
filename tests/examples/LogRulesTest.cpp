#include "common/LogRules.h"
#include "common/FollowingText.h"
#include "common/LogRulesDlg.h"
#include "tests/dialogs/DialogTest.h"
#include "textviews/wxTextRules.h"
#include "vesta/Application.h"

#include "appearance/wxTolvanString.h"
#include "appearance/wxtTextCtrl.h"

namespace
{
class LogRulesTest : public DialogTest
{
protected:
    static wxTextRule Rule(const String& name, const String& pattern)
    {
        wxTextRule rule;
        rule.name = name;
        rule.pattern = pattern;
        return rule;
    }
    static wxtTextCtrl* FieldWith(wxWindow& dialog, const wxString& text)
    {
        for (wxWindow* const child : dialog.GetChildren())
        {
            auto* const field = dynamic_cast<wxtTextCtrl*>(child);
            if (field && field->GetValue() == text)
            {
                return field;
            }
        }
        return nullptr;
    }
    static void Click(wxWindow& dialog, const wxString& label)
    {
        wxWindow* const button = wxWindow::FindWindowByLabel(label, &dialog);
        ASSERT_TRUE(button) << label;
        wxCommandEvent click(wxEVT_BUTTON, button->GetId());
        button->ProcessWindowEvent(click);
    }
    static void End(LogRulesDlg& dialog, int id)
    {
        wxCommandEvent event(wxEVT_BUTTON, id);
        dialog.ProcessWindowEvent(event);
    }
};
} // namespace

TEST_F(LogRulesTest, WhateverTheyHoldTheyComeBack)
{
    EXPECT_EQ(KeptLogRules(), wxStandardTextRules());
    std::vector<wxTextRule> rules = wxStandardTextRules();
    rules.push_back(Rule(" a name | with [ things ] = ;", "  # two blanks\\d{2}  "));
    rules.back().colour = wxColour(1, 200, 30);
    rules.back().kind = wxTextRule::Kind::Warning;
    rules.back().matchCase = rules.back().wholeWords = true;
    rules.push_back(Rule("", "|"));
    rules.back().on = false;
    rules.push_back(Rule("\xc3\xa4", "\"\xe6\xbc\xa2\""));
    KeepLogRules(rules);
    Options().WriteOut();
    OptionsFile again(Options().FileName());
    again.Load(true, true);
    for (size_t i = 0; i < rules.size(); ++i)
    {
        const auto rule = RuleOfText(again.GetValue("LogRules", String::FromInt(i + 1)));
        ASSERT_TRUE(rule) << i;
        EXPECT_TRUE(*rule == rules[i]) << i << " " << TextOfRule(*rule);
    }
    EXPECT_EQ(KeptLogRules(), rules);
    KeepLogRules({});
    EXPECT_TRUE(KeptLogRules().empty()) << "the user wants none";
    KeepLogRules(wxStandardTextRules());
    EXPECT_EQ(KeptLogRules(), wxStandardTextRules());
    for (const char* const text : {"", "error", "error line x TextRed 99 Errors a|",
                                   "odd line - - 1 n p|", "error line - - -1 n p|",
                                   "error line - - 1 n p", "error line - - 99999999999999999999 |"})
    {
        EXPECT_FALSE(RuleOfText(text)) << text;
    }
}

TEST_F(LogRulesTest, LogsShowWhatIsEditedAndWhatCancelLeaves)
{
    auto* const text = new FollowingText(Frame());
    EXPECT_EQ(text->GetRules(), wxStandardTextRules());
    LogRulesDlg dialog(Frame());
    Run(dialog,
        [&]
        {
            Click(dialog, "&Add");
            ASSERT_EQ(text->GetRules().size(), wxStandardTextRules().size() + 1);
            wxtTextCtrl* const pattern = FieldWith(dialog, "");
            ASSERT_TRUE(pattern);
            pattern->SetValue("needle");
            EXPECT_EQ(text->GetRules().front().pattern, "needle");
            EXPECT_EQ(KeptLogRules(), wxStandardTextRules()) << "nothing is kept before OK";
            Click(dialog, "Move &Down");
            EXPECT_EQ(text->GetRules()[1].pattern, "needle");
            End(dialog, wxID_CANCEL);
        });
    EXPECT_EQ(text->GetRules(), wxStandardTextRules());
}

TEST_F(LogRulesTest, AWrongExpressionKeepsTheDialogOpen)
{
    auto* const text = new FollowingText(Frame());
    WantLogRules(false);
    EXPECT_TRUE(text->GetRules().empty());
    LogRulesDlg dialog(Frame());
    Run(dialog,
        [&]
        {
            wxtTextCtrl* const pattern =
                FieldWith(dialog, wxtToWx(wxStandardTextRules().front().pattern));
            ASSERT_TRUE(pattern);
            pattern->SetValue("(wrong");
            EXPECT_TRUE(wxWindow::FindWindowByLabel("A closing parenthesis is missing", &dialog));
            End(dialog, wxID_OK);
            EXPECT_TRUE(dialog.IsShown());
            pattern->SetValue("(right)");
            End(dialog, wxID_OK);
        });
    EXPECT_TRUE(AreLogRulesWanted()) << "whoever edits rules wants them";
    EXPECT_EQ(KeptLogRules().front().pattern, "(right)");
    EXPECT_EQ(text->GetRules(), KeptLogRules());
}
