// SPDX-License-Identifier: MIT
#include <editor/document/ksDocument.h>
#include <editor/ksEditorError.h>
#include <editor/viewport/ksCanvas.h>
#include <editor/viewport/ksDragPlace.h>
#include <editor/viewport/ksGl.h>
#include <editor/viewport/ksHandleDrag.h>
#include <editor/viewport/ksScenePicker.h>
#include <editor/viewport/ksViewMarks.h>
#include <editor/viewport/ksViewport.h>

#include <OpenSG/OSGThreadContext.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QRubberBand>
#include <QStackedLayout>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

ksViewport::ksViewport(ksDocument &shownDocument, QWidget *parent)
    : QWidget(parent)
    , document(shownDocument)
    , failure(new QLabel(this))
    , pages(new QStackedLayout(this))
    , band(new QRubberBand(QRubberBand::Rectangle, this))
{
    // Signals call it so.
    qRegisterMetaType<Tool>("ksViewport::Tool");
    qRegisterMetaType<Space>("ksViewport::Space");
    setAccessibleName(tr("Viewport"));
    setAccessibleDescription(tr("The picture of the scene"));
    band->setAccessibleName(tr("Frame around what is selected"));
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    failure->setAlignment(Qt::AlignCenter);
    failure->setWordWrap(true);
    failure->setMargin(fontMetrics().height());
    pages->setContentsMargins(0, 0, 0, 0);
    pages->addWidget(failure);
    if (ksCanvas::isPossible()) {
        canvas = new ksCanvas({[this] { return renderer.prepare() && overlay.prepare(); }, [this] { draw(); },
                               [this] { renderer.clear(); }},
                              this);
        canvas->setMouseTracking(true);
        canvas->setAccessibleName(tr("Picture of the scene"));
        pages->addWidget(canvas);
        pages->setCurrentWidget(canvas);
        connect(canvas, &ksCanvas::failed, this, &ksViewport::showFailure, Qt::QueuedConnection);
    } else {
        showFailure();
    }
    constexpr int StillMilliseconds = 150;
    settling.setSingleShot(true);
    settling.setInterval(StillMilliseconds);
    connect(&settling, &QTimer::timeout, this, &ksViewport::refresh);
    connect(&document, &ksDocument::changed, this, &ksViewport::follow);
    connect(&document, &ksDocument::replaced, this, &ksViewport::showWhole);
    connect(&document, &ksDocument::stepped, this, [this] {
        if (handleDrag != nullptr && !isDragging)
            endMode();
    });
    connect(&document.selection(), &ksSelection::changed, this, [this] {
        targets.reset();
        refresh();
    });
    showWhole();
}

ksViewport::~ksViewport()
{
    // It draws with what goes before it.
    delete canvas;
}

QImage ksViewport::picture()
{
    if (canvas == nullptr)
        return QImage();
    canvas->setDraft(false);
    return canvas->grabFramebuffer();
}

std::optional<ksViewHandles> ksViewport::handles()
{
    if (usedTool == Tool::Select)
        return {};
    if (!targets)
        targets = ksHandleDrag::targetsOf(document);
    if (targets->empty())
        return {};
    const osg::AspectScope scope(1);
    const ksDragPlace place(targets->back());
    return ksViewHandles(usedTool, place.frame(usedTool, usedSpace == Space::World), orbit);
}

void ksViewport::setTool(Tool tool)
{
    if (tool == usedTool)
        return;
    endMode();
    usedTool = tool;
    hovered.reset();
    refresh();
    Q_EMIT toolChanged(tool);
}

void ksViewport::setSpace(Space space)
{
    if (space == usedSpace)
        return;
    endMode();
    usedSpace = space;
    refresh();
    Q_EMIT spaceChanged(space);
}

void ksViewport::frameSelection()
{
    if (mode == Mode::Handle)
        return;
    const osg::AspectScope scope(1);
    const std::vector<ksVisibleNode> &all = nodes();
    ksBounds selected;
    for (const osg::UInt32 id : document.selection().ids()) {
        const int place = visible.find(id);
        if (place < 0)
            continue;
        const ksVisibleNode &node = all[std::size_t(place)];
        const ksBounds own = visible.ownBounds(place, meshBounds);
        selected.include(own, node.matrix);
        // What has no extent is seen with what is around it.
        const float reach = std::max(sceneBounds().radius() / 10, 0.1F);
        if (own.isEmpty())
            for (const float side : {-reach, reach})
                selected.include(node.matrix.map(QVector3D()) + QVector3D(side, side, side));
    }
    if (selected.isEmpty()) {
        frameAll();
        return;
    }
    orbit.frame(selected);
    isWhole = false;
    refresh();
}

void ksViewport::frameAll()
{
    if (mode == Mode::Handle)
        return;
    ksBounds all = sceneBounds();
    if (all.isEmpty())
        all.include(ksBounds{QVector3D(-2, -1, -2), QVector3D(2, 1, 2)});
    orbit.frame(all);
    isWhole = true;
    refresh();
}

