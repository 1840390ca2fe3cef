#pragma once

#include "appearance/ColorScheme.h"

#include <wx/intl.h>

/// A colour scheme as the user picks it.
struct SchemeName
{
    int         scheme; ///< Its code.
    const char* label;  ///< To be translated; with its mnemonic.
};

/// All schemes, in the order in which they are offered.
constexpr SchemeName k_SchemeNames[] = {
    {scheme_Default, wxTRANSLATE("&Default")},
    {scheme_Light, wxTRANSLATE("&Light")},
    {scheme_Lighter, wxTRANSLATE("L&ighter")},
    {scheme_Dark, wxTRANSLATE("D&ark")},
    {scheme_Darker, wxTRANSLATE("Da&rker")},
    {scheme_Custom, wxTRANSLATE("&Custom")},
    {scheme_Desktop, wxTRANSLATE("&Follow the desktop")},
};
