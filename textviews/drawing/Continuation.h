#pragma once

#include "textviews/drawing/LinePainter.h"

namespace textviews
{
/// The rows of pixels of the mark of a row that goes on with the line above it: a small hook in the
/// room that such a row leaves at its left, from `left` on.
std::vector<wxRect> ContinuationRows(int left, int top, int width, int rowHeight);

/// Draws it before the row that everything is asked about: in that colour, made readable as marks
/// are.
void DrawContinuation(LinePainter& painter, const TextGeometry& geometry, const wxColour& colour,
                      const wxColour& band);
} // namespace textviews
