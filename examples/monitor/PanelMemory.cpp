#include "monitor/PanelMemory.h"

#include "vesta/RWLock.h"

#include <cctype>

const char* const k_PanelSection = "JobPanels";

namespace
{
constexpr size_t kMostKey = 80;     // bytes
constexpr size_t kMostPanels = 200; // remembered as open
} // namespace

String PanelKey(const String& jobName)
{
    String key = jobName.substr(0, kMostKey);
    for (char& byte : key)
    {
        const auto value = static_cast<unsigned char>(byte);
        if (value < 0x80 && !std::isalnum(value))
        {
            byte = '_';
        }
    }
    return "Job_" + key; // some key, even without a name
}

void PrunePanelMemory(IniFile& options)
{
    const WriteLock           lock(options.Lock());
    const std::vector<String> keys = options.Keys(k_PanelSection);
    size_t                    open = 0;
    for (auto key = keys.rbegin(); key != keys.rend(); ++key) // the latest stands last
    {
        if (!options.GetBool(k_PanelSection, *key, false) || ++open > kMostPanels)
        {
            options.RemoveValue(k_PanelSection, *key);
        }
    }
}
