// SPDX-License-Identifier: BSD-3-Clause
// A library with a slot. It is built twice.
#include <keelbase/KbRegistry.h>

namespace
{
int stub()
{
    return -ZYTEST_LINE;
}

int (*slot)() = stub;

RegisterDynFuncCall const registration(&slot, "ZyTestNumber", "..\\SlotLibrary", ZYTEST_LINE);
} // namespace

extern "C" __attribute__((visibility("default"))) int zytest_callSlot()
{
    return slot();
}
