// SPDX-License-Identifier: MIT
#pragma once

#include <checker/tour/ksCallLog.h>

#include <QObject>

/// The application's side of commands that call a Qt method: an object whose methods write their calls to a
/// log.
class ksCallReceiver : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// What has been called.
    ksCallLog &log() { return calls; }

    Q_INVOKABLE void setLocked(bool locked);
    Q_INVOKABLE void refresh();

private:
    ksCallLog calls;
};
