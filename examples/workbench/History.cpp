// SPDX-License-Identifier: BSD-3-Clause
// The manager and the words go side by side.

#include "History.h"

#include <ZyString.h>

#include <utility>

History::History(unsigned int limit) : m_limit(limit), m_manager(new ZyUndoManager(limit)) {}

void History::perform(ZyUniquePtr<Gesture> gesture)
{
    QString const description = gesture->description().toQString();
    gesture->performAction();
    m_manager->add(std::move(gesture));
    m_past.push_back({description, ++m_last});
    m_future.clear();
    if (m_past.size() > m_limit) {
        m_oldest = m_past.front().state;
        m_past.pop_front();
    }
}

// An action changes stacks before it runs. Where it throws, the gesture has taken back what it did and moves
// back here; on the way it finds nothing to do.
void History::undo()
{
    if (!canUndo()) {
        return;
    }
    try {
        m_manager->performUndo();
    } catch (...) {
        m_manager->performRedo();
        throw;
    }
    m_future.push_back(m_past.back());
    m_past.pop_back();
}

void History::redo()
{
    if (!canRedo()) {
        return;
    }
    try {
        m_manager->performRedo();
    } catch (...) {
        m_manager->performUndo();
        throw;
    }
    m_past.push_back(m_future.back());
    m_future.pop_back();
}

void History::clear()
{
    m_manager.reset(new ZyUndoManager(m_limit));
    m_past.clear();
    m_future.clear();
    m_oldest = m_saved = ++m_last;
}
