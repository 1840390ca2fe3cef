#include "shell/wxTolvanApp.h"
#include "shell/wxTolvanFrame.h"
#include "textviews/wxTextLineCtrl.h"

#include <cstdio>

// A client as somebody else would write it: it shows three lines, says so and closes.
class OutsideApp : public wxTolvanApp
{
public:
    OutsideApp() : wxTolvanApp(log_Info, log_Warning) { m_UsesMaster = false; }

    String GetClientName() const override { return "Outside"; }

    bool Startup(CommandLine& commandLine) override
    {
        if (!TolvanClientApp::Startup(commandLine))
        {
            return false;
        }
        m_Frame = new wxTolvanFrame("Outside");
        m_Text = new wxTextLineCtrl(m_Frame);
        for (const char* line : {"one", "two", "three"})
        {
            m_Text->Append(line, false);
        }
        m_Text->Bind(wxEVT_PAINT, &OutsideApp::OnPaint, this);
        m_Frame->Show();
        return true;
    }

private:
    void OnPaint(wxPaintEvent& event)
    {
        event.Skip();
        m_Text->Unbind(wxEVT_PAINT, &OutsideApp::OnPaint, this);
        std::printf("%d lines shown\n", m_Text->GetLineCount());
        m_Frame->CallAfter([frame = m_Frame] { frame->Close(); });
    }

    wxTolvanFrame*  m_Frame = nullptr;
    wxTextLineCtrl* m_Text = nullptr;
};

wxIMPLEMENT_APP(OutsideApp);
