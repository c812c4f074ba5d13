// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QWidget>

class ksDocument;

/// The values of the selected nodes.
class ksInspector : public QWidget
{
    Q_OBJECT

public:
    explicit ksInspector(ksDocument &, QWidget *parent)
        : QWidget(parent)
    {}

Q_SIGNALS:
    void refused(const QString &reason);
};
