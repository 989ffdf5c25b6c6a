// SPDX-License-Identifier: BSD-3-Clause
// What the user does in one go.
#pragma once

#include <ZyActionGroup.h>

/**
 * A group of actions that happens whole or not at all.
 *
 * A plain group stops where a member throws, and what earlier members did stays done. This one takes back
 * what was done before it lets the exception out. Doing what is done, and undoing what is not, does nothing.
 */
class Gesture : public ZyActionGroup
{
public:
    using ZyActionGroup::ZyActionGroup;

    /** Adds a step at the end. To be called before the gesture is done for the first time. */
    void addStep(ZyUniquePtr<ZyAction> action);

    void performAction() override;
    void performUndo() override;
};
