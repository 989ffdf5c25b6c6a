// SPDX-License-Identifier: BSD-3-Clause
// Something that can be done and undone.
#include <ZyAction.h>

#include <ZyString.h>

class ZyAction::Private : public ZyPrivateObject
{
public:
    explicit Private(ZyString const & text) : description(text) {}

    ZyString description;
};

ZyAction::ZyAction() : ZyAction(ZyString()) {}

ZyAction::ZyAction(ZyString const & description) : m_d(new Private(description)) {}

ZyAction::~ZyAction() = default;

ZyString const & ZyAction::description() const
{
    return d().description;
}

void ZyAction::setDescription(ZyString const & description) const
{
    d().description = description;
}
