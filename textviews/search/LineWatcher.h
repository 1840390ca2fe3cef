#pragma once

namespace textviews
{
/// Told by a text view of its lines. Main thread.
class LineWatcher
{
public:
    virtual void LineInserted(int line) = 0; ///< After it came, before others.
    virtual void LineErased(int line) = 0;   ///< Before it goes.
    virtual void LinesCleared() = 0;         ///< After all have gone.
    virtual void LookChanged() {}            ///< The view shows its lines another way now.

protected:
    ~LineWatcher() = default;
};
} // namespace textviews
