#include "listviews/wxListRefresh.h"

#include "listviews/refresh/RefreshEvent.h"
#include "listviews/refresh/RefreshRest.h"
#include "listviews/selecting/SelectionWork.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBListCtrl.h"
#include "vesta/CallEntry.h"
#include "vesta/Guarded.h"

listviews::RefreshWork& wxListRefresh::WorkOf(wxDBListCtrl& list)
{
    if (!list.m_Refresh)
    {
        list.m_Refresh = std::make_unique<listviews::RefreshRest>(list);
    }
    return *list.m_Refresh;
}

wxListRefresh::wxListRefresh(wxDBListCtrl& list) : m_List(&list)
{
    CALL_ENTRY("wxListRefresh::wxListRefresh");
    if (!list.GetBody()->Selecting().Finish())
    {
        return;
    }
    listviews::RefreshEvent begins(listviews::EVT_REFRESH_BEGINS, m_Marks);
    list.ProcessWindowEventLocally(begins);
    if (!m_Marks)
    {
        m_Marks = std::make_unique<listviews::RowMarks>(WorkOf(list).Take());
    }
}

wxListRefresh::~wxListRefresh()
{
    CALL_ENTRY("wxListRefresh::~wxListRefresh");
    Guarded("The refresh of a list",
            [this]
            {
                if (!m_List || m_List->IsBeingDeleted())
                {
                    return;
                }
                listviews::RefreshEvent ends(listviews::EVT_REFRESH_ENDS, m_Marks);
                m_List->ProcessWindowEventLocally(ends);
                if (m_Marks)
                {
                    WorkOf(*m_List).Restore(*m_Marks);
                }
            });
}
