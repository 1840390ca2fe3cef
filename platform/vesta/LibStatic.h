#pragma once

#include "vesta/Export.h"
#include "vesta/String.h"

/// A process-wide object that the platform cleans up at the program's end, before static
/// destruction, in the reverse order of creation.
class TOLVAN_API LibStatic
{
public:
    explicit LibStatic(const String& name);
    virtual ~LibStatic();
    LibStatic(const LibStatic&) = delete;
    LibStatic& operator=(const LibStatic&) = delete;

    const String& StaticName() const { return m_StaticName; }

    /// Called once; it may delete the object.
    virtual void OnLibCleanup() = 0;

    /// Cleans up all that there are, those created meanwhile too. Called by the client application
    /// when it has ended; main thread.
    static void CleanupAll();

private:
    String m_StaticName;
};
