// SPDX-License-Identifier: BSD-3-Clause
// Changing a string, and slices of it. Every edit builds its result in one pass.
#include "Core/ZyCaseFold_p.h"
#include "Core/ZyString_p.h"

#include <ZyString.h>

#include <locale>
#include <string>
#include <string_view>
#include <utility>

namespace
{
/** Replaces as the edit does; nothing is written when there is no occurrence. \return whether there was one
 */
template <class Fold>
bool replaceAll(std::string_view text, std::string_view from, std::string_view to, Fold const & fold,
                std::string & result)
{
    std::size_t hit = ZyCaseFold::find(text, from, 0, fold);
    if (hit == std::string_view::npos) {
        return false;
    }
    result.reserve(text.size());
    std::size_t done = 0;
    for (; hit != std::string_view::npos; hit = ZyCaseFold::find(text, from, done, fold)) {
        result.append(text, done, hit - done).append(to);
        done = hit + from.size();
    }
    result.append(text, done);
    return true;
}

} // namespace

ZyString & ZyString::replace(ZyString const & from, ZyString const & to, Comparison comparison)
{
    std::string & text = d()->text;
    std::string_view const wanted = from.d()->text;
    if (wanted.empty() || wanted.size() > text.size()) {
        return *this;
    }
    std::string result;
    auto const work = [&](auto const & fold) {
        return replaceAll(text, wanted, zyCText(to.c_str()), fold, result);
    };
    bool const changed =
        comparison == CaseSensitive ? work(ZyCaseFold::None()) : ZyCaseFold::withFold(std::locale(), work);
    if (changed) {
        text = std::move(result);
    }
    return *this;
}

ZyString ZyString::replaced(ZyString const & from, ZyString const & to, Comparison comparison) const
{
    ZyString copy(*this);
    copy.replace(from, to, comparison);
    return copy;
}

ZyString & ZyString::resize(unsigned int size, char fill)
{
    d()->text.resize(size, fill);
    return *this;
}

ZyString & ZyString::trim()
{
    std::string & text = d()->text;
    std::string_view const kept = ZyCaseFold::trimmed(text, d()->locale);
    if (kept.size() != text.size()) {
        text.erase(static_cast<std::size_t>(kept.data() - text.data()) + kept.size());
        text.erase(0, text.size() - kept.size());
    }
    return *this;
}

ZyStringView ZyString::trimmed() const
{
    return ZyTextAccess::slice(ZyCaseFold::trimmed(d()->text, d()->locale));
}

ZyString & ZyString::spaceCapitals()
{
    auto const & facet = std::use_facet<std::ctype<char>>(d()->locale);
    std::string const & text = d()->text;
    std::string spaced;
    spaced.reserve(text.size() + text.size() / 4);
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (i > 0 && facet.is(std::ctype_base::upper, text[i]) &&
            !facet.is(std::ctype_base::space, text[i - 1])) {
            spaced += ' ';
        }
        spaced += text[i];
    }
    d()->text = std::move(spaced);
    return *this;
}

ZyString ZyString::spacedCapitals() const
{
    ZyString copy(*this);
    copy.spaceCapitals();
    return copy;
}

ZyStringView ZyString::substring(unsigned int position) const
{
    return substring(position, size());
}

ZyStringView ZyString::substring(unsigned int position, unsigned int length) const
{
    return ZyStringView(*this, position, length);
}
