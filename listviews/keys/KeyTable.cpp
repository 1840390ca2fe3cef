#include "listviews/keys/KeyTable.h"

#include "internal/input/PadKey.h"

#include <algorithm>

namespace listviews
{
namespace
{
enum : unsigned
{
    mod_None = 1,
    mod_Control = 2,
    mod_Shift = 4,
    mod_Both = 8,
    mod_Any = mod_None | mod_Control | mod_Shift | mod_Both
};

constexpr struct
{
    int       key;
    unsigned  modifiers; // with which of them it is that key
    KeyAction action;
} kKeys[] = {
    {WXK_HOME, mod_Any, KeyAction::First},
    {WXK_END, mod_Any, KeyAction::Last},
    {WXK_PAGEUP, mod_Any, KeyAction::PageUp},
    {WXK_PAGEDOWN, mod_Any, KeyAction::PageDown},
    {WXK_UP, mod_Any, KeyAction::Arrow},
    {WXK_DOWN, mod_Any, KeyAction::Arrow},
    {WXK_SPACE, mod_Any, KeyAction::Select},
    {WXK_NUMPAD_SPACE, mod_Any, KeyAction::Select},
    {'A', mod_Control, KeyAction::SelectAll},
    {WXK_RETURN, mod_None, KeyAction::Activate},
    {WXK_NUMPAD_ENTER, mod_None, KeyAction::Activate},
    {WXK_LEFT, mod_None, KeyAction::ScrollLeft},
    {WXK_RIGHT, mod_None, KeyAction::ScrollRight},
    {'C', mod_Control, KeyAction::Copy},
    {WXK_INSERT, mod_Control, KeyAction::Copy},
    {WXK_LEFT, mod_Control, KeyAction::PreviousTitle},
    {WXK_RIGHT, mod_Control, KeyAction::NextTitle},
    {WXK_LEFT, mod_Both, KeyAction::MoveTitleLeft},
    {WXK_RIGHT, mod_Both, KeyAction::MoveTitleRight},
    {WXK_RETURN, mod_Control | mod_Both, KeyAction::ClickTitle},
    {WXK_NUMPAD_ENTER, mod_Control | mod_Both, KeyAction::ClickTitle},
    {WXK_F10, mod_Both, KeyAction::TitleMenu},
    {WXK_NUMPAD_ADD, mod_Control, KeyAction::FitAll},
};

unsigned MaskOf(KeyModifiers modifiers)
{
    return mod_None << (modifiers.control ? 1 : 0) << (modifiers.shift ? 2 : 0);
}
static_assert(mod_Both == mod_None << 3);
} // namespace

KeyAction ActionOf(int key, KeyModifiers modifiers)
{
    const int  plain = internal::OffThePad(key);
    const auto found =
        std::find_if(std::begin(kKeys), std::end(kKeys),
                     [&](const auto& entry)
                     { return entry.key == plain && (entry.modifiers & MaskOf(modifiers)) != 0; });
    return found == std::end(kKeys) ? KeyAction::None : found->action;
}

int TargetRow(KeyAction action, int from, int count, int page)
{
    const auto within = [count](long long row)
    { return static_cast<int>(std::clamp<long long>(row, 0, count - 1)); };
    switch (action)
    {
    case KeyAction::Last:
        return count - 1;
    case KeyAction::PageUp:
        return within(static_cast<long long>(from) - page);
    case KeyAction::PageDown:
        return within(static_cast<long long>(from) + page);
    default:
        return 0;
    }
}
} // namespace listviews
