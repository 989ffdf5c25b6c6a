// SPDX-License-Identifier: BSD-3-Clause
// The command line.

#include "Options.h"

#include <gtest/gtest.h>

namespace
{

QStringList arguments(std::initializer_list<char const *> words)
{
    QStringList list(QStringLiteral("zyworkbench"));
    for (char const * const word : words) {
        list << QString::fromUtf8(word);
    }
    return list;
}

} // namespace

TEST(Arguments, FileAndSettingsAreTaken)
{
    int status = -1;
    auto const options = parseOptions(arguments({"--config", "here", "ä b.csv"}), status);
    ASSERT_TRUE(options);
    EXPECT_EQ(options->file.toStdString(), "ä b.csv");
    EXPECT_EQ(options->config.toStdString(), "here");
    EXPECT_EQ(status, -1);
}

TEST(Arguments, SettingsHaveAPlaceOfTheirOwn)
{
    int status = -1;
    auto const options = parseOptions(arguments({}), status);
    ASSERT_TRUE(options);
    EXPECT_TRUE(options->file.isEmpty());
    EXPECT_TRUE(options->config.endsWith(QStringLiteral("/zyworkbench/settings")));
}

TEST(Arguments, HelpAndVersionEndTheProgramWell)
{
    for (char const * const word : {"--help", "-h", "--version", "-v"}) {
        int status = -1;
        testing::internal::CaptureStdout();
        EXPECT_FALSE(parseOptions(arguments({word}), status));
        EXPECT_NE(testing::internal::GetCapturedStdout().find("zyworkbench"), std::string::npos) << word;
        EXPECT_EQ(status, 0);
    }
}

TEST(Arguments, WhatMakesNoSenseIsTold)
{
    int status = -1;
    testing::internal::CaptureStderr();
    EXPECT_FALSE(parseOptions(arguments({"a.csv", "b.csv"}), status));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "zyworkbench: one file at most; see --help\n");
    EXPECT_EQ(status, 1);
    testing::internal::CaptureStderr();
    EXPECT_FALSE(parseOptions(arguments({"--bold"}), status));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "zyworkbench: Unknown option 'bold'.\n");
    EXPECT_EQ(status, 1);
}
