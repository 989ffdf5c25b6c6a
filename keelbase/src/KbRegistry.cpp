// SPDX-License-Identifier: BSD-3-Clause
// The options of the application: who has registered one, and what the host has given.
#include <keelbase/KbHost.h>
#include <keelbase/KbRegistry.h>
#include <keelbase/YString.h>

#include <algorithm>
#include <map>
#include <mutex>
#include <utility>
#include <vector>

namespace
{

struct WithoutCase
{
    bool operator()(YString const & a, YString const & b) const { return a.compareNoCase(b) < 0; }
};

struct OptionTable
{
    std::mutex mutex;
    std::vector<std::pair<MakeOption const *, kb::Registration>> registered;
    std::map<YString, bool, WithoutCase> given;
};

// Built by the first registrar, and so gone after the last one.
OptionTable & options()
{
    static OptionTable table;
    return table;
}

bool isRegistered(OptionTable const & table, char const * name)
{
    YString const wanted(name);
    return std::any_of(table.registered.begin(), table.registered.end(),
                       [&](auto const & option) { return wanted.compareNoCase(option.second.name) == 0; });
}

} // namespace

MakeOption::MakeOption(char const * name, char const * tag, int line)
{
    auto & table = options();
    std::lock_guard<std::mutex> const lock(table.mutex);
    table.registered.emplace_back(this, kb::Registration{name, tag, line, false});
}

MakeOption::~MakeOption()
{
    auto & table = options();
    std::lock_guard<std::mutex> const lock(table.mutex);
    auto & all = table.registered;
    all.erase(
        std::remove_if(all.begin(), all.end(), [this](auto const & option) { return option.first == this; }),
        all.end());
}

bool sp_GetBoolOption(char const * name, bool otherwise)
{
    auto & table = options();
    std::lock_guard<std::mutex> const lock(table.mutex);
    auto const given = table.given.find(name);
    if (given != table.given.end()) {
        return given->second;
    }
    return !isRegistered(table, name) && otherwise;
}

std::vector<kb::Registration> kb::Options()
{
    auto & table = options();
    std::lock_guard<std::mutex> const lock(table.mutex);
    std::vector<Registration> result;
    for (auto const & option : table.registered) {
        result.push_back(option.second);
        result.back().filled = table.given.count(option.second.name) != 0;
    }
    return result;
}

void kb::SetOption(char const * name, bool value)
{
    auto & table = options();
    std::lock_guard<std::mutex> const lock(table.mutex);
    table.given[name] = value;
}

void kb::ClearOptions()
{
    auto & table = options();
    std::lock_guard<std::mutex> const lock(table.mutex);
    table.given.clear();
}
