#pragma once

// What a text view is made of: named here for its header, and private to the library.

namespace textviews
{
class DrawnLines;
class FollowButton;
class HitFinder;
class LineStore;
class LinePainter;
class LineWatcher;
class MatchesView;
class LineRun;
class ShownLines;
class StyleColours;
class TextPalette;
class TextPlaces;
class TextSelection;
class VisibleHits;
class Wrapping;
enum class SpanUnit : int;
struct RuleWork;
struct StripScale;
struct Ruling;
struct ShownPiece;
struct _FontExtents;
struct LineLook;
struct Gutter;
struct GutterRow;
struct ByteSpan;
struct LineMatch;
struct LineState;
struct MarkedHit;
struct SearchPlace;
struct ShownCells;
struct TextAnchor;
struct TextGeometry;
struct ViewTop;
} // namespace textviews
