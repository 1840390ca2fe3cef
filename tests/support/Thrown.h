#pragma once

#include "vesta/Exception.h"

#include <memory>

/// The exception of the platform that the action throws; null when it throws none.
template <class Action> std::unique_ptr<Exception> Thrown(const Action& action)
{
    try
    {
        action();
    }
    catch (Exception* exception)
    {
        return std::unique_ptr<Exception>(exception);
    }
    return nullptr;
}

/// Its code; 0 when there is none.
template <class Action> int CodeThrown(const Action& action)
{
    const auto exception = Thrown(action);
    return exception ? exception->Code() : 0;
}

/// Its text; empty when there is none.
template <class Action> String TextThrown(const Action& action)
{
    const auto exception = Thrown(action);
    return exception ? exception->Text() : String();
}
