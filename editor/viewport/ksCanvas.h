// SPDX-License-Identifier: MIT
#pragma once

#include <QOpenGLWidget>

#include <functional>
#include <memory>

class QOpenGLFramebufferObject;

/// A picture that is drawn with OpenGL 2.1. What is drawn is up to its owner; mouse and keys are left to the
/// widget that it lies in.
class ksCanvas : public QOpenGLWidget
{
    Q_OBJECT

public:
    struct Work
    {
        /// Makes what is drawn with; false when that is not possible here.
        std::function<bool()> prepare;
        std::function<void()> draw;

        /// Lets go of it, as the context goes.
        std::function<void()> release;
    };

    ksCanvas(Work work, QWidget *parent);
    ~ksCanvas() override;

    /// Whether there is OpenGL here that will do.
    static bool isPossible();

    /// Whether pictures from now on are for a moment only, in a movement: where drawing is slow, they are
    /// coarser, so that the movement keeps up with the mouse.
    void setDraft(bool draft) { isDraft = draft; }

Q_SIGNALS:
    /// Nothing can be drawn after all. To be connected by a queue, as it comes from within drawing.
    void failed();

protected:
    void initializeGL() override;
    void paintGL() override;

private:
    void draw();
    void releaseAll();

    Work work;
    std::unique_ptr<QOpenGLFramebufferObject> picture;
    bool isReady = false;
    bool isDraft = false;

    /// The last picture that was no draft took long.
    bool isSlow = false;
};
