// SPDX-License-Identifier: BSD-3-Clause
// Where the files of tests/data lie.
#pragma once

#include <string>

namespace TestData
{
/** The path of a file or folder below tests/data, with forward slashes. */
std::string path(std::string const & file);
} // namespace TestData
