#include "listviews/copying/TableText.h"

#include <algorithm>

namespace listviews
{
namespace
{
const char* const kHead =
    "<html><head><meta http-equiv=\"content-type\" content=\"text/html; charset=utf-8\"></head>"
    "<body><table>\n";
const char* const kEnd = "</table></body></html>\n";

bool IsQuoted(char byte)
{
    return byte == '\t' || byte == '\r' || byte == '\n' || byte == '"';
}

// The next cell of the text, and whether it is the last one of its row. `at` must lie in the text.
String TakeCell(const String& table, size_t& at, bool& isLast)
{
    String cell;
    bool   isQuoted = table[at] == '"';
    at += isQuoted ? 1 : 0;
    for (; at < table.size(); ++at)
    {
        const char byte = table[at];
        if (isQuoted && byte == '"')
        {
            isQuoted = at + 1 < table.size() && table[at + 1] == '"';
            if (!isQuoted)
            {
                continue; // the closing one
            }
            ++at;
        }
        else if (!isQuoted && (byte == '\t' || byte == '\n'))
        {
            isLast = byte == '\n';
            ++at;
            return cell;
        }
        cell += byte;
    }
    isLast = true;
    return cell;
}

void AddEscaped(String& html, const String& cell)
{
    for (const char byte : cell)
    {
        switch (byte)
        {
        case '&':
            html += "&amp;";
            break;
        case '<':
            html += "&lt;";
            break;
        case '>':
            html += "&gt;";
            break;
        case '\n':
            html += "<br>";
            break;
        case '\r':
            break;
        default:
            html += byte;
        }
    }
}
} // namespace

void TableText::Add(const String& cell)
{
    if (m_IsRowOpen)
    {
        m_Text += '\t';
    }
    m_IsRowOpen = true;
    if (std::none_of(cell.begin(), cell.end(), IsQuoted))
    {
        m_Text += cell;
        return;
    }
    m_Text += '"';
    for (const char byte : cell)
    {
        m_Text.append(byte == '"' ? 2 : 1, byte);
    }
    m_Text += '"';
}

void TableText::EndRow()
{
    m_Text += '\n';
    m_IsRowOpen = false;
}

String HtmlOf(const String& table)
{
    String      html = kHead;
    const char* tag = "th";
    bool        isLast = true;
    for (size_t at = 0; at < table.size();)
    {
        html += isLast ? "<tr>" : "";
        const String cell = TakeCell(table, at, isLast);
        html += String("<") + tag + ">";
        AddEscaped(html, cell);
        html += String("</") + tag + ">";
        if (isLast)
        {
            html += "</tr>\n";
            tag = "td";
        }
    }
    return html + kEnd;
}
} // namespace listviews
