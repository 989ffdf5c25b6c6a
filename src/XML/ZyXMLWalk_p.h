// SPDX-License-Identifier: BSD-3-Clause
// The walk over the elements of a stream that the loader and the factory share: element first, then its
// children, then the element again. It keeps its own stack, so that a document may nest as deep as it likes.
#pragma once

#include <ZyException.h>
#include <ZyXMLStreamElementReader.h>
#include <ZyXMLStreamReader.h>

#include "XML/ZyXMLPathIndex_p.h"

#include "Core/ZyString_p.h"

#include <memory>
#include <utility>
#include <vector>

namespace ZyXMLWalk
{
/** Where the walk stands with one element. */
enum class Phase {
    Start,    ///< nothing has been done
    Children, ///< started; its children are being walked
    Finish,   ///< its children are done
    Refused,  ///< the visitor does not want it; its children are being walked all the same
    Done
};

/** The exceptions that may end a part of the walk instead of all of it. */
enum class Signal {
    InvalidUse,     ///< ZyInvalidUseException: the children have been walked already
    NullElement,    ///< ZyNullXMLStreamElementException: the element has been read through
    UnknownElement, ///< ZyUnknownXMLElementException: the element is refused
};

/** One open element. */
template <class Visitor>
struct Frame
{
    std::shared_ptr<ZyXMLStreamElementReader> element;
    typename ZyXMLPathIndex<typename Visitor::Value>::Node const * node; ///< null: nothing is found below
    typename Visitor::State state{};                                     ///< the visitor's own
    Phase phase = Phase::Start;
    bool begun = false; ///< the walk has asked for the first child
};

/**
 * Walks one element. A visitor has
 * - the types Value, of what the index holds, and State, of what it keeps for each open element;
 * - start(frame), which sets the phase to Children or Refused, and finish(frame);
 * - absorbs(frame, signal): whether the exception ends here, with the phase to go on with set.
 */
template <class Visitor>
class Walk
{
public:
    using Index = ZyXMLPathIndex<typename Visitor::Value>;

    Walk(Visitor & visitor, Index const & index) : m_visitor(visitor), m_index(index) {}

    void run(std::shared_ptr<ZyXMLStreamElementReader> const & root)
    {
        enter(root, &m_index.top());
        while (!m_frames.empty()) {
            try {
                while (!m_frames.empty()) {
                    step(m_frames.back());
                }
            } catch (ZyInvalidUseException const &) {
                recover(Signal::InvalidUse);
            } catch (ZyNullXMLStreamElementException const &) {
                recover(Signal::NullElement);
            } catch (ZyUnknownXMLElementException const &) {
                recover(Signal::UnknownElement);
            }
        }
    }

private:
    void enter(std::shared_ptr<ZyXMLStreamElementReader> element, typename Index::Node const * parent)
    {
        auto const * const node = parent ? parent->child(ZyTextAccess::view(element->name())) : nullptr;
        m_frames.push_back({std::move(element), node});
    }
    void step(Frame<Visitor> & frame)
    {
        switch (frame.phase) {
        case Phase::Start:
            m_visitor.start(frame);
            break;
        case Phase::Children:
        case Phase::Refused:
            if (std::shared_ptr<ZyXMLStreamElementReader> child = nextChild(frame)) {
                enter(std::move(child), frame.node);
            } else {
                frame.phase = frame.phase == Phase::Children ? Phase::Finish : Phase::Done;
            }
            break;
        case Phase::Finish:
            m_visitor.finish(frame);
            frame.phase = Phase::Done;
            break;
        case Phase::Done:
            m_frames.pop_back();
        }
    }
    std::shared_ptr<ZyXMLStreamElementReader> nextChild(Frame<Visitor> & frame)
    {
        if (!frame.begun) {
            frame.begun = true;
            return std::static_pointer_cast<ZyXMLStreamElementReader>(*frame.element->children().begin());
        }
        return frame.element->nextChild();
    }
    /** Called while the exception is handled: ends the elements that it passes, or lets it go on. */
    void recover(Signal signal)
    {
        for (; !m_frames.empty(); m_frames.pop_back()) {
            if (m_visitor.absorbs(m_frames.back(), signal)) {
                return;
            }
        }
        throw;
    }

    Visitor & m_visitor;
    Index const & m_index;
    std::vector<Frame<Visitor>> m_frames;
};

} // namespace ZyXMLWalk
