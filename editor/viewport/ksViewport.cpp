// SPDX-License-Identifier: MIT
#include <editor/document/ksDocument.h>
#include <editor/ksEditorError.h>
#include <editor/viewport/ksCanvas.h>
#include <editor/viewport/ksHandleDrag.h>
#include <editor/viewport/ksNodePlace.h>
#include <editor/viewport/ksScenePicker.h>
#include <editor/viewport/ksViewport.h>

#include <OpenSG/OSGThreadContext.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QRubberBand>
#include <QStackedLayout>
#include <QWheelEvent>
#include <QtMath>

#include <algorithm>

namespace {

const QColor SelectedColor(255, 160, 48);
const QColor AlsoSelectedColor(255, 200, 130);
const QColor LightColor(250, 222, 120);

std::vector<QVector3D> circle(const QVector3D &centre, const QVector3D &right, const QVector3D &up)
{
    constexpr int Parts = 24;
    std::vector<QVector3D> points;
    for (int i = 0; i <= Parts; ++i) {
        const auto angle = float(2 * M_PI * i / Parts);
        points.push_back(centre + std::cos(angle) * right + std::sin(angle) * up);
    }
    return points;
}

} // namespace

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
        connect(canvas, &ksCanvas::failed, this, &ksViewport::showFailure);
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
    connect(&document.selection(), &ksSelection::changed, this, &ksViewport::refresh);
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
    const std::vector<osg::NodePtr> targets = ksHandleDrag::targetsOf(document);
    if (usedTool == Tool::Select || targets.empty())
        return {};
    const osg::AspectScope scope(1);
    const ksNodePlace place(targets.back());
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
    const osg::AspectScope scope(1);
    const std::vector<ksVisibleNode> &all = nodes();
    ksBounds selected;
    for (const osg::UInt32 id : document.selection().ids()) {
        const int place = visible.find(id);
        if (place < 0)
            continue;
        const ksVisibleNode &node = all[std::size_t(place)];
        const ksBounds own = visible.ownBounds(node, meshBounds);
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
    if (mode == Mode::Click && (mouse - pressed).manhattanLength() >= QApplication::startDragDistance()) {
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
    orbit.zoom(float(std::pow(PerUnit, event->angleDelta().y())), event->position());
    refreshMoved();
    event->accept();
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
    switch (event->key()) {
    case Qt::Key_Escape:
        if (mode == Mode::Idle)
            QWidget::keyPressEvent(event);
        else
            cancel();
        return;
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
    QOpenGLFunctions &gl = *QOpenGLContext::currentContext()->functions();
    gl.glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    overlay.addBackground(QColor(46, 49, 54), QColor(92, 99, 108));
    overlay.draw(QMatrix4x4(), false);

    orbit.setScene(sceneBounds());
    renderer.draw(nodes(), meshBounds, orbit);
    drawGrid();
    overlay.draw(orbit.viewProjection(), true);
    drawSelection();
    drawLights();
    if (const auto shown = handles())
        shown->draw(overlay, handleDrag != nullptr ? handleDrag->handle() : hovered);
    overlay.draw(orbit.viewProjection(), false);
}

/// On the ground, a little below it where something stands on it, and as fine as the scene is large.
void ksViewport::drawGrid()
{
    constexpr int Lines = 10;
    constexpr float Below = 2e-3F;
    constexpr double Fading = 0.35;
    const float radius = sceneBounds().isEmpty() ? 5 : std::max(sceneBounds().radius(), 1e-3F);
    const float step = std::pow(10.0F, std::floor(std::log10(radius / 2)));
    const float cell = radius / step > 8 ? 5 * step : step;
    const float y = -Below * radius;
    const float end = Lines * cell;
    for (int i = -Lines; i <= Lines; ++i) {
        QColor color(200, 205, 212);
        color.setAlphaF(Fading * (1 - std::abs(i) / double(Lines + 1)) * (i == 0 ? 1.6 : 1));
        const float side = cell * float(i);
        QColor alongX = color;
        QColor alongZ = color;
        if (i == 0) {
            alongX = QColor(232, 76, 70, 150);
            alongZ = QColor(72, 138, 240, 150);
        }
        overlay.addLine({-end, y, side}, {end, y, side}, alongX);
        overlay.addLine({side, y, -end}, {side, y, end}, alongZ);
    }
}

void ksViewport::drawSelection()
{
    const std::vector<ksVisibleNode> &all = nodes();
    const ksSelection::Ids &ids = document.selection().ids();
    constexpr std::ptrdiff_t MostBoxes = 200;
    for (auto next = ids.end() - std::min(MostBoxes, ids.end() - ids.begin()); next != ids.end(); ++next) {
        const osg::UInt32 id = *next;
        const int place = visible.find(id);
        if (place < 0)
            continue;
        const ksVisibleNode &node = all[std::size_t(place)];
        const ksBounds own = visible.ownBounds(node, meshBounds);
        if (own.isEmpty())
            continue;
        std::array<QVector3D, 8> corners = own.corners();
        for (QVector3D &corner : corners)
            corner = node.matrix.map(corner);
        for (unsigned int corner = 0; corner < corners.size(); ++corner)
            for (const unsigned int side : {1U, 2U, 4U})
                if ((corner & side) == 0)
                    overlay.addLine(corners[corner], corners[corner | side],
                                    id == ids.back() ? SelectedColor : AlsoSelectedColor);
    }
}

void ksViewport::drawLights()
{
    for (const ksVisibleNode &node : nodes())
        if (node.light != osg::NullFC)
            drawLight(node, document.selection().contains(node.node.getFieldContainerId()));
}

/// A circle with rays, all of one size in the picture; where it shines to one side, with its cone or the
/// direction that it shines in.
void ksViewport::drawLight(const ksVisibleNode &node, bool isSelected)
{
    constexpr float Radius = 0.5F;
    constexpr float ConeLength = 6;
    constexpr int Rays = 8;
    constexpr float HalfTurn = 180;
    const QColor color = isSelected ? SelectedColor : LightColor;
    const QVector3D centre = node.matrix.map(QVector3D());
    if (!orbit.isInFront(centre))
        return;
    const float size = ksScenePicker::LightRadius * orbit.pixelAt(centre);
    const QMatrix4x4 toScene = orbit.view().inverted();
    const QVector3D right = size * toScene.mapVector(QVector3D(1, 0, 0));
    const QVector3D up = size * toScene.mapVector(QVector3D(0, 1, 0));
    overlay.addLines(circle(centre, Radius * right, Radius * up), color);
    for (int i = 0; i < Rays; ++i) {
        const auto angle = float(2 * M_PI * i / Rays);
        const QVector3D way = std::cos(angle) * right + std::sin(angle) * up;
        overlay.addLine(centre + 0.7F * way, centre + way, color);
    }

    const QVector3D along = node.matrix.mapVector(QVector3D(0, 0, -1)).normalized();
    const QVector3D first = QVector3D::crossProduct(along, QVector3D(0.3F, 1, 0.2F)).normalized();
    const QVector3D second = QVector3D::crossProduct(along, first);
    const float cone = node.light->getConeAngle();
    const float penumbra = std::max(node.light->getPenumbraAngle(), 0.0F);
    const auto drawCone = [&](float angle, const QColor &shade) {
        const float half = qDegreesToRadians(angle / 2);
        const float length = ConeLength * size;
        const QVector3D base = centre + std::cos(half) * length * along;
        const float radius = std::sin(half) * length;
        overlay.addLines(circle(base, radius * first, radius * second), shade);
        for (const QVector3D &side : {first, second, -first, -second})
            overlay.addLine(centre, base + radius * side, shade);
    };
    if (cone < HalfTurn)
        drawCone(std::max(cone, 0.0F), color);
    if (cone < HalfTurn && penumbra > 0 && cone + penumbra < HalfTurn) {
        QColor faint = color;
        faint.setAlphaF(0.45);
        drawCone(cone + penumbra, faint);
    }
    if (cone == HalfTurn)
        overlay.addLine(centre, centre + ConeLength * size * along, color);
}

void ksViewport::beginDrag(const QPointF &mouse)
{
    const auto shown = handles();
    const auto handle = shown ? shown->at(mouse) : std::nullopt;
    if (!handle)
        return;
    mode = Mode::Handle;
    try {
        handleDrag = std::make_unique<ksHandleDrag>(document, ksHandleDrag::targetsOf(document), usedTool,
                                                    usedSpace == Space::World, *shown, *handle, orbit, mouse);
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
