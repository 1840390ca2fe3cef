#pragma once

#include "vesta/Export.h"

class Application;

/// The process as seen from outside: what a signal to it does. One object a process.
class TOLVAN_API Executable
{
public:
    /// `application` is not owned and must outlive this object.
    explicit Executable(Application* application);
    virtual ~Executable();
    Executable(const Executable&) = delete;
    Executable& operator=(const Executable&) = delete;

    static Executable* the_Executable; ///< The latest one, or null.

    Application* GetApplication() const { return m_Application; }

    /// Tells the process of a signal; 0 is the request to close the program. Logs it and returns 0.
    /// Any thread.
    virtual int Signal(int signal);

private:
    Application* m_Application;
};
