#include "internal/port/ToolkitStyle.h"

#include "internal/drawing/ColorMix.h"

namespace internal
{
namespace
{
// How much of the ink is in what is to be told from its ground.
constexpr double kLine = 0.35;
constexpr double kFaint = 0.15;
constexpr double kThumb = 0.5;
constexpr double kHoveredThumb = 0.75;
constexpr double kButtonLift = 0.12;

std::string Definition(const char* name, const wxColour& colour)
{
    const wxString value = colour.GetAsString(wxC2S_CSS_SYNTAX);
    return "@define-color tolvan_" + std::string(name) + " " + value.utf8_string() + ";\n";
}

// Colours only, and corners that would be black without a compositor: nothing may take more room,
// or less, than in the theme. Nothing fades from the old scheme to the new one. The first rules
// take the theme's colours from everything, so that what no later rule names looks like what it
// lies in.
const char* const kRules = R"(
.tolvan-scheme.background { color: @tolvan_ink; background-color: @tolvan_ground;
    background-image: none; border-color: @tolvan_line; box-shadow: none; }
.tolvan-scheme.background.popup, .tolvan-scheme.background.csd.popup { background-color: transparent; }
.tolvan-scheme, .tolvan-scheme * { text-shadow: none; -gtk-icon-shadow: none; transition: none; }
.tolvan-scheme * { color: inherit; caret-color: currentColor; background-color: transparent;
    background-image: none; border-color: @tolvan_line; outline-color: @tolvan_selected;
    box-shadow: none; }

.tolvan-scheme menubar, .tolvan-scheme toolbar, .tolvan-scheme statusbar,
.tolvan-scheme actionbar > revealer > box, .tolvan-scheme searchbar > revealer > box,
.tolvan-scheme .inline-toolbar, .tolvan-scheme .location-bar {
    color: @tolvan_ink; background-color: @tolvan_ground; background-image: none;
    border-color: @tolvan_line; }
.tolvan-scheme menubar { box-shadow: inset 0 -1px @tolvan_faint; }
.tolvan-scheme menubar > menuitem { color: @tolvan_ink; }
.tolvan-scheme menubar > menuitem:hover, .tolvan-scheme menu menuitem:hover {
    color: @tolvan_selected_ink; background-color: @tolvan_selected; background-image: none;
    box-shadow: none; }
.tolvan-scheme menubar > menuitem:disabled { color: @tolvan_grey; background-color: transparent;
    box-shadow: none; }

.tolvan-scheme menu, .tolvan-scheme .menu, .tolvan-scheme .context-menu {
    color: @tolvan_ink; background-color: @tolvan_raised; background-image: none;
    border-color: @tolvan_line; }
.tolvan-scheme.popup decoration { box-shadow: 0 0 0 1px @tolvan_line; }
.tolvan-scheme menu menuitem { color: @tolvan_ink; }
.tolvan-scheme menu menuitem:disabled { color: @tolvan_grey; background-color: transparent; }
.tolvan-scheme menu menuitem:disabled:hover { color: @tolvan_grey; background-color: @tolvan_faint; }
.tolvan-scheme menu menuitem accelerator { color: alpha(currentColor, 0.85); }
.tolvan-scheme menu menuitem check, .tolvan-scheme menu menuitem radio,
.tolvan-scheme menu menuitem arrow {
    color: inherit; background-color: transparent; background-image: none; border-color: transparent;
    box-shadow: none; }
.tolvan-scheme menu separator, .tolvan-scheme separator { color: @tolvan_line;
    background-color: @tolvan_line; border-color: @tolvan_line; }
.tolvan-scheme menu > arrow { color: @tolvan_ink; background-color: @tolvan_raised;
    border-color: @tolvan_line; }
.tolvan-scheme menu > arrow:hover { background-color: @tolvan_faint; }
.tolvan-scheme menu > arrow:disabled { color: @tolvan_grey; }

tooltip.tolvan-scheme, tooltip.tolvan-scheme.background, tooltip.tolvan-scheme decoration {
    color: @tolvan_ink; background-color: @tolvan_sunk; background-image: none;
    border-color: @tolvan_line; border-radius: 0; box-shadow: inset 0 0 0 1px @tolvan_line; }
tooltip.tolvan-scheme * { color: @tolvan_ink; background-color: transparent; }

.tolvan-scheme scrollbar, .tolvan-scheme scrolledwindow junction,
.tolvan-scheme.frame > junction, .tolvan-scheme > junction {
    background-color: @tolvan_sunk; background-image: none; border-color: @tolvan_line; }
.tolvan-scheme scrollbar slider { background-color: @tolvan_thumb; }
.tolvan-scheme scrollbar slider:hover { background-color: @tolvan_hovered_thumb; }
.tolvan-scheme scrollbar slider:active, .tolvan-scheme scrollbar slider:hover:active {
    background-color: @tolvan_ink; }
.tolvan-scheme scrollbar slider:disabled { background-color: transparent; }
.tolvan-scheme scrollbar button { color: @tolvan_thumb; }
.tolvan-scheme scrollbar button:hover { color: @tolvan_hovered_thumb; }
.tolvan-scheme scrollbar button:active { color: @tolvan_ink; }
.tolvan-scheme scrollbar button:disabled { color: @tolvan_line; }
.tolvan-scheme scrollbar.overlay-indicator:not(.dragging):not(.hovering) {
    background-color: transparent; border-color: transparent; opacity: 0.8; }
.tolvan-scheme scrollbar.overlay-indicator:not(.dragging):not(.hovering) slider {
    border-color: @tolvan_sunk; }

.tolvan-scheme headerbar, .tolvan-scheme .titlebar { color: @tolvan_ink;
    background-color: @tolvan_ground; background-image: none; border-color: @tolvan_line;
    box-shadow: none; }
.tolvan-scheme decoration { border-color: @tolvan_line; }
.tolvan-scheme label { text-shadow: none; }
.tolvan-scheme label:disabled, .tolvan-scheme image:disabled { color: @tolvan_grey; }
.tolvan-scheme label selection, .tolvan-scheme entry selection, .tolvan-scheme textview selection,
.tolvan-scheme spinbutton selection { color: @tolvan_selected_ink;
    background-color: @tolvan_selected; }

.tolvan-scheme button { color: @tolvan_button_ink; background-color: @tolvan_button;
    background-image: none; border-color: @tolvan_line; box-shadow: none;
    outline-color: @tolvan_selected; -gtk-icon-effect: none; }
.tolvan-scheme button:hover { background-color: @tolvan_hovered_button; }
.tolvan-scheme button:active, .tolvan-scheme button:checked { color: @tolvan_selected_ink;
    background-color: @tolvan_selected; }
.tolvan-scheme button:disabled { color: @tolvan_grey; background-color: @tolvan_ground; }
.tolvan-scheme button.flat, .tolvan-scheme button.titlebutton { color: @tolvan_ink;
    background-color: transparent; border-color: transparent; }
.tolvan-scheme button.flat:hover, .tolvan-scheme button.titlebutton:hover {
    background-color: @tolvan_faint; }
.tolvan-scheme button.flat:active, .tolvan-scheme button.flat:checked {
    color: @tolvan_selected_ink; background-color: @tolvan_selected; }
.tolvan-scheme button.flat:disabled { color: @tolvan_grey; }
.tolvan-scheme button > label, .tolvan-scheme button image, .tolvan-scheme button arrow,
.tolvan-scheme button box > label, .tolvan-scheme modelbutton label { color: inherit; }
.tolvan-scheme modelbutton { color: @tolvan_ink; }
.tolvan-scheme modelbutton:hover { color: @tolvan_selected_ink;
    background-color: @tolvan_selected; }
.tolvan-scheme modelbutton:disabled { color: @tolvan_grey; background-color: transparent; }

.tolvan-scheme entry, .tolvan-scheme spinbutton { color: @tolvan_ink; caret-color: @tolvan_ink;
    background-color: @tolvan_raised; background-image: none; border-color: @tolvan_line;
    box-shadow: none; }
.tolvan-scheme entry:focus, .tolvan-scheme spinbutton:focus { border-color: @tolvan_selected;
    box-shadow: inset 0 0 0 1px @tolvan_selected; }
.tolvan-scheme entry:disabled, .tolvan-scheme spinbutton:disabled { color: @tolvan_grey;
    background-color: @tolvan_ground; }
.tolvan-scheme entry image { color: @tolvan_ink; }
.tolvan-scheme spinbutton entry { background-color: transparent; }
.tolvan-scheme spinbutton button { color: @tolvan_ink; background-color: transparent;
    border-color: @tolvan_faint; }
.tolvan-scheme spinbutton button:hover { background-color: @tolvan_faint; }
.tolvan-scheme spinbutton button:disabled { color: @tolvan_grey; }

.tolvan-scheme .view, .tolvan-scheme iconview, .tolvan-scheme textview text, .tolvan-scheme list,
.tolvan-scheme flowbox, .tolvan-scheme .sidebar { color: @tolvan_ink; caret-color: @tolvan_ink;
    background-color: @tolvan_raised; border-color: @tolvan_line; }
.tolvan-scheme .sidebar list, .tolvan-scheme popover list { background-color: transparent; }
.tolvan-scheme .view:disabled, .tolvan-scheme textview text:disabled { color: @tolvan_grey;
    background-color: @tolvan_ground; }
.tolvan-scheme row { color: @tolvan_ink; }
.tolvan-scheme row:hover { background-color: @tolvan_faint; }
.tolvan-scheme .view:selected, .tolvan-scheme iconview:selected, .tolvan-scheme row:selected,
.tolvan-scheme .view text:selected, .tolvan-scheme textview text selection,
.tolvan-scheme flowboxchild:selected, .tolvan-scheme calendar:selected {
    color: @tolvan_selected_ink; background-color: @tolvan_selected; }
.tolvan-scheme row:selected label, .tolvan-scheme row:selected image,
.tolvan-scheme row label, .tolvan-scheme row image { color: inherit; }
.tolvan-scheme row:disabled { color: @tolvan_grey; }
.tolvan-scheme treeview.view { border-left-color: @tolvan_line; border-top-color: @tolvan_line; }
.tolvan-scheme treeview.view.separator { color: @tolvan_line; }
.tolvan-scheme treeview.view.expander { color: @tolvan_ink; }
.tolvan-scheme treeview.view.expander:selected { color: @tolvan_selected_ink; }
.tolvan-scheme treeview.view header button { color: @tolvan_ink; background-color: @tolvan_ground;
    border-color: @tolvan_line; }
.tolvan-scheme treeview.view header button:hover { background-color: @tolvan_faint; }
.tolvan-scheme treeview.view.progressbar, .tolvan-scheme treeview.view.trough {
    background-image: none; }
.tolvan-scheme treeview.view.progressbar { background-color: @tolvan_selected; }

.tolvan-scheme popover.background, .tolvan-scheme popover.background:backdrop {
    color: @tolvan_ink; background-color: @tolvan_raised; border-color: @tolvan_line;
    box-shadow: none; }
.tolvan-scheme frame > border, .tolvan-scheme .frame, .tolvan-scheme scrolledwindow.frame {
    border-color: @tolvan_line; }
.tolvan-scheme paned > separator { background-image: image(@tolvan_line); }
.tolvan-scheme scrolledwindow overshoot, .tolvan-scheme scrolledwindow undershoot {
    background-image: none; }
.tolvan-scheme filechooser .dialog-action-box, .tolvan-scheme filechooser #pathbarbox {
    background-color: @tolvan_ground; border-color: @tolvan_line; }

.tolvan-scheme check, .tolvan-scheme radio { color: @tolvan_ink; background-color: @tolvan_raised;
    background-image: none; border-color: @tolvan_line; box-shadow: none; }
.tolvan-scheme check:checked, .tolvan-scheme radio:checked, .tolvan-scheme check:indeterminate {
    color: @tolvan_selected_ink; background-color: @tolvan_selected; }
.tolvan-scheme check:disabled, .tolvan-scheme radio:disabled { color: @tolvan_grey;
    background-color: @tolvan_ground; }
.tolvan-scheme menu menuitem check:disabled, .tolvan-scheme menu menuitem radio:disabled {
    background-color: transparent; }
.tolvan-scheme menu menuitem radio:checked { color: inherit; background-color: transparent; }
.tolvan-scheme checkbutton, .tolvan-scheme radiobutton { color: @tolvan_ink; }
.tolvan-scheme checkbutton:disabled, .tolvan-scheme radiobutton:disabled { color: @tolvan_grey; }
.tolvan-scheme switch, .tolvan-scheme trough { background-color: @tolvan_sunk;
    background-image: none; border-color: @tolvan_line; box-shadow: none; }
.tolvan-scheme switch:checked, .tolvan-scheme progressbar progress, .tolvan-scheme levelbar block.filled,
.tolvan-scheme scale highlight { background-color: @tolvan_selected; background-image: none;
    border-color: @tolvan_selected; }
.tolvan-scheme scale slider, .tolvan-scheme switch slider { background-color: @tolvan_button;
    background-image: none; border-color: @tolvan_line; box-shadow: none; }
.tolvan-scheme progressbar { color: @tolvan_ink; }
.tolvan-scheme scrollbar trough { background-color: transparent; border-color: transparent; }

.tolvan-scheme notebook, .tolvan-scheme notebook > stack:not(:only-child) {
    background-color: @tolvan_ground; border-color: @tolvan_line; }
.tolvan-scheme notebook > header { background-color: @tolvan_sunk; background-image: none;
    border-color: @tolvan_line; box-shadow: none; }
.tolvan-scheme notebook > header tab { color: @tolvan_ink; background-image: none; }
.tolvan-scheme notebook > header tab:hover { box-shadow: inset 0 -3px @tolvan_line; }
.tolvan-scheme notebook > header tab:checked { background-color: @tolvan_ground;
    box-shadow: inset 0 -3px @tolvan_selected; }
.tolvan-scheme infobar > revealer > box { color: @tolvan_ink; background-color: @tolvan_raised;
    border-color: @tolvan_line; }
.tolvan-scheme infobar > revealer > box label { color: inherit; }
.tolvan-scheme calendar { color: @tolvan_ink; background-color: @tolvan_raised;
    border-color: @tolvan_line; }
.tolvan-scheme calendar.header, .tolvan-scheme calendar.highlight { color: @tolvan_ink;
    border-color: @tolvan_line; }
.tolvan-scheme calendar.button { color: @tolvan_ink; }
.tolvan-scheme calendar:indeterminate { color: @tolvan_grey; }
.tolvan-scheme expander { color: @tolvan_ink; }
.tolvan-scheme *:link { color: @tolvan_ink; }
)";
} // namespace

bool ToolkitColours::operator==(const ToolkitColours& other) const
{
    return ink == other.ink && greyInk == other.greyInk && ground == other.ground &&
           raised == other.raised && sunk == other.sunk && buttonInk == other.buttonInk &&
           button == other.button && selectedInk == other.selectedInk && selected == other.selected;
}

std::string CssOf(const ToolkitColours& colours)
{
    const auto over = [&](const wxColour& ground, double share)
    { return MixColours(colours.ink, ground, share); };
    return Definition("ink", colours.ink) + Definition("grey", colours.greyInk) +
           Definition("ground", colours.ground) + Definition("raised", colours.raised) +
           Definition("sunk", colours.sunk) + Definition("button_ink", colours.buttonInk) +
           Definition("button", colours.button) +
           Definition("hovered_button",
                      MixColours(colours.buttonInk, colours.button, kButtonLift)) +
           Definition("selected_ink", colours.selectedInk) +
           Definition("selected", colours.selected) +
           Definition("line", over(colours.ground, kLine)) +
           Definition("faint", over(colours.raised, kFaint)) +
           Definition("thumb", over(colours.sunk, kThumb)) +
           Definition("hovered_thumb", over(colours.sunk, kHoveredThumb)) + kRules;
}
} // namespace internal
