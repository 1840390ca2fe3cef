#include "vesta/IniFile.h"
#include "tests/support/LogCapture.h"
#include "tests/support/UserFolderTest.h"
#include "vesta/Exception.h"

#include <csignal>
#include <memory>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

class IniFileTest : public UserFolderTest
{
protected:
    const Path m_File = UserFile("sub/folder/options.ini");

    /// The code of the exception that saving throws; 0 when it throws none.
    static int SaveFails(IniFile& file)
    {
        try
        {
            file.Save();
        }
        catch (Exception* e)
        {
            const int code = e->Code();
            EXPECT_FALSE(e->Text().empty());
            delete e;
            return code;
        }
        return 0;
    }
    void Put(const String& content)
    {
        File::MakeFolder(m_File.Branch());
        File::WriteAtomically(m_File, content);
    }
    String Content() { return File::Read(m_File, IniFile::k_Limit); }
};

TEST_F(IniFileTest, SavesIntoANewPrivateFile)
{
    IniFile file(m_File);
    EXPECT_FALSE(file.Load(false, false));
    file.SetValue("Window", "IsMaximized", "1");
    EXPECT_TRUE(file.IsChanged());
    file.Save();
    EXPECT_FALSE(file.IsChanged());
    EXPECT_EQ("[Window]\nIsMaximized = 1\n", Content());
    struct stat status
    {
    };
    ASSERT_EQ(0, stat(m_File.Text().c_str(), &status));
    EXPECT_EQ(0600u, status.st_mode & 0777u);
    ASSERT_EQ(0, stat(m_File.Branch().Text().c_str(), &status));
    EXPECT_EQ(0700u, status.st_mode & 0777u);
}

TEST_F(IniFileTest, ReadsTypedValues)
{
    Put("[S]\nyes=On\nnumber=-42\nlarge=5000000000\ntext=abc\n");
    IniFile file(m_File);
    ASSERT_TRUE(file.Load(true, true));
    EXPECT_TRUE(file.GetBool("s", "Yes", false));
    EXPECT_TRUE(file.GetBool("S", "text", true));
    EXPECT_EQ(-42, file.GetInt("S", "number", 1));
    EXPECT_EQ(7, file.GetInt("S", "large", 7)); // It does not fit.
    EXPECT_EQ(7, file.GetInt("S", "text", 7));
    EXPECT_EQ("other", file.GetValue("S", "absent", "other"));
    EXPECT_EQ(3, file.LineOf("S", "number"));
}

TEST_F(IniFileTest, MergesWithWhatAnotherProgramSaved)
{
    Put("; mine\na=1\nb=1\n[Old]\nx=1\ny=2\n[Gone]\nz=1\n");
    IniFile first(m_File);
    IniFile second(m_File);
    first.Load(true, true);
    second.Load(true, true);
    first.SetValue("", "a", "first");
    first.SetValue("Old", "x", "first");
    first.RemoveValue("Old", "y");
    first.InsertSection("Empty");
    second.SetValue("", "b", "second");
    second.SetValue("", "a", "second");
    second.SetValue("", "a", "1"); // Back again is a change all the same.
    second.SetValue("Gone", "before", "1");
    second.ClearSection("Gone");
    second.SetValue("Gone", "after", "1");
    first.Save();
    second.Save();
    const String expected = "; mine\na=1\nb=second\n[Old]\nx=first\n[Gone]\nafter = 1\n\n[Empty]\n";
    EXPECT_EQ(expected, Content());
    EXPECT_EQ("first", second.GetValue("Old", "x")); // Seen after the own save.
    EXPECT_FALSE(second.IsChanged());
}

TEST_F(IniFileTest, MissingFileThrowsWhereItMustExist)
{
    const LogCapture log;
    IniFile          file(m_File);
    EXPECT_FALSE(file.Load(false, true));
    EXPECT_EQ(0, log.Count("", log_Warning));
    EXPECT_EQ(1, log.Count(m_File.Text(), log_Debug));
    EXPECT_THROW(
        try { file.Load(true, true); } catch (Exception* e) {
            const std::unique_ptr<Exception> owner(e);
            EXPECT_EQ(ec_System, e->Code());
            throw 1;
        },
        int);
}

TEST_F(IniFileTest, LogsDamagedLinesAndKeepsThem)
{
    String content = "good=1\nbad\n";
    for (int i = 0; i < 30; ++i)
    {
        content += "rubbish\n";
    }
    Put(content);
    const LogCapture log;
    IniFile          file(m_File);
    EXPECT_TRUE(file.Load(true, true));
    EXPECT_EQ("1", file.GetValue("", "good"));
    EXPECT_TRUE(log.Has(m_File.Text() + ":2:", log_Warning)) << log.All();
    EXPECT_EQ(21, log.Count(m_File.Text(), log_Warning)) << log.All();
    EXPECT_TRUE(log.Has("11 more damaged lines")) << log.All();
    file.SetValue("", "good", "2");
    file.Save();
    EXPECT_EQ("good=2" + content.substr(6), Content());
}

TEST_F(IniFileTest, NeverOverwritesWhatItCouldNotRead)
{
    const String large(IniFile::k_Limit + 1, ';');
    Put(large);
    const LogCapture log;
    IniFile          file(m_File);
    EXPECT_FALSE(file.Load(false, false));
    EXPECT_TRUE(log.Has("too large", log_Warning)) << log.All();
    file.SetValue("S", "k", "v");
    EXPECT_EQ(ec_TooLarge, SaveFails(file));
    EXPECT_EQ(large, File::Read(m_File, large.size()));
    EXPECT_EQ("v", file.GetValue("S", "k"));

    // Once the user has put it right, nothing of either side is lost.
    Put("own=1\n");
    EXPECT_EQ(0, SaveFails(file));
    EXPECT_EQ("own=1\n\n[S]\nk = v\n", Content());
}

