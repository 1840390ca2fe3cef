#include "internal/port/ToolkitStyle.h"

#include "internal/drawing/ColorMix.h"

#include <utility>
#include <vector>

namespace internal
{
namespace
{
// How much of the ink is in what is to be told from its ground.
constexpr double kFaint = 0.15;
constexpr double kThumb = 0.5;
constexpr double kHoveredThumb = 0.75;

// Between a tooltip's text and its edges; the theme may have next to none.
const char* const kTooltipMargins = "xthickness = 6\nythickness = 4\n";

using Line = std::pair<const char*, wxColour>;

// The plain drawing of the port: that of a theme may be pictures.
std::string Style(const char* name, const std::vector<Line>& lines, const char* more = "")
{
    std::string text = "style \"tolvan-" + std::string(name) + "\"\n{\nengine \"\" {}\n" + more;
    for (const auto& [key, colour] : lines)
    {
        text += std::string(key) + " = \"" + colour.GetAsString(wxC2S_HTML_SYNTAX).utf8_string() +
                "\"\n";
    }
    return text + "}\n";
}
} // namespace

std::string RcOf(const ToolkitColours& c)
{
    const wxColour faint = MixColours(c.ink, c.ground, kFaint);
    const wxColour thumb = MixColours(c.ink, c.sunk, kThumb);
    const wxColour hovered = MixColours(c.ink, c.sunk, kHoveredThumb);
    return Style("window", {{"fg[NORMAL]", c.ink},
                            {"fg[PRELIGHT]", c.ink},
                            {"fg[ACTIVE]", c.ink},
                            {"fg[SELECTED]", c.selectedInk},
                            {"fg[INSENSITIVE]", c.greyInk},
                            {"bg[NORMAL]", c.ground},
                            {"bg[PRELIGHT]", faint},
                            {"bg[ACTIVE]", c.sunk},
                            {"bg[SELECTED]", c.selected},
                            {"bg[INSENSITIVE]", c.ground},
                            {"text[NORMAL]", c.ink},
                            {"text[PRELIGHT]", c.ink},
                            {"text[ACTIVE]", c.selectedInk},
                            {"text[SELECTED]", c.selectedInk},
                            {"text[INSENSITIVE]", c.greyInk},
                            {"base[NORMAL]", c.raised},
                            {"base[PRELIGHT]", c.raised},
                            {"base[ACTIVE]", c.selected},
                            {"base[SELECTED]", c.selected},
                            {"base[INSENSITIVE]", c.ground}}) +
           Style("button", {{"fg[NORMAL]", c.buttonInk},
                            {"fg[PRELIGHT]", c.buttonInk},
                            {"fg[ACTIVE]", c.selectedInk},
                            {"bg[NORMAL]", c.button},
                            {"bg[PRELIGHT]", MixColours(c.buttonInk, c.button, kFaint)},
                            {"bg[ACTIVE]", c.selected}}) +
           Style("bar", {{"bg[NORMAL]", c.ground},
                         {"bg[PRELIGHT]", c.selected},
                         {"fg[PRELIGHT]", c.selectedInk}}) +
           Style("menu", {{"bg[NORMAL]", c.raised},
                          {"bg[INSENSITIVE]", c.raised},
                          {"bg[PRELIGHT]", c.selected},
                          {"fg[PRELIGHT]", c.selectedInk},
                          {"text[PRELIGHT]", c.selectedInk}}) +
           Style("scrollbar", {{"bg[NORMAL]", thumb},
                               {"bg[PRELIGHT]", hovered},
                               {"bg[ACTIVE]", c.sunk},
                               {"bg[INSENSITIVE]", c.sunk}}) +
           Style("tooltip", {{"fg[NORMAL]", c.ink}, {"bg[NORMAL]", c.sunk}}, kTooltipMargins);
}
} // namespace internal
