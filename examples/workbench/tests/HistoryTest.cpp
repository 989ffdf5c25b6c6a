// SPDX-License-Identifier: BSD-3-Clause
// Gestures that happen whole or not at all, and the words for them.

#include "History.h"

#include <ZyException.h>

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace
{

/** Writes its name when it is done, and its name in brackets when it is undone; throws when told to. */
class Noting : public ZyAction
{
public:
    Noting(std::string & notes, std::string name) : m_notes(notes), m_name(std::move(name)) {}

    void performAction() override { note(m_name); }
    void performUndo() override { note("(" + m_name + ")"); }

    bool throws = false;

private:
    void note(std::string const & text)
    {
        if (throws) {
            throw std::runtime_error(m_name);
        }
        m_notes += text;
    }

    std::string & m_notes;
    std::string m_name;
};

class Undoing : public ::testing::Test
{
protected:
    Noting * add(Gesture & gesture, std::string const & name)
    {
        auto * const action = new Noting(notes, name);
        gesture.addStep(ZyUniquePtr<ZyAction>(action));
        return action;
    }
    ZyUniquePtr<Gesture> three(std::string const & description = "Three")
    {
        ZyUniquePtr<Gesture> gesture(new Gesture(ZyString(description)));
        first = add(*gesture, "a");
        second = add(*gesture, "b");
        third = add(*gesture, "c");
        return gesture;
    }

    std::string notes;
    Noting * first = nullptr;
    Noting * second = nullptr;
    Noting * third = nullptr;
    History history;
};

} // namespace

TEST_F(Undoing, GestureIsDoneUndoneAndDoneAgain)
{
    history.perform(three());
    history.undo();
    history.redo();
    EXPECT_EQ(notes, "abc(c)(b)(a)abc");
    EXPECT_TRUE(history.canUndo());
    EXPECT_FALSE(history.canRedo());
}

TEST_F(Undoing, StepThatThrowsTakesBackTheStepsBeforeIt)
{
    auto gesture = three();
    third->throws = true;
    EXPECT_THROW(history.perform(std::move(gesture)), std::runtime_error);
    EXPECT_EQ(notes, "ab(b)(a)");
    EXPECT_FALSE(history.canUndo());
    EXPECT_FALSE(history.isModified());
}

TEST_F(Undoing, UndoThatThrowsHasNotHappened)
{
    history.perform(three());
    first->throws = true;
    EXPECT_THROW(history.undo(), std::runtime_error);
    EXPECT_EQ(notes, "abc(c)(b)bc");
    EXPECT_EQ(history.undoText(), QStringLiteral("Three"));
    EXPECT_FALSE(history.canRedo());
    first->throws = false;
    history.undo();
    EXPECT_EQ(notes, "abc(c)(b)bc(c)(b)(a)");
}

TEST_F(Undoing, RedoThatThrowsHasNotHappened)
{
    history.perform(three());
    history.undo();
    notes.clear();
    second->throws = true;
    EXPECT_THROW(history.redo(), std::runtime_error);
    EXPECT_EQ(notes, "a(a)");
    EXPECT_EQ(history.redoText(), QStringLiteral("Three"));
    EXPECT_FALSE(history.canUndo());
    second->throws = false;
    history.redo();
    EXPECT_EQ(notes, "a(a)abc");
}

TEST_F(Undoing, WordsFollowTheStacks)
{
    history.perform(three("One"));
    history.perform(three("Two"));
    EXPECT_EQ(history.undoText(), QStringLiteral("Two"));
    history.undo();
    EXPECT_EQ(history.undoText(), QStringLiteral("One"));
    EXPECT_EQ(history.redoText(), QStringLiteral("Two"));
    history.perform(three("Three"));
    EXPECT_EQ(history.redoText(), QString());
    history.undo();
    history.undo();
    history.undo(); // nothing is left
    EXPECT_EQ(history.undoText(), QString());
    EXPECT_EQ(history.redoText(), QStringLiteral("One"));
}

TEST_F(Undoing, StateCountsAsSavedUntilItIsLeft)
{
    history.perform(three());
    EXPECT_TRUE(history.isModified());
    history.markSaved();
    EXPECT_FALSE(history.isModified());
    history.undo();
    EXPECT_TRUE(history.isModified());
    history.redo();
    EXPECT_FALSE(history.isModified());
    history.undo();
    history.perform(three());
    EXPECT_TRUE(history.isModified());
}

TEST_F(Undoing, OldGesturesAreForgotten)
{
    History small(2);
    small.perform(three("One"));
    small.perform(three("Two"));
    small.perform(three("Three"));
    small.undo();
    small.undo();
    EXPECT_FALSE(small.canUndo());
    EXPECT_EQ(small.undoText(), QString());
    EXPECT_EQ(small.redoText(), QStringLiteral("Two"));
    EXPECT_TRUE(small.isModified()); // the first one cannot be taken back
}

TEST_F(Undoing, ClearForgetsAndCountsAsSaved)
{
    history.perform(three());
    history.undo();
    history.perform(three());
    history.clear();
    EXPECT_FALSE(history.canUndo());
    EXPECT_FALSE(history.canRedo());
    EXPECT_FALSE(history.isModified());
}
