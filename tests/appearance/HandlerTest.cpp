#include "appearance/wxExpandablePanel.h"
#include "appearance/wxTolvanColors.h"
#include "tests/support/EventCounter.h"
#include "tests/support/FrameTest.h"
#include "tests/support/TestApp.h"

#include <wx/artprov.h>
#include <wx/dialog.h>
#include <wx/textctrl.h>
#include <wx/timer.h>
#include <wx/uiaction.h>

#include <functional>
#include <stdexcept>

namespace
{
const wxPoint kPlace(10, 40);
constexpr int kLookMs = 5; // between two looks at a condition

class Panel : public wxExpandablePanel
{
public:
    explicit Panel(wxWindow* parent) : wxExpandablePanel(parent, wxVERTICAL)
    {
        m_Section = "Panels";
        m_Key = "handled";
        m_CollapsedCaption = m_ExpandedCaption = "Caption";
        CreateInfrastructure("tip", true);
        SetSize(wxRect(kPlace, GetBestSize()));
    }
};

wxWindow* Button(wxWindow* parent)
{
    return new wxtButton(parent, wxID_ANY, "Button", kPlace);
}

wxWindow* BitmapButton(wxWindow* parent)
{
    const wxBitmap image = wxArtProvider::GetBitmap(wxART_TICK_MARK);
    return new wxtBitmapButton(parent, wxID_ANY, image, kPlace);
}

wxWindow* CheckBox(wxWindow* parent)
{
    return new wxtCheckBox(parent, wxID_ANY, "Box", kPlace);
}

wxWindow* RadioButton(wxWindow* parent)
{
    return new wxtRadioButton(parent, wxID_ANY, "Radio", kPlace);
}

wxWindow* PanelButton(wxWindow* parent)
{
    return (new Panel(parent))->FindWindow(wxExpandablePanel::id_Expand);
}

wxWindow* PanelCaption(wxWindow* parent)
{
    return (new Panel(parent))->FindWindow(wxExpandablePanel::id_Caption);
}

struct Control
{
    const char* name;
    wxWindow* (*make)(wxWindow* parent);
    const wxEventTypeTag<wxCommandEvent>& click;
};

const Control kControls[] = {
    {"Button", Button, wxEVT_BUTTON},           {"BitmapButton", BitmapButton, wxEVT_BUTTON},
    {"CheckBox", CheckBox, wxEVT_CHECKBOX},     {"RadioButton", RadioButton, wxEVT_RADIOBUTTON},
    {"PanelButton", PanelButton, wxEVT_BUTTON}, {"PanelCaption", PanelCaption, wxEVT_BUTTON},
};

struct SideEffect
{
    const char*                            name;
    std::function<void(wxWindow* control)> act;
};

const SideEffect kSideEffects[] = {
    {"throws", [](wxWindow*) { throw std::runtime_error("thrown on purpose"); }},
    {"destroys it", [](wxWindow* control) { control->Destroy(); }},
    {"disables it", [](wxWindow* control) { control->Disable(); }},
    {"hides it", [](wxWindow* control) { control->Hide(); }},
    {"opens a dialog",
     [](wxWindow* control)
     {
         wxDialog dialog(control, wxID_ANY, "Dialog");
         dialog.CallAfter([&dialog] { dialog.EndModal(0); });
         dialog.ShowModal();
     }},
};

class HandlerTest : public FrameTest, public testing::WithParamInterface<Control>
{
protected:
    HandlerTest() : m_Holder(new wxtPanel(Frame()))
    {
        m_Holder->SetSize(Frame()->GetClientSize());
        TestApp::Get().m_OnException = [](Exception*) { return true; };
    }
    ~HandlerTest() override { TestApp::Get().m_OnException = nullptr; }

    // In the program's own loop, which is what exceptions are brought to.
    static bool Run(const std::function<bool()>& condition)
    {
        bool    held = false;
        int     looks = 0;
        wxTimer timer;
        timer.Bind(wxEVT_TIMER,
                   [&](wxTimerEvent&)
                   {
                       held = condition();
                       if (held || ++looks * kLookMs > 5000)
                       {
                           wxTheApp->ExitMainLoop();
                       }
                   });
        timer.Start(kLookMs);
        TestApp::Get().OnRun();
        return held;
    }
    // A new control is where it is to be once its panel has been painted.
    void Click(const wxWindow* control)
    {
        const EventCounter painted(m_Holder, wxEVT_PAINT);
        m_Holder->Refresh();
        EXPECT_TRUE(WaitFor([&] { return painted.Count() > 0; }));
        m_Input.MouseMove(control->GetScreenRect().GetPosition() + wxPoint(6, 6));
        m_Input.MouseClick();
    }

    wxUIActionSimulator m_Input;
    wxtPanel*           m_Holder;
};
} // namespace

TEST_P(HandlerTest, MayDoAnything)
{
    for (const SideEffect& effect : kSideEffects)
    {
        SCOPED_TRACE(effect.name);
        m_Holder->DestroyChildren();
        auto* const field = new wxTextCtrl(m_Holder, wxID_ANY, "", wxPoint(200, 10));
        field->SetFocus();
        const wxWeakRef<wxWindow> control(GetParam().make(m_Holder));
        int                       clicks = 0;
        bool                      armed = true;
        control->Bind(GetParam().click,
                      [&, act = effect.act](wxCommandEvent& event)
                      {
                          ++clicks;
                          if (armed)
                          {
                              armed = false;
                              act(control);
                          }
                          else
                          {
                              event.Skip();
                          }
                      });
        Click(field); // so that no double click comes of the row before
        Click(control);
        ASSERT_TRUE(Run([&] { return clicks == 1; }));
        PumpEvents();
        if (control)
        {
            control->Enable();
            control->Show();
            EXPECT_TRUE(control->IsEnabled());
            Click(field);
            Click(control);
            EXPECT_TRUE(Run([&] { return clicks == 2; }));
        }
        field->SetFocus();
        m_Input.Char('x');
        EXPECT_TRUE(WaitFor([&] { return field->GetValue() == "x"; })) << "the keys are not lost";
    }
}

INSTANTIATE_TEST_SUITE_P(Controls, HandlerTest, testing::ValuesIn(kControls),
                         [](const auto& control) { return control.param.name; });
