#include "textviews/wxTextRules.h"

#include "appearance/ColorScheme.h"
#include "appearance/wxTolvanString.h"
#include "textviews/rules/RuleFinder.h"
#include "vesta/CallEntry.h"

#include <wx/translation.h>

namespace
{
using Kind = wxTextRule::Kind;
using Part = wxTextRule::Part;

struct StandardRule
{
    const char*   name;
    const char*   pattern;
    Kind          kind;
    Part          part;
    const String* colour; ///< Null: none.
};

const StandardRule kStandard[] = {
    // What is found here is none of those below.
    {wxTRANSLATE("No errors"),
     R"(\b(?:0|no|without)(?: \w+)? (?:errors?|warnings?|failures?|failed)\b)"
     R"(|\b(?:errors?|warnings?|failures?|failed) ?[:=] ?0\b)",
     Kind::None, Part::Match, nullptr},
    {wxTRANSLATE("Errors"),
     R"(\b(?:\w*errors?|\w*exceptions?|err|fatal|fail(?:s|ed|ure|ures)?|critical|severe|panic)"
     R"(|crash(?:ed)?|abort(?:ed)?|traceback|segfault|segmentation fault|core dumped)\b)",
     Kind::Error, Part::Line, &color_TextRed},
    {wxTRANSLATE("Warnings"), R"(\b(?:\w*warnings?|warn|deprecated|caution|timed out|timeout)\b)",
     Kind::Warning, Part::Line, &color_TextOrange},
    {wxTRANSLATE("Information"), R"(\b(?:info|information|notice|note|hint)\b)", Kind::Information,
     Part::Match, &color_TextBlue},
};
} // namespace

std::vector<wxTextRule> wxStandardTextRules()
{
    CALL_ENTRY("wxStandardTextRules");
    std::vector<wxTextRule> rules;
    for (const StandardRule& standard : kStandard)
    {
        wxTextRule rule;
        rule.name = wxtFromWx(wxGetTranslation(standard.name));
        rule.pattern = standard.pattern;
        rule.expression = true;
        rule.kind = standard.kind;
        rule.part = standard.part;
        rule.colourName = standard.colour ? *standard.colour : String();
        rules.push_back(rule);
    }
    return rules;
}

wxString wxTextRuleProblem(const wxTextRule& rule)
{
    CALL_ENTRY("wxTextRuleProblem");
    textviews::QueryProblem problem;
    textviews::MakeRuleFinder(rule, problem);
    if (!problem.text)
    {
        return {};
    }
    wxString text = wxGetTranslation(problem.text);
    text.Replace("%s", wxtToWx(problem.part), false);
    return text;
}
