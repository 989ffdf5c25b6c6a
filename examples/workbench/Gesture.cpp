// SPDX-License-Identifier: BSD-3-Clause
// Steps that know whether they are done.

#include "Gesture.h"

#include <utility>

namespace
{

class Step : public ZyAction
{
public:
    explicit Step(ZyUniquePtr<ZyAction> action) : m_action(std::move(action)) {}

    void performAction() override
    {
        if (!m_done) {
            m_action->performAction();
            m_done = true;
        }
    }
    void performUndo() override
    {
        if (m_done) {
            m_action->performUndo();
            m_done = false;
        }
    }

private:
    ZyUniquePtr<ZyAction> m_action;
    bool m_done = false;
};

} // namespace

void Gesture::addStep(ZyUniquePtr<ZyAction> action)
{
    addAction(ZyUniquePtr<ZyAction>(new Step(std::move(action))));
}

void Gesture::performAction()
{
    try {
        ZyActionGroup::performAction();
    } catch (...) {
        ZyActionGroup::performUndo();
        throw;
    }
}

void Gesture::performUndo()
{
    try {
        ZyActionGroup::performUndo();
    } catch (...) {
        ZyActionGroup::performAction();
        throw;
    }
}
