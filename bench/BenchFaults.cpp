// SPDX-License-Identifier: BSD-3-Clause
// Commands for the host behind the fence: one that does nothing, beside a call of a function object, and one
// that faults.
#include "Measure.h"

#include <ZyCommandShell.h>
#include <ZyString.h>

#include <keelbase/KbHost.h>
#include <keelbase/KbShell.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

namespace bench
{

namespace
{

constexpr unsigned count = 10000;

class Shell final : public ShellInterface
{
public:
    int execute(char const *, void *, CommandOptions &) override
    {
        ++m_calls;
        if (m_faults) {
            int volatile * volatile nothing = nullptr;
            *nothing = 1;
        }
        return 0;
    }
    void currentHandler(MessageHandlerRef & holder) override { holder = m_handler; }

    void setFaults(bool faults) { m_faults = faults; }
    unsigned calls() const { return m_calls; }

private:
    MessageHandlerRef m_handler = std::make_shared<NullMessageHandler>();
    bool m_faults = false;
    unsigned m_calls = 0;
};

Shell & shell()
{
    static Shell host;
    return host;
}

unsigned runCommands(bool fault)
{
    ZyString const command("open 'amplifier.msw'");
    kb::ScopedShell const scoped(&shell());
    shell().setFaults(fault);
    unsigned const before = shell().calls();
    for (unsigned i = 0; i < count; ++i) {
        ZyCommandShell::RunCommand(command, false);
    }
    check(shell().calls() - before == count, "the host was not called");
    return shell().calls();
}

unsigned callFunction()
{
    unsigned calls = 0;
    std::function<void(std::string const &)> const function = [&calls](std::string const &) { ++calls; };
    std::string const command("open 'amplifier.msw'");
    for (unsigned i = 0; i < count; ++i) {
        benchmark::DoNotOptimize(&function);
        function(command);
        benchmark::ClobberMemory();
    }
    check(calls == count, "the function was not called");
    return calls;
}

} // namespace

void registerBenchmarks()
{
    addLoop("fenced-command/ours", count, [] { return runCommands(false); });
    addLoop("fenced-command/function", count, callFunction);
    addLoop("faulting-command/ours", count, [] {
        kb::SetOutput([](char const *, char const *, std::size_t) {});
        unsigned const calls = runCommands(true);
        kb::SetOutput({});
        return calls;
    });
}

} // namespace bench
