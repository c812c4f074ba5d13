// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QWidget>

class ksDocument;

/// The view of the scene.
class ksViewport : public QWidget
{
    Q_OBJECT

public:
    enum class Tool
    {
        Select,
        Move,
        Turn,
        Scale
    };

    enum class Space
    {
        Local,
        World
    };

    explicit ksViewport(ksDocument &, QWidget *parent)
        : QWidget(parent)
    {}

    void setTool(Tool) {}
    void setSpace(Space) {}
    void frameSelection() {}
    void frameAll() {}

Q_SIGNALS:
    void toolChanged(Tool tool);
    void refused(const QString &reason);
};
