// SPDX-License-Identifier: MIT
#include "ksLog.h"

#include <cstdarg>
#include <cstdio>
#include <utility>

namespace {

ksLog::Handler &errorHandler()
{
    static ksLog::Handler handler;
    return handler;
}

std::string formatted(const char *format, va_list arguments)
{
    va_list measured;
    va_copy(measured, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, measured);
    va_end(measured);
    if (length < 0)
        return format;

    // vsnprintf ends the text with a null character, which a string's buffer has room for.
    std::string line(static_cast<std::size_t>(length), '\0');
    std::vsnprintf(line.data(), line.size() + 1, format, arguments);
    return line;
}

} // namespace

void ksLog::error(const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const std::string line = formatted(format, arguments);
    va_end(arguments);

    if (const Handler &handler = errorHandler())
        handler(line);
    else
        std::fprintf(stderr, "%s\n", line.c_str());
}

ksLog::Handler ksLog::setErrorHandler(Handler handler)
{
    return std::exchange(errorHandler(), std::move(handler));
}
