// SPDX-License-Identifier: BSD-3-Clause
// The command shell of a host, as libraries below the host see it.
#pragma once

#include <keelbase/YString.h>

#include <memory>

/** Takes the output of a command. A host derives its own. */
class KB_API MessageHandler
{
public:
    MessageHandler() = default;
    MessageHandler(MessageHandler const &) = delete;
    MessageHandler & operator=(MessageHandler const &) = delete;
    virtual ~MessageHandler();

    /** One piece of output. */
    virtual void message(YString const & text) = 0;
};

/** Drops the output. */
class KB_API NullMessageHandler : public MessageHandler
{
public:
    /** Does nothing. */
    void message(YString const & text) override;
};

/** Holds a handler and shares its life; may be empty. */
using MessageHandlerRef = std::shared_ptr<MessageHandler>;

/** How a command is to be carried out. */
struct CommandOptions
{
    MessageHandlerRef handler; ///< takes the output; empty: the shell's own
    bool flag = false;         ///< what the caller of the command asks for; its meaning is the host's
    bool second = false;       ///< false from the libraries; its meaning is the host's
    bool third = false;        ///< true from the libraries; its meaning is the host's
    YString text1;             ///< empty from the libraries
    YString text2;             ///< empty from the libraries
    void * reserved[2] = {};   ///< null
};

/**
 * The command shell of a host. Modules that were built apart call it by the order of its functions: nothing
 * may come before or between them, and so it has no virtual destructor.
 */
class KB_API ShellInterface
{
public:
    /**
     * Carries a command out.
     *
     * \param command terminated; on loan
     * \param context null from the libraries
     * \return the host's; the libraries do not look at it
     */
    virtual int execute(char const * command, void * context, CommandOptions & options) = 0;
    /** Not called by the libraries. */
    virtual void reserved() {}
    /** Sets \a holder to the handler that is in force. */
    virtual void currentHandler(MessageHandlerRef & holder) = 0;

protected:
    ~ShellInterface() = default;
};

/** The function that a host offers under the name "widgets_GetShellInterface". Its shell lives on. */
using ShellFunction = ShellInterface * (*)();
