#include "vesta/IniFile.h"

#include "tests/support/LogCapture.h"
#include "tests/support/Thrown.h"
#include "tests/support/UserFolderTest.h"

#include <cstdio>

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
    /// Puts that content there and reads it.
    void Load(const String& content)
    {
        File::MakeFolder(m_File.Branch());
        WriteFile(m_File, content);
        ASSERT_TRUE(m_Ini.Load(true, true));
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
    const Path large = UserFile("large.ini");
    const Path pipe = UserFile("pipe.ini");
    const Path folder = UserFile("folder.ini");
    WriteFile(large, String(IniFile::k_Limit + 1, ';'));
    ASSERT_EQ(0, mkfifo(pipe.Text().c_str(), 0600));
    File::MakeFolder(folder);
    const LogCapture log;
    for (const Path& path : {large, pipe, folder})
    {
        const String kept = path.Text() + ".kept";
        IniFile      file(path);
        EXPECT_FALSE(file.Load(false, false)); // And does not wait for a writer.
        file.SetValue("S", "k", "v");
        EXPECT_EQ(path.Text() == large.Text() ? ec_TooLarge : ec_System, SaveFails(file));
        // Once the user has put it right, nothing of either side is lost.
        ASSERT_EQ(0, rename(path.Text().c_str(), kept.c_str()));
        WriteFile(path, "own=1\n");
        EXPECT_EQ(0, SaveFails(file));
        EXPECT_EQ("own=1\n\n[S]\nk = v\n", ReadFile(path));
    }
    EXPECT_TRUE(log.Has("too large", log_Warning)) << log.All();
    EXPECT_EQ(IniFile::k_Limit + 1, ReadFile(large.Text() + ".kept").size());
    EXPECT_TRUE(S_ISFIFO(StatusOf(pipe.Text() + ".kept").st_mode));
}

} // namespace
