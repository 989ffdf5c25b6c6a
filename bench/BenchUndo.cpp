// SPDX-License-Identifier: BSD-3-Clause
// Histories of a document: a million actions recorded, undone and redone, and a million of which the last
// hundred are kept. Against QUndoStack.
#include "Measure.h"

#include <ZyAction.h>
#include <ZyString.h>
#include <ZyUndoManager.h>

#ifdef ZYBENCH_QTWIDGETS
#include <QString>
#include <QUndoCommand>
#include <QUndoStack>
#endif

#include <functional>
#include <limits>
#include <string>
#include <utility>

namespace bench
{

namespace
{

constexpr unsigned count = 1000000;
constexpr unsigned shortHistory = 100;
constexpr unsigned noLimit = std::numeric_limits<unsigned>::max();

/** What the actions change. */
unsigned long long document = 0;

void expectDocument(unsigned long long value)
{
    check(document == value, "the document is not what the history says");
}

constexpr unsigned long long all = static_cast<unsigned long long>(count) * (count - 1) / 2;

class Move : public ZyAction
{
public:
    explicit Move(unsigned distance) : ZyAction(text()), m_distance(distance) {}

    void performAction() override { document += m_distance; }
    void performUndo() override { document -= m_distance; }

private:
    /** Made once, as the literal of the peer is. */
    static ZyString const & text()
    {
        static ZyString const made("Move part");
        return made;
    }

    unsigned m_distance;
};

void record(ZyUndoManager & history)
{
    for (unsigned i = 0; i < count; ++i) {
        ZyUniquePtr<ZyAction> action(new Move(i));
        action->performAction();
        history.add(std::move(action));
    }
}

void addOurs()
{
    addJob("undo-all/ours", [] {
        ZyUndoManager history(noLimit);
        record(history);
        for (unsigned i = 0; i < count; ++i) {
            history.performUndo();
        }
        expectDocument(0);
        for (unsigned i = 0; i < count; ++i) {
            history.performRedo();
        }
        expectDocument(all);
    });
    for (auto const & [name, limit] :
         {std::pair("ours", shortHistory), std::pair("ours-no-limit", noLimit)}) {
        addJob(std::string("undo-record/") + name, [limit = limit] {
            ZyUndoManager history(limit);
            record(history);
            expectDocument(all);
        });
    }
}

#ifdef ZYBENCH_QTWIDGETS

class QtMove : public QUndoCommand
{
public:
    explicit QtMove(unsigned distance) : QUndoCommand(QStringLiteral("Move part")), m_distance(distance) {}

    void redo() override { document += m_distance; }
    void undo() override { document -= m_distance; }

private:
    unsigned m_distance;
};

void record(QUndoStack & history)
{
    for (unsigned i = 0; i < count; ++i) {
        history.push(new QtMove(i)); // runs it
    }
}

void addQt()
{
    addJob("undo-all/QUndoStack", [] {
        QUndoStack history;
        record(history);
        for (unsigned i = 0; i < count; ++i) {
            history.undo();
        }
        expectDocument(0);
        for (unsigned i = 0; i < count; ++i) {
            history.redo();
        }
        expectDocument(all);
    });
    addJob("undo-record/QUndoStack", [] {
        QUndoStack history;
        history.setUndoLimit(shortHistory);
        record(history);
        expectDocument(all);
    });
}

#endif

} // namespace

void registerBenchmarks()
{
    addOurs();
#ifdef ZYBENCH_QTWIDGETS
    addQt();
#endif
}

} // namespace bench
