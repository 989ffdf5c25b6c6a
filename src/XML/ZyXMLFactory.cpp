// SPDX-License-Identifier: BSD-3-Clause
// Keeping builders, and walking a document with them.
#include <ZyXMLFactory.h>

#include <ZyException.h>
#include <ZyFilePath.h>
#include <ZyThrow.h>
#include <ZyXMLStreamElementReader.h>
#include <ZyXMLStreamReader.h>

#include "XML/ZyXMLPathIndex_p.h"
#include "XML/ZyXMLWalk_p.h"

#include "Core/ZyString_p.h"

#include <map>
#include <memory>
#include <utility>

namespace
{
struct BuilderEntry
{
    ZyXMLFactory::Builder builder;
    ZyXMLFactory::PostConstruction postConstruction;
};

/** What the factory does at each element. */
struct BuilderVisitor
{
    using Value = BuilderEntry;
    using State = ZySharedPtr<ZyXMLSerializableObject>; ///< the object of the element
    using Frame = ZyXMLWalk::Frame<BuilderVisitor>;

    void start(Frame & frame)
    {
        if (BuilderEntry const * const entry = frame.node ? frame.node->value : nullptr) {
            frame.state = entry->builder(*frame.element);
            frame.phase = ZyXMLWalk::Phase::Children;
        } else {
            frame.phase = ZyXMLWalk::Phase::Refused;
        }
    }
    void finish(Frame & frame) { frame.node->value->postConstruction(frame.state); }
    bool absorbs(Frame & frame, ZyXMLWalk::Signal signal)
    {
        using ZyXMLWalk::Phase;
        bool const refused = frame.phase == Phase::Refused;
        switch (signal) {
        case ZyXMLWalk::Signal::UnknownElement:
            if (refused) {
                return false;
            }
            frame.state.reset();
            frame.phase = frame.begun ? Phase::Done : Phase::Refused; // children are walked once
            return true;
        case ZyXMLWalk::Signal::InvalidUse:
            if (refused) {
                frame.phase = Phase::Done;
                return true;
            }
            break;
        case ZyXMLWalk::Signal::NullElement:
            break;
        }
        if (frame.phase != Phase::Children) {
            return false;
        }
        frame.phase = Phase::Finish;
        return true;
    }
};
} // namespace

class ZyXMLFactory::Private : public ZyPrivateObject
{
public:
    std::map<ZyXMLPath, BuilderEntry> builders;
    ZyXMLPathIndex<BuilderEntry> index; ///< the same entries by the names of their paths
};

ZyXMLFactory::ZyXMLFactory() : m_d(new Private) {}

ZyXMLFactory::~ZyXMLFactory() = default;

void ZyXMLFactory::registerBuilder(ZyXMLPath const & path, Builder builder)
{
    registerBuilder(path, std::move(builder), [](ZySharedPtr<ZyXMLSerializableObject> const &) {});
}

void ZyXMLFactory::registerBuilder(ZyXMLPath const & path, Builder builder, PostConstruction postConstruction)
{
    auto & node = d()->index.node(ZyTextAccess::view(path.toString()));
    if (node.value) {
        throw ZyInvalidUseException("Builder for given path already exists: " + path.toString());
    }
    auto const added =
        d()->builders.emplace(path, BuilderEntry{std::move(builder), std::move(postConstruction)});
    node.value = &added.first->second;
}

void ZyXMLFactory::changePostConstruction(ZyXMLPath const & path, PostConstruction postConstruction)
{
    BuilderEntry * const entry = d()->index.find(ZyTextAccess::view(path.toString()));
    if (!entry) {
        throw ZyInvalidParameterException("No builder for the given path exists: " + path.toString());
    }
    entry->postConstruction = std::move(postConstruction);
}

void ZyXMLFactory::load(ZyXMLStreamReader & reader) const
{
    std::shared_ptr<ZyXMLStreamElementReader> const root =
        reader.tokenType() == ZyXMLStreamReader::StartElement ? reader.currentElement()
                                                              : reader.nextElement();
    if (!root) {
        ZyThrow::NullPointer(); // behind the end of a document that has been read already
    }
    BuilderVisitor visitor;
    ZyXMLWalk::Walk<BuilderVisitor>(visitor, d()->index, root).run();
}

void ZyXMLFactory::load(ZyFilePath const & file) const
{
    ZyXMLStreamReader reader(file);
    load(reader);
}

void ZyXMLFactory::load(ZyFilePath const & file, ZyFilePath const & schema) const
{
    ZyXMLStreamReader reader(file, schema);
    load(reader);
}
