// SPDX-License-Identifier: BSD-3-Clause
// Several actions as one.
#include <ZyActionGroup.h>

#include <ZyDeque.h>
#include <ZySharedPtr.h>
#include <ZyString.h>

#include <utility>

class ZyActionGroup::Private : public ZyPrivateObject
{
public:
    /** In the order of adding. */
    ZyDeque<ZySharedPtr<ZyAction>> actions;
};

ZyActionGroup::ZyActionGroup() : m_d(new Private) {}

ZyActionGroup::ZyActionGroup(ZyString const & description) : ZyAction(description), m_d(new Private) {}

ZyActionGroup::~ZyActionGroup() = default;

void ZyActionGroup::addAction(ZyUniquePtr<ZyAction> action)
{
    d().actions.add(ZySharedPtr<ZyAction>(std::move(action)));
}

// By index: a member may add another one while it runs.
void ZyActionGroup::performAction()
{
    for (unsigned int index = 0; index < d().actions.size(); ++index) {
        d().actions[index]->performAction();
    }
}

void ZyActionGroup::performUndo()
{
    for (unsigned int index = d().actions.size(); index > 0; --index) {
        d().actions[index - 1]->performUndo();
    }
}
