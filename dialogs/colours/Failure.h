#pragma once

#include "vesta/Exception.h"

#include <memory>

namespace dialogs
{
/// Does the work. Why it could not be done, also in the log; empty: it was.
template <class Work> String FailureOf(const Work& work)
{
    try
    {
        work();
        return String();
    }
    catch (Exception* exception)
    {
        const std::unique_ptr<Exception> caught(exception);
        caught->Log(log_Info);
        return caught->Text() + (caught->Text2().empty() ? "" : ": ") + caught->Text2();
    }
}
} // namespace dialogs
