#include "internal/port/TextContext.h"

#include <gdk/gdk.h>

namespace internal
{
_PangoContext* ScreenTextContext()
{
    return gdk_pango_context_get();
}
} // namespace internal
