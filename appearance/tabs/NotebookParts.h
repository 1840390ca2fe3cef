#pragma once

#include "appearance/tabs/PageChooser.h"
#include "appearance/tabs/PageWindow.h"
#include "appearance/tabs/TabDrag.h"
#include "appearance/tabs/TabStrip.h"
#include "appearance/tabs/UseOrder.h"
#include "appearance/wxtNotebook.h"

#include <map>
#include <memory>
#include <vector>

/// What a notebook is made of.
struct wxtNotebook::Parts
{
    std::vector<std::unique_ptr<appearance::TabStrip>>   strips;
    std::vector<std::unique_ptr<appearance::PageWindow>> windows;
    std::map<const wxWindow*, appearance::PageData>      data;    ///< Of the pages in the tabs.
    appearance::UseOrder<wxWindow>                       order;   ///< Of all pages.
    std::unique_ptr<appearance::TabDrag>                 drag;    ///< Null unless one is dragged.
    std::unique_ptr<appearance::PageChooser>             chooser; ///< Null unless it is open.
};
