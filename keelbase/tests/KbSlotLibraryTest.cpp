// SPDX-License-Identifier: BSD-3-Clause
// Slots of libraries that come and go.
#include <keelbase/KbHost.h>

#include <QLibrary>
#include <QString>

#include <gtest/gtest.h>

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

void offer(int (*function)())
{
    kb::OfferFunction("KbTestNumber", reinterpret_cast<kb::Function>(function));
}

class SlotLibrary : public testing::Test
{
protected:
    ~SlotLibrary() override { kb::WithdrawFunction("KbTestNumber"); }

    static int call(QLibrary & library)
    {
        auto const function = reinterpret_cast<int (*)()>(library.resolve("kbtest_callSlot"));
        EXPECT_NE(function, nullptr) << library.errorString().toStdString();
        return function != nullptr ? function() : 0;
    }

    QLibrary m_one{QString::fromUtf8(KBTEST_SLOT_One)};
    QLibrary m_two{QString::fromUtf8(KBTEST_SLOT_Two)};
};
} // namespace

TEST_F(SlotLibrary, SharesTheNameOfItsSlotWithAnother)
{
    EXPECT_EQ(call(m_one), -1);
    EXPECT_EQ(call(m_two), -2);
    std::vector<kb::Registration> const slots = kb::Slots();
    ASSERT_EQ(slots.size(), 2u);
    EXPECT_EQ(slots[0].tag, "..\\SlotLibrary");
    EXPECT_EQ(slots[0].line, 1);
    EXPECT_EQ(slots[1].line, 2);
    offer(seven);
    EXPECT_EQ(call(m_one), 7);
    EXPECT_EQ(call(m_two), 7);
    kb::WithdrawFunction("KbTestNumber");
    EXPECT_EQ(call(m_one), -1);
    EXPECT_EQ(call(m_two), -2);
    m_one.unload();
    m_two.unload();
}

TEST_F(SlotLibrary, FindsWhatWasOfferedBeforeItWasLoaded)
{
    offer(seven);
    EXPECT_EQ(call(m_one), 7);
    EXPECT_TRUE(kb::Slots().at(0).filled);
    m_one.unload();
}

TEST_F(SlotLibrary, IsForgottenWhenItIsUnloaded)
{
    EXPECT_EQ(call(m_one), -1);
    EXPECT_EQ(call(m_two), -2);
    ASSERT_TRUE(m_one.unload());
    EXPECT_EQ(kb::Slots().size(), 1u);
    offer(eight); // and nothing is written to where the slot was
    EXPECT_EQ(call(m_two), 8);
    EXPECT_EQ(call(m_one), 8); // loaded again
    m_one.unload();
    m_two.unload();
    EXPECT_TRUE(kb::Slots().empty());
}
