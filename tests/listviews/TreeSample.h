#pragma once

#include "listviews/wxDBTreeModel.h"

#include <algorithm>
#include <map>
#include <random>
#include <set>
#include <stdexcept>
#include <utility>
#include <vector>

/// A tree that a test builds and changes. Nodes have their numbers for texts, unless given.
class TreeSample : public wxDBTreeModel
{
public:
    void Add(wxDBTreeNode parent, wxDBTreeNode node)
    {
        children[parent].push_back(node);
        m_Next = std::max(m_Next, node + 1);
    }
    /// So many nodes more, each in any other one.
    void Grow(std::mt19937& random, int count)
    {
        for (int i = 0; i < count; ++i)
        {
            const auto all = static_cast<unsigned>(m_Next);
            Add(random() % 4 == 0 ? k_Root : static_cast<wxDBTreeNode>(random() % all), m_Next);
        }
    }
    /// Takes a node away with all that is in it, which is returned, adds another one somewhere, and
    /// turns the children of a third one round.
    std::vector<wxDBTreeNode> Change(std::mt19937& random)
    {
        auto& any = children[static_cast<wxDBTreeNode>(random() % static_cast<unsigned>(m_Next))];
        std::vector<wxDBTreeNode> gone;
        if (!any.empty())
        {
            const auto node = any.begin() + static_cast<long>(random() % any.size());
            gone.push_back(*node);
            any.erase(node);
        }
        for (size_t i = 0; i < gone.size(); ++i)
        {
            const std::vector<wxDBTreeNode> inside = std::exchange(children[gone[i]], {});
            gone.insert(gone.end(), inside.begin(), inside.end());
        }
        auto& top = children[k_Root];
        top.insert(top.begin() + static_cast<long>(random() % (top.size() + 1)), m_Next++);
        auto& turned = children[top[random() % top.size()]];
        std::reverse(turned.begin(), turned.end());
        return gone;
    }

    long long _ChildCount(wxDBTreeNode node) override
    {
        if (throws)
        {
            throw std::runtime_error("no answer");
        }
        const auto claim = claimed.find(node);
        return claim != claimed.end() ? claim->second
                                      : static_cast<long long>(children[node].size());
    }
    wxDBTreeNode _Child(wxDBTreeNode node, long long index) override
    {
        const auto& inside = children[node];
        return index < static_cast<long long>(inside.size()) ? inside[static_cast<size_t>(index)]
                                                             : k_Root;
    }
    String _Text(wxDBTreeNode node, int) override
    {
        const auto text = texts.find(node);
        return text != texts.end() ? text->second : String::FromInt(node);
    }
    String _Key(wxDBTreeNode node) override
    {
        const auto key = keys.find(node);
        return key != keys.end() ? key->second : String();
    }
    std::optional<double> _SortNumber(wxDBTreeNode node, int column) override
    {
        const auto number = numbers.find(node);
        return column == 1 && number != numbers.end() ? std::optional(number->second)
                                                      : std::nullopt;
    }

    bool _IsHeading(wxDBTreeNode node) override { return headings.count(node) > 0; }
    bool _IsFirst(wxDBTreeNode node) override { return node == first; }

    std::map<wxDBTreeNode, std::vector<wxDBTreeNode>> children;
    std::map<wxDBTreeNode, long long>                 claimed; ///< Other numbers of children.
    std::map<wxDBTreeNode, String>                    texts;
    std::map<wxDBTreeNode, String>                    keys;
    std::map<wxDBTreeNode, double>                    numbers; ///< In column 1.
    std::set<wxDBTreeNode>                            headings;
    wxDBTreeNode                                      first = -1;
    bool                                              throws = false;

private:
    wxDBTreeNode m_Next = 1;
};
