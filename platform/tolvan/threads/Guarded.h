#pragma once

#include "vesta/Exception.h"
#include "vesta/Log.h"
#include "vesta/String.h"

#include <exception>

namespace tolvan
{
/// Runs `call`, which is somebody else's code, on a thread that must survive it: what it throws is
/// logged with `what` it was. False when it threw.
template <class Call> bool Guarded(const String& what, const Call& call)
{
    try
    {
        call();
        return true;
    }
    catch (Exception* exception)
    {
        LogError(what + " failed:");
        exception->Log();
        delete exception;
    }
    catch (const std::exception& exception)
    {
        LogError(what + " failed: " + exception.what());
    }
    catch (...)
    {
        LogError(what + " failed with an exception of an unknown type");
    }
    return false;
}
} // namespace tolvan
