// SPDX-License-Identifier: BSD-3-Clause
// The history of a document.
#include <ZyUndoManager.h>

#include <ZyAction.h>
#include <ZyDeque.h>
#include <ZySharedPtr.h>

#include <deque>
#include <utility>

class ZyUndoManager::Private : public ZyPrivateObject
{
public:
    explicit Private(unsigned int size) : maximumSize(size) {}

    unsigned int maximumSize;                 ///< of the undo stack
    ZyDeque<ZySharedPtr<ZyAction>> undoStack; ///< the newest in front
    ZyDeque<ZySharedPtr<ZyAction>> redoStack; ///< the next to redo in front
};

namespace
{
using Stack = std::deque<ZySharedPtr<ZyAction>>;

/** Removes the actions at the back until \a size are left. Each goes when it is in no stack any more. */
void shorten(Stack & stack, std::size_t size)
{
    while (stack.size() > size) {
        ZySharedPtr<ZyAction> const last = std::move(stack.back());
        stack.pop_back();
    }
}

/** Moves the front action to the other front. */
ZySharedPtr<ZyAction> moveFront(Stack & from, Stack & to)
{
    to.push_front(std::move(from.front()));
    from.pop_front();
    return to.front();
}
} // namespace

ZyUndoManager::ZyUndoManager() : ZyUndoManager(100) {}

ZyUndoManager::ZyUndoManager(unsigned int maximumSize) : m_d(new Private(maximumSize)) {}

ZyUndoManager::~ZyUndoManager() = default;

void ZyUndoManager::add(ZyUniquePtr<ZyAction> action)
{
    d().undoStack.std_deque().push_front(ZySharedPtr<ZyAction>(std::move(action)));
    shorten(d().redoStack.std_deque(), 0);
    shorten(d().undoStack.std_deque(), d().maximumSize);
}

void ZyUndoManager::performUndo()
{
    if (!d().undoStack.isEmpty()) {
        moveFront(d().undoStack.std_deque(), d().redoStack.std_deque())->performUndo();
    }
}

void ZyUndoManager::performRedo()
{
    if (!d().redoStack.isEmpty()) {
        moveFront(d().redoStack.std_deque(), d().undoStack.std_deque())->performAction();
    }
}

unsigned int ZyUndoManager::sizeUndo() const
{
    return d().undoStack.size();
}

unsigned int ZyUndoManager::sizeRedo() const
{
    return d().redoStack.size();
}
