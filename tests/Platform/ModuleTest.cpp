// SPDX-License-Identifier: BSD-3-Clause
// Which file an address belongs to.
#include "Platform/Module.h"

#include <ZyString.h>

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>

namespace
{
int ofThisProgram = 1;

template <class Object>
ZyPlatform::Module moduleOf(Object * object)
{
    return ZyPlatform::moduleOf(reinterpret_cast<std::uintptr_t>(object));
}
} // namespace

TEST(Module, TellsTheProgramByTheNameOfItsFile)
{
    ZyPlatform::Module const module = moduleOf(&ofThisProgram);
    EXPECT_EQ(std::string(module.file).rfind("zytests_platform", 0), 0u) << module.file;
    EXPECT_NE(module.base, 0u);
    EXPECT_LT(module.base, reinterpret_cast<std::uintptr_t>(&ofThisProgram));
}

TEST(Module, TellsALibraryByTheNameOfItsFile)
{
    ZyPlatform::Module const module = moduleOf(&ZyPlatform::moduleOf);
    ZyPlatform::Module const library = moduleOf(&QCoreApplication::staticMetaObject);
    EXPECT_NE(std::string(library.file).find("Qt5Core"), std::string::npos) << library.file;
    EXPECT_NE(module.base, 0u);
    EXPECT_NE(module.base, library.base);
}

TEST(Module, IsTheSameForEveryAddressOfIt)
{
    ZyPlatform::Module const data = moduleOf(&ofThisProgram);
    ZyPlatform::Module const code = moduleOf(&testing::Test::HasFailure);
    EXPECT_NE(data.base, 0u);
    EXPECT_EQ(moduleOf(&ofThisProgram).base, data.base);
    static_cast<void>(code);
}

TEST(Module, IsNoneForAddressesOutsideOfAll)
{
    auto const onHeap = std::make_unique<int>(1);
    int onStack = 1;
    for (ZyPlatform::Module const & module :
         {ZyPlatform::moduleOf(0), ZyPlatform::moduleOf(1), ZyPlatform::moduleOf(UINTPTR_MAX),
          moduleOf(onHeap.get()), moduleOf(&onStack)}) {
        EXPECT_STREQ(module.file, "");
        EXPECT_EQ(module.base, 0u);
    }
}
