// SPDX-License-Identifier: MIT
#include <editor/document/ksDocument.h>
#include <editor/edits/ksTransformEdits.h>
#include <editor/ksEditorError.h>
#include <editor/scene/ksContainers.h>
#include <editor/viewport/ksHandleDrag.h>

#include <ksundo/core/ksMultiCommand.h>
#include <ksundo/field/ksUndoUtil.h>

#include <OSGAffineFactors.h>
#include <ksNodeUtils.h>

#include <QCoreApplication>
#include <QtMath>

#include <algorithm>
#include <unordered_set>

namespace {

struct DragTexts
{
    Q_DECLARE_TR_FUNCTIONS(ksHandleDrag)
};

QString verbOf(ksViewTool tool)
{
    switch (tool) {
    case ksViewTool::Turn:
        return DragTexts::tr("Turn");
    case ksViewTool::Scale:
        return DragTexts::tr("Scale");
    default:
        return DragTexts::tr("Move");
    }
}

/// \a angle, give or take whole turns, as near to \a reference as it gets.
float nearTo(float angle, float reference)
{
    constexpr float Turn = 360;
    return angle + Turn * std::round((reference - angle) / Turn);
}

/// The Euler angles that turn as \a angles do and are nearest to \a reference.
QVector3D nearTo(const QVector3D &angles, const QVector3D &reference, int middle)
{
    constexpr float HalfTurn = 180;
    QVector3D one;
    QVector3D other;
    for (int axis = 0; axis < 3; ++axis) {
        one[axis] = nearTo(angles[axis], reference[axis]);
        other[axis] =
            nearTo(axis == middle ? HalfTurn - angles[axis] : HalfTurn + angles[axis], reference[axis]);
    }
    return (one - reference).lengthSquared() <= (other - reference).lengthSquared() ? one : other;
}

QVector3D eulerOf(const ksDragPlace &place, const QQuaternion &rotation)
{
    const osg::Vec3f angles = place.transform->convertQuatToEuler(
        osg::Quaternion(rotation.x(), rotation.y(), rotation.z(), rotation.scalar()), true);
    const std::string &order = place.transform->getEulerRotationOrder();
    const int middle = order.size() == 3 ? std::clamp(order[1] - 'X', 0, 2) : 1;
    return nearTo(ksToQt(angles), place.euler, middle);
}

} // namespace

std::vector<osg::NodePtr> ksHandleDrag::targetsOf(ksDocument &document)
{
    const osg::NodePtr root = document.root();
    const std::vector<osg::NodePtr> selected = document.selection().nodes();
    std::vector<osg::NodePtr> all;
    std::unordered_set<osg::UInt32> known;
    // The last one first, since that is the current one.
    for (auto node = selected.rbegin(); node != selected.rend(); ++node) {
        const osg::NodePtr target = ksNodeUtils::findTransform(*node);
        const bool isWhole = target == root && *node != target;
        if (target != osg::NullFC && !isWhole && known.insert(target.getFieldContainerId()).second)
            all.push_back(target);
    }
    std::vector<osg::NodePtr> targets;
    for (auto target = all.rbegin(); target != all.rend(); ++target)
        if (!ksContainers::isBelowAny(*target, known))
            targets.push_back(*target);
    return targets;
}

ksHandleDrag::ksHandleDrag(ksDocument &editedDocument, const std::vector<osg::NodePtr> &targets,
                           ksViewTool usedTool, bool isInWorld, const ksViewHandles &handles,
                           const ksViewHandle &handle, const ksOrbitCamera &shownBy, const QPointF &mouse)
    : document(editedDocument)
    , tool(usedTool)
    , isWorld(isInWorld)
    , grasped(handle)
    , frame(handles.frame())
    , camera(shownBy)
    , start(mouse)
    , gesture(&editedDocument.stack())
{
    for (const osg::NodePtr &target : targets) {
        places.emplace_back(target);
        if (!places.back().canInvert())
            throw ksEditorError(
                DragTexts::tr("'%1' cannot be moved here: what is above it has no extent in some direction")
                    .arg(ksContainers::nameOf(target)));
    }
    constexpr unsigned long LongestList = 3;
    text = verbOf(tool) + QLatin1Char(' ') + ksUndoUtil::makeNameList(targets, LongestList);
}

void ksHandleDrag::moveTo(const QPointF &mouse)
{
    const auto way = tool == ksViewTool::Move ? wayTo(mouse) : std::nullopt;
    const auto turn = tool == ksViewTool::Turn ? turnTo(mouse) : std::nullopt;
    const auto factor = tool == ksViewTool::Scale ? factorTo(mouse) : std::nullopt;
    if (!way && !turn && !factor)
        return;
    auto command = std::make_unique<ksMultiCommand>(text);
    for (const ksDragPlace &place : places) {
        if (way)
            addMove(place, *way, command.get());
        else if (turn)
            addTurn(place, *turn, command.get());
        else
            addScale(place, *factor, command.get());
    }
    document.add(command.release());
}

std::optional<QVector3D> ksHandleDrag::wayTo(const QPointF &mouse) const
{
    const ksRay from = camera.rayAt(start);
    const ksRay to = camera.rayAt(mouse);
    if (grasped.kind == ksViewHandle::Kind::Axis) {
        const auto first = from.closestOn(frame.origin, axis());
        const auto last = to.closestOn(frame.origin, axis());
        if (!first || !last)
            return {};
        return (*last - *first) * axis();
    }
    const QVector3D normal =
        grasped.kind == ksViewHandle::Kind::Plane ? axis() : (camera.eye() - frame.origin).normalized();
    const auto first = from.meetPlane(frame.origin, normal);
    const auto last = to.meetPlane(frame.origin, normal);
    if (!first || !last)
        return {};
    return *last - *first;
}

