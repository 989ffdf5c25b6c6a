// SPDX-License-Identifier: BSD-3-Clause
// The configuration: sections, keys, order, the text in a file, files that are damaged.
#include <keelbase/KbHost.h>
#include <keelbase/Keelbase.h>

#include <ScratchDirectory.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

/** "none" for a key that is not there. */
std::string value(char const * section, char const * key)
{
    YString result("none");
    int const isThere = cfgman_GetConfigSetting(section, key, &result, false);
    EXPECT_EQ(isThere, result == YString("none") ? 0 : 1);
    return result.c_str();
}

int write(char const * section, char const * key, char const * text)
{
    return cfgman_WriteConfigSetting(section, key, text);
}

std::vector<std::string> keys(char const * section)
{
    YList<YString> names;
    EXPECT_TRUE(cfgman_GetConfigKeyNames(section, &names, false)) << section;
    std::vector<std::string> result;
    for (YString const & name : names) {
        result.emplace_back(name.c_str());
    }
    return result;
}

bool hasSection(char const * section)
{
    return cfgman_GetConfigKeyNames(section, nullptr, false);
}

/** Every test finds an empty store in memory and leaves one. */
class KbConfig : public testing::Test
{
protected:
    KbConfig()
    {
        kb::UseMemoryConfig();
        kb::ClearConfig();
    }
    ~KbConfig() override
    {
        kb::UseMemoryConfig();
        kb::ClearConfig();
    }
};

/** The same on a file that does not exist yet. */
class KbConfigFile : public KbConfig
{
protected:
    KbConfigFile() { kb::UseConfigFile((directory / "suite.cfg").c_str()); }

    std::string content() const { return directory.read("suite.cfg"); }
    void put(std::string const & content) const { directory.write("suite.cfg", content); }

    ScratchDirectory const directory;
};

/** Both ways of keeping it. */
class KbConfigAnywhere : public KbConfig, public testing::WithParamInterface<bool>
{
protected:
    KbConfigAnywhere()
    {
        if (GetParam()) {
            kb::UseConfigFile((m_directory / "suite.cfg").c_str());
        }
    }

private:
    ScratchDirectory const m_directory;
};

INSTANTIATE_TEST_SUITE_P(In, KbConfigAnywhere, testing::Bool(),
                         [](auto const & place) { return place.param ? "AFile" : "Memory"; });

} // namespace

TEST_P(KbConfigAnywhere, GivesWhatWasWritten)
{
    EXPECT_EQ(write("Window", "width", "800"), 1);
    EXPECT_EQ(value("Window", "width"), "800");
    EXPECT_EQ(write("Window", "width", ""), 1);
    EXPECT_EQ(value("Window", "width"), "");
}

TEST_P(KbConfigAnywhere, HasNothingAtFirst)
{
    EXPECT_EQ(value("Window", "width"), "none");
    EXPECT_FALSE(hasSection("Window"));
    EXPECT_FALSE(hasSection(""));
}

TEST_P(KbConfigAnywhere, KeepsTheOrderOfTheFirstWriting)
{
    write("Z", "c", "1");
    write("A", "x", "1");
    write("Z", "a", "2");
    write("Z", "b", "3");
    write("Z", "c", "4");
    EXPECT_THAT(keys("Z"), ElementsAre("c", "a", "b"));
    EXPECT_EQ(value("Z", "c"), "4");
}

TEST_P(KbConfigAnywhere, NamesThatDifferInCaseAreTwo)
{
    write("S", "key", "lower");
    write("S", "Key", "upper");
    write("s", "key", "section");
    EXPECT_THAT(keys("S"), ElementsAre("key", "Key"));
    EXPECT_EQ(value("S", "key"), "lower");
    EXPECT_EQ(value("S", "Key"), "upper");
    EXPECT_THAT(keys("s"), ElementsAre("key"));
}

