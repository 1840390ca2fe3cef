#include "common/EndRequest.h"

#include "tolvan/Message.h"

#include <wx/app.h>

EndRequest::EndRequest(wxApp& app)
{
    ShutdownMsg::s_Signal.Connect(this, [this](const boost::shared_ptr<ShutdownMsg>&)
                                  { m_IsMade = true; });
    app.Bind(wxEVT_QUERY_END_SESSION,
             [this](wxCloseEvent& event)
             {
                 event.Skip();
                 m_IsMade = true;
             });
}

EndRequest::~EndRequest()
{
    DisconnectAll();
}
