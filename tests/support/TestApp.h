#pragma once

#include "shell/wxTolvanApp.h"

#include <functional>

/// The application of the test programs: a graphical client without a master. Its virtual
/// operations can be replaced for one test.
class TestApp : public wxTolvanApp
{
public:
    TestApp();
    ~TestApp() override;

    static TestApp& Get();

    bool   Startup(CommandLine& commandLine) override;
    void   Cleanup() override;
    bool   OnException(Exception* exception) override;
    String GetClientName() const override { return "TolvanTests"; }
    String OptionsFilename() const override;

    using wxTolvanApp::m_ShowStartupError;

    /// Called in place of the operations above when set; reset by whoever sets them.
    /// @{
    std::function<bool()>                     m_Startup;
    std::function<void()>                     m_Cleanup;
    std::function<bool(Exception* exception)> m_OnException;
    /// @}

    void ForgetOptions() { CloseOptions(); }
};
