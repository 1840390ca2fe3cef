#include "shell/frames/FrameExtents.h"

#include <wx/toplevel.h>

#include <iterator>
#include <map>

namespace shell
{
namespace
{
constexpr long    kLargest = 200; // pixels of a frame's side
const char* const kSides[] = {"decor_l", "decor_r", "decor_t", "decor_b"};

/// The toolkit's way of keeping a window's geometry, here between two maps.
class Fields : public wxTopLevelWindow::GeometrySerializer
{
public:
    bool SaveField(const wxString& name, int value) const override
    {
        m_Values[name] = value;
        return true;
    }
    bool RestoreField(const wxString& name, int* value) override
    {
        const auto found = m_Values.find(name);
        if (found == m_Values.end())
        {
            return false;
        }
        *value = found->second;
        return true;
    }

    mutable std::map<wxString, int> m_Values;
};
} // namespace

String FrameExtentsOf(const wxWindow& window)
{
    const auto* const top = dynamic_cast<const wxTopLevelWindow*>(&window);
    Fields            fields;
    if (!top || !top->SaveGeometry(fields))
    {
        return String();
    }
    String text;
    for (const char* const side : kSides)
    {
        text += (text.empty() ? "" : ", ") + String::FromInt(fields.m_Values[side]);
    }
    return text;
}

bool PlaceWithFrame(wxTopLevelWindow& window, const wxRect& place, const String& frameExtents)
{
    Fields                    fields;
    const std::vector<String> numbers = StringTokenizer::Split(frameExtents, ",");
    long long                 sum = 0;
    for (size_t i = 0; i < std::size(kSides) && numbers.size() == std::size(kSides); ++i)
    {
        const long long extent = numbers[i].Trim().ToInt(-1);
        if (extent < 0 || extent > kLargest)
        {
            return false;
        }
        fields.m_Values[kSides[i]] = static_cast<int>(extent);
        sum += extent;
    }
    if (sum == 0)
    {
        return false; // a frame of no size is one that was not known
    }
    fields.m_Values.insert({{"x", place.x},
                            {"y", place.y},
                            {"w", place.width},
                            {"h", place.height},
                            {"Iconized", 0},
                            {"Maximized", 0}});
    return window.RestoreToGeometry(fields);
}
} // namespace shell
