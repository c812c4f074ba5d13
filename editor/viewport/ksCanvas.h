// SPDX-License-Identifier: MIT
#pragma once

#include <QOpenGLWidget>

#include <functional>

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

Q_SIGNALS:
    /// Nothing can be drawn after all.
    void failed();

protected:
    void initializeGL() override;
    void paintGL() override;

private:
    void releaseAll();

    Work work;
    bool isReady = false;
};
