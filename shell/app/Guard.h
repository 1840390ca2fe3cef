#pragma once

#include "vesta/Exception.h"

#include <exception>

namespace shell
{
/// Runs somebody else's code at a place that an exception must not leave: what it throws is logged
/// with `what` it was. False when it threw.
template <class Call> bool Guard(const char* what, const Call& call)
{
    const String failed = String(what) + " failed: ";
    try
    {
        call();
        return true;
    }
    catch (Exception* exception)
    {
        LogError(failed + exception->Text());
        exception->Log();
        delete exception;
    }
    catch (const std::exception& exception)
    {
        LogError(failed + exception.what());
    }
    catch (...)
    {
        LogError(failed + "an exception of an unknown type");
    }
    return false;
}
} // namespace shell
