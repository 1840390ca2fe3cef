#pragma once

#include "vesta/Export.h"
#include "vesta/Path.h"
#include "vesta/String.h"

#include <vector>

/// The private folder with the sockets of this user's programs: "$XDG_RUNTIME_DIR/tolvan", else
/// "tolvan-<user id>" in the temporary folder. Each program has one socket,
/// "<component>.<process id>"; the master's own for its clients is "master". Any thread.
class TOLVAN_API SocketFolder
{
public:
    /// The folder, created with mode 0700. Throws an `Exception*` (ec_Refused) when it is not a
    /// folder that belongs to this user alone.
    static Path Get();
    static Path ForProgram(const String& component, int processId);
    static Path ForMaster();
    /// Sockets on which programs of the component take requests. What dead programs have left is
    /// removed.
    static std::vector<Path> Find(const String& component);
    static bool              MasterAnswers(); ///< Whether a master takes clients.

    /// "tolvan-<user id>" in the temporary folder ($TMPDIR, else /tmp), under the same conditions.
    static Path GetTemporary();
};
