// SPDX-License-Identifier: BSD-3-Clause
// What is wrong with the arguments.
#pragma once

#include "TableError.h"

/** What was asked cannot be done: "zyconvert: " and the reason. */
class UsageError : public TableError
{
public:
    explicit UsageError(QString const & reason) : TableError(u"zyconvert", reason) {}

    char const * name() const override { return "UsageError"; }
};
