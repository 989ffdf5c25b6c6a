// SPDX-License-Identifier: BSD-3-Clause
// Several actions as one.
#pragma once

#include <ZyAction.h>
#include <ZyExport.h>
#include <ZyPrivateObject.h>
#include <ZyUniquePtr.h>

/**
 * One action that is a sequence of others, which may be groups themselves.
 *
 * \deliberate{group-stops-half-way} An exception of a member leaves the group at once: later members do not run, and what
 * earlier ones did stays done. Who can undo half a gesture does so in the member.
 */
class ZYCORE_EXPORT ZyActionGroup : public ZyAction
{
public:
    /** No members, and an empty description. */
    ZyActionGroup();
    /** No members. */
    explicit ZyActionGroup(ZyString const & description);
    ~ZyActionGroup() override;

    /** Adds a member at the end; the group owns it from now on. */
    void addAction(ZyUniquePtr<ZyAction> action);

    /**
     * Does all members, from the first to the last.
     * \throws ZyNullPointerException a member is null, when its turn comes
     */
    void performAction() override;
    /**
     * Undoes all members, from the last to the first.
     * \throws ZyNullPointerException a member is null, when its turn comes
     */
    void performUndo() override;

private:
    class ZYCORE_PRIVATE Private;

    Private & d() { return *m_d; }
    Private const & d() const { return *m_d; }

    ZyPrivatePtr<Private> m_d;
};
