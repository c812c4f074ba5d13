// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

/// The application's log.
class ksLog
{
public:
    /// Receives one error line, without a line end.
    using Handler = std::function<void(const std::string &line)>;

    ksLog() = delete;

    /// Logs one error line, formatted as printf does. The line goes to the handler when one is set, otherwise
    /// to standard error, followed by a line end.
    static void error(const char *format, ...) __attribute__((format(printf, 1, 2)));

    /// Sends error lines to \a handler from now on; an empty one sends them to standard error again. Returns
    /// the previous handler. To be called on the thread that logs.
    static Handler setErrorHandler(Handler handler);
};