bool ksViewport::event(QEvent *event)
{
    // Escape belongs to the drag, whatever else it is for in the window.
    if (event->type() == QEvent::ShortcutOverride && mode != Mode::Idle &&
        static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

void ksViewport::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    orbit.setSize(size());
    if (isWhole)
        frameAll();
}

void ksViewport::mousePressEvent(QMouseEvent *event)
{
    if (mode != Mode::Idle || canvas == nullptr)
        return;
    button = event->button();
    pressed = last = event->localPos();
    hasMoved = false;
    const bool hasShift = event->modifiers().testFlag(Qt::ShiftModifier);
    if (button == Qt::MiddleButton) {
        mode = hasShift ? Mode::Pan : Mode::Orbit;
    } else if (button == Qt::RightButton) {
        mode = Mode::Pan;
    } else if (button == Qt::LeftButton) {
        mode = event->modifiers().testFlag(Qt::AltModifier) ? Mode::Orbit : Mode::Click;
        if (event->modifiers() == Qt::NoModifier)
            beginDrag(pressed);
    }
}

void ksViewport::mouseMoveEvent(QMouseEvent *event)
{
    const QPointF mouse = event->localPos();
    // The release may have gone elsewhere.
    if (mode != Mode::Idle && !event->buttons().testFlag(button))
        endMode();
    hasMoved = hasMoved || (mouse - pressed).manhattanLength() >= QApplication::startDragDistance();
    if (mode == Mode::Click && hasMoved) {
        const bool isBand = usedTool == Tool::Select || event->modifiers().testFlag(Qt::ShiftModifier);
        mode = isBand ? Mode::Band : Mode::Orbit;
    }
    switch (mode) {
    case Mode::Idle:
        hover(mouse);
        break;
    case Mode::Click:
        return;
    case Mode::Band:
        band->setGeometry(QRect(pressed.toPoint(), mouse.toPoint()).normalized());
        band->show();
        break;
    case Mode::Orbit: {
        constexpr float DegreesPerPixel = 0.4F;
        orbit.orbit(-DegreesPerPixel * float(mouse.x() - last.x()),
                    DegreesPerPixel * float(mouse.y() - last.y()));
        isWhole = false;
        refresh();
        break;
    }
    case Mode::Pan:
        orbit.pan(mouse - last);
        isWhole = false;
        refresh();
        break;
    case Mode::Handle:
        if (hasMoved)
            drag(mouse);
        break;
    }
    last = mouse;
}

void ksViewport::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != button)
        return;
    if (mode == Mode::Click)
        select(event->localPos(), event->modifiers());
    else if (mode == Mode::Band)
        selectBand(event->modifiers());
    endMode();
    hover(event->localPos());
}

void ksViewport::leaveEvent(QEvent *event)
{
    QWidget::leaveEvent(event);
    if (mode == Mode::Idle && hovered) {
        hovered.reset();
        refresh();
    }
}

void ksViewport::wheelEvent(QWheelEvent *event)
{
    constexpr double PerUnit = 0.9988;
    event->accept();
    if (mode == Mode::Handle)
        return;
    orbit.zoom(float(std::pow(PerUnit, event->angleDelta().y())), event->position());
    refreshMoved();
}

