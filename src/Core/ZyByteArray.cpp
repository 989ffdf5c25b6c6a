// SPDX-License-Identifier: BSD-3-Clause
// A plain buffer of bytes.
#include <ZyByteArray.h>

#include <ZyException.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

class ZyByteArray::Private : public ZyPrivateObject
{
public:
    explicit Private(int size) : length(std::max(size, 0)), bytes(allocated(length)) {}
    Private(int size, char const * data) : Private(size)
    {
        if (data && length > 0) {
            std::memcpy(bytes, data, static_cast<std::size_t>(length));
        }
    }
    Private(Private const &) = delete;
    Private & operator=(Private const &) = delete;
    ~Private() override { std::free(bytes); }

    void swap(Private & other)
    {
        std::swap(length, other.length);
        std::swap(bytes, other.bytes);
    }
    std::size_t checked(int index) const
    {
        if (index < 0 || index >= length) {
            throw ZyIndexOutOfBoundsException(index, length);
        }
        return static_cast<std::size_t>(index);
    }

    int length;
    char * bytes; // from malloc, one more than the length, the last one NUL

private:
    static char * allocated(int length)
    {
        std::size_t const size = static_cast<std::size_t>(length);
        char * const bytes = static_cast<char *>(std::malloc(size + 1));
        if (!bytes) {
            throw std::bad_alloc();
        }
        bytes[size] = '\0';
        return bytes;
    }
};

ZyByteArray::ZyByteArray() : ZyByteArray(0) {}

ZyByteArray::ZyByteArray(int length) : m_d(new Private(length)) {}

ZyByteArray::ZyByteArray(int length, char const * data) : m_d(new Private(length, data)) {}

ZyByteArray::ZyByteArray(ZyByteArray const & other) : m_d(new Private(other.length(), other.data())) {}

ZyByteArray::~ZyByteArray() = default;

ZyByteArray & ZyByteArray::operator=(ZyByteArray const & other)
{
    Private copy(other.length(), other.data());
    d()->swap(copy);
    return *this;
}

char & ZyByteArray::operator[](int index)
{
    return d()->bytes[d()->checked(index)];
}

char ZyByteArray::operator[](int index) const
{
    return d()->bytes[d()->checked(index)];
}

char const * ZyByteArray::data() const
{
    return d()->bytes;
}

int ZyByteArray::length() const
{
    return d()->length;
}

void ZyByteArray::resize(int length)
{
    Private fresh(length);
    d()->swap(fresh);
}
