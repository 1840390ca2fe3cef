#pragma once

#include "vesta/String.h"

#include <functional>

/// Cuts bytes that come bit by bit into lines.
class LineCutter
{
public:
    using OnLine = std::function<void(const String& line)>;

    /// `onLine` is told of every line, without its line feed; every other byte, a carriage return
    /// too, belongs to it. `onPartialLine` is told of the last line as it stands now while it is
    /// unfinished, which replaces what it was told before; of an empty one when that line has been
    /// finished, and comes with `onLine` next, or is gone.
    LineCutter(OnLine onLine, OnLine onPartialLine);
    /// A line that does not end is cut after `k_LongestTextLine` bytes. `onCut` is told of it
    /// behind `onLine`: what comes is the same line.
    void TellOfCuts(std::function<void()> onCut) { m_OnCut = std::move(onCut); }

    void Take(const char* bytes, size_t count);
    /// Tells of the unfinished line.
    void ShowPartial();
    /// The unfinished line will not go on: it is one.
    void Finish();
    /// Takes the unfinished line back.
    String Drop();
    /// Tells of an unfinished line that somebody else has found.
    void Show(const String& line);

private:
    void TakePart(const char* bytes, size_t count);
    void FinishLine();
    void ForgetShown();

    OnLine                m_OnLine;
    OnLine                m_OnPartialLine;
    std::function<void()> m_OnCut;
    String                m_Partial;   ///< Of the last line, whose end has not come yet.
    size_t                m_Shown = 0; ///< Bytes of it that were told of.
};
