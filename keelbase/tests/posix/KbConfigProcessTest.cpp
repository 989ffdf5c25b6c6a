// SPDX-License-Identifier: BSD-3-Clause
// A configuration file that several processes and threads write, that may not be written, that cannot be
// read.
#include <keelbase/KbHost.h>
#include <keelbase/Keelbase.h>

#include <Restricted.h>
#include <ScratchDirectory.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

namespace fs = std::filesystem;

class KbConfigProcess : public testing::Test
{
protected:
    KbConfigProcess() { kb::UseConfigFile((directory / "suite.cfg").c_str()); }
    ~KbConfigProcess() override { kb::UseMemoryConfig(); }

    ScratchDirectory const directory;
};

bool writeMany(int writer, int count)
{
    bool areWritten = true;
    for (int i = 0; i < count; ++i) {
        std::string const key = std::to_string(writer) + '.' + std::to_string(i);
        areWritten = cfgman_WriteConfigSetting("S", key.c_str(), key.c_str()) == 1 && areWritten;
    }
    return areWritten;
}

void expectMany(int writers, int count)
{
    YList<YString> names;
    EXPECT_TRUE(cfgman_GetConfigKeyNames("S", &names, false));
    EXPECT_EQ(names.size(), writers * count);
    for (YString const & name : names) {
        YString value;
        EXPECT_EQ(cfgman_GetConfigSetting("S", name.c_str(), &value, false), 1);
        EXPECT_EQ(value, name);
    }
}

/** Starts processes that each run a function, and gives their ends, 0 when it says true. */
template <class Run>
std::vector<int> inProcesses(int count, Run && run)
{
    std::vector<pid_t> children;
    for (int i = 0; i < count; ++i) {
        pid_t const child = ::fork();
        if (child == 0) {
            Restricted::exitWith([&] { return run(i); });
        }
        children.push_back(child);
    }
    std::vector<int> ends;
    for (pid_t const child : children) {
        int end = -1;
        EXPECT_EQ(::waitpid(child, &end, 0), child);
        ends.push_back(end);
    }
    return ends;
}

} // namespace

TEST_F(KbConfigProcess, SurvivesTheProcess)
{
    EXPECT_EQ(inProcesses(1, [](int) { return cfgman_WriteConfigSetting("S", "a", "child") == 1; }),
              std::vector<int>(1));
    YString value;
    EXPECT_EQ(cfgman_GetConfigSetting("S", "a", &value, false), 1);
    EXPECT_EQ(value, YString("child"));
}

TEST_F(KbConfigProcess, TwoProcessesLoseNothing)
{
    EXPECT_EQ(inProcesses(2, [](int writer) { return writeMany(writer, 50); }), std::vector<int>(2));
    expectMany(2, 50);
}

TEST_F(KbConfigProcess, FourProcessesLoseNothing)
{
    EXPECT_EQ(inProcesses(4, [](int writer) { return writeMany(writer, 50); }), std::vector<int>(4));
    expectMany(4, 50);
}

TEST_F(KbConfigProcess, FourThreadsLoseNothing)
{
    std::vector<std::thread> threads;
    for (int writer = 0; writer < 4; ++writer) {
        threads.emplace_back([writer] { EXPECT_TRUE(writeMany(writer, 50)); });
    }
    for (std::thread & thread : threads) {
        thread.join();
    }
    expectMany(4, 50);
}

TEST_F(KbConfigProcess, ReadersSeeWholeStatesWhileOthersWrite)
{
    std::string const tail(5000, 'x');
    auto const states = [&](int state) { return std::to_string(state) + tail; };
    cfgman_WriteConfigSetting("S", "state", states(0).c_str());
    auto const ends = inProcesses(3, [&](int reader) {
        for (int i = 0; i < 100; ++i) {
            if (reader == 0 && cfgman_WriteConfigSetting("S", "state", states(i % 10).c_str()) == 0) {
                return false;
            }
            YString value;
            std::string const tailOf = cfgman_GetConfigSetting("S", "state", &value, false) == 1
                                           ? std::string(value.c_str()).substr(1)
                                           : std::string();
            if (tailOf != tail) {
                return false;
            }
        }
        return true;
    });
    EXPECT_EQ(ends, std::vector<int>(3));
}

