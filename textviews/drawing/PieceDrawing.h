#pragma once

#include "textviews/drawing/LinePainter.h"
#include "textviews/escapes/LineFolder.h"

namespace textviews
{
/// Draws what of the pieces of a folded line lies in the stretch, each in its style.
void DrawPieces(LinePainter& painter, const TextGeometry& geometry, const LineLook& look, int line,
                std::string_view stored, const ShownPieces& pieces,
                const LinePainter::Cells& cells);
} // namespace textviews
