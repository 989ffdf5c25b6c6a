// SPDX-License-Identifier: BSD-3-Clause
// The history of a document.
#pragma once

#include <ZyExport.h>
#include <ZyPrivateObject.h>
#include <ZyUniquePtr.h>

class ZyAction;

/**
 * A bounded history of actions, and the two stacks through which an action travels when it is undone and
 * redone. The caller does an action itself and then records it.
 *
 * \code
 * ZyUniquePtr<ZyAction> action(new Rename(part, "R7"));
 * action->performAction();
 * history.add(std::move(action));   // does not run it
 * history.performUndo();
 * history.performRedo();
 * \endcode
 *
 * \deliberate{action-moves-before-it-runs} An action changes stacks before it runs. Where it throws, the exception passes
 * to the caller and the stacks describe what was attempted.
 *
 * An action may call the manager while it runs, and so may the destructor of one that is forgotten.
 *
 * \threads one manager serves one document on one thread
 */
class ZYCORE_EXPORT ZyUndoManager
{
public:
    /** Keeps the last 100 actions. */
    ZyUndoManager();
    /** Keeps the last \a maximumSize actions; with 0, none. */
    explicit ZyUndoManager(unsigned int maximumSize);
    ZyUndoManager(ZyUndoManager const &) = delete;
    ZyUndoManager & operator=(ZyUndoManager const &) = delete;
    virtual ~ZyUndoManager();

    /**
     * Records an action that has been done. What had been undone is forgotten, and beyond the limit the
     * oldest action.
     */
    void add(ZyUniquePtr<ZyAction> action);
    /**
     * Undoes the newest action, which can then be redone; does nothing where there is none.
     * \throws ZyNullPointerException the action is null
     */
    void performUndo();
    /**
     * Does the action again that was undone last; does nothing where there is none.
     * \throws ZyNullPointerException the action is null
     */
    void performRedo();

    /** How many actions can be undone. */
    unsigned int sizeUndo() const;
    /** How many actions can be redone. */
    unsigned int sizeRedo() const;

private:
    class ZYCORE_PRIVATE Private;

    Private & d() { return *m_d; }
    Private const & d() const { return *m_d; }

    ZyPrivatePtr<Private> m_d;
};
