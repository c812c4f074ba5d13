// SPDX-License-Identifier: MIT
#include <editor/viewport/ksGl.h>
#include <editor/viewport/ksOverlay.h>

namespace {

constexpr const char *MarkVertexShader = R"(#version 120
attribute vec3 position;
attribute vec4 color;
uniform mat4 viewProjection;
varying vec4 shown;

void main()
{
    shown = color;
    gl_Position = viewProjection * vec4(position, 1.0);
}
)";

constexpr const char *MarkFragmentShader = R"(#version 120
varying vec4 shown;

void main()
{
    gl_FragColor = shown;
}
)";

enum MarkAttribute
{
    MarkPosition,
    MarkColor
};

} // namespace

bool ksOverlay::prepare()
{
    return ksLink(program, MarkVertexShader, MarkFragmentShader, {"position", "color"});
}

void ksOverlay::addLine(const QVector3D &from, const QVector3D &to, const QColor &color)
{
    lines.push_back(cornerOf(from, color));
    lines.push_back(cornerOf(to, color));
}

void ksOverlay::addLines(const std::vector<QVector3D> &points, const QColor &color)
{
    for (std::size_t i = 1; i < points.size(); ++i)
        addLine(points[i - 1], points[i], color);
}

void ksOverlay::addTriangle(const QVector3D &a, const QVector3D &b, const QVector3D &c, const QColor &color)
{
    for (const QVector3D &corner : {a, b, c})
        faces.push_back(cornerOf(corner, color));
}

void ksOverlay::addBackground(const QColor &bottom, const QColor &top)
{
    const Corner corners[] = {cornerOf({-1, -1, 1}, bottom), cornerOf({1, -1, 1}, bottom),
                              cornerOf({1, 1, 1}, top), cornerOf({-1, 1, 1}, top)};
    for (const int i : {0, 1, 2, 0, 2, 3})
        faces.push_back(corners[i]);
}

void ksOverlay::draw(const QMatrix4x4 &viewProjection, bool isAmong)
{
    constexpr float LineWidth = 2;
    QOpenGLFunctions &gl = ksGl();
    (isAmong ? gl.glEnable(GL_DEPTH_TEST) : gl.glDisable(GL_DEPTH_TEST));
    gl.glDepthMask(GL_FALSE);
    gl.glEnable(GL_BLEND);
    gl.glBlendFuncSeparate(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    gl.glLineWidth(isAmong ? 1 : LineWidth);
    program.bind();
    program.setUniformValue("viewProjection", viewProjection);
    drawAll(faces, GL_TRIANGLES);
    drawAll(lines, GL_LINES);
    program.release();
    gl.glDisable(GL_BLEND);
    gl.glDepthMask(GL_TRUE);
    lines.clear();
    faces.clear();
}

ksOverlay::Corner ksOverlay::cornerOf(const QVector3D &position, const QColor &color)
{
    return {{position.x(), position.y(), position.z()},
            {float(color.redF()), float(color.greenF()), float(color.blueF()), float(color.alphaF())}};
}

void ksOverlay::drawAll(const Corners &corners, unsigned int mode)
{
    if (corners.empty())
        return;
    program.enableAttributeArray(MarkPosition);
    program.enableAttributeArray(MarkColor);
    program.setAttributeArray(MarkPosition, corners.front().position, 3, sizeof(Corner));
    program.setAttributeArray(MarkColor, corners.front().color, 4, sizeof(Corner));
    ksGl().glDrawArrays(mode, 0, GLsizei(corners.size()));
    program.disableAttributeArray(MarkPosition);
    program.disableAttributeArray(MarkColor);
}
