#pragma once

#include "appearance/wxtButton.h"
#include "appearance/wxtCheckBox.h"
#include "appearance/wxtColorManaged.h"
#include "appearance/wxtRenderer.h"
#include "appearance/wxtStockControls.h"
#include "vesta/Export.h"
#include "vesta/IniFile.h"
#include "vesta/String.h"

#include <wx/colour.h>

#include <map>

class wxDC;

/// The colour scheme: one table of named colours that every window is painted from, the schemes
/// that fill it, and (in the headers above) the mixin through which a window follows it and the
/// controls that it gives a look of their own. Drawing code asks for a colour by its name when it
/// draws and never keeps one. Main thread only.

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
    scheme_Custom = 5 ///< Dark, with the colours of "Colors.ini" over it.
};

/// The colour of that name. An unknown name is entered, and given back, as an invalid colour.
TOLVAN_API wxColour wxtGetColor(const String& name);
TOLVAN_API void     wxtSetColor(const String& name, const wxColour& colour);

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

/// Whether the window lies in the active top-level window and no menu is open: the views draw their
/// selection lively then. Null counts as a window without a top-level one.
TOLVAN_API bool ParentIsActive(wxWindow* window);

/// Each channel plus its offset, kept within 0 to 255; opaque. An invalid colour stays invalid.
TOLVAN_API wxColour OffsetColor(const wxColour& colour, int red, int green, int blue);
/// 0.7 of the colour and 0.3 of the stock light grey, truncated. An invalid colour stays invalid.
TOLVAN_API wxColour Disabled(const wxColour& colour);
/// Each channel plus 25. An invalid colour stays invalid.
TOLVAN_API wxColour Hilight(const wxColour& colour);

/// Fills the rectangle with steps of colour from `outer` at the edges that shrink towards `inner`;
/// without a shrinking edge one plain rectangle of `inner`. `exponent` bends the way between the
/// two. An invalid colour draws nothing.
TOLVAN_API void DrawGradedRectangle(wxDC& dc, const wxRect& rect, const wxColour& inner,
                                    const wxColour& outer, float exponent, bool shrinkBottom,
                                    bool shrinkTop);
/// The elliptic arc in the rectangle from one angle to the other (degrees, anticlockwise from three
/// o'clock), with the current pen and brush; a pie slice unless the brush is transparent.
TOLVAN_API void DrawCircle(wxDC& dc, const wxRect& rect, double startAngle, double endAngle);
