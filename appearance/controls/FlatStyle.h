#pragma once

#include <wx/defs.h>

namespace appearance
{
/// The style of a control, without a border unless it asks for one itself.
inline long FlatStyle(long style)
{
    return style & wxBORDER_MASK ? style : style | wxBORDER_NONE;
}
} // namespace appearance
