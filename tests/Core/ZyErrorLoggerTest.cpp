// SPDX-License-Identifier: BSD-3-Clause
// Tests of the collector of errors and warnings.
#include <ZyErrorLogger.h>

#include <QString>
#include <QtGlobal>
#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

static_assert(sizeof(ZyErrorLogger) == 2 * sizeof(void *), "a table pointer and the state");
static_assert(std::has_virtual_destructor_v<ZyErrorLogger> && !std::is_copy_constructible_v<ZyErrorLogger>);

namespace
{
/** What reaches the debug stream while it lives. */
class DebugStream
{
public:
    DebugStream() : m_before(qInstallMessageHandler(&DebugStream::take)) { lines().clear(); }
    ~DebugStream() { qInstallMessageHandler(m_before); }
    DebugStream(DebugStream const &) = delete;
    DebugStream & operator=(DebugStream const &) = delete;

    std::vector<std::string> const & texts() const { return lines(); }

private:
    static std::vector<std::string> & lines()
    {
        static std::vector<std::string> all;
        return all;
    }
    static void take(QtMsgType type, QMessageLogContext const & context, QString const & text)
    {
        EXPECT_EQ(type, QtDebugMsg);
        EXPECT_EQ(context.file, nullptr);
        lines().push_back(text.toStdString());
    }

    QtMessageHandler m_before;
};
} // namespace

TEST(ZyErrorLogger, StartsEmpty)
{
    ZyErrorLogger const log;
    EXPECT_FALSE(log.hasErrors());
    EXPECT_FALSE(log.hasWarnings());
    EXPECT_EQ(log.errors().size(), 0u);
    EXPECT_EQ(log.warnings().size(), 0u);
}

TEST(ZyErrorLogger, WarningIsNoError)
{
    DebugStream const stream;
    ZyErrorLogger log;
    log.warning("careful");
    EXPECT_TRUE(log.hasWarnings());
    EXPECT_FALSE(log.hasErrors());
    EXPECT_EQ(log.warnings()[0].toStdString(), "careful");
}

TEST(ZyErrorLogger, ErrorIsNoWarning)
{
    DebugStream const stream;
    ZyErrorLogger log;
    log.error("broken");
    EXPECT_TRUE(log.hasErrors());
    EXPECT_FALSE(log.hasWarnings());
    EXPECT_EQ(log.errors()[0].toStdString(), "broken");
}

TEST(ZyErrorLogger, KeepsTheOrder)
{
    DebugStream const stream;
    ZyErrorLogger log;
    log.error("a");
    log.warning("b");
    log.error("a");
    log.error("");
    ASSERT_EQ(log.errors().size(), 3u);
    EXPECT_EQ(log.errors()[0].toStdString(), "a");
    EXPECT_EQ(log.errors()[1].toStdString(), "a");
    EXPECT_EQ(log.errors()[2].toStdString(), "");
    ASSERT_EQ(log.warnings().size(), 1u);
}

TEST(ZyErrorLogger, WritesEverythingToTheDebugStream)
{
    DebugStream const stream;
    ZyErrorLogger log;
    log.error("a");
    log.warning("b");
    log.debugMessage("c");
    EXPECT_EQ(stream.texts(), (std::vector<std::string>{"\"a\"", "\"b\"", "\"c\""}));
    EXPECT_EQ(log.errors().size(), 1u);
    EXPECT_EQ(log.warnings().size(), 1u);
}

TEST(ZyErrorLogger, DebugStreamQuotesAndEscapes)
{
    DebugStream const stream;
    ZyErrorLogger log;
    log.debugMessage("say \"x\"\n\xC3\xA4%n%s");
    EXPECT_EQ(stream.texts(), std::vector<std::string>{"\"say \\\"x\\\"\\n\xC3\xA4%n%s\""});
}

TEST(ZyErrorLogger, KeepsBytesThatAreNoText)
{
    DebugStream const stream;
    ZyErrorLogger log;
    std::string const bytes("\xFF\0z", 3);
    log.error(ZyString(bytes));
    EXPECT_EQ(log.errors()[0].toStdString(), bytes);
}
