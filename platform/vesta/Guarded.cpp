#include "vesta/Guarded.h"

#include "vesta/Exception.h"
#include "vesta/Log.h"

#include <exception>
#include <memory>

bool Guarded(const String& what, const std::function<void()>& call)
{
    try
    {
        call();
        return true;
    }
    catch (...)
    {
        LogError(what + " failed: " + TakeCurrentException());
    }
    return false;
}

String TakeCurrentException()
{
    if (!std::current_exception())
    {
        return "no exception is known";
    }
    try
    {
        throw;
    }
    catch (Exception* exception)
    {
        const std::unique_ptr<Exception> owner(exception);
        return exception->Describe();
    }
    catch (const std::exception& exception)
    {
        return exception.what();
    }
    catch (...)
    {
        return "an exception of an unknown type";
    }
}
