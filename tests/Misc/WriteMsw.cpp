// SPDX-License-Identifier: BSD-3-Clause
// Writes the sample analysis of the tests as a result file, in a process of its own: what a process settles
// once can only be tested so. Arguments: the file; then "on" or "off" sets the option of readable numbers
// before, and a second such argument sets it between two writes, of which the second stays.
#include <XMLReport.h>

#include "MswTables.h"

#include <keelbase/KbHost.h>

#include <cstring>

namespace
{
bool write(char const * path)
{
    return sp_WriteMswFile(path, MswTables::sampleTable(), MswTables::sampleHeader());
}
} // namespace

int main(int count, char ** arguments)
{
    bool isGood = count > 1;
    for (int i = 2; i < count; ++i) {
        kb::SetOption("WriteXMLAsciiReals", std::strcmp(arguments[i], "on") == 0);
        isGood = write(arguments[1]) && isGood;
    }
    return isGood && write(arguments[1]) ? 0 : 1;
}
