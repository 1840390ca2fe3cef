#pragma once

#include "vesta/String.h"

#include <utility>

namespace listviews
{
/// A table as text: tabs between the cells, a line end behind each row. A cell with a tab, a line
/// end or a quotation mark in it stands in quotation marks, and those within it are doubled.
class TableText
{
public:
    void Add(const String& cell);
    void EndRow();

    String Take() { return std::move(m_Text); }

private:
    String m_Text;
    bool   m_IsRowOpen = false;
};

/// Such a text as a table in HTML, its first row as titles.
String HtmlOf(const String& table);
} // namespace listviews