std::optional<float> ksHandleDrag::turnTo(const QPointF &mouse) const
{
    constexpr float SeenFromTheSide = 0.2F;
    const QVector3D toEye = (camera.eye() - frame.origin).normalized();
    const auto first = camera.rayAt(start).meetPlane(frame.origin, axis());
    if (std::abs(QVector3D::dotProduct(axis(), toEye)) > SeenFromTheSide) {
        const auto last = camera.rayAt(mouse).meetPlane(frame.origin, axis());
        if (!first || !last)
            return {};
        const QVector3D one = *first - frame.origin;
        const QVector3D other = *last - frame.origin;
        const float sine = QVector3D::dotProduct(axis(), QVector3D::crossProduct(one, other));
        return nearTo(qRadiansToDegrees(std::atan2(sine, QVector3D::dotProduct(one, other))), lastTurn);
    }
    // The mouse goes along the ring, as it is in the picture on the side that is near.
    const QVector3D along = QVector3D::crossProduct(axis(), toEye).normalized();
    const float pixel = camera.pixelAt(frame.origin);
    const QPointF step = camera.project(frame.origin + pixel * along) - camera.project(frame.origin);
    constexpr double DegreesPerPixel = 0.6;
    return float(DegreesPerPixel * QPointF::dotProduct(mouse - start, step));
}

std::optional<float> ksHandleDrag::factorTo(const QPointF &mouse) const
{
    if (grasped.kind == ksViewHandle::Kind::Centre) {
        constexpr double PixelsPerDoubling = 100;
        const QPointF way = mouse - start;
        return float(std::exp2((way.x() - way.y()) / PixelsPerDoubling));
    }
    const auto first = camera.rayAt(start).closestOn(frame.origin, axis());
    const auto last = camera.rayAt(mouse).closestOn(frame.origin, axis());
    if (!first || !last || *first == 0)
        return {};
    // Nothing can be made larger again that has no extent.
    constexpr float Smallest = 1e-3F;
    const float factor = *last / *first;
    return std::copysign(std::max(std::abs(factor), Smallest), factor);
}

void ksHandleDrag::addMove(const ksDragPlace &place, const QVector3D &way, QUndoCommand *parent)
{
    addValue("translation", place, place.translation + place.toParent.mapVector(way), parent);
}

void ksHandleDrag::addTurn(const ksDragPlace &place, float degrees, QUndoCommand *parent)
{
    lastTurn = degrees;
    // Each about an axis of its own space, where the space is the node's.
    const QVector3D about = isWorld || &place == &places.back()
                                ? axis()
                                : place.frame(tool, false).axes[std::size_t(grasped.axis)];
    const float handedness = place.toWorld.determinant() < 0 ? -1 : 1;
    const QQuaternion turn =
        QQuaternion::fromAxisAndAngle(place.toParent.mapVector(about).normalized(), handedness * degrees);
    addValue("eulerRotation", place, eulerOf(place, (turn * place.rotation).normalized()), parent);
}

void ksHandleDrag::addScale(const ksDragPlace &place, float factor, QUndoCommand *parent)
{
    if (grasped.kind == ksViewHandle::Kind::Axis && isWorld) {
        addWorldScale(place, factor, parent);
        return;
    }
    QVector3D scale = place.scale;
    if (grasped.kind == ksViewHandle::Kind::Axis)
        scale[grasped.axis] *= factor;
    else
        scale *= factor;
    addValue("scale", place, scale, parent);
}

void ksHandleDrag::addWorldScale(const ksDragPlace &place, float factor, QUndoCommand *parent)
{
    // In the parent's space, without what moves.
    QMatrix4x4 grow;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            grow(row, column) += (factor - 1) * axis()[row] * axis()[column];
    QMatrix4x4 toWorld = place.toWorld;
    QMatrix4x4 own = place.own;
    toWorld.setColumn(3, QVector4D(0, 0, 0, 1));
    own.setColumn(3, QVector4D(0, 0, 0, 1));
    const QMatrix4x4 grown = toWorld.inverted() * grow * toWorld * own;

    // What has no factors stays as it is, by as many commands, so that those of a drag merge.
    osg::Matrix matrix;
    matrix.setValue(grown.constData());
    osg::AffineFactors factors;
    const bool isPossible = factors.setFactorsOf(matrix);
    const QQuaternion whole(float(factors.rotation.w()), float(factors.rotation.x()),
                            float(factors.rotation.y()), float(factors.rotation.z()));
    const QQuaternion turn =
        isPossible ? (whole * place.orientationTurn().conjugated()).normalized() : place.rotation;
    const auto toQt = [](const osg::Vec3d &vector) {
        return QVector3D(float(vector[0]), float(vector[1]), float(vector[2]));
    };
    addValue("translation", place, place.translation + place.scalePivot() - place.scalePivotWith(turn),
             parent);
    addValue("eulerRotation", place, isPossible ? eulerOf(place, turn) : place.euler, parent);
    addValue("scale", place, isPossible ? toQt(factors.scale) : place.scale, parent);
    addValue("shear", place, isPossible ? toQt(factors.shear) : place.shear, parent);
}

void ksHandleDrag::addValue(const char *property, const ksDragPlace &place, const QVector3D &value,
                            QUndoCommand *parent)
{
    // In the parent's space whichever axes the handles have: values of the world are restored up to rounding
    // only.
    ksTransformTarget target;
    target.node = place.node;
    ksMergingAs(ksMerging::WithPrevious, ksTransformEdits::find(QString::fromLatin1(property))
                                             ->make(target, ksToOsg(value), ksTransformCallback(), parent));
}
