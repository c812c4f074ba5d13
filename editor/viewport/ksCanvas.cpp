// SPDX-License-Identifier: MIT
#include <editor/viewport/ksCanvas.h>

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QSurfaceFormat>

#include <utility>

namespace {

/// The version 2.1 and the smoothing of edges.
QSurfaceFormat wantedFormat()
{
    constexpr int DepthBits = 24;
    constexpr int Samples = 4;
    QSurfaceFormat format;
    format.setVersion(2, 1);
    format.setDepthBufferSize(DepthBits);
    format.setSamples(Samples);
    return format;
}

} // namespace

ksCanvas::ksCanvas(Work drawing, QWidget *parent)
    : QOpenGLWidget(parent)
    , work(std::move(drawing))
{
    setFormat(wantedFormat());
}

ksCanvas::~ksCanvas()
{
    releaseAll();
}

bool ksCanvas::isPossible()
{
    QOffscreenSurface surface;
    surface.setFormat(wantedFormat());
    surface.create();
    QOpenGLContext context;
    context.setFormat(wantedFormat());
    if (!context.create() || !context.makeCurrent(&surface))
        return false;
    const bool isNewEnough = !context.isOpenGLES() && context.format().version() >= qMakePair(2, 1);
    context.doneCurrent();
    return isNewEnough;
}

void ksCanvas::initializeGL()
{
    // The context is another one after the widget has moved to another window.
    connect(context(), &QOpenGLContext::aboutToBeDestroyed, this, &ksCanvas::releaseAll,
            Qt::UniqueConnection);
    isReady = work.prepare();
    if (!isReady)
        QMetaObject::invokeMethod(this, &ksCanvas::failed, Qt::QueuedConnection);
}

void ksCanvas::paintGL()
{
    if (!isReady)
        return;
    work.draw();
    // What is behind glass has been mixed with it already, and is not to be mixed with what is behind the window.
    QOpenGLFunctions &gl = *context()->functions();
    gl.glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_TRUE);
    gl.glClearColor(0, 0, 0, 1);
    gl.glClear(GL_COLOR_BUFFER_BIT);
    gl.glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
}

void ksCanvas::releaseAll()
{
    if (!isReady)
        return;
    makeCurrent();
    work.release();
    doneCurrent();
    isReady = false;
}
