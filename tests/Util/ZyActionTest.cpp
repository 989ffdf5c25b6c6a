// SPDX-License-Identifier: BSD-3-Clause
// Tests of the base of actions.
#include <ZyAction.h>
#include <ZyString.h>

#include "RecordedAction.h"

#include <VirtualSlot.h>

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

static_assert(sizeof(ZyAction) == 2 * sizeof(void *));
static_assert(std::is_abstract_v<ZyAction> && std::has_virtual_destructor_v<ZyAction>);
static_assert(!std::is_copy_constructible_v<ZyAction> && !std::is_copy_assignable_v<ZyAction>);

namespace
{
class Described : public ZyAction
{
public:
    using ZyAction::ZyAction;

    void performAction() override {}
    void performUndo() override {}
};
} // namespace

TEST(ZyAction, DescriptionIsEmptyByDefault)
{
    EXPECT_EQ(Described().description().toStdString(), "");
}

TEST(ZyAction, DescriptionIsThatOfTheConstructor)
{
    EXPECT_EQ(Described("Move part").description().toStdString(), "Move part");
    EXPECT_EQ(Described(ZyString()).description().toStdString(), "");
}

TEST(ZyAction, Deliberate_action_describes_itself_while_const)
{
    Described const described("Move part");
    ZyAction const & action = described;
    action.setDescription("Rename part");
    EXPECT_EQ(described.description().toStdString(), "Rename part");
    action.setDescription(action.description());
    EXPECT_EQ(described.description().toStdString(), "Rename part");
}

TEST(ZyAction, IsDestroyedThroughItsBase)
{
    std::string record;
    recorded(record, "a").reset();
    EXPECT_EQ(record, "~a");
}

#if ZY_SLOTS_VISIBLE
TEST(ZyAction, SlotsKeepTheirOrder)
{
    struct AfterAction : ZyAction
    {
        virtual void last() {}
    };
    EXPECT_EQ(virtualSlot(&ZyAction::performAction), 2u);
    EXPECT_EQ(virtualSlot(&ZyAction::performUndo), 3u);
    EXPECT_EQ(virtualSlot(&AfterAction::last), 4u);
}
#endif
