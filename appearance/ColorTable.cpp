#include "appearance/scheme/ColorTable.h"
#include "appearance/ColorScheme.h"

#include "internal/port/DesktopScheme.h"
#include "vesta/CallEntry.h"

#include <cstddef>

const String color_WindowBG = "WindowBG";
const String color_WindowBGLighter = "WindowBGLighter";
const String color_WindowBGDarker = "WindowBGDarker";
const String color_Text = "Text";
const String color_TextRed = "TextRed";
const String color_TextOrange = "TextOrange";
const String color_TextYellow = "TextYellow";
const String color_TextGreen = "TextGreen";
const String color_TextCyan = "TextCyan";
const String color_TextBlue = "TextBlue";
const String color_TextIndigo = "TextIndigo";
const String color_TextViolet = "TextViolet";
const String color_TextDarkRed = "TextDarkRed";
const String color_TextDarkOrange = "TextDarkOrange";
const String color_TextDarkYellow = "TextDarkYellow";
const String color_TextDarkGreen = "TextDarkGreen";
const String color_TextDarkCyan = "TextDarkCyan";
const String color_TextDarkBlue = "TextDarkBlue";
const String color_TextDarkIndigo = "TextDarkIndigo";
const String color_TextDarkViolet = "TextDarkViolet";
const String color_TextGrey = "TextGray";
const String color_3DLight = "3DLight";
const String color_3DDark = "3DDark";
const String color_ButtonFace = "ButtonFace";
const String color_ButtonText = "ButtonText";
const String color_Selected = "Selected";
const String color_Header = "Header";

std::map<String, wxColour> g_Colors;

namespace
{
enum Preset
{
    kLight,
    kLighter,
    kDark,
    kDarker,
    kPresetCount
};

struct Rgb
{
    unsigned char red, green, blue;
};

struct ColorRow
{
    const char* key;
    Rgb         presets[kPresetCount];
};

// The accents whose keys begin with TextDark are colours of their own, chosen by eye: not all of
// them are darker than their plain twins.
// clang-format off
constexpr ColorRow kColors[] = {
    // key                  light            lighter          dark             darker
    {"WindowBG",        {{185, 185, 185}, {233, 233, 233}, { 72,  72,  72}, { 32,  32,  32}}},
    {"WindowBGLighter", {{210, 210, 210}, {255, 255, 255}, { 92,  92,  92}, { 58,  58,  58}}},
    {"WindowBGDarker",  {{168, 168, 168}, {215, 215, 215}, { 56,  56,  56}, { 12,  12,  12}}},
    {"Text",            {{ 52,  52,  52}, { 10,  10,  10}, {235, 235, 235}, {205, 205, 205}}},
    {"TextRed",         {{235,  30,  19}, {245,  25,  12}, {255,  60,  33}, {235,  40,  23}}},
    {"TextOrange",      {{184,  99,   0}, {191,  80,   0}, {255, 136,   0}, {235, 156,   0}}},
    {"TextYellow",      {{ 97,  90,  16}, {242, 227,  19}, {255, 225,   0}, {235, 210,   0}}},
    {"TextGreen",       {{  0, 115,   0}, {  0, 165,   0}, {  0, 255,   0}, {  0, 235,   0}}},
    {"TextCyan",        {{  0, 166, 166}, {  0, 166, 166}, {  0, 255, 255}, {  0, 235, 235}}},
    {"TextBlue",        {{  0,  31, 166}, {  0,  31, 166}, {132, 153, 245}, {130, 150, 235}}},
    {"TextIndigo",      {{136,   0, 255}, {136,   0, 255}, {147,  46, 255}, {147,  46, 255}}},
    {"TextViolet",      {{225,   0, 205}, {225,   0, 205}, {255,   0, 230}, {235,   0, 230}}},
    {"TextDarkRed",     {{185,  25,  10}, {185,  25,  10}, {185,  25,  10}, {185,  25,  10}}},
    {"TextDarkOrange",  {{152,  82,   0}, {132,  68,   0}, {200, 127,  42}, {200, 127,  42}}},
    {"TextDarkYellow",  {{190, 180,  55}, {190, 180,  55}, {190, 180,  55}, {190, 180,  55}}},
    {"TextDarkGreen",   {{ 31, 166,   0}, { 31, 166,   0}, { 80, 190,  55}, { 80, 190,  55}}},
    {"TextDarkCyan",    {{ 40, 180, 180}, { 40, 180, 180}, { 40, 180, 180}, { 40, 180, 180}}},
    {"TextDarkBlue",    {{  0,   0, 165}, {  0,   0, 165}, {  0,   0, 165}, {  0,   0, 165}}},
    {"TextDarkIndigo",  {{108,  52, 148}, {108,  52, 148}, {123,  92, 156}, {123,  92, 156}}},
    {"TextDarkViolet",  {{145,  26, 116}, {145,  26, 116}, {214,   9, 135}, {214,   9, 135}}},
    {"TextGray",        {{ 85,  90, 105}, { 85,  90, 105}, {160, 170, 190}, {160, 170, 190}}},
    {"3DLight",         {{165, 165, 165}, {205, 205, 205}, {165, 165, 165}, {145, 145, 145}}},
    {"3DDark",          {{ 69,  69,  69}, { 55,  55,  55}, { 69,  69,  69}, { 49,  49,  49}}},
    {"ButtonFace",      {{155, 155, 155}, {200, 200, 200}, {108, 108, 108}, { 75,  75,  75}}},
    {"ButtonText",      {{  0,   0,   0}, {  0,   0,   0}, {255, 255, 255}, {235, 235, 235}}},
    {"Selected",        {{222, 163,  62}, {250, 169,  35}, {230, 163,  48}, {199, 129,  16}}},
    {"Header",          {{168, 168, 168}, {211, 211, 211}, {115, 115, 115}, { 55,  55,  55}}},
};
// clang-format on
constexpr size_t kColorCount = 27;
static_assert(sizeof kColors / sizeof kColors[0] == kColorCount, "a colour is missing");

void SetPreset(Preset preset)
{
    for (const ColorRow& row : kColors)
    {
        const Rgb& rgb = row.presets[preset];
        wxtSetColor(row.key, wxColour(rgb.red, rgb.green, rgb.blue));
    }
}
} // namespace

const std::vector<String>& appearance::ColorNames()
{
    static const std::vector<String> s_Names = []
    {
        std::vector<String> names;
        for (const ColorRow& row : kColors)
        {
            names.push_back(row.key);
        }
        return names;
    }();
    return s_Names;
}

wxColour wxtGetColor(const String& name)
{
    return g_Colors[name];
}

void wxtSetColor(const String& name, const wxColour& colour)
{
    g_Colors[name] = colour;
}

void Light()
{
    CALL_ENTRY("Light");
    SetPreset(kLight);
}

void Lighter()
{
    CALL_ENTRY("Lighter");
    SetPreset(kLighter);
}

void Dark()
{
    CALL_ENTRY("Dark");
    SetPreset(kDark);
}

void Darker()
{
    CALL_ENTRY("Darker");
    SetPreset(kDarker);
}

void SetColors(int scheme)
{
    CALL_ENTRY("SetColors");
    switch (scheme)
    {
    case scheme_Light:
        return Light();
    case scheme_Lighter:
        return Lighter();
    case scheme_Darker:
        return Darker();
    case scheme_Custom:
        return CustomColors();
    case scheme_Desktop:
        return internal::IsDesktopDark() ? Dark() : Light();
    default:
        return Dark();
    }
}
