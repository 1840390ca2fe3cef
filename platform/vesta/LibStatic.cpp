#include "vesta/LibStatic.h"

#include "vesta/CallEntry.h"
#include "vesta/Guarded.h"

#include <algorithm>
#include <mutex>
#include <vector>

namespace
{

struct Registry
{
    std::mutex              mutex;
    std::vector<LibStatic*> statics; ///< Those not cleaned up yet, in the order of creation.
};

Registry& GetRegistry()
{
    // Never destroyed: statics of other libraries may leave after this library's own.
    static auto* const s_Registry = new Registry;
    return *s_Registry;
}

LibStatic* TakeLast()
{
    Registry&                         registry = GetRegistry();
    const std::lock_guard<std::mutex> lock(registry.mutex);
    if (registry.statics.empty())
    {
        return nullptr;
    }
    LibStatic* const last = registry.statics.back();
    registry.statics.pop_back();
    return last;
}

} // namespace

LibStatic::LibStatic(const String& name) : m_StaticName(name)
{
    Registry&                         registry = GetRegistry();
    const std::lock_guard<std::mutex> lock(registry.mutex);
    registry.statics.push_back(this);
}

LibStatic::~LibStatic()
{
    Registry&                         registry = GetRegistry();
    const std::lock_guard<std::mutex> lock(registry.mutex);
    auto&                             statics = registry.statics;
    statics.erase(std::remove(statics.begin(), statics.end(), this), statics.end());
}

void LibStatic::CleanupAll()
{
    CALL_ENTRY("LibStatic::CleanupAll");
    while (LibStatic* const object = TakeLast())
    {
        Guarded("Cleaning up \"" + object->StaticName() + "\"",
                [object] { object->OnLibCleanup(); });
    }
}
