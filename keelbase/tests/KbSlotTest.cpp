// SPDX-License-Identifier: BSD-3-Clause
// Slots for functions of the host: what they hold, and who fills them.
#include <keelbase/KbHost.h>
#include <keelbase/Keelbase.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{
std::string stub()
{
    return "stub";
}
std::string real()
{
    return "real";
}
std::string other()
{
    return "other";
}

kb::Function plain(std::string (*function)())
{
    return reinterpret_cast<kb::Function>(function);
}

/** Every test leaves the process without offers. */
class Slot : public testing::Test
{
protected:
    ~Slot() override { kb::WithdrawFunction("KbTestSlot"); }

    std::string (*m_slot)() = stub;
};
} // namespace

TEST_F(Slot, HoldsTheStubUntilTheHostOffersTheFunction)
{
    RegisterDynFuncCall const registration(&m_slot, "KbTestSlot", "..\\src\\Some\\Source", 23);
    EXPECT_EQ(m_slot(), "stub");
    EXPECT_FALSE(kb::Slots().at(0).filled);
    kb::OfferFunction("KbTestSlot", plain(real));
    EXPECT_EQ(m_slot(), "real");
    kb::OfferFunction("KbTestSlot", plain(other));
    EXPECT_EQ(m_slot(), "other");
    kb::WithdrawFunction("KbTestSlot");
    EXPECT_EQ(m_slot(), "stub");
}

TEST_F(Slot, IsFilledAtOnceWhenTheFunctionIsThereAlready)
{
    kb::OfferFunction("KbTestSlot", plain(real));
    RegisterDynFuncCall const registration(&m_slot, "KbTestSlot", "", 0);
    EXPECT_EQ(m_slot(), "real");
    kb::WithdrawFunction("KbTestSlot");
    EXPECT_EQ(m_slot(), "stub");
}

TEST_F(Slot, HoldsTheStubAgainWhenTheRegistrationDies)
{
    {
        RegisterDynFuncCall const registration(&m_slot, "KbTestSlot", "", 0);
        kb::OfferFunction("KbTestSlot", plain(real));
        EXPECT_EQ(m_slot(), "real");
    }
    EXPECT_EQ(m_slot(), "stub");
    kb::OfferFunction("KbTestSlot", plain(other));
    EXPECT_EQ(m_slot(), "stub");
}

TEST_F(Slot, TellsWhereItWasRegisteredWhileItLives)
{
    std::string (*second)() = stub;
    {
        RegisterDynFuncCall const a(&m_slot, "KbTestSlot", "..\\a", 23);
        RegisterDynFuncCall const b(&second, "KbTestOther", "..\\b", 24);
        kb::OfferFunction("KbTestSlot", plain(real));
        std::vector<kb::Registration> const slots = kb::Slots();
        ASSERT_EQ(slots.size(), 2u);
        EXPECT_EQ(slots[0].name, "KbTestSlot");
        EXPECT_EQ(slots[0].tag, "..\\a");
        EXPECT_EQ(slots[0].line, 23);
        EXPECT_TRUE(slots[0].filled);
        EXPECT_EQ(slots[1].name, "KbTestOther");
        EXPECT_FALSE(slots[1].filled);
        EXPECT_EQ(second(), "stub");
    }
    EXPECT_TRUE(kb::Slots().empty());
}

TEST_F(Slot, HasANameWithItsCase)
{
    RegisterDynFuncCall const registration(&m_slot, "KbTestSlot", "", 0);
    kb::OfferFunction("KBTESTSLOT", plain(real));
    EXPECT_EQ(m_slot(), "stub");
    kb::WithdrawFunction("KBTESTSLOT");
}

TEST_F(Slot, IsFilledThroughThePlainFunctionToo)
{
    RegisterDynFuncCall const registration(&m_slot, "KbTestSlot", "", 0);
    kb_offer_function("KbTestSlot", plain(real));
    EXPECT_EQ(m_slot(), "real");
    EXPECT_EQ(kb::OfferedFunction("KbTestSlot"), plain(real));
    kb_offer_function("KbTestSlot", nullptr);
    EXPECT_EQ(m_slot(), "stub");
    EXPECT_EQ(kb::OfferedFunction("KbTestSlot"), nullptr);
}

TEST_F(Slot, IsNotTouchedWhenANameWithoutSlotsIsWithdrawn)
{
    RegisterDynFuncCall const registration(&m_slot, "KbTestSlot", "", 0);
    kb::WithdrawFunction("KbNoSuchSlot");
    EXPECT_EQ(m_slot(), "stub");
}
