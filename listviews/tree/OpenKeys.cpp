#include "listviews/tree/OpenKeys.h"

#include "listviews/tree/ArrangeJob.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <map>

namespace listviews
{
namespace
{
constexpr size_t kMostBytes = 32768;
constexpr int    kMostAsked = 200000; // children
const char       kSpecial[] = "%(),;#\"\\=[]'";

String Escaped(const String& key)
{
    String text;
    for (const char c : key)
    {
        const auto byte = static_cast<unsigned char>(c);
        const bool isPlain = byte > ' ' && byte != 0x7f && !std::strchr(kSpecial, c);
        text += isPlain ? String(1, c) : SFormat("%%%02X", static_cast<unsigned>(byte));
    }
    return text;
}

String Unescaped(const String& text)
{
    String key;
    for (size_t i = 0; i < text.size(); ++i)
    {
        const bool isCode = text[i] == '%' && i + 2 < text.size();
        key += isCode ? static_cast<char>(std::strtol(text.substr(i + 1, 2).c_str(), nullptr, 16))
                      : text[i];
        i += isCode ? 2 : 0;
    }
    return key;
}

void AppendOpen(wxDBTreeModel& model, const OpenNode& node, size_t closing, String& text)
{
    String separator;
    for (const auto& child : node.opened)
    {
        const String key = child->isOpen ? Escaped(model._Key(child->node)) : String();
        if (key.empty() || text.size() + key.size() + closing + 3 > kMostBytes)
        {
            continue;
        }
        text += separator + key;
        separator = ",";
        const size_t begin = text.size();
        text += '(';
        AppendOpen(model, *child, closing + 1, text);
        if (text.size() == begin + 1)
        {
            text.resize(begin); // nothing is open in it
        }
        else
        {
            text += ')';
        }
    }
}

/// A node that is to be opened, by its key, and those in it.
struct KeyNode
{
    std::map<String, std::unique_ptr<KeyNode>> inside;
};

// From `at` to the parenthesis that ends the level.
void ReadLevel(const String& text, size_t& at, int level, KeyNode& node)
{
    while (at < text.size() && text[at] != ')')
    {
        const size_t end = std::min(text.find_first_of("(),", at), text.size());
        const String key = Unescaped(text.substr(at, end - at));
        auto&        child = node.inside[key];
        child = child ? std::move(child) : std::make_unique<KeyNode>();
        at = end;
        if (at < text.size() && text[at] == '(')
        {
            ++at;
            if (level + 1 >= OpenTree::k_MostLevels)
            {
                at = text.size();
                return;
            }
            ReadLevel(text, at, level + 1, *child);
            at += at < text.size() ? 1 : 0;
        }
        at += at < text.size() && text[at] == ',' ? 1 : 0;
    }
}

void OpenKeys(wxDBTreeModel& model, OpenTree& tree, OpenNode& node, const KeyNode& keys, int& asked)
{
    size_t left = keys.inside.size();
    for (int place = 0; place < node.count && left > 0 && asked < kMostAsked; ++place, ++asked)
    {
        const TreePlace child{&node, place};
        const auto      found = keys.inside.find(model._Key(ChildAt(model, child)));
        if (found == keys.inside.end() || found->first.empty())
        {
            continue;
        }
        --left;
        bool            isUnsorted = false;
        OpenNode* const opened =
            child.IsOpen() ? child.Opened() : OpenChild(tree, child, model, {}, isUnsorted);
        if (opened)
        {
            OpenKeys(model, tree, *opened, *found->second, asked);
        }
    }
}
} // namespace

String OpenNodesText(wxDBTreeModel& model, const OpenTree& tree)
{
    String text;
    AppendOpen(model, tree.Root(), 0, text);
    return text;
}

void OpenByText(wxDBTreeModel& model, OpenTree& tree, const String& text)
{
    KeyNode root;
    size_t  at = 0;
    while (at < text.size())
    {
        ReadLevel(text, at, 0, root);
        at += at < text.size() ? 1 : 0; // a parenthesis too many
    }
    int asked = 0;
    OpenKeys(model, tree, tree.Root(), root, asked);
}
} // namespace listviews
