// SPDX-License-Identifier: MIT
#pragma once

#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QOpenGLShaderProgram>

#include <initializer_list>

/// The functions of the current context.
inline QOpenGLFunctions &ksGl()
{
    return *QOpenGLContext::currentContext()->functions();
}

/// Makes \a program one of the two shaders, whose \a attributes have the numbers from 0 on. False when they
/// cannot be used here.
inline bool ksLink(QOpenGLShaderProgram &program, const char *vertexShader, const char *fragmentShader,
                   std::initializer_list<const char *> attributes)
{
    program.removeAllShaders();
    if (!program.addShaderFromSourceCode(QOpenGLShader::Vertex, vertexShader) ||
        !program.addShaderFromSourceCode(QOpenGLShader::Fragment, fragmentShader))
        return false;
    int place = 0;
    for (const char *attribute : attributes)
        program.bindAttributeLocation(attribute, place++);
    return program.link();
}
