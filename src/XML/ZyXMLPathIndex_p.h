// SPDX-License-Identifier: BSD-3-Clause
// Paths as a tree of names: what belongs to an element is found by one look-up of its name from where its
// parent stands, and a part of a document in which nothing can be found is known by its root.
#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

/**
 * Pointers to values of type T, borrowed, by the texts of paths. Two texts are one path when their bytes are
 * equal, as ZyXMLPath compares them. Nodes stay where they are while others are added.
 */
template <class T>
class ZyXMLPathIndex
{
public:
    /** A path, or the beginning of one. */
    struct Node
    {
        std::string name;    ///< the last name of the path
        T * value = nullptr; ///< null where a path only passes through
        std::unordered_map<std::string_view, Node *> children;

        /** The node one level down, or null: then nothing is found anywhere below that name. */
        Node * child(std::string_view childName) const
        {
            auto const found = children.find(childName);
            return found == children.end() ? nullptr : found->second;
        }
    };

    ZyXMLPathIndex() : m_nodes(1) {}
    ZyXMLPathIndex(ZyXMLPathIndex const &) = delete;
    ZyXMLPathIndex & operator=(ZyXMLPathIndex const &) = delete;

    /** Where documents begin: the parent of all root elements. */
    Node const & top() const { return m_nodes.front(); }
    /** The value of a path, or null. */
    T * find(std::string_view path) const
    {
        Node const * node = &m_nodes.front();
        forEachName(path, [&](std::string_view name) { return (node = node->child(name)) != nullptr; });
        return node ? node->value : nullptr;
    }
    /** The node of a path, made when it is not there. */
    Node & node(std::string_view path)
    {
        Node * node = &m_nodes.front();
        forEachName(path, [&](std::string_view name) { return (node = &childOf(*node, name)) != nullptr; });
        return *node;
    }

private:
    /** Calls visit(name) for each part between slashes while it gives true. */
    template <class F>
    static void forEachName(std::string_view path, F const & visit)
    {
        std::size_t begin = 0;
        for (bool more = true; more;) {
            std::size_t const end = path.find('/', begin);
            more = visit(path.substr(begin, end - begin)) && end != std::string_view::npos;
            begin = end + 1;
        }
    }
    Node & childOf(Node & parent, std::string_view name)
    {
        if (Node * const there = parent.child(name)) {
            return *there;
        }
        Node & made = m_nodes.emplace_back();
        made.name = name;
        parent.children.emplace(made.name, &made);
        return made;
    }

    std::deque<Node> m_nodes;
};
