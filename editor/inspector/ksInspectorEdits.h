// SPDX-License-Identifier: MIT
#pragma once

#include <editor/scene/ksSceneIndex.h>

#include <ksundo/core/ksUndoGesture.h>

#include <QObject>
#include <QString>

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

class ksDocument;

/// Where the rows of the inspector edit: what a row does until it has finished is one gesture.
class ksInspectorEdits : public QObject
{
    Q_OBJECT

public:
    /// \a editedDocument must outlive the object.
    explicit ksInspectorEdits(ksDocument &editedDocument, QObject *parent = nullptr);
    ~ksInspectorEdits() override;

    ksDocument &document() { return edited; }

    /// The lights of the scene.
    std::vector<osg::UberLightPtr> lights() { return index->lights(); }

    /// Runs \a work as a part of the gesture of \a editor, which begins with it if need be. False when it
    /// throws ksEditorError, of which refused() tells.
    bool run(const QObject *editor, const std::function<void()> &work);

    /// How many gestures have begun.
    std::size_t gestureCount() const { return gestures; }

    /// Ends the gesture, if there is one.
    void finish() { gesture.reset(); }

    /// Takes that of \a editor back and ends it; does nothing to that of another.
    void cancel(const QObject *editor);

    /// Ends the gesture of \a editor, which is about to go.
    void release(const QObject *editor);

    /// Counts the rows that have been read.
    void noteRead() { ++reads; }
    std::size_t readCount() const { return reads; }

Q_SIGNALS:
    void refused(const QString &reason);

private:
    ksDocument &edited;
    std::optional<ksSceneIndex> index;
    std::optional<ksUndoGesture> gesture;
    const QObject *owner = nullptr;
    bool isRunning = false;
    std::size_t gestures = 0;
    std::size_t reads = 0;
};
