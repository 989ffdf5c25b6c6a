// SPDX-License-Identifier: BSD-3-Clause
// The walk over the elements of a stream that the loader and the factory share: element first, then its
// children, then the element again. It keeps its own stack, so that a document may nest as deep as it likes.
#pragma once

#include <ZyException.h>
#include <ZyString.h>
#include <ZyXMLStreamElementReader.h>
#include <ZyXMLStreamReader.h>

#include "Core/ZyString_p.h"
#include "XML/ZyXMLPathIndex_p.h"
#include "XML/ZyXMLStreamReader_p.h"

#include <QStringRef>
#include <QXmlStreamReader>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
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

/** The local name of a tag as UTF-8, mostly without a string of its own. */
class TagName
{
public:
    explicit TagName(QStringRef const & name)
    {
        std::size_t const size = static_cast<std::size_t>(name.size());
        if (size > sizeof(m_ascii) || !copyAscii(name.data(), size)) {
            m_other = ZyString(name).toStdString();
            m_view = m_other;
        }
    }
    TagName(TagName const &) = delete;
    TagName & operator=(TagName const &) = delete;

    std::string_view view() const { return m_view; }

private:
    bool copyAscii(QChar const * characters, std::size_t size)
    {
        for (std::size_t i = 0; i < size; ++i) {
            ushort const unit = characters[i].unicode();
            if (unit > 127) {
                return false;
            }
            m_ascii[i] = static_cast<char>(unit);
        }
        m_view = std::string_view(m_ascii, size);
        return true;
    }

    char m_ascii[64];
    std::string_view m_view;
    std::string m_other;
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

    /** Walks \a root and what is in it. */
    Walk(Visitor & visitor, Index const & index, std::shared_ptr<ZyXMLStreamElementReader> const & root)
        : m_visitor(visitor), m_reader(ZyXMLStreamAccess::reader(*root)),
          m_stream(ZyXMLStreamAccess::of(m_reader))
    {
        enter(root, index.top());
    }

    void run()
    {
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
    using Element = std::shared_ptr<ZyXMLStreamElementReader>;
    using Node = typename Index::Node;

    void enter(Element const & element, Node const & parent)
    {
        m_frames.push_back({element, parent.child(ZyTextAccess::view(element->name()))});
    }
    void step(Frame<Visitor> & frame)
    {
        switch (frame.phase) {
        case Phase::Start:
            m_visitor.start(frame);
            break;
        case Phase::Children:
        case Phase::Refused:
            stepChildren(frame);
            break;
        case Phase::Finish:
            m_visitor.finish(frame);
            frame.phase = Phase::Done;
            break;
        case Phase::Done:
            m_frames.pop_back();
        }
    }
    /** Enters the next child in which something can be found, or goes on to the next phase. */
    void stepChildren(Frame<Visitor> & frame)
    {
        if (!frame.begun) {
            begin(frame);
        } else if (ZyXMLStreamAccess::isActive(*frame.element)) {
            if (!enterKnown(frame)) {
                end(frame);
            }
        } else if (Element const child = frame.element->nextChild()) {
            enterAny(frame, child); // behind another child that was left half read
        } else {
            end(frame);
        }
    }
    void begin(Frame<Visitor> & frame)
    {
        frame.begun = true;
        ZyXMLStreamAccess::Element & state = ZyXMLStreamAccess::of(*frame.element);
        if (state.children) { // somebody has asked for them, and may have begun as well
            if (auto const first = *state.children->begin()) {
                enterAny(frame, std::static_pointer_cast<ZyXMLStreamElementReader>(first));
            } else {
                end(frame);
            }
        } else if (ZyXMLStreamAccess::isOpen(*frame.element)) {
            state.walked = true;
        } else if (!m_visitor.absorbs(frame, Signal::NullElement)) { // so <v></v> costs no exception
            throw ZyNullXMLStreamElementException();
        }
    }
    void end(Frame<Visitor> & frame)
    {
        frame.phase = frame.phase == Phase::Children ? Phase::Finish : Phase::Done;
    }
    void enterAny(Frame<Visitor> & frame, Element const & child)
    {
        static Node const nothing;
        enter(child, frame.node ? *frame.node : nothing);
    }
    /**
     * Enters the next child of the active element that a path of the index leads to or through. The others
     * are read over without an element of ours. At the end, or where the document is damaged, the element is
     * closed. \return false: there is none
     */
    bool enterKnown(Frame<Visitor> & frame)
    {
        Node const * const node = frame.node;
        if (!node || node->children.empty()) {
            skip();
        } else {
            while (m_stream.xml.readNextStartElement()) {
                if (Node const * const found = node->child(TagName(m_stream.xml.name()).view())) {
                    Element const & child = m_stream.push(m_reader);
                    m_frames.push_back({child, found});
                    return true;
                }
                skip();
            }
            m_stream.bridge->check();
        }
        m_stream.pop();
        return false;
    }
    /** Reads to the end tag of the tag that the parser is in. An error ends one level after the other. */
    void skip()
    {
        for (std::size_t depth = 1; depth > 0;) {
            switch (m_stream.xml.readNext()) {
            case QXmlStreamReader::StartElement:
                ++depth;
                break;
            case QXmlStreamReader::Invalid:
                m_stream.bridge->check();
                --depth;
                break;
            case QXmlStreamReader::EndElement:
                --depth;
                break;
            default:
                break;
            }
        }
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
    ZyXMLStreamReader & m_reader;
    ZyXMLStreamAccess::Stream & m_stream;
    std::vector<Frame<Visitor>> m_frames;
};

} // namespace ZyXMLWalk
