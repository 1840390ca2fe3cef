#include "appearance/wxtAutoCompleter.h"
#include "vesta/File.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace
{
// The vocabulary is collected once, whichever test comes first: what it is to hold has to be there
// before all of them.
struct Prepared
{
    Prepared();
    ~Prepared() { std::filesystem::remove_all(folder); }

    std::string folder;
} const g_Prepared;

Prepared::Prepared()
{
    folder = testing::TempDir() + "tolvan-modules-XXXXXX";
    mkdtemp(folder.data());
    for (const char type : {'1', '2'})
    {
        std::ofstream(folder + "/" + type + ".module")
            << "[Type]\nId=0000000000000000000000000000000" << type << "\nName=Zz Product " << type
            << "\nExecute=true\n[Parameter zzShared]\nChoices=zzLow;zzHigh\n"
            << "[Entries]\nzzEntry=x\n[Outputs]\nzzOutput=*.png\n";
    }
    setenv("TOLVAN_MODULES", folder.c_str(), 1);
    setenv("zzGr\xc3\xb6", "1", 1);
    setenv("ZZBAD\xff", "1", 1);
}

String Proposals(wxtAutoCompleter& completer, const wxString& text)
{
    if (!completer.Start(text))
    {
        return "-";
    }
    String all;
    for (wxString next = completer.GetNext(); !next.empty(); next = completer.GetNext())
    {
        all += (all.empty() ? "" : ",") + String(next.utf8_string());
    }
    EXPECT_TRUE(completer.GetNext().empty());
    return all;
}
} // namespace

TEST(AutoCompleterTest, CompletesTheLastWordAndKeepsWhatStandsBefore)
{
    const struct
    {
        const char* text;
        const char* proposals;
    } cases[] = {
        {"", "-"},
        {"yes ", "-"},
        {"a(", "-"},
        {"Fals", "False"},
        {"x.FALS", "x.False"},
        {"a:b|(Zz \xc3\xa4 prior", "a:b|(Zz \xc3\xa4 Priority"},
        {"zzs", "zzShared"}, // of two types, once
        {"zzhi", "zzHigh"},
        {"zze", "zzEntry"},
        {"zzo", "zzOutput"},
        {"ZZ", "Zz Product 1,Zz Product "
               "2,ZZBAD\xc3\xbf,zzEntry,zzGr\xc3\xb6,zzHigh,zzLow,zzOutput,zzShared"},
        {"zzgr\xc3\xb6", "zzGr\xc3\xb6"},
        {"zzGR\xc3\x96", "zzGr\xc3\xb6"}, // no ASCII either
        {"no such word", ""},
    };
    wxtAutoCompleter completer;
    for (const auto& one : cases)
    {
        EXPECT_EQ(one.proposals, Proposals(completer, wxString::FromUTF8(one.text))) << one.text;
    }
}
