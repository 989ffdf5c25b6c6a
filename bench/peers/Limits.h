// SPDX-License-Identifier: BSD-3-Clause
// A document of small records, and the plain structs that it becomes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace bench
{

/** A record as a host keeps it. */
struct Limit
{
    int id = 0;
    std::string name;
    int value = 0;
    double level = 0;
};

/** Makes the document of that many records, `<Limit id="7"><Name>node_00007</Name><Value>42</Value>
 * <Level>...</Level></Limit>` without white space and with the level as Base64, unless it is there.
 * \return its path */
std::string limitsFile(unsigned count);
/** A number made of all that is in the records. */
std::uint64_t checksum(std::vector<Limit> const & limits);
/** That number for the records of the document. */
std::uint64_t limitsChecksum(unsigned count);
/** The number of twelve characters of Base64. \throws std::runtime_error there are more or fewer */
double realOfBase64(char const * text, std::size_t size);

} // namespace bench
