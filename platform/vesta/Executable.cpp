#include "vesta/Executable.h"

#include "vesta/CallEntry.h"
#include "vesta/Log.h"

Executable* Executable::the_Executable = nullptr;

Executable::Executable(Application* application) : m_Application(application)
{
    the_Executable = this;
}

Executable::~Executable()
{
    if (the_Executable == this)
    {
        the_Executable = nullptr;
    }
}

int Executable::Signal(int signal)
{
    CALL_ENTRY("Executable::Signal");
    LogSystem(signal == 0 ? String("Asked to close") : SFormat("Received signal %d", signal));
    return 0;
}
