#pragma once

#include "vesta/Export.h"
#include "vesta/String.h"

#include <wx/colour.h>

/// A pattern that a text view looks for in its lines, what a line is that has it, and how it is
/// coloured. A plain value. See `wxTextLineCtrl::SetRules`.
struct TOLVAN_API wxTextRule
{
    /// What a line is.
    enum class Kind
    {
        None, ///< Nothing is said of it.
        Information,
        Warning,
        Error
    };
    /// What is coloured.
    enum class Part
    {
        Match, ///< Every place that the pattern is found at.
        Line   ///< The whole line.
    };

    String   name;               ///< For the user.
    String   pattern;            ///< Empty: it is found nowhere.
    bool     expression = false; ///< The pattern is a regular expression, in the syntax of RE2.
    bool     matchCase = false;
    bool     wholeWords = false; ///< No letter, digit or underscore right before or after it.
    Kind     kind = Kind::None;
    Part     part = Part::Match;
    String   colourName; ///< Of the scheme, such as `color_TextRed`; empty: `colour` counts.
    wxColour colour;     ///< Invalid: what is found keeps its colour.
    bool     on = true;

    /// The colour that it asks for, in the present scheme; invalid for none. Main thread.
    wxColour WantedColour() const;

    bool operator==(const wxTextRule& other) const;
    bool operator!=(const wxTextRule& other) const { return !(*this == other); }
};
