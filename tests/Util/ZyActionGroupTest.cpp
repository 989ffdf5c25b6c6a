// SPDX-License-Identifier: BSD-3-Clause
// Tests of groups of actions.
#include <ZyActionGroup.h>
#include <ZyException.h>
#include <ZyString.h>

#include "RecordedAction.h"

#include <ThrowsMessage.h>
#include <VirtualSlot.h>

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>

static_assert(sizeof(ZyActionGroup) == 3 * sizeof(void *));
static_assert(std::is_base_of_v<ZyAction, ZyActionGroup> && !std::is_copy_constructible_v<ZyActionGroup>);

namespace
{
ZyUniquePtr<ZyAction> failing()
{
    class Failing : public ZyAction
    {
    public:
        void performAction() override { throw std::runtime_error("do"); }
        void performUndo() override { throw std::runtime_error("undo"); }
    };
    return ZyUniquePtr<ZyAction>(new Failing);
}

/** Adds a recorded action to the group when it is done. */
class Growing : public ZyAction
{
public:
    Growing(ZyActionGroup & group, std::string & record) : m_group(group), m_record(record) {}

    void performAction() override { m_group.addAction(recorded(m_record, "new")); }
    void performUndo() override { performAction(); }

private:
    ZyActionGroup & m_group;
    std::string & m_record;
};
} // namespace

TEST(ZyActionGroup, HasADescription)
{
    EXPECT_EQ(ZyActionGroup().description().toStdString(), "");
    EXPECT_EQ(ZyActionGroup("Sort rows").description().toStdString(), "Sort rows");
}

TEST(ZyActionGroup, EmptyDoesNothing)
{
    ZyActionGroup group;
    EXPECT_NO_THROW(group.performAction());
    EXPECT_NO_THROW(group.performUndo());
}

TEST(ZyActionGroup, DoesInOrderAndUndoesInReverse)
{
    std::string record;
    ZyActionGroup group;
    group.addAction(recorded(record, "1"));
    group.addAction(recorded(record, "2"));
    group.addAction(recorded(record, "3"));
    EXPECT_EQ(taken(record), "");
    group.performAction();
    EXPECT_EQ(taken(record), "+1+2+3");
    group.performUndo();
    EXPECT_EQ(taken(record), "-3-2-1");
}

TEST(ZyActionGroup, OwnsItsMembers)
{
    std::string record;
    {
        ZyActionGroup group;
        group.addAction(recorded(record, "a"));
        EXPECT_EQ(record, "");
    }
    EXPECT_EQ(record, "~a");
}

TEST(ZyActionGroup, GroupsHoldGroups)
{
    std::string record;
    ZyUniquePtr<ZyActionGroup> inner(new ZyActionGroup("inner"));
    inner->addAction(recorded(record, "2"));
    inner->addAction(recorded(record, "3"));
    ZyActionGroup outer;
    outer.addAction(recorded(record, "1"));
    outer.addAction(std::move(inner));
    outer.addAction(recorded(record, "4"));
    outer.performAction();
    EXPECT_EQ(taken(record), "+1+2+3+4");
    outer.performUndo();
    EXPECT_EQ(taken(record), "-4-3-2-1");
}

TEST(ZyActionGroup, Deliberate_group_stops_half_way)
{
    std::string record;
    ZyActionGroup group;
    group.addAction(recorded(record, "1"));
    group.addAction(failing());
    group.addAction(recorded(record, "3"));
    EXPECT_STD_THROW(group.performAction(), std::runtime_error, "do");
    EXPECT_EQ(taken(record), "+1");
    EXPECT_STD_THROW(group.performUndo(), std::runtime_error, "undo");
    EXPECT_EQ(taken(record), "-3");
}

TEST(ZyActionGroup, ANullMemberThrowsWhenItsTurnComes)
{
    std::string record;
    ZyActionGroup group;
    group.addAction(recorded(record, "1"));
    group.addAction(ZyUniquePtr<ZyAction>());
    EXPECT_ZY_THROW(group.performAction(), ZyNullPointerException, "");
    EXPECT_EQ(taken(record), "+1");
    EXPECT_ZY_THROW(group.performUndo(), ZyNullPointerException, "");
    EXPECT_EQ(taken(record), "");
}

TEST(ZyActionGroup, AMemberMayAddAnother)
{
    std::string record;
    ZyActionGroup group;
    group.addAction(ZyUniquePtr<ZyAction>(new Growing(group, record)));
    group.performAction();
    EXPECT_EQ(taken(record), "+new");
    group.performUndo(); // the one that is added now stands behind the place of the walk
    EXPECT_EQ(taken(record), "-new");
    group.performAction();
    EXPECT_EQ(taken(record), "+new+new+new");
}

#if ZY_SLOTS_VISIBLE
TEST(ZyActionGroup, AddsNoSlots)
{
    struct AfterGroup : ZyActionGroup
    {
        virtual void last() {}
    };
    EXPECT_EQ(virtualSlot(&ZyActionGroup::performAction), 2u);
    EXPECT_EQ(virtualSlot(&ZyActionGroup::performUndo), 3u);
    EXPECT_EQ(virtualSlot(&AfterGroup::last), 4u);
}
#endif
