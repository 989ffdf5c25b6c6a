// SPDX-License-Identifier: BSD-3-Clause
// Tests of the history of a document.
#include <ZyActionGroup.h>
#include <ZyException.h>
#include <ZyUndoManager.h>

#include "RecordedAction.h"

#include <ThrowsMessage.h>
#include <VirtualSlot.h>

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>

static_assert(sizeof(ZyUndoManager) == 2 * sizeof(void *));
static_assert(std::has_virtual_destructor_v<ZyUndoManager> && !std::is_copy_constructible_v<ZyUndoManager> &&
              !std::is_copy_assignable_v<ZyUndoManager>);

namespace
{
/** Calls a function for everything that happens to it, its end included. */
class CallingAction : public ZyAction
{
public:
    explicit CallingAction(std::function<void(char)> function) : m_function(std::move(function)) {}
    ~CallingAction() override { m_function('~'); }

    void performAction() override { m_function('+'); }
    void performUndo() override { m_function('-'); }

private:
    std::function<void(char)> m_function;
};

ZyUniquePtr<ZyAction> calling(std::function<void(char)> function)
{
    return ZyUniquePtr<ZyAction>(new CallingAction(std::move(function)));
}

/** "undo/redo": the sizes of both stacks. */
std::string sizes(ZyUndoManager const & manager)
{
    return std::to_string(manager.sizeUndo()) + "/" + std::to_string(manager.sizeRedo());
}
} // namespace

TEST(ZyUndoManager, EmptyDoesNothing)
{
    ZyUndoManager manager;
    EXPECT_EQ(sizes(manager), "0/0");
    EXPECT_NO_THROW(manager.performUndo());
    EXPECT_NO_THROW(manager.performRedo());
    EXPECT_EQ(sizes(manager), "0/0");
}

TEST(ZyUndoManager, AddingDoesNotRun)
{
    std::string record;
    ZyUndoManager manager;
    manager.add(recorded(record, "a"));
    EXPECT_EQ(record, "");
    EXPECT_EQ(sizes(manager), "1/0");
}

TEST(ZyUndoManager, UndoesTheNewestAndRedoesTheLastUndone)
{
    std::string record;
    ZyUndoManager manager;
    for (char const * const name : {"a", "b", "c"}) {
        manager.add(recorded(record, name));
    }
    manager.performUndo();
    manager.performUndo();
    EXPECT_EQ(sizes(manager), "1/2");
    manager.performRedo();
    EXPECT_EQ(sizes(manager), "2/1");
    manager.performUndo();
    manager.performUndo();
    manager.performUndo(); // nothing is left
    EXPECT_EQ(sizes(manager), "0/3");
    for (int times = 0; times < 4; ++times) {
        manager.performRedo();
    }
    EXPECT_EQ(sizes(manager), "3/0");
    EXPECT_EQ(taken(record), "-c-b+b-b-a+a+b+c");
}

TEST(ZyUndoManager, ANewActionForgetsWhatWasUndone)
{
    std::string record;
    ZyUndoManager manager;
    manager.add(recorded(record, "a"));
    manager.add(recorded(record, "b"));
    manager.performUndo();
    manager.performUndo();
    manager.performRedo();
    EXPECT_EQ(taken(record), "-b-a+a");
    manager.add(recorded(record, "c"));
    EXPECT_EQ(taken(record), "~b");
    EXPECT_EQ(sizes(manager), "2/0");
}

TEST(ZyUndoManager, ForgetsTheOldestBeyondItsLimit)
{
    std::string record;
    ZyUndoManager manager(2);
    manager.add(recorded(record, "a"));
    manager.add(recorded(record, "b"));
    EXPECT_EQ(record, "");
    manager.add(recorded(record, "c"));
    EXPECT_EQ(taken(record), "~a");
    EXPECT_EQ(sizes(manager), "2/0");
    manager.performUndo();
    manager.performUndo();
    EXPECT_EQ(taken(record), "-c-b");
}

TEST(ZyUndoManager, WithoutRoomItKeepsNothing)
{
    std::string record;
    ZyUndoManager manager(0);
    manager.add(recorded(record, "a"));
    EXPECT_EQ(taken(record), "~a");
    EXPECT_EQ(sizes(manager), "0/0");
    manager.performUndo();
    EXPECT_EQ(record, "");
}

TEST(ZyUndoManager, KeepsAHundredByDefault)
{
    std::string record;
    ZyUndoManager manager;
    for (int index = 0; index < 101; ++index) {
        manager.add(recorded(record, std::to_string(index)));
    }
    EXPECT_EQ(sizes(manager), "100/0");
    EXPECT_EQ(record, "~0");
}

TEST(ZyUndoManager, RedoIsNotLimited)
{
    std::string record;
    ZyUndoManager manager(2);
    manager.add(recorded(record, "a"));
    manager.add(recorded(record, "b"));
    manager.performUndo();
    manager.performUndo();
    manager.performRedo();
    manager.performRedo();
    EXPECT_EQ(sizes(manager), "2/0");
    EXPECT_EQ(record, "-b-a+a+b");
}

