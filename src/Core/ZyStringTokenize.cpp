// SPDX-License-Identifier: BSD-3-Clause
// Splitting a string; apart from the rest because it needs the containers.
#include "Core/ZyCaseFold_p.h"
#include "Core/ZyString_p.h"

#include <ZyDeque.h>
#include <ZyException.h>
#include <ZyString.h>

#include <locale>
#include <string_view>

namespace
{
template <class Fold>
ZyDeque<ZyStringView> split(std::string_view text, std::string_view delimiter, Fold const & fold)
{
    ZyDeque<ZyStringView> tokens;
    std::size_t start = 0;
    for (std::size_t hit = 0; hit != std::string_view::npos;) {
        hit = ZyCaseFold::find(text, delimiter, start, fold);
        ZyTextAccess::set(tokens.std_deque().emplace_back(), text.substr(start, hit - start));
        start = hit + delimiter.size();
    }
    return tokens;
}
} // namespace

ZyDeque<ZyStringView> ZyString::tokenize(ZyString const & delimiter) const
{
    return tokenize(delimiter, CaseInsensitive);
}

ZyDeque<ZyStringView> ZyString::tokenize(ZyString const & delimiter, Comparison comparison) const
{
    if (delimiter.isEmpty()) {
        throw ZyInvalidParameterException("Delimiter is empty");
    }
    auto const work = [&](auto const & fold) { return split(d()->text, delimiter.d()->text, fold); };
    return comparison == CaseSensitive ? work(ZyCaseFold::None()) : ZyCaseFold::withFold(std::locale(), work);
}
