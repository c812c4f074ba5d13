// SPDX-License-Identifier: MIT
#pragma once

#include <editor/viewport/ksMeshBounds.h>
#include <editor/viewport/ksOrbitCamera.h>
#include <editor/viewport/ksOverlay.h>
#include <editor/viewport/ksSceneRenderer.h>
#include <editor/viewport/ksViewHandles.h>
#include <editor/viewport/ksVisibleNodes.h>

#include <OpenSG/OSGNode.h>

#include <QImage>
#include <QString>
#include <QTimer>
#include <QWidget>

#include <memory>
#include <optional>
#include <vector>

class QLabel;
class QRubberBand;
class QStackedLayout;
class ksCanvas;
class ksDocument;
class ksHandleDrag;
class ksScenePicker;

/// The picture of the document's scene, in which nodes are selected, moved, turned and scaled with the mouse.
///
/// What is drawn is aspect 1, and so what edits have recorded. Without OpenGL 2.1 there is a text instead.
///
/// - A click selects the node that is there; with Ctrl it adds the node to the selection, or takes it away.
/// - Dragging a handle moves, turns or scales the selected nodes, as one step; Escape takes it back.
///   The camera stays where it is meanwhile.
/// - Dragging otherwise goes around the scene. With the tool Select, or with Shift, it selects what
///   lies in the frame as a whole, with Ctrl in addition.
/// - Dragging with Alt, or with the middle button, goes around the scene.
/// - Dragging with the right button, or with Shift and the middle one, moves the scene.
/// - The wheel goes nearer or further away.
///
/// The arrow keys go around the scene, with Shift they move it, plus and minus go nearer and further away.
class ksViewport : public QWidget
{
    Q_OBJECT

public:
    using Tool = ksViewTool;

    /// The axes that handles have: those of the world, or those of the current node.
    enum class Space
    {
        World,
        Local
    };
    Q_ENUM(Space)

    /// \a shownDocument must outlive the widget.
    explicit ksViewport(ksDocument &shownDocument, QWidget *parent = nullptr);
    ~ksViewport() override;

    Tool tool() const { return usedTool; }
    Space space() const { return usedSpace; }
    const ksOrbitCamera &camera() const { return orbit; }

    /// Whether there is a picture, rather than a text that says why there is none.
    bool canDraw() const { return canvas != nullptr; }

    /// What is drawn at the moment; null when nothing can be.
    QImage picture();

    /// The handles of the current node, if it has some with this tool.
    std::optional<ksViewHandles> handles();

    QSize sizeHint() const override { return {800, 600}; }
    QSize minimumSizeHint() const override { return {160, 120}; }

public Q_SLOTS:
    void setTool(ksViewport::Tool tool);
    void setSpace(ksViewport::Space space);

    /// Looks at the selected nodes, or at all of the scene.
    void frameSelection();
    void frameAll();

Q_SIGNALS:
    void toolChanged(ksViewport::Tool tool);
    void spaceChanged(ksViewport::Space space);

    /// What the user wanted is not possible.
    void refused(const QString &reason);

protected:
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    /// What the pressed mouse does.
    enum class Mode
    {
        Idle,

        /// Nothing yet: a click, unless it moves.
        Click,
        Band,
        Orbit,
        Pan,
        Handle
    };

    void showWhole();
    void showFailure();
    void follow(const ksSceneChanges &changes);
    void refresh();

    /// Draws after a movement of the camera that has no end: in full once it has been still for a moment.
    void refreshMoved();

    /// The nodes that can be seen and the box around them, both up to date.
    const std::vector<ksVisibleNode> &nodes();
    const ksBounds &sceneBounds();

    void draw();
    void beginDrag(const QPointF &mouse);
    void drag(const QPointF &mouse);
    void endMode();
    void cancel();
    void select(const QPointF &mouse, Qt::KeyboardModifiers keys);
    void selectBand(Qt::KeyboardModifiers keys);
    void hover(const QPointF &mouse);

    ksDocument &document;
    ksCanvas *canvas = nullptr;
    QLabel *failure;
    QStackedLayout *pages;
    QRubberBand *band;

    /// What handles move, as long as neither the scene nor the selection has changed.
    std::optional<std::vector<osg::NodePtr>> targets;

    ksOrbitCamera orbit;
    ksVisibleNodes visible;
    ksMeshBounds meshBounds;
    std::optional<ksBounds> bounds;
    ksSceneRenderer renderer;
    ksOverlay overlay;

    Tool usedTool = Tool::Select;
    Space usedSpace = Space::World;
    Mode mode = Mode::Idle;
    Qt::MouseButton button = Qt::NoButton;
    QPointF pressed;
    QPointF last;

    /// So far from where it was pressed that it was no click.
    bool hasMoved = false;
    std::optional<ksViewHandle> hovered;
    std::unique_ptr<ksHandleDrag> handleDrag;

    /// A step that is not the drag's ends it.
    bool isDragging = false;

    /// Running while the camera may go on moving.
    QTimer settling;

    /// All of the scene has been framed, and nobody has moved the camera since.
    bool isWhole = true;
};
