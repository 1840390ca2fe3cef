#pragma once

#include "vesta/File.h"

#include <gtest/gtest.h>

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

private:
    String m_Folder;
    String m_OldUserDir;
};
