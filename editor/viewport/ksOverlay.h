// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QMatrix4x4>
#include <QOpenGLShaderProgram>
#include <QVector3D>

#include <vector>

/// Lines and faces of one colour each that are drawn over the scene, or among what is in it. The calls that
/// draw need the same context.
class ksOverlay
{
public:
    /// False when the shaders cannot be used here.
    bool prepare();

    void addLine(const QVector3D &from, const QVector3D &to, const QColor &color);
    void addLines(const std::vector<QVector3D> &points, const QColor &color);
    void addTriangle(const QVector3D &a, const QVector3D &b, const QVector3D &c, const QColor &color);

    /// A face from a colour at the bottom to one at the top.
    void addBackground(const QColor &bottom, const QColor &top);

    /// Draws what has been added since the last time. With \a isAmong what is nearer hides it.
    void draw(const QMatrix4x4 &viewProjection, bool isAmong);

private:
    struct Corner
    {
        float position[3];
        float color[4];
    };
    using Corners = std::vector<Corner>;

    static Corner cornerOf(const QVector3D &position, const QColor &color);
    void drawAll(const Corners &corners, unsigned int mode);

    QOpenGLShaderProgram program;
    Corners lines;
    Corners faces;
};
