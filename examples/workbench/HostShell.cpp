// SPDX-License-Identifier: BSD-3-Clause
// A small interpreter: a word, and behind it an argument.

#include "HostShell.h"

#include <TandobleException.h>
#include <keelbase/KbHost.h>
#include <keelbase/KbShell.h>

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <string>
#include <utility>

namespace
{

constexpr char const * slotName = "widgets_GetShellInterface";

thread_local unsigned int asked = 0;

/** Lets the output of commands arrive where everything else is printed. */
class LogHandler : public MessageHandler
{
public:
    explicit LogHandler(std::shared_ptr<CommandRelay> relay) : m_relay(std::move(relay)) {}
    void message(YString const & text) override { Q_EMIT m_relay->printed(QString::fromUtf8(text.c_str())); }

private:
    std::shared_ptr<CommandRelay> m_relay;
};

// What a host tells a library that has sent a command: the library prints it.
[[noreturn]] void fail(std::string const & reason)
{
    TandobleException failure;
    std::snprintf(failure.message, sizeof failure.message, "%s", reason.c_str());
    throw TandobleException(failure);
}

// A true fault of the processor, to be seen and survived.
int volatile * volatile nowhere = nullptr;

[[noreturn]] void fault()
{
    *nowhere = 1;
    fail("the fault did not happen");
}

bool isWrapped(std::string const & text, std::string const & begin, std::string const & end)
{
    return text.size() >= begin.size() + end.size() && text.compare(0, begin.size(), begin) == 0 &&
           text.compare(text.size() - end.size(), end.size(), end) == 0;
}

// Of {'it''s here'} the path it's here, of "here" the path here.
std::string pathIn(std::string const & argument)
{
    if (isWrapped(argument, "\"", "\"")) {
        return argument.substr(1, argument.size() - 2);
    }
    if (!isWrapped(argument, "{'", "'}")) {
        return argument;
    }
    std::string path = argument.substr(2, argument.size() - 4);
    for (std::size_t at = path.find("''"); at != std::string::npos; at = path.find("''", at + 1)) {
        path.erase(at, 1);
    }
    return path;
}

// What the library sends for the kinds of file that it hands to hosts, and what users type.
bool isOpen(std::string const & name)
{
    static std::string const names[] = {"open",
                                        "WebOpen",
                                        "OpenGraph",
                                        "OpenNetlist",
                                        "OpenScript",
                                        "OpenBasicTextEditor",
                                        "OpenVerilogA",
                                        "OpenVerilogHDL",
                                        "open_schem",
                                        "open_symbol_lib_in_editor",
                                        "OpenVisualScript"};
    return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

/** The interpreter lives on: a thread may be in the middle of a command when the window goes. */
class Interpreter final : public ShellInterface
{
public:
    static Interpreter & Get()
    {
        static Interpreter interpreter;
        return interpreter;
    }

    void setRelay(std::shared_ptr<CommandRelay> const & relay) { std::atomic_store(&m_relay, relay); }

    int execute(char const * command, void * context, CommandOptions & options) override;
    void currentHandler(MessageHandlerRef & holder) override
    {
        holder = std::make_shared<LogHandler>(relay());
    }

private:
    std::shared_ptr<CommandRelay> relay() const
    {
        std::shared_ptr<CommandRelay> relay = std::atomic_load(&m_relay);
        if (!relay) {
            fail("The window has been closed");
        }
        return relay;
    }
    void open(std::string const & argument) const;

    std::shared_ptr<CommandRelay> m_relay;
};

int Interpreter::execute(char const * command, void *, CommandOptions & options)
{
    std::string const text = command;
    std::size_t const blank = text.find(' ');
    std::string const name = text.substr(0, blank);
    std::string const argument = blank == std::string::npos ? std::string() : text.substr(blank + 1);
    if (isOpen(name)) {
        open(argument);
    } else if (name == "print") {
        options.handler->message(YString((argument + "\n").c_str()));
    } else if (name == "fault") {
        fault();
    } else {
        fail("Unknown command: " + text);
    }
    return 0;
}

void Interpreter::open(std::string const & argument) const
{
    std::string const path = pathIn(argument);
    if (path.empty()) {
        fail("open: which file?");
    }
    ++asked;
    Q_EMIT relay()->openRequested(QString::fromStdString(path));
}

ShellInterface * shell()
{
    return &Interpreter::Get();
}

} // namespace

HostShell::HostShell(QObject * parent) : QObject(parent), m_relay(std::make_shared<CommandRelay>())
{
    connect(m_relay.get(), &CommandRelay::printed, this, &HostShell::printed, Qt::QueuedConnection);
    connect(m_relay.get(), &CommandRelay::openRequested, this, &HostShell::openRequested,
            Qt::QueuedConnection);
    Interpreter::Get().setRelay(m_relay);
    kb::SetOutput([relay = m_relay](char const *, char const * text, std::size_t size) {
        Q_EMIT relay->printed(QString::fromUtf8(text, int(size)));
    });
    kb::OfferFunction(slotName, reinterpret_cast<kb::Function>(&shell));
}

HostShell::~HostShell()
{
    kb::WithdrawFunction(slotName);
    kb::SetOutput({});
    Interpreter::Get().setRelay(nullptr);
}

unsigned int HostShell::FilesAskedFor()
{
    return asked;
}
