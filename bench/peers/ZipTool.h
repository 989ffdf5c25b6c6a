// SPDX-License-Identifier: BSD-3-Clause
// Packing and unpacking a directory tree with minizip and nothing in between, and with the Info-ZIP programs.
#pragma once

#include <cstdint>
#include <string>

namespace bench
{

/** Packs all files below \a root, in blocks of \a block bytes, at zlib's default level. */
void minizipPack(std::string const & archive, std::string const & root, std::size_t block);
/** Unpacks in the archive's own order, without looking a name up. */
void minizipUnpack(std::string const & archive, std::string const & target, std::size_t block);

/** Whether the program can be found. */
bool hasProgram(std::string const & name);
/** Runs a command of the shell. \throws std::runtime_error its exit status is not 0 */
void runCommand(std::string const & command);

struct TreeSize
{
    std::uint64_t files = 0;
    std::uint64_t bytes = 0;
};

TreeSize sizeOfTree(std::string const & root);

} // namespace bench
