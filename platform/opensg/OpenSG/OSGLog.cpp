// SPDX-License-Identifier: MIT
#include <OpenSG/OSGLog.h>

#include <algorithm>
#include <cstdarg>
#include <cstdio>
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

std::string withoutLineEnd(std::string text)
{
    if (!text.empty() && text.back() == '\n') {
        text.pop_back();
    }
    return text;
}

std::string formatted(const Char8 *format, std::va_list arguments)
{
    std::va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, again);
    va_end(again);
    std::string text(static_cast<std::size_t>(std::max(length, 0)), '\0');
    std::vsnprintf(text.data(), text.size() + 1, format, arguments);
    return withoutLineEnd(text);
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

void printNotice(const Char8 *format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    logNotice(formatted(format, arguments));
    va_end(arguments);
}

void printWarning(const Char8 *format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    logWarning(formatted(format, arguments));
    va_end(arguments);
}

LogStream::~LogStream(void)
{
    _write(withoutLineEnd(str()));
}

OSG_END_NAMESPACE
