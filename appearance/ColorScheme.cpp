#include "appearance/ColorScheme.h"
#include "appearance/scheme/ColorTable.h"
#include "appearance/wxTolvanString.h"
#include "vesta/CallEntry.h"
#include "vesta/Exception.h"
#include "vesta/File.h"

int g_Scheme = -1;

namespace
{
// The settings of "Colors.ini" stand before any section header.
const char* const kUnnamedSection = "";
const char* const kSchemeKey = "scheme";

Path ColorFile()
{
    return File::GetUserDir().Branch(true, true) / "Colors.ini";
}

// What goes wrong with the colour file never reaches the user, who keeps the colours there are; the
// log says why.
template <class Work> void WithoutFailing(Work work)
{
    try
    {
        work();
    }
    catch (Exception* exception)
    {
        exception->Log(log_Info);
        delete exception;
    }
}
} // namespace

void LoadColorScheme()
{
    CALL_ENTRY("LoadColorScheme");
    if (!File::s_UserDir.empty() && File::Exists(ColorFile()))
    {
        WithoutFailing(
            []
            {
                IniFile file(ColorFile());
                file.Load(true, true);
                g_Scheme = file.GetInt(kUnnamedSection, kSchemeKey, g_Scheme);
            });
    }
    if (g_Scheme == -1)
    {
        g_Scheme = scheme_Default;
    }
    SetColors(g_Scheme);
}

void SaveColorScheme()
{
    CALL_ENTRY("SaveColorScheme");
    WithoutFailing(
        []
        {
            IniFile file(ColorFile());
            if (File::Exists(file.FileName()))
            {
                file.Load(true, true);
            }
            {
                const WriteLock lock(file.Lock());
                file.InsertSection(kUnnamedSection);
                file.SetValue(kUnnamedSection, kSchemeKey, String::FromInt(g_Scheme));
            }
            file.Save();
        });
}

void CustomColors()
{
    CALL_ENTRY("CustomColors");
    // First, so that every colour that the file does not name has its dark value.
    Dark();
    if (File::s_UserDir.empty() || !File::Exists(ColorFile()))
    {
        return;
    }
    WithoutFailing(
        []
        {
            IniFile file(ColorFile());
            file.Load(true, true);
            for (const String& name : appearance::ColorNames())
            {
                GetCustom(file, name);
            }
        });
}

void GetCustom(IniFile& file, const String& name)
{
    CALL_ENTRY("GetCustom");
    const String text = file.GetValue(kUnnamedSection, name);
    if (text.empty())
    {
        return;
    }
    wxColour colour;
    if (!colour.Set(wxtToWx(text)))
    {
        LogWarning(SFormat("Colors.ini: '%s' is no colour for %s", text.c_str(), name.c_str()));
        // Meant: a misspelt colour shows at once, instead of hiding behind the preset's value.
        colour = wxColour();
    }
    wxtSetColor(name, colour);
}
