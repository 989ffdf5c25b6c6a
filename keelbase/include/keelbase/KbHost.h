// SPDX-License-Identifier: BSD-3-Clause
// The side of the support library that hosts and tests see. The foundation library itself does not include
// it.
#pragma once

#include <keelbase/KbExport.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

class ShellInterface;

namespace kb
{

/**
 * Chooses where sp_GetTempFile() puts its paths, for the whole process.
 *
 * \param path UTF-8, with or without a final slash; null or empty: the system's temporary directory again,
 * which is what TMPDIR names, or "/tmp" when that is no directory \threads any
 */
KB_API void SetTempDirectory(char const * path);

/**
 * Replaces what sp_GetGUID() gives, for the whole process.
 *
 * \param source called for every identifier, without a lock; empty: unique identifiers again
 * \threads any
 */
KB_API void SetGuidSource(std::function<std::string()> source);

/**
 * Replaces what sp_StackAvail() gives, for the whole process.
 *
 * \param source called for every reading, without a lock; empty: the real readings again
 * \threads any
 */
KB_API void SetStackAvail(std::function<std::size_t()> source);

/** Keeps the configuration in memory, where it is at first. What was there before is there again. \threads
 * any */
KB_API void UseMemoryConfig();

/**
 * Keeps the configuration in a file, which need not exist yet. A directory for it is not made. Beside the
 * file lies another one with ".lock" at its end, which stays.
 *
 * \param path UTF-8, with slashes of either kind; a relative one counts from the directory of the moment;
 * null or empty: in memory \threads any; before others use the configuration
 */
KB_API void UseConfigFile(char const * path);

/** Removes all sections, and what else is in the file. \threads any */
KB_API void ClearConfig();

/** Makes a section without keys, unless it is there. \threads any */
KB_API void AddConfigSection(char const * section);

/** Something that a library has registered. */
struct Registration
{
    std::string name;    ///< as the library spells it
    std::string tag;     ///< the source that registers
    int line = 0;        ///< the line there
    bool filled = false; ///< whether the host has given it a value
};

/** The options that are registered now, in the order of their registration. \threads any */
KB_API std::vector<Registration> Options();

/** Gives an option its value, before or after it is registered. \threads any */
KB_API void SetOption(char const * name, bool value);

/** Takes all given values away again; the registrations stay. \threads any */
KB_API void ClearOptions();

/** A function of any type, to be cast to its own type before it is called. */
using Function = void (*)();

/**
 * Fills every slot of a name, present and future, with a function of the host.
 *
 * \param name compared exactly
 * \param function null: as WithdrawFunction() \threads any, but see RegisterDynFuncCall
 */
KB_API void OfferFunction(char const * name, Function function);

/** Puts the stubs back into all slots of a name. \threads any, but see RegisterDynFuncCall */
KB_API void WithdrawFunction(char const * name);

/** The function that is offered under a name now; null: none. \threads any */
KB_API Function OfferedFunction(char const * name);

/** The slots that are registered now, in the order of their registration. \threads any */
KB_API std::vector<Registration> Slots();

/**
 * Offers a command shell while it lives, and then what was offered before. They nest, and die in the opposite
 * order.
 *
 * \threads any; one at a time
 */
class KB_API ScopedShell
{
public:
    /** \param shell on loan; null: the host's function gives no shell */
    explicit ScopedShell(ShellInterface * shell);
    ScopedShell(ScopedShell const &) = delete;
    ScopedShell & operator=(ScopedShell const &) = delete;
    ~ScopedShell();

private:
    Function m_function;
    ShellInterface * m_shell;
};

/** Receives output: the format as the caller gave it, and the text that came of it with its size. */
using Sink = std::function<void(char const * format, char const * text, std::size_t size)>;

/**
 * Sends the output of zy_printf() elsewhere, for the whole process.
 *
 * \param sink called for each output, without a lock, from any thread; what it throws is dropped; empty: the
 * standard output again, which is flushed each time \threads any
 */
KB_API void SetOutput(Sink sink);

/**
 * Keeps the output of zy_printf() while it lives; then it goes where it went before. They nest, and die in
 * the opposite order.
 *
 * \threads any
 */
class KB_API OutputCapture
{
public:
    OutputCapture();
    OutputCapture(OutputCapture const &) = delete;
    OutputCapture & operator=(OutputCapture const &) = delete;
    ~OutputCapture();

    /** All text since the start or the last clear(). */
    std::string text() const;
    /** The formats as they were given, in their order. */
    std::vector<std::string> formats() const;
    void clear();

private:
    struct Kept;
    std::shared_ptr<Kept> m_kept;
    std::shared_ptr<Sink const> m_before;
};

/** How often sp_ResetFpu() has been called in this process. \threads any */
KB_API unsigned ResetFpuCount();

} // namespace kb

/** As kb::OfferFunction(), for hosts that find the support library at run time. */
extern "C" KB_API void kb_offer_function(char const * name, void (*function)());
