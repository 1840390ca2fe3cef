#pragma once

#include "vesta/Export.h"
#include "vesta/Log.h"
#include "vesta/String.h"

/// A failure of the platform. Thrown and caught by pointer; whoever catches it deletes it.
class TOLVAN_API Exception
{
public:
    Exception(const String& className, const String& method, int code, const String& text,
              const String& text2 = String());
    virtual ~Exception();

    const String& ClassName() const { return m_Class; }
    const String& Method() const { return m_Method; }
    int           Code() const { return m_Code; }
    const String& Text() const { return m_Text; }
    const String& Text2() const { return m_Text2; } ///< Further detail; often empty.

    String Describe() const; ///< One line with everything above.
    /// Writes that line to the global log.
    void Log(LogLevel level = log_Error) const;

    [[noreturn]] static void Throw(const String& className, const String& method, int code,
                                   const String& text, const String& text2 = String());
    /// The same with the text of the calling thread's errno as the second text.
    [[noreturn]] static void ThrowErrno(const String& className, const String& method,
                                        const String& text);

private:
    String m_Class;
    String m_Method;
    int    m_Code;
    String m_Text;
    String m_Text2;
};

/// Codes of the platform's own failures.
enum ExceptionCode
{
    ec_System = 0x20000001,    ///< A call of the operating system failed; the second text says why.
    ec_BadData = 0x20000002,   ///< A file or a message is not what it should be.
    ec_NoUserDir = 0x20000003, ///< There is no folder for the user's settings.
    ec_TooLarge = 0x20000004,  ///< A file or a frame is over its limit.
    ec_Refused = 0x20000005    ///< The other side refused or cannot be reached.
};
