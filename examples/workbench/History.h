// SPDX-License-Identifier: BSD-3-Clause
// What the user has done, with words for the menu.
#pragma once

#include "Gesture.h"

#include <ZyUndoManager.h>

#include <QString>

#include <deque>

/**
 * An undo manager whose descriptions can be read, and which knows whether the document is as it was saved.
 *
 * A gesture that throws has not happened: the document and this history are as before.
 */
class History
{
public:
    /** \param limit how many gestures can be undone */
    explicit History(unsigned int limit = 1000);

    /** Does a gesture and records it. */
    void perform(ZyUniquePtr<Gesture> gesture);
    void undo();
    void redo();
    void clear();

    bool canUndo() const { return m_manager->sizeUndo() > 0; }
    bool canRedo() const { return m_manager->sizeRedo() > 0; }
    /** What undo() would undo; empty when there is nothing. */
    QString undoText() const { return m_past.empty() ? QString() : m_past.back().description; }
    /** What redo() would do again; empty when there is nothing. */
    QString redoText() const { return m_future.empty() ? QString() : m_future.back().description; }

    /** From now on the present state counts as saved. */
    void markSaved() { m_saved = state(); }
    bool isModified() const { return state() != m_saved; }

private:
    struct Entry
    {
        QString description;
        unsigned long long state; ///< of the document, behind the gesture
    };
    unsigned long long state() const { return m_past.empty() ? m_oldest : m_past.back().state; }

    unsigned int m_limit;
    ZyUniquePtr<ZyUndoManager> m_manager;
    std::deque<Entry> m_past;   ///< can be undone, newest at the back
    std::deque<Entry> m_future; ///< can be redone, next at the back
    unsigned long long m_last = 0;
    unsigned long long m_oldest = 0; ///< state in front of all that can be undone
    unsigned long long m_saved = 0;
};
