#pragma once

/// All of the colour scheme: its table, drawing with its colours, the mixin through which a window
/// follows it, and the controls that it gives a look of their own.

#include "appearance/ColorDrawing.h"
#include "appearance/ColorScheme.h"
#include "appearance/wxtButton.h"
#include "appearance/wxtCheckBox.h"
#include "appearance/wxtColorManaged.h"
#include "appearance/wxtRenderer.h"
#include "appearance/wxtStockControls.h"
