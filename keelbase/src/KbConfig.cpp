// SPDX-License-Identifier: BSD-3-Clause
// The configuration: where it lies, and the suite's three operations on it.
#include <keelbase/KbConfig.h>
#include <keelbase/KbHost.h>

#include "KbConfigFile_p.h"
#include "KbConfigText_p.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>

namespace fs = std::filesystem;

namespace
{

/** What was read last: asking for many keys in turn need not take the text apart each time. */
struct Snapshot
{
    explicit Snapshot(std::string && read) : content(std::move(read)), text(content) {}

    std::string content;
    KbConfigText text;
};

/** The choice of the host, and what is in memory. */
struct Store
{
    std::mutex mutex;
    fs::path file; ///< empty: in memory
    KbConfigText memory;
    std::shared_ptr<Snapshot const> latest;
};

Store & store()
{
    static Store theStore;
    return theStore;
}

char const * textOf(char const * text)
{
    return text ? text : "";
}

std::shared_ptr<Snapshot const> snapshotOf(std::string && content)
{
    Store & here = store();
    std::unique_lock<std::mutex> lock(here.mutex);
    if (here.latest && here.latest->content == content) {
        return here.latest;
    }
    lock.unlock();
    auto snapshot = std::make_shared<Snapshot const>(std::move(content));
    lock.lock();
    here.latest = snapshot;
    return snapshot;
}

/** Gives the configuration as it is to a function. \return what that says; false without a configuration */
template <class Look>
bool look(Look && at)
{
    Store & here = store();
    std::unique_lock<std::mutex> lock(here.mutex);
    if (here.file.empty()) {
        return at(here.memory);
    }
    fs::path const file = here.file;
    lock.unlock(); // the disk may be slow
    std::optional<std::string> content = KbConfigFile::read(file);
    return content && at(snapshotOf(std::move(*content))->text);
}

template <class Change>
bool changeFile(fs::path const & link, Change && change)
{
    fs::path const file = KbConfigFile::target(link);
    KbConfigFile::Lock const lock(file);
    std::optional<std::string> const content = lock.isHeld() ? KbConfigFile::read(file) : std::nullopt;
    if (!content) {
        return false; // to write now would lose what is there
    }
    KbConfigText text(*content);
    change(text);
    return KbConfigFile::replace(file, text.text());
}

/** Lets a function change the configuration; whether the change is kept. */
template <class Change>
bool changeStore(Change && change)
{
    Store & here = store();
    std::unique_lock<std::mutex> lock(here.mutex);
    if (here.file.empty()) {
        change(here.memory);
        return true;
    }
    fs::path const file = here.file;
    lock.unlock();
    return changeFile(file, change);
}

} // namespace

int cfgman_GetConfigSetting(char const * section, char const * key, YString * value, bool)
{
    bool const isThere = look([&](KbConfigText const & text) {
        std::string const * const found = text.value(textOf(section), textOf(key));
        if (found && value) {
            *value = YString(*found);
        }
        return found != nullptr;
    });
    return isThere ? 1 : 0;
}

int cfgman_WriteConfigSetting(char const * section, char const * key, char const * value)
{
    bool const isKept =
        changeStore([&](KbConfigText & text) { text.set(textOf(section), textOf(key), textOf(value)); });
    return isKept ? 1 : 0;
}

bool cfgman_GetConfigKeyNames(YString const & section, YList<YString> * names, bool)
{
    return look([&](KbConfigText const & text) {
        KbConfigText::Section const * const found = text.section(section.c_str());
        if (found && names) {
            names->clear();
            for (KbConfigText::Line const & line : found->lines) {
                if (line.isSetting) {
                    names->add(YString(line.key));
                }
            }
        }
        return found != nullptr;
    });
}

void kb::UseMemoryConfig()
{
    UseConfigFile(nullptr);
}

void kb::UseConfigFile(char const * path)
{
    std::string native = textOf(path);
#ifndef _WIN32
    std::replace(native.begin(), native.end(), '\\', '/');
#endif
    fs::path const file = native.empty() ? fs::path() : fs::absolute(fs::u8path(native));
    Store & here = store();
    std::lock_guard<std::mutex> const lock(here.mutex);
    here.file = file;
}

void kb::ClearConfig()
{
    changeStore([](KbConfigText & text) { text = KbConfigText(); });
}

void kb::AddConfigSection(char const * section)
{
    changeStore([&](KbConfigText & text) { text.addSection(textOf(section)); });
}