TEST_P(KbConfigAnywhere, AwkwardTextsComeBackInOrder)
{
    std::vector<std::string> const texts = {
        "",      "a=b",           "[x]",         "line\nfeed", "\r\n", " blanks ",
        "\\",    "\\n\\e\\o\\c",  "#no comment", "]",          "=",    "a,b;c",
        "\"q\"", "General/slash", "\xC3\xA4",    "\xFF\xFE",   "[",    "%Q",
        "\t",    "\\\\x"};
    for (std::string const & text : texts) {
        ASSERT_EQ(write(text.c_str(), text.c_str(), text.c_str()), 1);
        ASSERT_EQ(write("all", text.c_str(), text.c_str()), 1);
    }
    EXPECT_EQ(keys("all"), texts);
    for (std::string const & text : texts) {
        EXPECT_EQ(value("all", text.c_str()), text);
        EXPECT_EQ(value(text.c_str(), text.c_str()), text);
        EXPECT_THAT(keys(text.c_str()), ElementsAre(text));
    }
}

TEST_P(KbConfigAnywhere, ASectionMayHaveNoKeys)
{
    kb::AddConfigSection("empty");
    EXPECT_THAT(keys("empty"), IsEmpty());
    write("empty", "a", "1");
    kb::AddConfigSection("empty");
    EXPECT_THAT(keys("empty"), ElementsAre("a"));
}

TEST_P(KbConfigAnywhere, NullPointersAreEmptyTexts)
{
    EXPECT_EQ(write(nullptr, nullptr, nullptr), 1);
    EXPECT_EQ(value("", ""), "");
    EXPECT_EQ(value(nullptr, nullptr), "");
    EXPECT_EQ(cfgman_GetConfigSetting("", "", nullptr, false), 1);
    EXPECT_EQ(cfgman_GetConfigSetting("", "none", nullptr, false), 0);
    EXPECT_TRUE(cfgman_GetConfigKeyNames("", nullptr, false));
    kb::AddConfigSection(nullptr);
    EXPECT_THAT(keys(""), ElementsAre(""));
}

TEST_P(KbConfigAnywhere, TheListOfKeysIsReplacedOrLeftAlone)
{
    write("S", "a", "1");
    YList<YString> names;
    names.add("former");
    EXPECT_FALSE(cfgman_GetConfigKeyNames("none", &names, false));
    EXPECT_EQ(names.size(), 1);
    EXPECT_TRUE(cfgman_GetConfigKeyNames("S", &names, true));
    ASSERT_EQ(names.size(), 1);
    EXPECT_EQ(*names.begin(), YString("a"));
}

TEST_P(KbConfigAnywhere, ClearingRemovesEverything)
{
    write("S", "a", "1");
    kb::ClearConfig();
    EXPECT_FALSE(hasSection("S"));
}

TEST_F(KbConfig, MemoryIsKeptWhileAFileIsUsed)
{
    ScratchDirectory const directory;
    write("S", "a", "memory");
    kb::UseConfigFile((directory / "suite.cfg").c_str());
    EXPECT_EQ(value("S", "a"), "none");
    write("S", "a", "file");
    kb::UseMemoryConfig();
    EXPECT_EQ(value("S", "a"), "memory");
    kb::UseConfigFile((directory / "suite.cfg").c_str());
    EXPECT_EQ(value("S", "a"), "file");
    kb::UseConfigFile("");
    EXPECT_EQ(value("S", "a"), "memory");
}

TEST_F(KbConfigFile, HasTheToldText)
{
    write("Window", "width", "800");
    write("Window", "title", "a=b\n[c]\r\\");
    kb::AddConfigSection("e=m[p]t\ny");
    write("Window", "k=e[y]\\", "1");
    EXPECT_EQ(content(),
              "[Window]\nwidth=800\ntitle=a=b\\n[c]\\r\\\\\nk\\ee\\oy\\c\\\\=1\n[e\\em\\op\\ct\\ny]\n");
}

TEST_F(KbConfigFile, IsNotMadeByReading)
{
    EXPECT_EQ(value("S", "a"), "none");
    EXPECT_TRUE(std::filesystem::is_empty(directory.path()));
}

