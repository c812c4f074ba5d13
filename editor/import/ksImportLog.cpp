// SPDX-License-Identifier: MIT
#include <editor/import/ksImportLog.h>

#include <assimp/DefaultLogger.hpp>
#include <assimp/LogStream.hpp>

namespace {

constexpr int MostMessages = 10;

} // namespace

class ksImportLog::Stream : public Assimp::LogStream
{
public:
    explicit Stream(ksImportLog &owner)
        : log(owner)
    {}

    void write(const char *message) override { log.take(QString::fromUtf8(message)); }

private:
    ksImportLog &log;
};

ksImportLog::ksImportLog()
{
    Assimp::DefaultLogger::create(nullptr, Assimp::Logger::NORMAL, 0);
    // It belongs to the logger.
    Assimp::DefaultLogger::get()->attachStream(new Stream(*this), Assimp::Logger::Warn | Assimp::Logger::Err);
}

ksImportLog::~ksImportLog()
{
    Assimp::DefaultLogger::kill();
}

void ksImportLog::take(const QString &message)
{
    // "Warn,  T0: " or the like comes first.
    const QString mark = QStringLiteral(": ");
    const int begin = message.indexOf(mark);
    const QString text = (begin < 0 ? message : message.mid(begin + mark.size())).trimmed();
    if (!messages.contains(text))
        messages += text;
}

void ksImportLog::report(const ksWarn &warn) const
{
    for (int i = 0; i < messages.size() && i < MostMessages; ++i)
        warn(messages[i]);
    if (messages.size() > MostMessages)
        warn(
            QStringLiteral("... and %1 more of the reader's complaints").arg(messages.size() - MostMessages));
}
