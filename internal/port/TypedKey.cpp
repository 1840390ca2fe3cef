#include "internal/port/TypedKey.h"

#include <gdk/gdk.h>

namespace internal
{
wxUniChar TypedBy(const wxKeyEvent& event)
{
    return wxUniChar(gdk_keyval_to_unicode(event.GetRawKeyCode()));
}
} // namespace internal
