#pragma once

/// Tells the calling thread's trace that an exception is about to be thrown: should the thread have
/// printed its trace for an earlier one, this one is printed all the same.
void _ForgetPrintedTraces() noexcept;

/// While it lives, exceptions that pass on the calling thread leave no trace in the log: for a
/// failure that has been reported and is being tried again.
class _QuietTraces
{
public:
    explicit _QuietTraces(bool quiet);
    ~_QuietTraces();
    _QuietTraces(const _QuietTraces&) = delete;
    _QuietTraces& operator=(const _QuietTraces&) = delete;

private:
    const bool m_Before;
};
