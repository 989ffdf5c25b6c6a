// SPDX-License-Identifier: BSD-3-Clause
// Strings, views and values, for the guide.

#include <ZyCore.h>

#include <iostream>

int main()
{
    ZyString const line("Gain ; 12 ; dB");
    std::cout << std::boolalpha << (line == "GAIN ; 12 ; DB") << ' '
              << line.equal("GAIN ; 12 ; DB", ZyComparableString::CaseSensitive) << '\n';

    // Tokens are views: they point into the line and cost no copy.
    for (ZyStringView const & token : line.tokenize(";")) {
        ZyString const text = token.toString().trim();
        ZyVariant const value = text.isInteger() ? ZyVariant(text.toInt()) : ZyVariant(text);
        std::cout << ZyVariant::TypeString(value.type()) << ' ' << value.toString().c_str() << '\n';
    }

    // A value is read as what it is; every failure is an exception with a stated text.
    try {
        ZyVariant(12).asString();
    } catch (ZyException const & problem) {
        std::cout << problem.name() << ": " << problem.what() << '\n';
    }
}
