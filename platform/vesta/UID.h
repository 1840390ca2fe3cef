#pragma once

#include "vesta/Export.h"
#include "vesta/String.h"

#include <boost/uuid/uuid.hpp>

/// A universally unique identifier of 128 bits.
class TOLVAN_API UID
{
public:
    static const UID Null;

    UID(); ///< The null identifier.
    /// From its string form ("6f1c...-...", in any case, with or without braces); any other text
    /// gives the null identifier.
    explicit UID(const String& text);

    static UID Create(); ///< A new random one.

    String ToString() const; ///< 36 characters, lower case.
    bool   IsNull() const;

    friend bool operator==(const UID& a, const UID& b) { return a.m_Id == b.m_Id; }
    friend bool operator!=(const UID& a, const UID& b) { return a.m_Id != b.m_Id; }
    friend bool operator<(const UID& a, const UID& b) { return a.m_Id < b.m_Id; }

private:
    boost::uuids::uuid m_Id;
};
