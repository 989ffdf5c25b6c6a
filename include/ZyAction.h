// SPDX-License-Identifier: BSD-3-Clause
// Something that can be done and undone.
#pragma once

#include <ZyExport.h>
#include <ZyPrivateObject.h>

class ZyString;

/**
 * A command of a document: it can be done and undone, and has a description for a menu. Hosts derive their
 * own ones from it; ZyUndoManager keeps a history of them.
 *
 * \code
 * class Rename : public ZyAction
 * {
 * public:
 *     Rename(Part & part, ZyString const & name) : ZyAction("Rename part"), m_part(part), m_other(name) {}
 *     void performAction() override { m_part.swapName(m_other); }
 *     void performUndo() override { m_part.swapName(m_other); }
 *     ...
 * };
 * \endcode
 *
 * An action has an identity and is not copied; it travels in a smart pointer.
 *
 * \threads the thread of the document that it changes
 */
class ZYCORE_EXPORT ZyAction
{
public:
    /** The description is empty. */
    ZyAction();
    /** \a description is what a menu shows. */
    explicit ZyAction(ZyString const & description);
    ZyAction(ZyAction const &) = delete;
    ZyAction & operator=(ZyAction const &) = delete;
    virtual ~ZyAction();

    /** Does it, for the first time or again. */
    virtual void performAction() = 0;
    /** Brings back the state before performAction(). */
    virtual void performUndo() = 0;

    /** What a menu shows. */
    ZyString const & description() const;
    /**
     * Sets what a menu shows.
     *
     * \deliberate{action-describes-itself-while-const} Also through a constant reference: a description is no part of what
     * the action does, and menus that translate it have no more than such a reference.
     */
    void setDescription(ZyString const & description) const;

private:
    class ZYCORE_PRIVATE Private;

    Private & d() const { return *m_d; }

    ZyPrivatePtr<Private> m_d;
};
