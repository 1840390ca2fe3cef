#pragma once

struct _PangoContext;

namespace internal
{
/// What the port lays out texts for the screen with; the caller owns the reference.
_PangoContext* ScreenTextContext();
} // namespace internal
