// SPDX-License-Identifier: BSD-3-Clause
// An expectation on the class and the whole message of an exception.
#pragma once

#include <ZyException.h>

#include <gtest/gtest.h>

#include <string>
#include <typeinfo>

/** Expects that a statement throws exactly the class, with exactly the words. */
#define EXPECT_ZY_THROW(statement, Class, words)                                                             \
    do {                                                                                                     \
        try {                                                                                                \
            static_cast<void>(statement);                                                                    \
            ADD_FAILURE() << #statement " throws nothing";                                                   \
        } catch (ZyException const & zyThrown) {                                                             \
            EXPECT_EQ(std::string(zyThrown.name()), std::string(#Class));                                    \
            EXPECT_TRUE(typeid(zyThrown) == typeid(Class));                                                  \
            EXPECT_EQ(zyThrown.message().toStdString(), std::string(words));                                 \
        }                                                                                                    \
    } while (false)

/** The same for the standard library's exceptions. */
#define EXPECT_STD_THROW(statement, Class, words)                                                            \
    do {                                                                                                     \
        try {                                                                                                \
            static_cast<void>(statement);                                                                    \
            ADD_FAILURE() << #statement " throws nothing";                                                   \
        } catch (Class const & stdThrown) {                                                                  \
            EXPECT_TRUE(typeid(stdThrown) == typeid(Class));                                                 \
            EXPECT_EQ(std::string(stdThrown.what()), std::string(words));                                    \
        }                                                                                                    \
    } while (false)
