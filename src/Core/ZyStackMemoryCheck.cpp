// SPDX-License-Identifier: BSD-3-Clause
// A guard against using up the stack.
#include <ZyStackMemoryCheck.h>

#include <ZyException.h>

#include <keelbase/Keelbase.h>

void ZyStackMemoryCheck::Check(unsigned int bytes)
{
    // \deliberate{stack-read-twice} The first reading of a thread may touch pages that the second one then counts as
    // used: only the second one tells what is left.
    static_cast<void>(sp_StackAvail());
    if (sp_StackAvail() < bytes) {
        throw ZyStackLimitException();
    }
}

void ZyStackMemoryCheck::Check()
{
    Check(200000);
}
