#include <wx/app.h>
#include <wx/frame.h>

/// What the toolkit takes by itself: a window with nothing in it.
class EmptyApp : public wxApp
{
public:
    bool OnInit() override
    {
        auto* const frame =
            new wxFrame(nullptr, wxID_ANY, "Empty", wxDefaultPosition, wxSize(1200, 800));
        frame->Show();
        return true;
    }
};

wxIMPLEMENT_APP(EmptyApp);
