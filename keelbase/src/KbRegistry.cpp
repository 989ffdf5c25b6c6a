// SPDX-License-Identifier: BSD-3-Clause
// What libraries have registered, and what the host has given: options and functions.
#include <keelbase/KbHost.h>
#include <keelbase/KbRegistry.h>
#include <keelbase/YString.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <mutex>
#include <string>
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

/** A slot and what it held when it was registered. */
struct Slot
{
    RegisterDynFuncCall const * owner;
    void * place;
    kb::Function stub;
    kb::Registration registration;

    // Byte by byte: the slot has a type of its own.
    kb::Function content() const
    {
        kb::Function function = nullptr;
        std::memcpy(&function, place, sizeof function);
        return function;
    }
    void fill(kb::Function function) const { std::memcpy(place, &function, sizeof function); }
};

struct FunctionTable
{
    std::mutex mutex;
    std::vector<Slot> slots;
    std::map<std::string, kb::Function> offered;

    kb::Function find(std::string const & name) const
    {
        auto const found = offered.find(name);
        return found != offered.end() ? found->second : nullptr;
    }
};

FunctionTable & functions()
{
    static FunctionTable table;
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

RegisterDynFuncCall::RegisterDynFuncCall(void * slot, char const * name, char const * tag, int line)
{
    auto & table = functions();
    std::lock_guard<std::mutex> const lock(table.mutex);
    Slot made = {this, slot, nullptr, {name, tag, line, false}};
    made.stub = made.content();
    if (auto const offered = table.find(name)) {
        made.fill(offered);
    }
    table.slots.push_back(std::move(made));
}

RegisterDynFuncCall::~RegisterDynFuncCall()
{
    auto & table = functions();
    std::lock_guard<std::mutex> const lock(table.mutex);
    auto const own = std::find_if(table.slots.begin(), table.slots.end(),
                                  [this](Slot const & slot) { return slot.owner == this; });
    if (own != table.slots.end()) {
        own->fill(own->stub);
        table.slots.erase(own);
    }
}

void kb::OfferFunction(char const * name, Function function)
{
    auto & table = functions();
    std::lock_guard<std::mutex> const lock(table.mutex);
    if (function != nullptr) {
        table.offered[name] = function;
    } else {
        table.offered.erase(name);
    }
    for (Slot const & slot : table.slots) {
        if (slot.registration.name == name) {
            slot.fill(function != nullptr ? function : slot.stub);
        }
    }
}

void kb::WithdrawFunction(char const * name)
{
    OfferFunction(name, nullptr);
}

kb::Function kb::OfferedFunction(char const * name)
{
    auto & table = functions();
    std::lock_guard<std::mutex> const lock(table.mutex);
    return table.find(name);
}

std::vector<kb::Registration> kb::Slots()
{
    auto & table = functions();
    std::lock_guard<std::mutex> const lock(table.mutex);
    std::vector<Registration> result;
    for (Slot const & slot : table.slots) {
        result.push_back(slot.registration);
        result.back().filled = table.find(slot.registration.name) != nullptr;
    }
    return result;
}

void kb_offer_function(char const * name, void (*function)())
{
    kb::OfferFunction(name, function);
}
