// SPDX-License-Identifier: BSD-3-Clause
// What the user asks for at the start.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/** The program's arguments. */
struct Options
{
    QString file;   ///< to open; empty: none
    QString config; ///< where settings are kept
};

/**
 * Reads the arguments, the program's own name first. Help and version are printed here, and what is wrong
 * with the arguments is. \param status is set when there is nothing further to do \return nothing then
 */
std::optional<Options> parseOptions(QStringList const & arguments, int & status);
