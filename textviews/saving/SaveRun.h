#pragma once

#include "textviews/lines/LineStore.h"
#include "textviews/search/LineWatcher.h"
#include "vesta/OutputFile.h"

#include <chrono>

namespace textviews
{
/// Writes the lines of a view to a file, in slices that are short enough for a window to live
/// meanwhile: those that are there when it begins. Until it is done the file is as it was before.
/// Has to be told of the lines. Main thread.
class SaveRun final : public LineWatcher
{
public:
    /// Throws an `Exception*` when the file cannot be written.
    SaveRun(const LineStore& lines, const Path& path);

    /// Goes on for a slice of time. Throws an `Exception*`, also where lines have gone before they
    /// were written.
    void Work(std::chrono::milliseconds slice);
    bool IsDone() const { return m_IsDone; }
    /// It cannot go on before lines have come from a disk, which the store tells of.
    bool IsWaiting() const { return m_IsWaiting; }
    int  Percent() const; ///< Of the lines are written.

    void LineInserted(int line) override;
    void LineErased(int line) override;
    void LinesCleared() override;

private:
    void Write(const LineStore::Block& block);

    const LineStore& m_Lines;
    OutputFile       m_File;
    int              m_Next = 0;
    int              m_End;
    int              m_Replaced = 0; ///< Lines at the end that went to come anew.
    bool             m_HasLost = false;
    bool             m_IsWaiting = false;
    bool             m_IsDone = false;
};
} // namespace textviews
