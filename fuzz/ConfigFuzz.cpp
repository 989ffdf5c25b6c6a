// SPDX-License-Identifier: BSD-3-Clause
// The text of the configuration: what is read from any text is the same after it was written, and a setting
// that is added to it comes back. The input is the text; what is added is its first two lines.
#include "KbConfigText_p.h"

#include "Fuzz.h"

#include <string>

namespace
{
/** All settings, of which each can be found by its names. */
std::string settingsOf(KbConfigText const & text)
{
    std::string result;
    for (KbConfigText::Section const & section : text.sections()) {
        result += section.isNamed ? '\n' + section.name + '\n' : std::string();
        for (KbConfigText::Line const & line : section.lines) {
            if (line.isSetting) {
                std::string const * const found = text.value(section.name, line.key);
                Fuzz::require(found && *found == line.value, "a setting is found by its names");
                result += line.key + '\0' + line.value + '\0';
            }
        }
    }
    return result;
}

/** What a caller can give: C text. */
std::string lineOf(std::string const & input, std::size_t from)
{
    return input.substr(std::min(from, input.size())).c_str();
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    std::string const input(reinterpret_cast<char const *>(data), size);
    KbConfigText text(input);
    std::string const written = text.text();
    KbConfigText const again(written);
    Fuzz::require(again.text() == written, "what was written is its own form");
    Fuzz::require(settingsOf(again) == settingsOf(text), "the same settings");

    std::string const name = lineOf(input, 0);
    std::string const value = lineOf(input, name.size() + 1);
    text.set(name, value, name);
    text.set(value, name, value);
    KbConfigText const added(text.text());
    Fuzz::require(added.value(value, name) && *added.value(value, name) == value, "what was set last");
    Fuzz::require(settingsOf(added) == settingsOf(text), "the same settings with the added ones");
    return 0;
}
