#pragma once

#include "vesta/Export.h"
#include "vesta/Path.h"
#include "vesta/String.h"

/// The six components of the system. A component has started when the socket of one of its
/// programs takes connections, the master also with the one for its clients, on which it takes no
/// requests. Any thread; never blocks.
class TOLVAN_API Components
{
public:
    static constexpr int k_Count = 6;

    /// 0 master, 1 monitor, 2 log viewer, 3 submitter, 4 administrator, 5 worker; an empty string
    /// for any other index.
    static const String& GetName(int index);
    static bool          DidStart(int index);
    static bool          DidStart(const String& name);
};

/// Name of the master component.
extern TOLVAN_API const String component_Master;
extern TOLVAN_API const String component_Monitor;
extern TOLVAN_API const String component_LogView;
