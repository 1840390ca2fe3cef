#pragma once

namespace vesta
{
/// Tells the calling thread's trace that an exception is about to be thrown: should the thread have
/// printed its trace for an earlier one, this one is printed all the same.
void ForgetPrintedTraces() noexcept;
} // namespace vesta
