#pragma once

#include "vesta/File.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

/// Gives each test a user folder and a runtime folder of its own, empty, and removes them.
class UserFolderTest : public testing::Test
{
protected:
    UserFolderTest();
    ~UserFolderTest() override;

    Path UserFile(const String& name) const { return Path(m_Folder) / "user" / name; }
    Path TempFile(const String& name) const { return Path(m_Folder) / name; }

    static void   WriteFile(const Path& path, const String& content);
    static String ReadFile(const Path& path);
    /// Of the file itself, not of what it links to.
    static struct stat StatusOf(const Path& path);
    static mode_t      ModeOf(const Path& path) { return StatusOf(path).st_mode & 07777; }

private:
    String m_Folder;
    String m_OldUserDir;
};
