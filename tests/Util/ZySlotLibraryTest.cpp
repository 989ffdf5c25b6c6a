// SPDX-License-Identifier: BSD-3-Clause
// Slots of libraries that come and go.
#include "Platform/Module.h"
#include "ScratchDirectory.h"

#include <keelbase/KbHost.h>

#include <QLibrary>
#include <QString>

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace
{
int seven()
{
    return 7;
}

int eight()
{
    return 8;
}

std::vector<kb::Registration> slots()
{
    std::vector<kb::Registration> result;
    for (kb::Registration const & slot : kb::Slots()) {
        if (slot.name == "ZyTestNumber") {
            result.push_back(slot);
        }
    }
    return result;
}

void offer(int (*function)())
{
    kb::OfferFunction("ZyTestNumber", reinterpret_cast<kb::Function>(function));
}

class SlotLibrary : public testing::Test
{
protected:
    ~SlotLibrary() override { kb::WithdrawFunction("ZyTestNumber"); }

    static int call(QLibrary & library)
    {
        auto const function = reinterpret_cast<int (*)()>(library.resolve("zytest_callSlot"));
        EXPECT_NE(function, nullptr) << library.errorString().toStdString();
        return function != nullptr ? function() : 0;
    }

    QLibrary m_one{QString::fromUtf8(ZYTEST_SLOT_One)};
    QLibrary m_two{QString::fromUtf8(ZYTEST_SLOT_Two)};
};
} // namespace

TEST_F(SlotLibrary, SharesTheNameOfItsSlotWithAnother)
{
    EXPECT_EQ(call(m_one), -1);
    EXPECT_EQ(call(m_two), -2);
    std::vector<kb::Registration> const registered = slots();
    ASSERT_EQ(registered.size(), 2u);
    EXPECT_EQ(registered[0].tag, "..\\SlotLibrary");
    EXPECT_EQ(registered[0].line, 1);
    EXPECT_EQ(registered[1].line, 2);
    offer(seven);
    EXPECT_EQ(call(m_one), 7);
    EXPECT_EQ(call(m_two), 7);
    kb::WithdrawFunction("ZyTestNumber");
    EXPECT_EQ(call(m_one), -1);
    EXPECT_EQ(call(m_two), -2);
    m_one.unload();
    m_two.unload();
}

TEST_F(SlotLibrary, FindsWhatWasOfferedBeforeItWasLoaded)
{
    offer(seven);
    EXPECT_EQ(call(m_one), 7);
    EXPECT_TRUE(slots().at(0).filled);
    m_one.unload();
}

TEST_F(SlotLibrary, IsForgottenWhenItIsUnloaded)
{
    EXPECT_EQ(call(m_one), -1);
    EXPECT_EQ(call(m_two), -2);
    ASSERT_TRUE(m_one.unload());
    EXPECT_EQ(slots().size(), 1u);
    offer(eight); // and nothing is written to where the slot was
    EXPECT_EQ(call(m_two), 8);
    EXPECT_EQ(call(m_one), 8); // loaded again
    m_one.unload();
    m_two.unload();
    EXPECT_TRUE(slots().empty());
}

TEST_F(SlotLibrary, IsToldAsAModuleWhateverItsName)
{
    ScratchDirectory const directory;
    std::string const name = "a%s%n b" + std::filesystem::path(ZYTEST_SLOT_One).extension().string();
    std::filesystem::copy_file(ZYTEST_SLOT_One, directory.path() / name);
    QLibrary library(QString::fromStdString(directory / name));
    auto const function = library.resolve("zytest_callSlot");
    ASSERT_NE(function, nullptr) << library.errorString().toStdString();
    ZyPlatform::Module const module = ZyPlatform::moduleOf(reinterpret_cast<std::uintptr_t>(function));
    EXPECT_EQ(module.file, name);
    EXPECT_NE(module.base, 0u);
    library.unload();
}