TEST_F(KbConfigFile, ShowsWhatOthersHaveWritten)
{
    write("S", "a", "1");
    put("[S]\na=2\n");
    EXPECT_EQ(value("S", "a"), "2");
    put("[S]\na=3\n"); // of the same size, at the same moment
    EXPECT_EQ(value("S", "a"), "3");
    std::filesystem::remove(directory.path() / "suite.cfg");
    EXPECT_EQ(value("S", "a"), "none");
}

TEST_F(KbConfigFile, LeavesNothingBesideItButTheLock)
{
    write("S", "a", "1");
    write("S", "a", "2");
    std::vector<std::string> names;
    for (auto const & entry : std::filesystem::directory_iterator(directory.path())) {
        names.push_back(entry.path().filename().string());
    }
    EXPECT_THAT(names, testing::UnorderedElementsAre("suite.cfg", "suite.cfg.lock"));
}

TEST_F(KbConfigFile, WhatAKilledWriterLeftIsReplaced)
{
    directory.write("suite.cfg.new", "[S]\nhalf");
    write("S", "a", "1");
    EXPECT_EQ(content(), "[S]\na=1\n");
    EXPECT_FALSE(directory.has("suite.cfg.new"));
}

TEST_F(KbConfigFile, IsFoundByARelativePathAfterAChangeOfDirectory)
{
    std::filesystem::path const before = std::filesystem::current_path();
    std::filesystem::current_path(directory.path());
    kb::UseConfigFile("relative.cfg");
    std::filesystem::current_path(before);
    EXPECT_EQ(write("S", "a", "1"), 1);
    EXPECT_EQ(directory.read("relative.cfg"), "[S]\na=1\n");
}

TEST_F(KbConfigFile, HasBackslashesAsSlashes)
{
    kb::UseConfigFile((directory.path().string() + "\\other.cfg").c_str());
    EXPECT_EQ(write("S", "a", "1"), 1);
    EXPECT_TRUE(directory.has("other.cfg"));
}

TEST_F(KbConfigFile, IsNotWrittenWhereThereIsNoDirectory)
{
    kb::UseConfigFile((directory / "no/suite.cfg").c_str());
    EXPECT_EQ(write("S", "a", "1"), 0);
    EXPECT_EQ(value("S", "a"), "none");
    EXPECT_TRUE(std::filesystem::is_empty(directory.path()));
}

TEST_F(KbConfigFile, ADirectoryIsNoFile)
{
    kb::UseConfigFile(directory.path().string().c_str());
    EXPECT_EQ(write("S", "a", "1"), 0);
    EXPECT_EQ(value("S", "a"), "none");
    EXPECT_FALSE(hasSection("S"));
    std::filesystem::remove(directory.path().string() + ".lock");
}

TEST_F(KbConfigFile, AReadOnlyFileIsReadAndNotReplaced)
{
    put("[S]\na=1\n");
    auto const file = directory.path() / "suite.cfg";
    std::filesystem::permissions(file, std::filesystem::perms::owner_read);
    EXPECT_EQ(write("S", "a", "2"), 0);
    kb::ClearConfig();
    kb::AddConfigSection("T");
    EXPECT_EQ(value("S", "a"), "1");
    EXPECT_EQ(content(), "[S]\na=1\n");
    EXPECT_FALSE(directory.has("suite.cfg.new"));
}

TEST_F(KbConfigFile, LineEndsOfOtherSystemsAndAMissingOneAreRead)
{
    put("\xEF\xBB\xBF[S]\r\na=1\r\nb=\r\n[T]\r\nc=x\ry\r\nd=last");
    EXPECT_THAT(keys("S"), ElementsAre("a", "b"));
    EXPECT_EQ(value("S", "a"), "1");
    EXPECT_EQ(value("S", "b"), "");
    EXPECT_EQ(value("T", "c"), "x\ry");
    EXPECT_EQ(value("T", "d"), "last");
    write("S", "a", "2");
    EXPECT_EQ(content(), "[S]\na=2\nb=\n[T]\nc=x\\ry\nd=last\n");
}

