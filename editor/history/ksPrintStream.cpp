// SPDX-License-Identifier: MIT
#include <editor/history/ksPrintStream.h>
#include <editor/ksEditorError.h>

#include <cstdio>
#include <utility>

ksPrintStream::ksPrintStream(std::function<void(const QString &)> takeLine, std::function<void()> fail)
    : std::ostream(static_cast<std::streambuf *>(this))
    , take(std::move(takeLine))
    , onFailure(std::move(fail))
{}

int ksPrintStream::overflow(int character)
{
    const auto written = static_cast<char>(character);
    return xsputn(&written, 1) == 1 ? character : EOF;
}

std::streamsize ksPrintStream::xsputn(const char *text, std::streamsize count)
{
    // One write may hold a text of several lines, which stay together.
    pending.append(text, static_cast<std::size_t>(count));
    if (pending.empty() || pending.back() != '\n')
        return count;
    pending.pop_back();
    const QString line = QString::fromStdString(std::exchange(pending, {}));
    try {
        take(line);
    } catch (const ksEditorError &) {
        onFailure();
        return 0;
    }
    return count;
}