TEST(ZyUndoManager, DestroysWhatItHolds)
{
    std::string record;
    {
        ZyUndoManager manager;
        manager.add(recorded(record, "a"));
        manager.add(recorded(record, "b"));
        manager.performUndo();
        taken(record);
    }
    EXPECT_TRUE(record == "~a~b" || record == "~b~a") << record;
}

TEST(ZyUndoManager, Deliberate_action_moves_before_it_runs_also_into_a_failed_undo)
{
    ZyUndoManager manager;
    manager.add(calling([](char what) {
        if (what == '-') {
            throw std::runtime_error("undo");
        }
    }));
    EXPECT_STD_THROW(manager.performUndo(), std::runtime_error, "undo");
    EXPECT_EQ(sizes(manager), "0/1");
    EXPECT_NO_THROW(manager.performRedo());
    EXPECT_EQ(sizes(manager), "1/0");
}

TEST(ZyUndoManager, Deliberate_action_moves_before_it_runs_also_into_a_failed_redo)
{
    ZyUndoManager manager;
    manager.add(calling([](char what) {
        if (what == '+') {
            throw ZyInvalidCallException("redo");
        }
    }));
    manager.performUndo();
    EXPECT_ZY_THROW(manager.performRedo(), ZyInvalidCallException, "redo");
    EXPECT_EQ(sizes(manager), "1/0");
}

TEST(ZyUndoManager, ANullActionThrowsAfterItHasMoved)
{
    ZyUndoManager manager;
    manager.add(ZyUniquePtr<ZyAction>());
    EXPECT_EQ(sizes(manager), "1/0");
    EXPECT_ZY_THROW(manager.performUndo(), ZyNullPointerException, "");
    EXPECT_EQ(sizes(manager), "0/1");
    EXPECT_ZY_THROW(manager.performRedo(), ZyNullPointerException, "");
    EXPECT_EQ(sizes(manager), "1/0");
}

TEST(ZyUndoManager, Deliberate_action_moves_before_it_runs)
{
    std::string seen;
    ZyUndoManager manager;
    manager.add(calling([&](char what) {
        if (what != '~') {
            seen += what + sizes(manager) + " ";
        }
    }));
    manager.performUndo();
    manager.performRedo();
    EXPECT_EQ(seen, "-0/1 +1/0 ");
}

// The action stands in the redo stack, which adding empties, and is running.
TEST(ZyUndoManager, ARunningActionOutlivesItsPlaceInTheStacks)
{
    std::string record;
    bool destroyed = false;
    bool destroyedWhileRunning = true;
    ZyUndoManager manager;
    manager.add(calling([&](char what) {
        if (what == '-') {
            manager.add(recorded(record, "a"));
            destroyedWhileRunning = destroyed;
        }
        destroyed = destroyed || what == '~';
    }));
    manager.performUndo();
    EXPECT_FALSE(destroyedWhileRunning);
    EXPECT_TRUE(destroyed);
    EXPECT_EQ(sizes(manager), "1/0");
}

TEST(ZyUndoManager, AForgottenActionMayRecordAnother)
{
    std::string record;
    int left = 3;
    ZyUndoManager manager(2);
    std::function<void(char)> const addsAtItsEnd = [&](char what) {
        if (what == '~' && left-- > 0) {
            manager.add(recorded(record, "n"));
        }
    };
    manager.add(calling(addsAtItsEnd));
    manager.add(calling(addsAtItsEnd));
    manager.performUndo();
    manager.performUndo();
    manager.add(recorded(record, "a"));
    EXPECT_EQ(sizes(manager), "2/0");
}

TEST(ZyUndoManager, HoldsGroups)
{
    std::string record;
    ZyUniquePtr<ZyActionGroup> group(new ZyActionGroup("Paste"));
    group->addAction(recorded(record, "1"));
    group->addAction(recorded(record, "2"));
    ZyUndoManager manager;
    manager.add(std::move(group));
    manager.performUndo();
    manager.performRedo();
    EXPECT_EQ(record, "-2-1+1+2");
}

TEST(ZyUndoManager, HoldsLongHistories)
{
    long position = 0;
    class Step : public ZyAction
    {
    public:
        explicit Step(long & value) : m_value(value) {}
        void performAction() override { ++m_value; }
        void performUndo() override { --m_value; }

    private:
        long & m_value;
    };
    ZyUndoManager manager(100000);
    for (int index = 0; index < 100000; ++index) {
        manager.add(ZyUniquePtr<ZyAction>(new Step(position)));
    }
    for (int index = 0; index < 100000; ++index) {
        manager.performUndo();
    }
    EXPECT_EQ(position, -100000);
    EXPECT_EQ(sizes(manager), "0/100000");
    while (manager.sizeRedo() > 0) {
        manager.performRedo();
    }
    EXPECT_EQ(position, 0);
}
