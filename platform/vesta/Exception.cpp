#include "vesta/Exception.h"

#include "vesta/trace/CallTrace.h"

#include <cerrno>
#include <system_error>

Exception::Exception(const String& className, const String& method, int code, const String& text,
                     const String& text2)
    : m_Class(className), m_Method(method), m_Code(code), m_Text(text), m_Text2(text2)
{
    vesta::ForgetPrintedTraces();
}

Exception::~Exception() = default;

String Exception::Describe() const
{
    String line = m_Class + "::" + m_Method + ": " + m_Text;
    if (!m_Text2.empty())
    {
        line += " (" + m_Text2 + ")";
    }
    return line + SFormat(" [0x%08x]", static_cast<unsigned>(m_Code));
}

void Exception::Log(LogLevel level) const
{
    GlobalLog(level, Describe());
}

void Exception::Throw(const String& className, const String& method, int code, const String& text,
                      const String& text2)
{
    throw new Exception(className, method, code, text, text2);
}

void Exception::ThrowErrno(const String& className, const String& method, const String& text)
{
    const int error = errno;
    Throw(className, method, ec_System, text, std::generic_category().message(error));
}