TEST_F(IniFileTest, RespectsWriteProtection)
{
    Put("a=1\n");
    ASSERT_EQ(0, chmod(m_File.Text().c_str(), 0400));
    IniFile file(m_File);
    ASSERT_TRUE(file.Load(true, true));
    file.SetValue("", "a", "2");
    EXPECT_EQ(ec_System, SaveFails(file));
    EXPECT_EQ("a=1\n", Content());
    EXPECT_EQ(1u, File::List(m_File.Branch()).size()); // Not even a lock file.
    EXPECT_TRUE(file.IsChanged());
    ASSERT_EQ(0, chmod(m_File.Text().c_str(), 0600));
    EXPECT_EQ(0, SaveFails(file));
    EXPECT_EQ("a=2\n", Content());
}

/// Gives up root's rights while it lives, if there are any: they would override a folder's mode.
class AsNobody
{
public:
    AsNobody() : m_IsRoot(geteuid() == 0) { EXPECT_TRUE(!m_IsRoot || seteuid(65534) == 0); }
    ~AsNobody() { EXPECT_TRUE(!m_IsRoot || seteuid(0) == 0); }
    AsNobody(const AsNobody&) = delete;
    AsNobody& operator=(const AsNobody&) = delete;

private:
    const bool m_IsRoot;
};

TEST_F(IniFileTest, RespectsAWriteProtectedFolder)
{
    Put("a=1\n");
    ASSERT_EQ(0, chmod(m_File.Text().c_str(), 0666));
    const Path folder = m_File.Branch();
    for (const Path& path : {TempFile("").Branch(), UserFile("").Branch(), folder.Branch()})
    {
        ASSERT_EQ(0, chmod(path.Text().c_str(), 0755));
    }
    ASSERT_EQ(0, chmod(folder.Text().c_str(), 0555));
    const LogCapture log;
    IniFile          file(m_File);
    {
        const AsNobody nobody;
        ASSERT_TRUE(file.Load(true, true));
        file.SetValue("", "a", "2");
        EXPECT_EQ(ec_System, SaveFails(file));
    }
    EXPECT_EQ(0, log.Count(".lock")) << log.All();
    EXPECT_EQ("a=1\n", Content());
    ASSERT_EQ(0, chmod(folder.Text().c_str(), 0700));
    EXPECT_EQ(0, SaveFails(file));
    EXPECT_EQ("a=2\n", Content());
}

TEST_F(IniFileTest, LeavesAFolderOrDeviceInItsPlaceAlone)
{
    File::MakeFolder(m_File);
    IniFile folder(m_File);
    EXPECT_FALSE(folder.Load(false, false));
    folder.SetValue("", "a", "2");
    EXPECT_NE(0, SaveFails(folder));
    EXPECT_TRUE(File::IsFolder(m_File));

    const Path pipe = UserFile("pipe.ini");
    ASSERT_EQ(0, mkfifo(pipe.Text().c_str(), 0600));
    IniFile file(pipe);
    EXPECT_FALSE(file.Load(false, false)); // And does not wait for a writer.
    file.SetValue("", "a", "2");
    EXPECT_NE(0, SaveFails(file));
}

TEST_F(IniFileTest, FullDiskLeavesTheOldFile)
{
    const String content(100000, ';');
    Put(content + "\n");
    IniFile file(m_File);
    ASSERT_TRUE(file.Load(true, true));
    file.SetValue("", "a", "2");

    // Writing beyond the limit fails as it does on a full disk, at first with a part written.
    const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit     old{};
    getrlimit(RLIMIT_FSIZE, &old);
    rlimit small = old;
    small.rlim_cur = 70000;
    ASSERT_EQ(0, setrlimit(RLIMIT_FSIZE, &small));
    const int code = SaveFails(file);
    setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, oldHandler);

    EXPECT_EQ(ec_System, code);
    EXPECT_EQ(content + "\n", Content());
    const std::vector<String> left{"options.ini", "options.ini.lock"};
    EXPECT_EQ(left, File::List(m_File.Branch()));
    EXPECT_EQ(0, SaveFails(file));
    EXPECT_EQ(content + "\na = 2\n", Content());
}

TEST_F(IniFileTest, FollowsALinkToTheRealFile)
{
    Put("a=1\n");
    const Path link = UserFile("link.ini");
    ASSERT_EQ(0, symlink("sub/folder/options.ini", link.Text().c_str()));
    IniFile file(link);
    ASSERT_TRUE(file.Load(true, true));
    file.SetValue("", "a", "2");
    file.Save();
    EXPECT_EQ("a=2\n", Content());
    EXPECT_EQ((std::vector<String>{"link.ini", "sub"}), File::List(link.Branch()));
}

TEST_F(IniFileTest, SettingTheSameValueChangesNothing)
{
    Put("[S]\na=1\n");
    IniFile file(m_File);
    file.Load(true, true);
    file.SetValue("s", "A", "1");
    file.InsertSection("S");
    file.InsertSection("");
    file.RemoveValue("S", "absent");
    file.ClearSection("absent");
    EXPECT_FALSE(file.IsChanged());
}

} // namespace