void ksViewport::keyPressEvent(QKeyEvent *event)
{
    constexpr float Degrees = 5;
    constexpr float Nearer = 0.9F;
    constexpr double Pixels = 20;
    const bool hasShift = event->modifiers().testFlag(Qt::ShiftModifier);
    const auto step = [&](int right, int up) {
        if (hasShift)
            orbit.pan(QPointF(-right, up) * Pixels);
        else
            orbit.orbit(Degrees * float(right), Degrees * float(up));
    };
    if (event->key() == Qt::Key_Escape && mode != Mode::Idle) {
        cancel();
        return;
    }
    // What is dragged goes where the mouse is for the camera that it was grasped with.
    if (mode == Mode::Handle)
        return;
    switch (event->key()) {
    case Qt::Key_Left:
        step(-1, 0);
        break;
    case Qt::Key_Right:
        step(1, 0);
        break;
    case Qt::Key_Up:
        step(0, 1);
        break;
    case Qt::Key_Down:
        step(0, -1);
        break;
    case Qt::Key_Plus:
        orbit.zoom(Nearer, rect().center());
        break;
    case Qt::Key_Minus:
        orbit.zoom(1 / Nearer, rect().center());
        break;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    refreshMoved();
}

void ksViewport::focusOutEvent(QFocusEvent *event)
{
    QWidget::focusOutEvent(event);
    endMode();
}

void ksViewport::showWhole()
{
    endMode();
    hovered.reset();
    targets.reset();
    visible.clear();
    meshBounds.clear();
    bounds.reset();
    if (canvas != nullptr && canvas->isValid()) {
        canvas->makeCurrent();
        renderer.clear();
        canvas->doneCurrent();
    }
    const QSizeF size = orbit.size();
    orbit = ksOrbitCamera();
    orbit.setSize(size);
    frameAll();
}

void ksViewport::showFailure()
{
    failure->setText(
        tr("The scene cannot be drawn: OpenGL 2.1 is not available here. Everything else works."));
    pages->setCurrentWidget(failure);
    delete canvas;
    canvas = nullptr;
}

void ksViewport::follow(const ksSceneChanges &changes)
{
    targets.reset();
    visible.clear();
    bounds.reset();
    meshBounds.follow(changes);
    renderer.follow(changes);
    refresh();
}

void ksViewport::refresh()
{
    if (canvas == nullptr)
        return;
    canvas->setDraft(settling.isActive() || mode == Mode::Orbit || mode == Mode::Pan || mode == Mode::Handle);
    canvas->update();
}

void ksViewport::refreshMoved()
{
    isWhole = false;
    settling.start();
    refresh();
}

const std::vector<ksVisibleNode> &ksViewport::nodes()
{
    return visible.of(document.root());
}

const ksBounds &ksViewport::sceneBounds()
{
    if (!bounds) {
        const osg::AspectScope scope(1);
        bounds.emplace();
        for (const ksVisibleNode &node : nodes())
            if (node.mesh != osg::NullFC)
                bounds->include(meshBounds.of(node.mesh), node.matrix);
    }
    return *bounds;
}

void ksViewport::draw()
{
    const osg::AspectScope scope(1);
    ksGl().glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    overlay.addBackground(QColor(46, 49, 54), QColor(92, 99, 108));
    overlay.draw(QMatrix4x4(), false);

    orbit.setScene(sceneBounds());
    renderer.draw(nodes(), meshBounds, orbit);
    ksViewMarks marks(overlay, orbit);
    marks.addGrid(sceneBounds());
    overlay.draw(orbit.viewProjection(), true);
    for (const ksVisibleNode &node : nodes())
        if (node.light != osg::NullFC)
            marks.addLight(node, false);
    const ksSelection::Ids &ids = document.selection().ids();
    constexpr std::ptrdiff_t MostMarks = 200;
    for (auto id = ids.end() - std::min(MostMarks, ids.end() - ids.begin()); id != ids.end(); ++id) {
        const int place = visible.find(*id);
        if (place < 0)
            continue;
        const ksVisibleNode &node = nodes()[std::size_t(place)];
        if (node.light != osg::NullFC)
            marks.addLight(node, true);
        else
            marks.addBox(visible.ownBounds(place, meshBounds), node.matrix, *id == ids.back());
    }
    if (const auto shown = handles())
        shown->draw(overlay, handleDrag != nullptr ? handleDrag->handle() : hovered);
    overlay.draw(orbit.viewProjection(), false);
}

void ksViewport::beginDrag(const QPointF &mouse)
{
    const auto shown = handles();
    const auto handle = shown ? shown->at(mouse) : std::nullopt;
    if (!handle)
        return;
    mode = Mode::Handle;
    try {
        handleDrag = std::make_unique<ksHandleDrag>(document, *targets, usedTool, usedSpace == Space::World,
                                                    *shown, *handle, orbit, mouse);
    } catch (const ksEditorError &error) {
        mode = Mode::Idle;
        Q_EMIT refused(QString::fromUtf8(error.what()));
    }
    refresh();
}

void ksViewport::drag(const QPointF &mouse)
{
    isDragging = true;
    try {
        handleDrag->moveTo(mouse);
    } catch (const ksEditorError &error) {
        Q_EMIT refused(QString::fromUtf8(error.what()));
    }
    isDragging = false;
}

void ksViewport::endMode()
{
    if (mode == Mode::Idle)
        return;
    mode = Mode::Idle;
    band->hide();
    handleDrag.reset();
    refresh();
}

void ksViewport::cancel()
{
    if (handleDrag != nullptr) {
        isDragging = true;
        handleDrag->takeBack();
        isDragging = false;
    }
    endMode();
}

void ksViewport::select(const QPointF &mouse, Qt::KeyboardModifiers keys)
{
    osg::NodePtr found;
    {
        const osg::AspectScope scope(1);
        found = ksScenePicker(nodes(), meshBounds, orbit).at(mouse);
    }
    const bool isAdding = keys.testFlag(Qt::ControlModifier);
    if (found != osg::NullFC && isAdding)
        document.selection().toggle(found.getFieldContainerId());
    else if (found != osg::NullFC)
        document.selection().set(found);
    else if (!isAdding)
        document.selection().clear();
}

void ksViewport::selectBand(Qt::KeyboardModifiers keys)
{
    ksSelection::Ids ids;
    if (keys.testFlag(Qt::ControlModifier))
        ids = document.selection().ids();
    {
        const osg::AspectScope scope(1);
        for (const osg::NodePtr &node :
             ksScenePicker(nodes(), meshBounds, orbit).within(QRectF(pressed, last).normalized()))
            if (std::find(ids.begin(), ids.end(), node.getFieldContainerId()) == ids.end())
                ids.push_back(node.getFieldContainerId());
    }
    document.selection().set(ids);
}

void ksViewport::hover(const QPointF &mouse)
{
    const auto shown = handles();
    const auto now = shown ? shown->at(mouse) : std::nullopt;
    if (now == hovered)
        return;
    hovered = now;
    refresh();
}
