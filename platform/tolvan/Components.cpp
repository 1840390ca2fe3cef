#include "tolvan/Components.h"

#include "tolvan/SocketFolder.h"
#include "vesta/Exception.h"

const String component_Master = "TolvanMaster";
const String component_Monitor = "TolvanMonitor";
const String component_LogView = "TolvanLogView";

const String& Components::GetName(int index)
{
    static const String kNames[k_Count] = {"TolvanMaster", "TolvanMonitor", "TolvanLogView",
                                           "TolvanSubmit", "TolvanAdmin",   "TolvanWorker"};
    static const String kNone;
    return index >= 0 && index < k_Count ? kNames[index] : kNone;
}

bool Components::DidStart(int index)
{
    return DidStart(GetName(index));
}

bool Components::DidStart(const String& name)
{
    if (name.empty())
    {
        return false;
    }
    try
    {
        return (name == component_Master && SocketFolder::MasterAnswers()) ||
               !SocketFolder::Find(name).empty();
    }
    catch (Exception* exception)
    {
        // Whoever needs the folder has logged this already; a question is no reason to do it again.
        exception->Log(log_Debug);
        delete exception;
        return false;
    }
}
