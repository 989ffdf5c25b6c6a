// SPDX-License-Identifier: BSD-3-Clause
// Histograms, guarded functions, the history of a document and commands when memory ends.
#include "AllocationFault.h"

#include <ZyActionGroup.h>
#include <ZyCommandShell.h>
#include <ZyHistogram.h>
#include <ZyMaths.h>
#include <ZyString.h>
#include <ZyUndoManager.h>

#include <keelbase/KbHost.h>

#include <cstddef>
#include <utility>

namespace
{
/** Counts in \a position how often it is done. */
class Step : public ZyAction
{
public:
    explicit Step(unsigned int & position) : m_position(position) {}

    void performAction() override { ++m_position; }
    void performUndo() override { --m_position; }

private:
    unsigned int & m_position;
};

constexpr char longText[] = "a text that is longer than what a string keeps in itself";
} // namespace

TEST(AllocationFailure, CopiesAHistogramWholeOrNotAtAll)
{
    ZyHistogram const from(ZyVector<double>{0, 1, 2, 3, 4}, 100);
    ZyHistogram to(ZyVector<double>{0, 1}, 2);
    unsigned const failures = failEveryAllocation(
        [&] {
            ZyHistogram const made(ZyVector<double>{0, 1, 2, 3, 4}, 100);
            to = from;
        },
        [&](bool returned) { EXPECT_EQ(to.numberBins(), returned ? 100u : 2u); });
    EXPECT_GT(failures, 3u);
}

TEST(AllocationFailure, AFailedGuardLeavesTheNextCallAlone)
{
    auto const root = [] {
        try {
            ZyMaths::Power::Sqrt(-1.0);
            ADD_FAILURE() << "no exception";
        } catch (ZyMathsException const &) {
        }
    };
    EXPECT_GT(failEveryAllocation(root, [](bool) { EXPECT_EQ(ZyMaths::Power::Sqrt(4.0), 2.0); }), 0u);
}

TEST(AllocationFailure, RecordsAnActionOrForgetsNothing)
{
    unsigned int position = 2;
    ZyUndoManager history;
    history.add(ZyUniquePtr<ZyAction>(new Step(position)));
    history.add(ZyUniquePtr<ZyAction>(new Step(position)));
    history.performUndo();
    unsigned const failures =
        failEveryAllocation([&] { history.add(ZyUniquePtr<ZyAction>(new Step(position))); },
                            [&](bool returned) {
                                EXPECT_EQ(history.sizeUndo(), returned ? 2u : 1u);
                                EXPECT_EQ(history.sizeRedo(), returned ? 0u : 1u);
                            });
    EXPECT_GT(failures, 3u);
}

TEST(AllocationFailure, MovesAnActionAndRunsItOrLeavesIt)
{
    constexpr unsigned int count = 200;
    unsigned int position = count;
    ZyUndoManager history(count);
    for (unsigned int index = 0; index < count; ++index) {
        history.add(ZyUniquePtr<ZyAction>(new Step(position)));
    }
    auto const isWhole = [&](bool) {
        EXPECT_EQ(history.sizeUndo() + history.sizeRedo(), count);
        EXPECT_EQ(position, history.sizeUndo());
    };
    unsigned const failures = failEveryAllocation(
        [&] {
            while (history.sizeUndo() > 0) {
                history.performUndo();
            }
            while (history.sizeRedo() > 0) {
                history.performRedo();
            }
        },
        isWhole);
    EXPECT_GT(failures, 1u);
    EXPECT_EQ(position, count);
}

TEST(AllocationFailure, AddsAMemberToAGroupOrLeavesTheGroup)
{
    unsigned int position = 0;
    ZyActionGroup group;
    unsigned const failures =
        failEveryAllocation([&] { group.addAction(ZyUniquePtr<ZyAction>(new Step(position))); },
                            [&](bool returned) {
                                position = 0;
                                group.performAction();
                                EXPECT_EQ(position, returned ? 1u : 0u);
                            });
    EXPECT_GT(failures, 1u);
    ZyString const text(longText);
    failEveryAllocation(
        [&] { group.setDescription(text); },
        [&](bool returned) { EXPECT_EQ(group.description().toStdString(), returned ? longText : ""); });
}

TEST(AllocationFailure, ReturnsFromACommandWithAReport)
{
    ZyString const command("command");
    unsigned reports = 0;
    kb::SetOutput([&reports](char const *, char const *, std::size_t) { ++reports; });
    unsigned const failures = failEveryAllocation([&] { ZyCommandShell::RunCommand(command, false); },
                                                  [&](bool returned) { EXPECT_TRUE(returned); });
    kb::SetOutput({});
    EXPECT_EQ(failures, 1u); // the handler that drops the output
    EXPECT_EQ(reports, failures + 1);
}
