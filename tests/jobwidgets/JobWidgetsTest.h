#pragma once

#include "tests/support/FrameTest.h"

#include "tolvan/JobFactory.h"

#include <wx/modalhook.h>
#include <wx/msgdlg.h>

/// Answers message boxes at once and remembers what they said.
class BoxCatcher : public wxModalDialogHook
{
public:
    BoxCatcher() { Register(); }
    ~BoxCatcher() override { Unregister(); }

    int      count = 0;
    wxString caption;
    wxString text;

protected:
    int Enter(wxDialog* dialog) override
    {
        ++count;
        if (const auto* const box = dynamic_cast<wxMessageDialog*>(dialog))
        {
            caption = box->GetTitle();
            text = box->GetMessage();
        }
        return wxID_OK;
    }
};

/// Has the process's job factory read a folder of the test's own.
class JobWidgetsTest : public FrameTest
{
protected:
    JobWidgetsTest() { JobFactory::s_JobFactory->SetFolder(TempFile("modules")); }
    ~JobWidgetsTest() override { JobFactory::s_JobFactory->SetFolder(Path()); }

    /// Writes the module file of a new type.
    UID AddType(const String& file, const String& name, const String& commands = "")
    {
        const UID id = UID::Create();
        File::MakeFolder(TempFile("modules"));
        WriteFile(ModuleFile(file),
                  "[Type]\nId = " + id.ToString() + "\nName = " + name + "\n" + commands);
        return id;
    }
    Path ModuleFile(const String& name) const { return TempFile("modules") / (name + ".module"); }
};
