// SPDX-License-Identifier: BSD-3-Clause
// The typing rule of a CSV field and cells of several kinds, as a careful program would write them by hand.
#pragma once

#include <charconv>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace bench
{

/** A canonical decimal integer of 32 bits: no plus sign, no leading zeros. */
inline bool canonicalInteger(std::string_view text, int & value)
{
    std::string_view const digits = !text.empty() && text[0] == '-' ? text.substr(1) : text;
    if (digits.empty() || (digits[0] == '0' && text.size() > 1)) {
        return false;
    }
    auto const result = std::from_chars(text.data(), text.data() + text.size(), value);
    return result.ec == std::errc() && result.ptr == text.data() + text.size();
}

inline bool fullDouble(std::string_view text, double & value)
{
    auto const result = std::from_chars(text.data(), text.data() + text.size(), value);
    return !text.empty() && result.ec == std::errc() && result.ptr == text.data() + text.size();
}

using VariantCell = std::variant<int, double, std::string>;

/** A cell whose value lies behind one heap block with a virtual destructor, and its text behind a second one.
 */
class HeapCell
{
public:
    enum Type { Integer, Double, Text };

    explicit HeapCell(int value) : m_state(new State(value)), m_type(Integer) {}
    explicit HeapCell(double value) : m_state(new State(value)), m_type(Double) {}
    explicit HeapCell(std::string_view value) : m_state(new State(HeapText(value))), m_type(Text) {}
    HeapCell(HeapCell &&) noexcept = default;
    HeapCell & operator=(HeapCell &&) noexcept = default;
    virtual ~HeapCell() = default;

    Type type() const { return m_type; }
    int integer() const { return std::get<int>(m_state->value); }
    double real() const { return std::get<double>(m_state->value); }
    std::string const & text() const { return std::get<HeapText>(m_state->value).text(); }

private:
    struct TextState
    {
        std::string text;
        explicit TextState(std::string_view characters) : text(characters) {}
        virtual ~TextState() = default;
    };
    class HeapText
    {
    public:
        explicit HeapText(std::string_view characters) : m_text(new TextState(characters)) {}
        HeapText(HeapText &&) noexcept = default;
        HeapText & operator=(HeapText &&) noexcept = default;
        virtual ~HeapText() = default;
        std::string const & text() const { return m_text->text; }

    private:
        std::unique_ptr<TextState> m_text;
    };
    struct State
    {
        std::variant<int, double, HeapText> value;
        template <class T>
        explicit State(T && held) : value(std::forward<T>(held))
        {}
        virtual ~State() = default;
    };

    std::unique_ptr<State> m_state;
    Type m_type;
};

} // namespace bench
