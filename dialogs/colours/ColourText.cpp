#include "dialogs/colours/ColourText.h"

#include "appearance/wxTolvanString.h"
#include "vesta/IniDocument.h"

namespace dialogs
{
namespace
{
const char* const kUnnamed = ""; // the section before any header
const char* const kSchemeKey = "scheme";
constexpr int     kNoScheme = -1;

// As the reader of the file takes it.
wxColour ReadColour(const String& text)
{
    wxColour colour;
    if (!colour.Set(wxtToWx(text)))
    {
        return wxColour();
    }
    return wxColour(colour.Red(), colour.Green(), colour.Blue());
}

IniDocument Parsed(const String& text)
{
    IniDocument document;
    document.Parse(text);
    return document;
}

void Put(IniDocument& document, const String& key, const String& value)
{
    if (value.empty())
    {
        document.Remove(kUnnamed, key);
    }
    else if (document.Get(kUnnamed, key) != value)
    {
        document.Set(kUnnamed, key, value);
    }
}

int SchemeOf(const IniDocument& document)
{
    return static_cast<int>(document.Get(kUnnamed, kSchemeKey).ToInt(kNoScheme));
}

// Of a colour in a file; empty: it is not named.
String ValueOf(const wxColour& colour, const String& original, const wxColour& dark)
{
    const wxColour before = original.empty() ? dark : ReadColour(original);
    if (colour == before)
    {
        return original;
    }
    return colour == dark ? String() : ColourText(colour);
}
} // namespace

String ColourText(const wxColour& colour)
{
    return colour.IsOk() ? SFormat("#%02X%02X%02X", colour.Red(), colour.Green(), colour.Blue())
                         : String();
}

wxColour TypedColour(const String& text)
{
    const String trimmed = text.Trim();
    const bool   isHex = trimmed.StartsWith("#");
    // The toolkit takes some digits for a colour that are none yet.
    const size_t     digits = trimmed.find_first_not_of("0123456789abcdefABCDEF", 1);
    constexpr size_t kHexLength = 7;
    if (trimmed.empty() || (isHex && (trimmed.size() != kHexLength || digits != String::npos)))
    {
        return wxColour();
    }
    return ReadColour(trimmed);
}

ReadScheme ReadColours(const String& text, const SchemeColours& dark)
{
    const IniDocument document = Parsed(text);
    ReadScheme        read{dark, {}, document.Has(kUnnamed, kSchemeKey)};
    for (size_t i = 0; i < k_ColourCount; ++i)
    {
        const String& key = *k_ColourNames[i].key;
        const String  value = document.Get(kUnnamed, key);
        if (value.empty())
        {
            continue;
        }
        read.isScheme = true;
        read.colours[i] = ReadColour(value);
        if (!read.colours[i].IsOk())
        {
            read.wrong.push_back(key);
        }
    }
    return read;
}

String WithColours(const String& text, const String& original, const SchemeColours& colours,
                   const SchemeColours& dark)
{
    IniDocument       document = Parsed(text);
    const IniDocument before = Parsed(original);
    if (SchemeOf(document) != scheme_Custom)
    {
        document.Set(kUnnamed, kSchemeKey, String::FromInt(scheme_Custom));
    }
    for (size_t i = 0; i < k_ColourCount; ++i)
    {
        const String& key = *k_ColourNames[i].key;
        Put(document, key, ValueOf(colours[i], before.Get(kUnnamed, key), dark[i]));
    }
    return document.ToText();
}

String WithColoursTakenBack(const String& text, const String& written, const String& original)
{
    IniDocument       document = Parsed(text);
    const IniDocument ours = Parsed(written);
    const IniDocument before = Parsed(original);
    if (SchemeOf(document) == scheme_Custom)
    {
        Put(document, kSchemeKey, before.Get(kUnnamed, kSchemeKey));
    }
    for (const ColourName& name : k_ColourNames)
    {
        if (document.Get(kUnnamed, *name.key) == ours.Get(kUnnamed, *name.key))
        {
            Put(document, *name.key, before.Get(kUnnamed, *name.key));
        }
    }
    return document.ToText();
}
} // namespace dialogs
