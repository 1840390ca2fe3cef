#include "vesta/IniFile.h"

#include "tests/support/LogCapture.h"
#include "tests/support/SmallDisk.h"
#include "tests/support/Thrown.h"
#include "tests/support/UserFolderTest.h"

#include <unistd.h>

namespace
{

class IniFileTest : public UserFolderTest
{
protected:
    const Path m_File = UserFile("sub/folder/options.ini");
    IniFile    m_Ini{m_File};

    /// The code of the exception that saving throws; 0 when it throws none.
    static int SaveFails(IniFile& file)
    {
        return CodeThrown([&file] { file.Save(); });
    }
    int  SaveFails() { return SaveFails(m_Ini); }
    void Put(const String& content) const
    {
        File::MakeFolder(m_File.Branch());
        WriteFile(m_File, content);
    }
    /// Puts that content there and reads it.
    void Load(const String& content)
    {
        Put(content);
        ASSERT_TRUE(m_Ini.Load(true, true));
    }
    static void SetMode(const Path& path, mode_t mode)
    {
        ASSERT_EQ(0, chmod(path.Text().c_str(), mode)) << path.Text();
    }
    String Content() const { return ReadFile(m_File); }
};

TEST_F(IniFileTest, SavesIntoANewPrivateFile)
{
    EXPECT_FALSE(m_Ini.Load(false, false));
    m_Ini.SetValue("Window", "IsMaximized", "1");
    EXPECT_TRUE(m_Ini.IsChanged());
    m_Ini.Save();
    EXPECT_FALSE(m_Ini.IsChanged());
    EXPECT_EQ("[Window]\nIsMaximized = 1\n", Content());
    EXPECT_EQ(0600u, ModeOf(m_File));
    EXPECT_EQ(0700u, ModeOf(m_File.Branch()));
}

TEST_F(IniFileTest, MergesWithWhatAnotherProgramSaved)
{
    Load("; mine\na=1\nb=1\n[Old]\nx=1\ny=2\n[Gone]\nz=1\n");
    IniFile second(m_File);
    second.Load(true, true);
    m_Ini.SetValue("", "a", "first");
    m_Ini.SetValue("Old", "x", "first");
    m_Ini.RemoveValue("Old", "y");
    m_Ini.InsertSection("Empty");
    second.SetValue("", "b", "second");
    second.SetValue("", "a", "second");
    second.SetValue("", "a", "1"); // Back again is a change all the same.
    second.SetValue("Gone", "before", "1");
    second.ClearSection("Gone");
    second.SetValue("Gone", "after", "1");
    m_Ini.Save();
    second.Save();
    const String expected = "; mine\na=1\nb=second\n[Old]\nx=first\n[Gone]\nafter = 1\n\n[Empty]\n";
    EXPECT_EQ(expected, Content());
    EXPECT_EQ("first", second.GetValue("Old", "x")); // Seen after the own save.
    EXPECT_FALSE(second.IsChanged());
}

TEST_F(IniFileTest, LogsDamagedLinesAndKeepsThem)
{
    const LogCapture log;
    String           content = "good=1\nbad\n";
    for (int i = 0; i < 30; ++i)
    {
        content += "rubbish\n";
    }
    Load(content);
    EXPECT_EQ("1", m_Ini.GetValue("", "good"));
    EXPECT_TRUE(log.Has(m_File.Text() + ":2:", log_Warning)) << log.All();
    EXPECT_EQ(21, log.Count(m_File.Text(), log_Warning)) << log.All();
    EXPECT_TRUE(log.Has("11 more damaged lines")) << log.All();
    m_Ini.SetValue("", "good", "2");
    m_Ini.Save();
    EXPECT_EQ("good=2" + content.substr(6), Content());
}

TEST_F(IniFileTest, NeverOverwritesWhatItCouldNotRead)
{
    const String large(IniFile::k_Limit + 1, ';');
    Put(large);
    const LogCapture log;
    EXPECT_FALSE(m_Ini.Load(false, false));
    EXPECT_TRUE(log.Has("too large", log_Warning)) << log.All();
    m_Ini.SetValue("S", "k", "v");
    EXPECT_EQ(ec_TooLarge, SaveFails());
    EXPECT_EQ(large, Content());

    // Once the user has put it right, nothing of either side is lost.
    Put("own=1\n");
    EXPECT_EQ(0, SaveFails());
    EXPECT_EQ("own=1\n\n[S]\nk = v\n", Content());
}

TEST_F(IniFileTest, RespectsWriteProtection)
{
    Load("a=1\n");
    SetMode(m_File, 0400);
    m_Ini.SetValue("", "a", "2");
    EXPECT_EQ(ec_System, SaveFails());
    EXPECT_EQ("a=1\n", Content());
    EXPECT_EQ(1u, File::List(m_File.Branch()).size()); // Not even a lock file.
    EXPECT_TRUE(m_Ini.IsChanged());
    SetMode(m_File, 0600);
    EXPECT_EQ(0, SaveFails());
    EXPECT_EQ("a=2\n", Content());
}

TEST_F(IniFileTest, LeavesAFolderOrDeviceInItsPlaceAlone)
{
    const Path pipe = UserFile("pipe.ini");
    File::MakeFolder(m_File);
    ASSERT_EQ(0, mkfifo(pipe.Text().c_str(), 0600));
    for (const Path& path : {m_File, pipe})
    {
        IniFile file(path);
        EXPECT_FALSE(file.Load(false, false)); // And does not wait for a writer.
        file.SetValue("", "a", "2");
        EXPECT_NE(0, SaveFails(file));
    }
    EXPECT_TRUE(File::IsFolder(m_File));
}

TEST_F(IniFileTest, FullDiskLeavesTheOldFile)
{
    const String content = String(100000, ';') + "\n";
    Load(content);
    m_Ini.SetValue("", "a", "2");
    {
        const SmallDisk small(70000);
        EXPECT_EQ(ec_System, SaveFails());
    }
    EXPECT_EQ(content, Content());
    const std::vector<String> left{"options.ini", "options.ini.lock"};
    EXPECT_EQ(left, File::List(m_File.Branch()));
    EXPECT_EQ(0, SaveFails());
    EXPECT_EQ(content + "a = 2\n", Content());
}

} // namespace
