// SPDX-License-Identifier: MIT
#include <editor/viewport/ksCanvas.h>

#include <QElapsedTimer>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>
#include <QOpenGLFunctions>
#include <QSurfaceFormat>

#include <utility>

namespace {

QSurfaceFormat wantedFormat()
{
    constexpr int DepthBits = 24;
    QSurfaceFormat format;
    format.setVersion(2, 1);
    format.setDepthBufferSize(DepthBits);
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
    // The base class destroys the context, and with it what is no canvas any more would be called.
    if (context() != nullptr)
        context()->disconnect(this);
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
        Q_EMIT failed();
}

void ksCanvas::paintGL()
{
    if (!isReady)
        return;
    draw();
    // What is behind glass has been mixed with it already, and is not to be mixed with what is behind the
    // window.
    QOpenGLFunctions &gl = *context()->functions();
    gl.glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_TRUE);
    gl.glClearColor(0, 0, 0, 1);
    gl.glClear(GL_COLOR_BUFFER_BIT);
    gl.glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
}

void ksCanvas::draw()
{
    if (!QOpenGLFramebufferObject::hasOpenGLFramebufferBlit()) {
        work.draw();
        return;
    }
    constexpr int Samples = 4;
    constexpr qint64 LongestSmooth = 30;
    const bool isRough = isDraft && isSlow;
    const QSize whole = size() * devicePixelRatioF();
    const QSize drawn = (isRough ? whole / 2 : whole).expandedTo(QSize(1, 1));
    QElapsedTimer time;
    time.start();
    if (picture == nullptr || picture->size() != drawn) {
        QOpenGLFramebufferObjectFormat format;
        format.setAttachment(QOpenGLFramebufferObject::Depth);
        format.setSamples(isRough ? 0 : Samples);
        picture = std::make_unique<QOpenGLFramebufferObject>(drawn, format);
    }
    QOpenGLFunctions &gl = *context()->functions();
    picture->bind();
    gl.glViewport(0, 0, drawn.width(), drawn.height());
    work.draw();
    QOpenGLFramebufferObject::bindDefault();
    QOpenGLFramebufferObject::blitFramebuffer(nullptr, QRect(QPoint(), whole), picture.get(),
                                              QRect(QPoint(), drawn), GL_COLOR_BUFFER_BIT,
                                              isRough ? GL_LINEAR : GL_NEAREST);
    gl.glFinish();
    if (!isRough)
        isSlow = time.elapsed() > LongestSmooth;
}

void ksCanvas::releaseAll()
{
    if (!isReady)
        return;
    makeCurrent();
    work.release();
    picture.reset();
    doneCurrent();
    isReady = false;
}
