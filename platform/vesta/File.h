#pragma once

#include "vesta/Export.h"
#include "vesta/Path.h"
#include "vesta/String.h"

#include <functional>
#include <vector>

/// Files and folders of the user. All functions may be called on any thread, but `s_UserDir` is
/// only changed before other threads run (or by a test).
class TOLVAN_API File
{
public:
    /// The folder of the user's settings; empty when there is none. Found at load time:
    /// $TOLVAN_USER_DIR, else $XDG_CONFIG_HOME/tolvan, else ~/.config/tolvan.
    static String s_UserDir;
    static String FindUserDir(); ///< Looks it up again in the environment.
    /// `s_UserDir`. Throws an `Exception*` with the text "No User Folder available" when empty.
    static Path GetUserDir();

    static bool Exists(const Path& path);
    static bool IsFolder(const Path& path);
    /// Creates the folder and its parents, private to the user. Throws an `Exception*`.
    static void MakeFolder(const Path& path);
    static bool Remove(const Path& path); ///< False when there was nothing or it failed.

    /// The whole content. Throws an `Exception*` when the file cannot be read or is larger than
    /// `limit` bytes.
    static String Read(const Path& path, size_t limit);
    /// Replaces the content: written to a temporary file beside it (mode 0600), flushed and renamed
    /// over it, so that a crash or a full disk leaves the old content or the new. A symbolic link
    /// is followed. Throws an `Exception*`; the old file is then untouched, and no other is left
    /// behind. A file that its owner has write-protected is not replaced, whoever asks.
    /// `mayReplace`, if given, is asked right before the renaming; when it says no the old file
    /// stays and the result is false.
    static bool WriteAtomically(const Path& path, const String& content,
                                const std::function<bool()>& mayReplace = {});
    /// The file that a chain of symbolic links ends at, which need not exist; the path itself when
    /// it is no link. Throws an `Exception*` for links in a circle.
    static Path FollowLinks(const Path& path);
    /// Throws the `Exception*` of `WriteAtomically` when the file or its folder is write-protected
    /// or the file is no plain one; links are not followed here. A file that does not exist is all
    /// right.
    static void CheckReplaceable(const Path& path);
    /// The names in a folder, sorted; empty when it cannot be read.
    static std::vector<String> List(const Path& folder);
};