TEST_F(KbConfigFile, RepeatedMarksAndLineEndsAreDroppedAtOnce)
{
    put("\xEF\xBB\xBF\xEF\xBB\xBF[S]\r\r\na=1\r\r\n");
    EXPECT_THAT(keys("S"), ElementsAre("a"));
    EXPECT_EQ(value("S", "a"), "1");
    write("S", "a", "2");
    EXPECT_EQ(content(), "[S]\na=2\n");
}

TEST_F(KbConfigFile, WhatIsNoSettingStaysWhereItStands)
{
    put("# heading\n\nlost=1\n[S]\na=1\nhalf a line\n\nb=2\n[broken\nlost=2\n[T]\nc=3\n");
    EXPECT_THAT(keys("S"), ElementsAre("a", "b"));
    EXPECT_THAT(keys("T"), ElementsAre("c"));
    EXPECT_FALSE(hasSection("broken"));
    EXPECT_EQ(write("S", "b", "new"), 1);
    EXPECT_EQ(write("S", "z", "more"), 1);
    EXPECT_EQ(content(),
              "# heading\n\nlost=1\n[S]\na=1\nhalf a line\n\nb=new\nz=more\n[broken\nlost=2\n[T]\nc=3\n");
}

TEST_F(KbConfigFile, LinesWithNulStayAndAreNoSettings)
{
    char const text[] = "[S]\na\0b=1\nc=2\nd=x\0y\n[T\0]\ne=5\n";
    std::string const damaged(text, sizeof(text) - 1);
    put(damaged);
    EXPECT_THAT(keys("S"), ElementsAre("c"));
    EXPECT_EQ(write("S", "c", "2"), 1);
    EXPECT_EQ(content(), damaged);
}

TEST_F(KbConfigFile, GarbageStaysInFrontOfWhatIsWritten)
{
    std::string garbage;
    unsigned state = 1;
    for (int i = 0; i < 100000; ++i) {
        state = state * 1664525u + 1013904223u;
        char const c = static_cast<char>(state >> 24);
        garbage += c == '[' || c == '\r' ? ' ' : c;
    }
    garbage += '\n';
    put(garbage);
    EXPECT_EQ(value("S", "a"), "none");
    EXPECT_EQ(write("S", "a", "1"), 1);
    EXPECT_EQ(value("S", "a"), "1");
    EXPECT_TRUE(content() == garbage + "[S]\na=1\n");
}

TEST_F(KbConfigFile, OfSectionsAndKeysThatComeTwiceTheLaterValuesCount)
{
    put("[S]\na=1\nb=2\n[T]\nx=1\n[S]\nc=3\na=4\na=5\n");
    EXPECT_THAT(keys("S"), ElementsAre("a", "b", "c"));
    EXPECT_EQ(value("S", "a"), "5");
    write("T", "x", "2");
    EXPECT_EQ(content(), "[S]\na=5\nb=2\nc=3\n[T]\nx=2\n");
}

TEST_F(KbConfigFile, UnknownAndCutEscapesStandForThemselves)
{
    put("[\\x]\n\\q\\=C:\\temp\\\na\\ob=\\e\\o\n");
    EXPECT_THAT(keys("\\x"), ElementsAre("\\q\\", "a[b"));
    EXPECT_EQ(value("\\x", "\\q\\"), "C:\\temp\\");
    EXPECT_EQ(value("\\x", "a[b"), "\\e\\o") << "in a value these are none";
}

TEST_F(KbConfigFile, ManyKeysAreReadFast)
{
    std::string many = "[S]\n";
    for (int i = 0; i < 200000; ++i) {
        many += 'k' + std::to_string(i) + "=v\n";
    }
    put(many);
    EXPECT_EQ(value("S", "k199999"), "v");
    EXPECT_EQ(keys("S").size(), 200000u);
}
