#pragma once

#include "textviews/escapes/TextStyle.h"

#include <wx/colour.h>

#include <cstdint>
#include <unordered_map>

namespace textviews
{
/// Colours that text is drawn in.
struct TextInks
{
    wxColour ink;
    wxColour quiet;  ///< Of what stands for characters that have no look of their own.
    wxColour ground; ///< Of the cells; invalid: that of the band.
};

/// Each with every channel's complement.
TextInks Inverted(const TextInks& inks);

/// The colours of the scheme for those that a program's output asks for, lighter or darker where
/// they could not be read. What has been worked out is kept.
class StyleColours
{
public:
    /// In the view's own style, on that band.
    TextInks Own(const wxColour& ink, const wxColour& band);
    /// `own` is the view's ink there.
    TextInks Of(const TextStyle& style, const wxColour& own, const wxColour& band);

private:
    using Kept = std::unordered_map<uint64_t, wxColour>; ///< By ink and ground.

    wxColour Readable(const wxColour& ink, const wxColour& ground);
    wxColour Quiet(const wxColour& ink, const wxColour& ground);

    Kept m_Readable;
    Kept m_Quiet;
};

/// How one line looks.
struct LineLook
{
    StyleColours& colours;
    wxColour      ink; ///< The view's.
    wxColour      band;
    bool          isInverted = false;
    bool          isUncoloured = false; ///< All is in the view's own style.
    bool          isRuled = false;      ///< Rules may colour it.

    TextInks InksOf(const TextStyle& style) const;
};
} // namespace textviews
