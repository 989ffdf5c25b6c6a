// SPDX-License-Identifier: BSD-3-Clause
// A library with a slot. It is built twice.
#include <keelbase/KbRegistry.h>

namespace
{
int stub()
{
    return -KBTEST_LINE;
}

int (*slot)() = stub;

RegisterDynFuncCall const registration(&slot, "KbTestNumber", "..\\SlotLibrary", KBTEST_LINE);
} // namespace

extern "C" __attribute__((visibility("default"))) int kbtest_callSlot()
{
    return slot();
}
