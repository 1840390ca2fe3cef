#pragma once

#include "vesta/String.h"

namespace vesta
{
/// Tells the calling thread's trace that an exception is about to be thrown: should the thread have
/// printed its trace for an earlier one, this one is printed all the same.
void ForgetPrintedTraces() noexcept;

/// Says where traces of exceptions go. Until then they are dropped.
void SetTracePrinter(void (*print)(const String& trace)) noexcept;
} // namespace vesta
