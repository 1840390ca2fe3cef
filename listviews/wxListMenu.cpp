#include "listviews/wxListMenu.h"

#include "listviews/wxDBListBody.h"
#include "listviews/wxDBListCtrl.h"
#include "vesta/CallEntry.h"

#include <wx/listbase.h>

void wxAddListMenu(wxDBListCtrl& list, const std::function<void(const wxPoint& where)>& show)
{
    CALL_ENTRY("wxAddListMenu");
    list.Bind(wxEVT_LIST_ITEM_RIGHT_CLICK,
              [&list, show](wxListEvent& event)
              {
                  const auto row = static_cast<int>(event.GetIndex());
                  // The row has been selected, unless it was among the selected ones.
                  if (row >= 0 && row < list.GetItemCount() && list.IsRowSelected(row))
                  {
                      show(list.GetBody()->ClientToScreen(event.GetPoint()));
                  }
              });
}
