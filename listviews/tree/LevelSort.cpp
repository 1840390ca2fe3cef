#include "listviews/tree/LevelSort.h"

#include "vesta/Log.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstring>

namespace listviews
{
namespace
{
constexpr int kFew = 512; // children that are asked for, and sorted, at once

constexpr size_t kMostDigits = 255; // of a number in a text

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

// Compares byte by byte as people sort names: numbers by their value, before letters in any case.
void AppendNaturalKey(std::string& key, const String& text)
{
    for (size_t at = 0; at < text.size();)
    {
        if (!IsDigit(text[at]))
        {
            key += static_cast<char>(std::tolower(static_cast<unsigned char>(text[at++])));
            continue;
        }
        const size_t begin = std::min(text.find_first_not_of('0', at), text.size());
        size_t       end = begin;
        while (end < text.size() && IsDigit(text[end]) && end - begin < kMostDigits)
        {
            ++end;
        }
        key += '0';
        key += static_cast<char>(end - begin);
        key.append(text, begin, end - begin);
        at = end;
    }
}

// All that are none are one, behind every number.
void AppendNumberKey(std::string& key, double number)
{
    uint64_t bits = UINT64_MAX;
    if (!std::isnan(number))
    {
        const double plain = number == 0 ? 0.0 : number; // there is one zero
        std::memcpy(&bits, &plain, sizeof(bits));
        bits = bits >> 63 ? ~bits : bits | (uint64_t{1} << 63);
    }
    for (int shift = 56; shift >= 0; shift -= 8)
    {
        key += static_cast<char>(bits >> shift);
    }
}

// Keys of several columns stand behind one another: each text has an end that is less than any
// character.
void AppendKey(std::string& keys, wxDBTreeModel& model, wxDBTreeNode node, const wxDBTreeSort& by)
{
    const size_t begin = keys.size();
    if (const std::optional<double> number = model._SortNumber(node, by.column))
    {
        AppendNumberKey(keys, *number);
    }
    else
    {
        AppendNaturalKey(keys, model._Text(node, by.column));
        keys += '\0';
    }
    if (by.descending)
    {
        const auto first = keys.begin() + static_cast<std::ptrdiff_t>(begin);
        std::transform(first, keys.end(), first, [](char c) { return static_cast<char>(~c); });
    }
}
} // namespace

LevelSort::LevelSort(wxDBTreeModel& model, const TreeSort& by, OpenNode& node)
    : m_Model(model), m_By(by), m_Node(node)
{
    if (node.count > k_MostChildren)
    {
        LogWarning(SFormat("A node's %d children are too many to be sorted", node.count));
    }
    if (by.empty() || node.count < 2 || node.count > k_MostChildren)
    {
        m_Next = -1;
    }
}

bool LevelSort::Step()
{
    if (m_Next < 0 || m_Next == m_Node.count)
    {
        return false;
    }
    for (const int end = std::min(m_Node.count - m_Next, kFew) + m_Next; m_Next < end; ++m_Next)
    {
        AddKey(m_Next);
    }
    return true;
}

void LevelSort::AddKey(int place)
{
    const int          index = m_Node.IndexAt(place);
    const wxDBTreeNode child = m_Model._Child(m_Node.node, index);
    m_Key.clear();
    for (const wxDBTreeSort& by : m_By)
    {
        AppendKey(m_Key, m_Model, child, by);
    }
    m_Keys.emplace_back(m_Key, index);
}

void LevelSort::Apply()
{
    if (m_Next < 0)
    {
        return;
    }
    std::stable_sort(m_Keys.begin(), m_Keys.end(),
                     [](const auto& left, const auto& right) { return left.first < right.first; });
    std::vector<uint32_t> order;
    order.reserve(m_Keys.size());
    for (const auto& [key, index] : m_Keys)
    {
        order.push_back(static_cast<uint32_t>(index));
    }
    OpenTree::Reorder(m_Node, std::move(order));
}
} // namespace listviews
