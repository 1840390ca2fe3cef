#include "common/KeptRules.h"

#include "appearance/wxTolvanString.h"
#include "textviews/wxTextRules.h"
#include "vesta/Application.h"

#include <algorithm>
#include <iterator>

namespace
{
const char* const kSection = "Logs";
const char* const kColourErrors = "ColourErrors";
const char* const kOverview = "Overview";

const char* const kRules = "LogRules"; // a section: rules by their numbers, from 1 on
const char* const kEdited = "Edited";  // there may be none left

// A line is "KIND PART FLAGS COLOUR LENGTH NAME PATTERN|": a name and a pattern may hold anything,
// blanks at the end, too.
constexpr const char* kKinds[] = {"none", "information", "warning", "error"};
constexpr const char* kParts[] = {"match", "line"};
const char* const     kNothing = "-";

OptionsFile& Options()
{
    return Application::the_Application->Options();
}

void Want(const char* key, bool wanted)
{
    Options().SetValue(kSection, key, wanted ? "1" : "0");
}

String FlagsOf(const wxTextRule& rule)
{
    String flags;
    flags += rule.expression ? "x" : "";
    flags += rule.matchCase ? "c" : "";
    flags += rule.wholeWords ? "w" : "";
    flags += rule.on ? "" : "o";
    return flags.empty() ? String(kNothing) : flags;
}

String ColourOf(const wxTextRule& rule)
{
    if (!rule.colourName.empty())
    {
        return rule.colourName;
    }
    return rule.colour.IsOk() ? wxtFromWx(rule.colour.GetAsString(wxC2S_HTML_SYNTAX))
                              : String(kNothing);
}

// Takes what stands before the next blank off the text.
String TakeWord(String& text)
{
    const size_t end = std::min(text.find(' '), text.size());
    const String word(text.substr(0, end));
    text.erase(0, std::min(end + 1, text.size()));
    return word;
}

template <size_t count>
std::optional<int> IndexOf(const char* const (&names)[count], const String& name)
{
    const auto* const found = std::find(std::begin(names), std::end(names), name);
    return found == std::end(names) ? std::optional<int>()
                                    : static_cast<int>(found - std::begin(names));
}

void SetColour(wxTextRule& rule, const String& colour)
{
    if (!colour.empty() && colour.front() == '#')
    {
        rule.colour.Set(wxtToWx(colour));
    }
    else if (colour != kNothing)
    {
        rule.colourName = colour;
    }
}
} // namespace

String TextOfRule(const wxTextRule& rule)
{
    return String(kKinds[static_cast<int>(rule.kind)]) + " " + kParts[static_cast<int>(rule.part)] +
           " " + FlagsOf(rule) + " " + ColourOf(rule) + " " +
           String::FromInt(static_cast<long long>(rule.name.size())) + " " + rule.name + " " +
           rule.pattern + "|";
}

std::optional<wxTextRule> RuleOfText(const String& text)
{
    String       rest = text;
    wxTextRule   rule;
    const auto   kind = IndexOf(kKinds, TakeWord(rest));
    const auto   part = IndexOf(kParts, TakeWord(rest));
    const String flags = TakeWord(rest);
    const String colour = TakeWord(rest);
    const auto   length = TakeWord(rest).ToInt(-1);
    if (!kind || !part || length < 0 || static_cast<size_t>(length) + 2 > rest.size() ||
        rest.back() != '|')
    {
        return {};
    }
    const auto has = [&flags](char flag) { return flags.find(flag) != String::npos; };
    const auto nameSize = static_cast<size_t>(length);
    rule.kind = static_cast<wxTextRule::Kind>(*kind);
    rule.part = static_cast<wxTextRule::Part>(*part);
    rule.expression = has('x');
    rule.matchCase = has('c');
    rule.wholeWords = has('w');
    rule.on = !has('o');
    SetColour(rule, colour);
    rule.name = String(rest.substr(0, nameSize));
    rule.pattern = String(rest.substr(nameSize + 1, rest.size() - nameSize - 2));
    return rule;
}

std::vector<wxTextRule> KeptLogRules()
{
    if (!Options().GetBool(kRules, kEdited, false))
    {
        return wxStandardTextRules();
    }
    std::vector<wxTextRule> rules;
    for (int number = 1;; ++number)
    {
        const String text = Options().GetValue(kRules, String::FromInt(number));
        if (text.empty())
        {
            return rules;
        }
        if (const auto rule = RuleOfText(text)) // the user may have edited it
        {
            rules.push_back(*rule);
        }
    }
}

// Those that are as they come need not be kept: a later version may know better ones.
void KeepRules(const std::vector<wxTextRule>& rules)
{
    const OptionsFile::PauseAutoWrite together(Options());
    const WriteLock                   lock(Options().Lock());
    Options().ClearSection(kRules);
    if (rules == wxStandardTextRules())
    {
        return;
    }
    Options().SetValue(kRules, kEdited, "1");
    int number = 0;
    for (const wxTextRule& rule : rules)
    {
        Options().SetValue(kRules, String::FromInt(++number), TextOfRule(rule));
    }
}

bool AreLogRulesWanted()
{
    return Options().GetBool(kSection, kColourErrors, true);
}

void KeepRulesWanted(bool wanted)
{
    Want(kColourErrors, wanted);
}

std::vector<wxTextRule> ShownLogRules()
{
    return AreLogRulesWanted() ? KeptLogRules() : std::vector<wxTextRule>();
}

bool IsOverviewWanted()
{
    return Options().GetBool(kSection, kOverview, true);
}

void KeepOverviewWanted(bool wanted)
{
    Want(kOverview, wanted);
}