TEST_F(KbConfigProcess, AReadOnlyDirectoryKeepsTheFile)
{
    directory.write("suite.cfg", "[S]\na=1\n");
    fs::permissions(directory.path(), fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read |
                                          fs::perms::others_exec);
    auto const ends = inProcesses(1, [](int) {
        Restricted::dropRights();
        YString value;
        return cfgman_WriteConfigSetting("S", "a", "2") == 0 &&
               cfgman_GetConfigSetting("S", "a", &value, false) == 1 && value == YString("1");
    });
    fs::permissions(directory.path(), fs::perms::owner_all);
    EXPECT_EQ(ends, std::vector<int>(1));
    EXPECT_EQ(directory.read("suite.cfg"), "[S]\na=1\n");
}

TEST_F(KbConfigProcess, AFileThatCannotBeReadIsNotReplaced)
{
    directory.write("suite.cfg", "[S]\na=1\n");
    fs::permissions(directory.path() / "suite.cfg", fs::perms::none);
    fs::permissions(directory.path(), fs::perms::all);
    auto const ends = inProcesses(1, [](int) {
        Restricted::dropRights();
        return cfgman_WriteConfigSetting("S", "b", "2") == 0 &&
               cfgman_GetConfigSetting("S", "a", nullptr, false) == 0 &&
               !cfgman_GetConfigKeyNames("S", nullptr, false);
    });
    EXPECT_EQ(ends, std::vector<int>(1));
    fs::permissions(directory.path() / "suite.cfg", fs::perms::owner_all);
    EXPECT_EQ(directory.read("suite.cfg"), "[S]\na=1\n");
}

TEST_F(KbConfigProcess, IsFoundThroughALinkWhichStays)
{
    fs::create_directory(directory.path() / "real");
    directory.write("real/suite.cfg", "[S]\na=1\n");
    fs::create_symlink("real/suite.cfg", directory.path() / "suite.cfg");
    EXPECT_EQ(cfgman_WriteConfigSetting("S", "b", "2"), 1);
    EXPECT_TRUE(fs::is_symlink(directory.path() / "suite.cfg"));
    EXPECT_EQ(directory.read("real/suite.cfg"), "[S]\na=1\nb=2\n");
}

TEST_F(KbConfigProcess, TheNewFileHasTheRightsOfTheFormerOne)
{
    directory.write("suite.cfg", "[S]\na=1\n");
    fs::path const file = directory.path() / "suite.cfg";
    for (fs::perms const rights : {fs::perms::owner_read | fs::perms::owner_write, fs::perms(0666)}) {
        fs::permissions(file, rights);
        EXPECT_EQ(cfgman_WriteConfigSetting("S", "a", "2"), 1);
        EXPECT_EQ(fs::status(file).permissions(), rights);
    }
}

TEST_F(KbConfigProcess, APipeIsNoFileAndIsNotWaitedFor)
{
    ASSERT_EQ(::mkfifo((directory / "suite.cfg").c_str(), 0600), 0);
    EXPECT_EQ(cfgman_GetConfigSetting("S", "a", nullptr, false), 0);
    EXPECT_EQ(cfgman_WriteConfigSetting("S", "a", "1"), 0);
    EXPECT_TRUE(fs::is_fifo(directory.path() / "suite.cfg"));
}

TEST_F(KbConfigProcess, AFullDiskKeepsTheFormerState)
{
    cfgman_WriteConfigSetting("S", "a", "1");
    std::string const before = directory.read("suite.cfg");
    auto const ends = inProcesses(1, [](int) {
        Restricted::limitFileSize(1000);
        return cfgman_WriteConfigSetting("S", "b", std::string(5000, 'x').c_str()) == 0 &&
               cfgman_WriteConfigSetting("S", "c", "short") == 1;
    });
    EXPECT_EQ(ends, std::vector<int>(1));
    EXPECT_EQ(directory.read("suite.cfg"), before + "c=short\n");
    EXPECT_FALSE(directory.has("suite.cfg.new"));
}
