// SPDX-License-Identifier: BSD-3-Clause
// Our handlers live together with those of the host, which may be there before us, come after us, hand
// signals to whom they have replaced, or go again.
//
// Handlers that hand signals to each other must not go in circles. So there is not one handler of ours but a
// row of them, all alike: whenever the host has put a handler before ours, the next of the row is put before
// that. Each knows what it replaced, and hands to that alone.
#include "FaultHandlers.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <utility>

#include <dlfcn.h>
#include <ucontext.h>
#include <unistd.h>

namespace
{
constexpr std::array<int, 5> faultSignals = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGTRAP};

/** How many different handlers a host may have put one over the other. Beyond, its last one is left alone. */
constexpr std::size_t rowSize = 16;

using Handler = void (*)(int, siginfo_t *, void *);

/** What a handler of ours has replaced. */
struct Replaced
{
    struct sigaction action;
    std::atomic<bool> isSpent; ///< the host asked for one call, and has had it
};

/** The state of one signal. Constant-initialised: there is no moment at which a handler finds nothing. */
struct Row
{
    std::array<Replaced, rowSize> replaced;
    std::atomic<std::size_t> used; ///< so many handlers of ours are or were installed
    std::atomic<Handler> last;     ///< the one that was installed last
    std::mutex changing;
};

std::array<Row, faultSignals.size()> rows;

/** Null: no signal of ours, but hosts hand on what they like. */
Row * rowOf(int signal)
{
    auto const * const found = std::find(faultSignals.begin(), faultSignals.end(), signal);
    return found != faultSignals.end() ? &rows[static_cast<std::size_t>(found - faultSignals.begin())]
                                       : nullptr;
}

/** Whether the processor has raised it at an instruction of this thread. */
bool isFault(siginfo_t const * info)
{
    return info != nullptr && info->si_code > 0;
}

/** Whether the process sent it to one of its threads, as raise() does. */
bool isRaised(siginfo_t const * info)
{
#ifdef SI_TKILL
    return info == nullptr || (info->si_code == SI_TKILL && info->si_pid == getpid());
#else
    return info == nullptr || (info->si_code == SI_USER && info->si_pid == getpid());
#endif
}

/** The instruction is carried out again, and this time the system does what it does without handlers. */
void handToSystem(int signal, siginfo_t const * info)
{
    struct sigaction action = {};
    action.sa_handler = SIG_DFL;
    sigaction(signal, &action, nullptr);
    if (!isFault(info) || signal == SIGTRAP) {
        raise(signal); // does not come again by itself
    }
}

/** As the system would have called it. */
void call(struct sigaction const & action, int signal, siginfo_t * info, void * context)
{
    sigset_t mask = action.sa_mask;
    if ((action.sa_flags & SA_NODEFER) == 0) {
        sigaddset(&mask, signal);
    }
    sigset_t before;
    pthread_sigmask(SIG_BLOCK, &mask, &before);
    if ((action.sa_flags & SA_SIGINFO) != 0) {
        action.sa_sigaction(signal, info, context);
    } else {
        action.sa_handler(signal);
    }
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

void handOn(Replaced & replaced, int signal, siginfo_t * info, void * context)
{
    struct sigaction const & action = replaced.action;
    bool const isPlain = (action.sa_flags & SA_SIGINFO) == 0;
    bool const isIgnored = isPlain && action.sa_handler == SIG_IGN;
    if (isIgnored && !isFault(info)) {
        return;
    }
    bool const isDefault = isPlain && action.sa_handler == SIG_DFL;
    auto const onlyOnce = static_cast<int>(SA_RESETHAND);
    if (isDefault || isIgnored || ((action.sa_flags & onlyOnce) != 0 && replaced.isSpent.exchange(true))) {
        handToSystem(signal, info);
    } else {
        call(action, signal, info, context);
    }
}

template <std::size_t place>
void onSignal(int signal, siginfo_t * info, void * context)
{
    Row * const row = rowOf(signal);
    if (row == nullptr) {
        return;
    }
    int const error = errno;
    if (isFault(info) || isRaised(info)) {
        FaultHandlers::jump(signal, info, context);
    }
    row->used.load(); // what was written before this handler was installed is seen
    handOn(row->replaced[place], signal, info, context);
    errno = error;
}

template <std::size_t... places>
constexpr std::array<Handler, rowSize> makeHandlers(std::index_sequence<places...>)
{
    return {onSignal<places>...};
}

constexpr std::array<Handler, rowSize> handlers = makeHandlers(std::make_index_sequence<rowSize>());

bool isOurs(struct sigaction const & action)
{
    return (action.sa_flags & SA_SIGINFO) != 0 &&
           std::find(handlers.begin(), handlers.end(), action.sa_sigaction) != handlers.end();
}

bool isSame(struct sigaction const & a, struct sigaction const & b)
{
    bool same = a.sa_flags == b.sa_flags && a.sa_handler == b.sa_handler;
    for (int signal = 1; same && signal < NSIG; ++signal) {
        same = sigismember(&a.sa_mask, signal) == sigismember(&b.sa_mask, signal);
    }
    return same;
}

/** The code of these handlers must stay where it is, whoever unloads the library. */
void stayLoaded()
{
    Dl_info own = {};
    if (dladdr(&rows, &own) != 0) {
        dlopen(own.dli_fname, RTLD_NOW | RTLD_NOLOAD | RTLD_NODELETE);
    }
}

/** The place in the row for a handler of ours that replaces \a present; the size of the row when there is
 * none. */
std::size_t placeFor(struct sigaction const & present, Row & row)
{
    std::size_t const used = row.used;
    for (std::size_t place = 0; place < used; ++place) {
        if (isSame(row.replaced[place].action, present)) {
            return place;
        }
    }
    if (used < rowSize) {
        row.replaced[used].action = present;
        row.used = used + 1;
    }
    return used;
}

void install(int signal, Row & row)
{
    std::lock_guard<std::mutex> const lock(row.changing);
    struct sigaction present = {};
    sigaction(signal, nullptr, &present);
    if (isOurs(present)) {
        return;
    }
    std::size_t const place = placeFor(present, row);
    if (place == rowSize) {
        return;
    }
    row.replaced[place].isSpent = false;
    struct sigaction own = {};
    own.sa_sigaction = handlers[place];
    own.sa_flags = SA_SIGINFO | SA_ONSTACK | SA_NODEFER;
    sigaction(signal, &own, nullptr);
    row.last = handlers[place];
}
} // namespace

sigset_t const & FaultHandlers::signals()
{
    static sigset_t const set = [] {
        sigset_t all;
        sigemptyset(&all);
        for (int const signal : faultSignals) {
            sigaddset(&all, signal);
        }
        return all;
    }();
    return set;
}

bool FaultHandlers::intersects(sigset_t const & mask, sigset_t & common)
{
    sigemptyset(&common);
    bool any = false;
    for (int const signal : faultSignals) {
        if (sigismember(&mask, signal) == 1) {
            sigaddset(&common, signal);
            any = true;
        }
    }
    return any;
}

void FaultHandlers::keepInstalled()
{
    static bool const stays = (stayLoaded(), true);
    static_cast<void>(stays);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        struct sigaction present = {};
        sigaction(faultSignals[i], nullptr, &present);
        if (present.sa_sigaction != rows[i].last || (present.sa_flags & SA_SIGINFO) == 0) {
            install(faultSignals[i], rows[i]);
        }
    }
}
