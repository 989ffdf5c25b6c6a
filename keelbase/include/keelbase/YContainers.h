// SPDX-License-Identifier: BSD-3-Clause
// The containers of the support library: a vector that grows by being written to, a list, and a hash table
// with an order of its own.
#pragma once

#include <cstddef>
#include <deque>
#include <initializer_list>
#include <list>
#include <stdexcept>
#include <utility>
#include <vector>

/**
 * A vector whose writing access makes what is missing.
 *
 * \threads as the standard vector: concurrent reads only
 */
template <class T>
class YVector
{
public:
    using value_type = T;
    using iterator = typename std::vector<T>::iterator;
    using const_iterator = typename std::vector<T>::const_iterator;

    YVector() = default;
    YVector(std::initializer_list<T> items) : m_items(items) {}

    int size() const { return static_cast<int>(m_items.size()); }
    bool isEmpty() const { return m_items.empty(); }

    /** Appends an entry. */
    void add(T item) { m_items.push_back(std::move(item)); }
    void clear() { m_items.clear(); }

    /**
     * The entry at a zero-based index. Beyond the end, default entries are appended up to the index: on a
     * vector that is not const, even reading makes it longer.
     *
     * \throws std::out_of_range the index is negative
     */
    T & operator[](int index)
    {
        if (index < 0) {
            throw std::out_of_range("YVector: negative index");
        }
        auto const position = static_cast<std::size_t>(index);
        if (position >= m_items.size()) {
            m_items.resize(position + 1);
        }
        return m_items[position];
    }

    /** The entry at a zero-based index; beyond the end, and for a negative one, a default entry that all
     * such readings share. */
    T const & operator[](int index) const
    {
        static T const missing = T();
        return index >= 0 && index < size() ? m_items[static_cast<std::size_t>(index)] : missing;
    }

    iterator begin() { return m_items.begin(); }
    const_iterator begin() const { return m_items.begin(); }
    iterator end() { return m_items.end(); }
    const_iterator end() const { return m_items.end(); }

private:
    std::vector<T> m_items;
};

/** Another name of the vector. */
template <class T>
using YArray = YVector<T>;

/**
 * A list in the order of adding.
 *
 * \threads as the standard list: concurrent reads only
 */
template <class T>
class YList
{
public:
    using value_type = T;
    using iterator = typename std::list<T>::iterator;
    using const_iterator = typename std::list<T>::const_iterator;

    int size() const { return static_cast<int>(m_items.size()); }
    bool isEmpty() const { return m_items.empty(); }

    /** Appends an entry. */
    void add(T item) { m_items.push_back(std::move(item)); }
    void clear() { m_items.clear(); }

    iterator begin() { return m_items.begin(); }
    const_iterator begin() const { return m_items.begin(); }
    iterator end() { return m_items.end(); }
    const_iterator end() const { return m_items.end(); }

private:
    std::list<T> m_items;
};

/**
 * A hash table with integer keys, whose walk goes bucket by bucket. The order of the walk is part of its
 * contract, as files are written in it:
 *
 * - the bucket is the key, taken as unsigned, modulo the number of buckets, which is 101 at the start;
 * - a new entry goes to the head of its bucket's chain;
 * - an entry that would be the one after two a bucket first makes the table grow from n to 2n + 1 buckets;
 *   the old entries go there in the order of the walk, each to the tail of its new chain.
 *
 * Entries keep their address until the table is cleared, assigned to or destroyed. A moved-from table is
 * empty.
 *
 * \threads as the standard containers: concurrent reads only
 */
template <class T>
class YHashTable
{
public:
    YHashTable() = default;
    /** Copies with the order inside the chains. */
    YHashTable(YHashTable const & other) : m_buckets(other.m_buckets.size())
    {
        for (std::size_t bucket = 0; bucket < m_buckets.size(); ++bucket) {
            Node ** tail = &m_buckets[bucket];
            for (Node const * node = other.m_buckets[bucket]; node; node = node->next) {
                *tail = &m_nodes.emplace_back(node->key, node->value);
                tail = &(*tail)->next;
            }
        }
    }
    YHashTable(YHashTable && other) : YHashTable() { swap(other); }
    YHashTable & operator=(YHashTable other)
    {
        swap(other);
        return *this;
    }
    ~YHashTable() = default;

    int size() const { return static_cast<int>(m_nodes.size()); }
    bool isEmpty() const { return m_nodes.empty(); }

    /** The value of a key; null when there is none. */
    T * find(int key)
    {
        Node * const node = nodeOf(key);
        return node ? &node->value : nullptr;
    }
    T const * find(int key) const
    {
        Node const * const node = nodeOf(key);
        return node ? &node->value : nullptr;
    }

    /** Replaces the value of a key, or makes a new entry; gives the value in the table. */
    T & add(int key, T value)
    {
        if (Node * const node = nodeOf(key)) {
            node->value = std::move(value);
            return node->value;
        }
        if (m_nodes.size() == 2 * m_buckets.size()) {
            grow();
        }
        Node & node = m_nodes.emplace_back(key, std::move(value));
        Node *& head = m_buckets[bucketOf(key, m_buckets.size())];
        node.next = head;
        head = &node;
        return node.value;
    }

    /** Takes all entries out and goes back to the first number of buckets. */
    void clear() { *this = YHashTable(); }

    /** Calls visit(key, value) for every entry, in the order of the walk. It may not add entries. */
    template <class Visit>
    void forEach(Visit && visit)
    {
        for (Node * head : m_buckets) {
            for (Node * node = head; node; node = node->next) {
                visit(node->key, node->value);
            }
        }
    }
    template <class Visit>
    void forEach(Visit && visit) const
    {
        for (Node const * head : m_buckets) {
            for (Node const * node = head; node; node = node->next) {
                visit(node->key, node->value);
            }
        }
    }

private:
    struct Node
    {
        Node(int k, T v) : key(k), value(std::move(v)) {}

        int key;
        T value;
        Node * next = nullptr;
    };

    static std::size_t bucketOf(int key, std::size_t buckets) { return static_cast<unsigned>(key) % buckets; }

    Node * nodeOf(int key) const
    {
        Node * node = m_buckets[bucketOf(key, m_buckets.size())];
        while (node && node->key != key) {
            node = node->next;
        }
        return node;
    }

    void grow()
    {
        std::vector<Node *> heads(2 * m_buckets.size() + 1);
        std::vector<Node *> tails(heads.size());
        for (Node * node : m_buckets) {
            while (node) {
                Node * const next = node->next;
                std::size_t const bucket = bucketOf(node->key, heads.size());
                (tails[bucket] ? tails[bucket]->next : heads[bucket]) = node;
                tails[bucket] = node;
                node->next = nullptr;
                node = next;
            }
        }
        m_buckets.swap(heads);
    }

    void swap(YHashTable & other)
    {
        m_nodes.swap(other.m_nodes);
        m_buckets.swap(other.m_buckets);
    }

    std::deque<Node> m_nodes; // in the order of adding; nothing is ever taken out of the middle
    std::vector<Node *> m_buckets = std::vector<Node *>(101);
};
