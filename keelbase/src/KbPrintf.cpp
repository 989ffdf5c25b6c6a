// SPDX-License-Identifier: BSD-3-Clause
// Where the output of the application goes.
#include "KbFormat_p.h"

#include <keelbase/KbHost.h>

#include <cstdio>
#include <mutex>
#include <utility>

namespace
{
struct Output
{
    std::mutex mutex;
    std::shared_ptr<kb::Sink const> sink; ///< null: the standard output
};

Output & output()
{
    static Output process;
    return process;
}

std::shared_ptr<kb::Sink const> currentSink()
{
    std::lock_guard<std::mutex> const lock(output().mutex);
    return output().sink;
}

std::shared_ptr<kb::Sink const> exchangeSink(std::shared_ptr<kb::Sink const> sink)
{
    std::lock_guard<std::mutex> const lock(output().mutex);
    return std::exchange(output().sink, std::move(sink));
}

void writeOut(char const * format, KbGrowingText const & text)
{
    if (auto const sink = currentSink()) {
        (*sink)(format, text.c_str(), text.size());
        return;
    }
    std::fwrite(text.c_str(), 1, text.size(), stdout);
    std::fflush(stdout); // what comes next may end the process
}
} // namespace

void zy_printf(char const * format, PrintfArg first, PrintfArg second, PrintfArg third, PrintfArg fourth)
{
    if (format == nullptr) {
        return;
    }
    try {
        KbGrowingText text;
        kbFormat(text, format, {first, second, third, fourth});
        writeOut(format, text);
    } catch (...) {
        // Output is often the last thing that is done about a failure.
    }
}

void kb::SetOutput(Sink sink)
{
    exchangeSink(sink ? std::make_shared<Sink const>(std::move(sink)) : nullptr);
}

struct kb::OutputCapture::Kept
{
    std::mutex mutex;
    std::string text;
    std::vector<std::string> formats;
};

kb::OutputCapture::OutputCapture() : m_kept(std::make_shared<Kept>())
{
    // The state is shared: a thread may be about to write when the capture ends.
    auto const keep = [kept = m_kept](char const * format, char const * text, std::size_t size) {
        std::lock_guard<std::mutex> const lock(kept->mutex);
        kept->text.append(text, size);
        kept->formats.emplace_back(format);
    };
    m_before = exchangeSink(std::make_shared<Sink const>(keep));
}

kb::OutputCapture::~OutputCapture()
{
    exchangeSink(m_before);
}

std::string kb::OutputCapture::text() const
{
    std::lock_guard<std::mutex> const lock(m_kept->mutex);
    return m_kept->text;
}

std::vector<std::string> kb::OutputCapture::formats() const
{
    std::lock_guard<std::mutex> const lock(m_kept->mutex);
    return m_kept->formats;
}

void kb::OutputCapture::clear()
{
    std::lock_guard<std::mutex> const lock(m_kept->mutex);
    m_kept->text.clear();
    m_kept->formats.clear();
}
