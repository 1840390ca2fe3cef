#pragma once

#include "vesta/Export.h"
#include "vesta/IniFile.h"
#include "vesta/String.h"

#include <wx/colour.h>

#include <map>

/// The colour scheme: one table of named colours that every window is painted from, and the schemes
/// that fill it. Drawing code asks for a colour by its name when it draws and never keeps one. Main
/// thread only.

/// @name Names of the colours
/// Names of the colours: keys of the table and of "Colors.ini".
/// @{
extern TOLVAN_API const String color_WindowBG;
extern TOLVAN_API const String color_WindowBGLighter;
extern TOLVAN_API const String color_WindowBGDarker;
extern TOLVAN_API const String color_Text;
extern TOLVAN_API const String color_TextRed;
extern TOLVAN_API const String color_TextOrange;
extern TOLVAN_API const String color_TextYellow;
extern TOLVAN_API const String color_TextGreen;
extern TOLVAN_API const String color_TextCyan;
extern TOLVAN_API const String color_TextBlue;
extern TOLVAN_API const String color_TextIndigo;
extern TOLVAN_API const String color_TextViolet;
extern TOLVAN_API const String color_TextDarkRed;
extern TOLVAN_API const String color_TextDarkOrange;
extern TOLVAN_API const String color_TextDarkYellow;
extern TOLVAN_API const String color_TextDarkGreen;
extern TOLVAN_API const String color_TextDarkCyan;
extern TOLVAN_API const String color_TextDarkBlue;
extern TOLVAN_API const String color_TextDarkIndigo;
extern TOLVAN_API const String color_TextDarkViolet;
extern TOLVAN_API const String color_TextGrey; ///< Its key is "TextGray".
extern TOLVAN_API const String color_3DLight;
extern TOLVAN_API const String color_3DDark;
extern TOLVAN_API const String color_ButtonFace;
extern TOLVAN_API const String color_ButtonText;
extern TOLVAN_API const String color_Selected;
extern TOLVAN_API const String color_Header;
/// @}

/// The table. Empty until the first scheme is set; entries are never removed.
extern TOLVAN_API std::map<String, wxColour> g_Colors;
/// Code of the current scheme; -1 before the first `LoadColorScheme`.
extern TOLVAN_API int g_Scheme;

/// Codes of the schemes. Any other code is the dark scheme too.
enum ColorSchemeCode
{
    scheme_Default = 0, ///< Dark.
    scheme_Light = 1,
    scheme_Lighter = 2,
    scheme_Dark = 3,
    scheme_Darker = 4,
    scheme_Custom = 5, ///< Dark, with the colours of "Colors.ini" over it.
    /// Dark or light, as the desktop asks. Programs that do not know it yet are dark.
    scheme_Desktop = 64
};

/// The colour of that name. An unknown name is entered, and given back, as an invalid colour.
TOLVAN_API wxColour wxtGetColor(const String& name);
TOLVAN_API void     wxtSetColor(const String& name, const wxColour& colour);

/// @name Schemes
/// Fill the table. They change neither `g_Scheme` nor any window.
/// @{
TOLVAN_API void Light();
TOLVAN_API void Lighter();
TOLVAN_API void Dark();
TOLVAN_API void Darker();
TOLVAN_API void CustomColors();
TOLVAN_API void SetColors(int scheme);
/// @}

/// Reads the scheme's code from "Colors.ini" in the user's folder and fills the table. Without a
/// readable file the current scheme stays (at first: the default). Windows are told by the caller.
TOLVAN_API void LoadColorScheme();
/// Writes the scheme's code to "Colors.ini"; everything else in the file stays. A failure is
/// logged.
TOLVAN_API void SaveColorScheme();
/// Sets one colour from the loaded file if it names it. A text that is no colour makes the colour
/// invalid.
TOLVAN_API void GetCustom(IniFile& file, const String& name);
