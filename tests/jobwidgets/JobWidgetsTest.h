#pragma once

#include "tests/support/DialogCatcher.h"
#include "tests/support/FrameTest.h"

#include "tolvan/JobFactory.h"

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
