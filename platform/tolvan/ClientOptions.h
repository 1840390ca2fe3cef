#pragma once

#include "vesta/Export.h"
#include "vesta/String.h"

/// Keys of the options that every client has, in section "Window" of its options file, and what
/// holds where they are not set.

/// Whether text fields propose words as one types (yes or no).
extern TOLVAN_API const String o_AutoComplete;
constexpr bool                 o_AutoCompleteDefault = true;
