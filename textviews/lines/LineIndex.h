#pragma once

namespace textviews
{
/// The index of a line after another was inserted; -1 stays.
inline int IndexAfterInsert(int index, int inserted)
{
    return index >= inserted && index != -1 ? index + 1 : index;
}

/// The index of a line after a line was erased; -1 when it was that line itself.
inline int IndexAfterErase(int index, int erased)
{
    if (index == erased)
    {
        return -1;
    }
    return index > erased ? index - 1 : index;
}
} // namespace textviews
