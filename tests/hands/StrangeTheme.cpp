#include "tests/hands/StrangeTheme.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace fs = std::filesystem;

namespace
{
constexpr unsigned long kColours[] = {0xcb65ad, 0x65cb4a, 0x4a65cb, 0x38c7b9, 0xc7384a};
constexpr unsigned long kRgb = 0xffffff;

const char* const kName = "Strange";

const char* const kCss = R"(
* { background-color: #cb65ad; background-image: none; color: #65cb4a; caret-color: #65cb4a;
    border-color: #4a65cb; outline-color: #4a65cb; box-shadow: inset 0 0 0 1px #4a65cb; }
*:selected, *:checked, selection, progress { background-color: #38c7b9; color: #c7384a; }
button, entry, menu, menubar, tooltip, notebook, frame, treeview header button, check, radio {
    border: 1px solid #4a65cb; }
button, entry { padding: 3px; }
menuitem { padding: 3px 6px; }
check, radio { min-width: 14px; min-height: 14px; }
scrollbar slider { min-width: 9px; min-height: 9px; }
)";

const char* const kRc = R"(
style "strange"
{
    fg[NORMAL] = "#65cb4a"    fg[PRELIGHT] = "#65cb4a"    fg[ACTIVE] = "#65cb4a"
    bg[NORMAL] = "#cb65ad"    bg[PRELIGHT] = "#cb65ad"    bg[ACTIVE] = "#cb65ad"
    text[NORMAL] = "#65cb4a"  text[PRELIGHT] = "#65cb4a"  text[ACTIVE] = "#c7384a"
    base[NORMAL] = "#cb65ad"  base[PRELIGHT] = "#cb65ad"  base[ACTIVE] = "#38c7b9"
    fg[INSENSITIVE] = "#4a65cb"    bg[INSENSITIVE] = "#cb65ad"
    text[INSENSITIVE] = "#4a65cb"  base[INSENSITIVE] = "#cb65ad"
    fg[SELECTED] = "#c7384a"    bg[SELECTED] = "#38c7b9"
    text[SELECTED] = "#c7384a"  base[SELECTED] = "#38c7b9"
}
class "GtkWidget" style "strange"
)";

void Write(const fs::path& file, const char* text)
{
    fs::create_directories(file.parent_path());
    std::ofstream(file) << text;
}
} // namespace

void StrangeTheme::Use(const std::string& folder)
{
    Write(fs::path(folder) / "themes" / kName / "gtk-3.0" / "gtk.css", kCss);
    const fs::path rc = fs::path(folder) / "gtkrc";
    Write(rc, kRc);
    setenv("XDG_DATA_HOME", folder.c_str(), 1);
    setenv("GTK_THEME", kName, 1);
    setenv("GTK2_RC_FILES", rc.c_str(), 1);
}

bool StrangeTheme::Has(unsigned long pixel)
{
    return std::find(std::begin(kColours), std::end(kColours), pixel & kRgb) != std::end(kColours);
}
