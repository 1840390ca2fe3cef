#include "vesta/UID.h"

#include <boost/uuid/nil_generator.hpp>
#include <boost/uuid/random_generator.hpp>
#include <boost/uuid/string_generator.hpp>
#include <boost/uuid/uuid_io.hpp>

#include <stdexcept>

const UID UID::Null;

UID::UID() : m_Id(boost::uuids::nil_uuid())
{
}

UID::UID(const String& text) : m_Id(boost::uuids::nil_uuid())
{
    try
    {
        m_Id = boost::uuids::string_generator()(text.begin(), text.end());
    }
    catch (const std::runtime_error&)
    {
        // Not an identifier: the null one is the documented answer.
    }
}

UID UID::Create()
{
    UID result;
    result.m_Id = boost::uuids::random_generator()();
    return result;
}

String UID::ToString() const
{
    return boost::uuids::to_string(m_Id);
}

bool UID::IsNull() const
{
    return m_Id.is_nil();
}
