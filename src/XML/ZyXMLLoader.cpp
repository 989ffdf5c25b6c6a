// SPDX-License-Identifier: BSD-3-Clause
// Keeping rules, finding them, and walking a document with them.
#include <ZyXMLLoader.h>

#include <ZyDeque.h>
#include <ZyException.h>
#include <ZyXMLStreamElementReader.h>
#include <ZyXMLStreamReader.h>

#include "XML/ZyXMLPathIndex_p.h"
#include "XML/ZyXMLWalk_p.h"

#include "Core/ZyString_p.h"

#include <memory>
#include <utility>

class ZyXMLLoader::Private : public ZyPrivateObject
{
public:
    ZyDeque<ZySharedPtr<ZyXMLRule>> rules; ///< in the order in which they were added
    ZyWeakPtr<ZyXMLLoader> self;           ///< what the rules are given
    ZyXMLPathIndex<ZyXMLRule> index;       ///< the same rules by their paths
};

namespace
{
/** What the loader does at each element. */
struct RuleVisitor
{
    using Value = ZyXMLRule;
    using State = ZyXMLRule *; ///< the rule of the element, or null
    using Frame = ZyXMLWalk::Frame<RuleVisitor>;

    void start(Frame & frame)
    {
        frame.state = frame.node ? frame.node->value : nullptr;
        if (frame.state) {
            frame.state->onStart(*frame.element);
        }
        frame.phase = ZyXMLWalk::Phase::Children;
    }
    void finish(Frame & frame)
    {
        if (frame.state) {
            frame.state->onFinish();
        }
    }
    bool absorbs(Frame & frame, ZyXMLWalk::Signal signal)
    {
        if (!frame.state || frame.phase != ZyXMLWalk::Phase::Children ||
            signal == ZyXMLWalk::Signal::UnknownElement) {
            return false;
        }
        frame.phase = ZyXMLWalk::Phase::Finish;
        return true;
    }
};
} // namespace

ZyXMLLoader::ZyXMLLoader() : m_d(new Private) {}

ZyXMLLoader::~ZyXMLLoader() = default;

ZySharedPtr<ZyXMLLoader> ZyXMLLoader::Create()
{
    ZySharedPtr<ZyXMLLoader> loader(new ZyXMLLoader);
    loader->d()->self = loader;
    return loader;
}

void ZyXMLLoader::add(ZyUniquePtr<ZyXMLRule> rule)
{
    ZyXMLRule & added = *rule;
    auto & node = d()->index.node(ZyTextAccess::view(added.path().toString()));
    if (node.value) {
        throw ZyXMLDuplicateRuleException(added.path());
    }
    added.setLoader(d()->self);
    d()->rules.add(ZySharedPtr<ZyXMLRule>(std::move(rule)));
    node.value = &added;
    added.onAdded(); // last: it may add child rules
}

void ZyXMLLoader::load(ZyXMLStreamReader & reader)
{
    ZySharedPtr<ZyXMLLoader> const alive = d()->self.lock(); // also when a rule lets go of the loader
    std::shared_ptr<ZyXMLStreamElementReader> const root =
        reader.tokenType() == ZyXMLStreamReader::StartElement ? reader.currentElement()
                                                              : reader.nextElement();
    if (!root) {
        throw ZyXMLException("Reader failed to load content");
    }
    RuleVisitor visitor;
    ZyXMLWalk::Walk<RuleVisitor>(visitor, d()->index, root).run();
}
