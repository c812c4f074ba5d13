// SPDX-License-Identifier: MIT
#pragma once

#include <editor/import/ksWarn.h>

#include <QString>
#include <QStringList>

/// Takes what Assimp's readers complain about, for as long as it lives. There may be one at a time.
class ksImportLog
{
public:
    ksImportLog();
    ~ksImportLog();
    ksImportLog(const ksImportLog &) = delete;
    ksImportLog &operator=(const ksImportLog &) = delete;

    /// Reports what there is to \a warn: equal lines as one, and of many different ones the first.
    void report(const ksWarn &warn) const;

private:
    class Stream;

    void take(const QString &message);

    QStringList messages;
};
