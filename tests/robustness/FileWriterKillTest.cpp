// SPDX-License-Identifier: BSD-3-Clause
// A process is killed at random moments of a safe save: the target is always the old content or the new one,
// whole.
#include "Killed.h"
#include "ScratchDirectory.h"

#include <ZyFileWriter.h>
#include <ZyString.h>

#include <gtest/gtest.h>

#include <QIODevice>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

#include <sys/wait.h>
#include <unistd.h>

namespace
{
constexpr std::size_t size = 10000000;
constexpr int rounds = 250;

struct Way
{
    char const * name;
    void (*write)(ZyFileWriter & writer, std::string const & content);
};

void writeAtOnce(ZyFileWriter & writer, std::string const & content)
{
    writer.write(content);
}

void writePieces(ZyFileWriter & writer, std::string const & content)
{
    for (std::size_t i = 0; i < content.size(); i += 1000) {
        writer.write(content.substr(i, 1000));
    }
}

void writeLargePieces(ZyFileWriter & writer, std::string const & content)
{
    for (std::size_t i = 0; i < content.size(); i += 100000) {
        writer.write(content.substr(i, 100000));
    }
}

void writeThroughDevice(ZyFileWriter & writer, std::string const & content)
{
    writer.device()->write(content.data(), static_cast<qint64>(content.size()));
}

[[noreturn]] void save(std::string const & target, Way const & way, std::string const & content, long moment)
{
    Killed::after(moment);
    try {
        ZyFileWriter writer{ZyString(target)};
        writer.open();
        way.write(writer, content);
        writer.close();
    } catch (...) {
        std::_Exit(1);
    }
    std::_Exit(0);
}

/** How a save in a process of its own ended: 0 complete, -SIGKILL killed, else a failure. */
int saveAndBeKilled(std::string const & target, Way const & way, std::string const & content, long moment)
{
    pid_t const child = ::fork();
    if (child == 0) {
        save(target, way, content, moment);
    }
    int status = -1;
    if (child < 0 || ::waitpid(child, &status, 0) != child) {
        return 1;
    }
    return WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
}

/** What the killed leave beside the target. */
void removeOthers(ScratchDirectory const & scratch, std::string const & target)
{
    for (auto const & entry : std::filesystem::directory_iterator(scratch.path())) {
        if (entry.path() != target) {
            std::filesystem::remove(entry.path());
        }
    }
}

std::string readWhole(std::string const & path)
{
    std::string content(std::filesystem::file_size(path), '\0');
    std::ifstream(path, std::ios::binary).read(content.data(), static_cast<std::streamsize>(content.size()));
    return content;
}

std::string contentOf(int round)
{
    std::string content = std::to_string(round) + ':';
    content.resize(size, char('a' + round % 26));
    content.back() = '.';
    return content;
}

class FileWriterKill : public testing::TestWithParam<Way>
{};
} // namespace

// The moments follow the speed of the machine, so that about as many saves are killed as come to their end.
TEST_P(FileWriterKill, LeavesTheOldContentOrTheNew)
{
    ScratchDirectory const scratch;
    std::string old = contentOf(0);
    std::string const target = scratch.write("target", old);
    std::mt19937 random(std::random_device{}());
    double latest = 2e7;
    int killed = 0;
    for (int round = 1; round <= rounds; ++round) {
        std::string const content = contentOf(round);
        long const moment = 1 + static_cast<long>(std::uniform_real_distribution<>(0, latest)(random));
        int const end = saveAndBeKilled(target, GetParam(), content, moment);
        ASSERT_TRUE(end == 0 || end == -SIGKILL) << "round " << round << ": " << end;
        latest = std::max(1e5, latest * (end == 0 ? 0.9 : 1.1));
        killed += end == 0 ? 0 : 1;
        std::string const now = readWhole(target);
        ASSERT_TRUE(now == content || (end != 0 && now == old)) << "round " << round << ", at " << moment;
        old = now;
        removeOthers(scratch, target);
    }
    EXPECT_GT(killed, rounds / 10);
    EXPECT_LT(killed, rounds);
}

INSTANTIATE_TEST_SUITE_P(Ways, FileWriterKill,
                         testing::Values(Way{"AtOnce", writeAtOnce}, Way{"InPieces", writePieces},
                                         Way{"InLargePieces", writeLargePieces},
                                         Way{"ThroughTheDevice", writeThroughDevice}),
                         [](auto const & way) { return std::string(way.param.name); });
