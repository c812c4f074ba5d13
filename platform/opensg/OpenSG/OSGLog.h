// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGBaseTypes.h>

#include <functional>
#include <ostream>
#include <sstream>
#include <string>

OSG_BEGIN_NAMESPACE

/// Receives one line of the scene graph's log, without a line end. Called on the thread that logs, so by
/// several at once if they do.
typedef std::function<void(const std::string &)> LogSink;

/// Replaces the receiver of the log and returns the previous one. An empty sink stands for standard error,
/// the receiver at the start. May be called at any time, from any thread.
LogSink setLogSink(LogSink sink);

/// Writes @p text to the log.
void logNotice(const std::string &text);

/// Writes "WARNING: " and @p text to the log.
void logWarning(const std::string &text);

/// The same, formatted like printf(). One line end at the end is left out.
void printNotice(const Char8 *format, ...) __attribute__((format(printf, 1, 2)));
void printWarning(const Char8 *format, ...) __attribute__((format(printf, 1, 2)));

/// A line of the log, written at the end of the statement.
class LogStream : public std::ostringstream
{
public:
    typedef void (*Write)(const std::string &);

    explicit LogStream(Write write)
        : _write(write)
    {}
    ~LogStream(void) override;

private:
    const Write _write;
};

/// Ends a line of the log, which ends by itself as well.
inline std::ostream &endLog(std::ostream &stream)
{
    return stream.flush();
}

OSG_END_NAMESPACE

// FWARNING(("%d nodes\n", count)) and SWARNING << count << " nodes" << endLog.

#define FLOG(arguments) ::osg::printNotice arguments
#define FNOTICE(arguments) ::osg::printNotice arguments
#define FWARNING(arguments) ::osg::printWarning arguments
#define FFATAL(arguments) ::osg::printWarning arguments

#define SLOG ::osg::LogStream(&::osg::logNotice)
#define SNOTICE ::osg::LogStream(&::osg::logNotice)
#define SWARNING ::osg::LogStream(&::osg::logWarning)
#define SFATAL ::osg::LogStream(&::osg::logWarning)
