#pragma once

namespace listviews
{
/// What a key does in a list.
enum class KeyAction
{
    None,
    First, ///< The row that it leads to; so up to `PageDown`.
    Last,
    PageUp,
    PageDown,
    Arrow, ///< The body moves the anchor; a list without one gets a row to begin from.
    Select,
    SelectAll,
    Activate,
    ScrollLeft,
    ScrollRight,
    Copy,
    PreviousTitle, ///< The cursor of the titles; so up to `FitAll`.
    NextTitle,
    MoveTitleLeft,
    MoveTitleRight,
    ClickTitle,
    TitleMenu,
    FitAll
};

/// The modifiers that the keys of a list know.
struct KeyModifiers
{
    bool control = false;
    bool shift = false;
};

/// `key`: a code of the toolkit's, of the numeric pad too.
KeyAction ActionOf(int key, KeyModifiers modifiers);

inline bool IsOfTitles(KeyAction action)
{
    return action >= KeyAction::PreviousTitle;
}

inline bool LeadsToRow(KeyAction action)
{
    return action >= KeyAction::First && action <= KeyAction::PageDown;
}

/// The row that such an action leads to. `from`: the row that the keys are on, or -1; `count`: of
/// rows, at least 1; `page`: rows of a page.
int TargetRow(KeyAction action, int from, int count, int page);
} // namespace listviews
