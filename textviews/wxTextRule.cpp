#include "textviews/wxTextRule.h"

#include "appearance/ColorScheme.h"

#include <tuple>

wxColour wxTextRule::WantedColour() const
{
    return colourName.empty() ? colour : wxtGetColor(colourName);
}

bool wxTextRule::operator==(const wxTextRule& other) const
{
    const auto all = [](const wxTextRule& rule)
    {
        return std::tie(rule.name, rule.pattern, rule.expression, rule.matchCase, rule.wholeWords,
                        rule.kind, rule.part, rule.colourName, rule.colour, rule.on);
    };
    return all(*this) == all(other);
}
