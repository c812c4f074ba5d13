// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

/// Receives the calls of commands.
class Receiver : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE void setShown(bool value) { shown += value ? 1 : 2; }
    Q_INVOKABLE void update() { ++shown; }

    int shown = 0;
};
