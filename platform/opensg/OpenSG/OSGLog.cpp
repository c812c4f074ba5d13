// SPDX-License-Identifier: MIT
#include <OpenSG/OSGLog.h>

#include <iostream>
#include <mutex>
#include <utility>

OSG_BEGIN_NAMESPACE

namespace {

struct Log
{
    std::mutex mutex;
    LogSink sink;
};

/// Never destroyed: destructors of application statics may still log.
Log &theLog(void)
{
    static Log &log = *new Log;
    return log;
}

} // namespace

LogSink setLogSink(LogSink sink)
{
    const std::lock_guard<std::mutex> guard(theLog().mutex);
    return std::exchange(theLog().sink, std::move(sink));
}

void logNotice(const std::string &text)
{
    LogSink sink;
    {
        const std::lock_guard<std::mutex> guard(theLog().mutex);
        sink = theLog().sink;
    }
    if (sink) {
        sink(text);
    } else {
        std::cerr << text << '\n';
    }
}

void logWarning(const std::string &text)
{
    logNotice("WARNING: " + text);
}

OSG_END_NAMESPACE
