#pragma once

#include "textviews/wxTextLineCtrl.h"

#include <functional>

class wxTextLinePanes;

/// What a view of live lines keeps, so that its program can run for months.
constexpr int k_MostLiveLines = 1000000;

/// A view of lines that come without end, which it follows, with a button to switch that, and of
/// which the user has a say in how they look.
class FollowingText : public wxTextLineCtrl
{
public:
    /// Fills the parent, with the search bar below, and below that, if the user wants them, only
    /// the lines that match.
    explicit FollowingText(wxWindow* parent);
    ~FollowingText() override;

    /// All that the program has.
    static void ForEach(const std::function<void(FollowingText&)>& act);

    /// Whether the user wants selected lines to be readable, which the scheme's own colours do not
    /// promise; without a choice they do. It is kept, and shown by all of the program.
    static bool IsReadableWanted();
    static void WantReadable(bool wanted);
    /// What becomes of escape sequences in all the program's logs; kept. They are coloured without
    /// a choice.
    static Escapes WantedEscapes();
    static void    WantEscapes(Escapes wanted);
    /// Whether the user wants the numbers of lines, and the times at which they came, left of the
    /// text; of all the program's logs, and kept.
    /// @{
    static bool AreNumbersWanted();
    static void WantNumbers(bool wanted);
    static bool AreTimesWanted();
    static void WantTimes(bool wanted);
    /// @}
    /// Whether long lines go on in rows below, in all the program's logs; kept.
    /// @{
    static bool IsWrapWanted();
    static void WantWrap(bool wanted);
    /// @}
    /// Points, of all the program's logs; kept.
    static void WantTextSize(int points);

    int  LinesInSight() const;  ///< Whole lines for which there is room.
    int  FirstSeenLine() const; ///< The topmost one, also when it is seen in part only.
    void ShowFrom(int line);    ///< Scrolls so that this line is the topmost one, if it can be.

    /// Adds a line at the end; its index.
    int Add(const String& line);

private:
    explicit FollowingText(wxTextLinePanes* panes);
};

/// Appends what a menu bar offers of a text view, to be passed on to its `OnMenu`, with the keys at
/// which the view does so by itself.
void AppendTextCommands(wxMenu& menu);
/// The same for saving its lines, where the view has the keys throughout.
void AppendSave(wxMenu& menu, const wxString& label);
