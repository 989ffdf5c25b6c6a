// SPDX-License-Identifier: BSD-3-Clause
// Quoted in docs/guide-services.md.
#include <ZyCore.h>

#include <keelbase/KbHost.h>
#include <keelbase/Keelbase.h>

#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>

class Log : public MessageHandler
{
public:
    void message(YString const & text) override { std::cout << "log: " << text.c_str() << std::endl; }
};

// The interpreter of the application.
class Interpreter final : public ShellInterface
{
public:
    int execute(char const * command, void *, CommandOptions & options) override
    {
        std::string const text = command;
        if (text == "crash") {
            void (* volatile missing)() = nullptr;
            missing();
        }
        if (text == "refuse") {
            throw std::runtime_error("not now");
        }
        options.handler->message(YString(text) + " is done");
        return 0;
    }
    void currentHandler(MessageHandlerRef & holder) override { holder = m_log; }

private:
    MessageHandlerRef m_log = std::make_shared<Log>();
};

ShellInterface * interpreter()
{
    static Interpreter only;
    return &only;
}

int main()
{
    ZyCommandShell::RunCommand("open 'amplifier.msw'", false); // nobody is there yet
    kb::OfferFunction("widgets_GetShellInterface", reinterpret_cast<kb::Function>(interpreter));

    ZyCommandShell::RunCommand("open 'amplifier.msw'", false);
    ZyCommandShell::RunCommand("crash", false);
    ZyCommandShell::RunCommand("refuse", false);
    ZyCommandShell::PrintMessage("100%% of it went on\n");
}
