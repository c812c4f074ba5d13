// SPDX-License-Identifier: MIT
#include "../ksEditorFixture.h"
#include <editor/document/ksDocument.h>
#include <editor/document/ksDocumentHistory.h>
#include <editor/document/ksNodeEdits.h>
#include <editor/edits/ksFieldEdits.h>
#include <editor/edits/ksTransformEdits.h>
#include <editor/edits/ksTreeEdits.h>
#include <editor/viewport/ksViewport.h>

#include <OSGTransform3D.h>
#include <OSGUBRDFMaterial.h>
#include <OSGUberLight.h>
#include <OSGUberMaterial.h>
#include <ksNodeUtils.h>

#include <QApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QOpenGLWidget>
#include <QRubberBand>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include <functional>
#include <limits>
#include <support/ksCommandTime.h>
#include <vector>

namespace {

using Kind = ksViewHandle::Kind;
using Tool = ksViewport::Tool;

class ksViewportTest : public testing::Test
{
protected:
    ksViewportTest()
    {
        document.open(ksRoomFile());
        viewport.resize(600, 400);
        viewport.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&viewport));
    }

    osg::NodePtr node(const char *name) const { return ksFindNode(document.root(), name); }
    static osg::Transform3DPtr transform(const osg::NodePtr &node)
    {
        return ksNodeUtils::getTransform3D(node, -1);
    }
    int steps() const { return document.stack().count(); }
    void undo() { document.stack().undo(); }

    /// Where the middle of \a node's own mesh is in the picture.
    QPoint placeOf(const osg::NodePtr &node) const
    {
        const osg::NodePtr meshNode = node->getChild(node->getNChildren() - 1);
        ksMeshBounds boxes;
        const QVector3D centre = boxes.of(osg::ksMeshPtr::dcast(meshNode->getCore())).centre();
        return viewport.camera().project(ksToQt(matrixOf(node)).map(centre)).toPoint();
    }
    static osg::Matrix matrixOf(osg::NodePtr node)
    {
        osg::Matrix matrix;
        for (; node != osg::NullFC; node = node->getParent())
            if (const auto core = osg::TransformPtr::dcast(node->getCore()); core != osg::NullFC)
                matrix.multLeft(core->getMatrix());
        return matrix;
    }

    void press(const QPointF &place, Qt::KeyboardModifiers keys = {})
    {
        send(QEvent::MouseButtonPress, place, keys);
    }
    void move(const QPointF &place, Qt::KeyboardModifiers keys = {}) { send(QEvent::MouseMove, place, keys); }
    void release(const QPointF &place, Qt::KeyboardModifiers keys = {})
    {
        send(QEvent::MouseButtonRelease, place, keys);
    }
    void click(const QPointF &place, Qt::KeyboardModifiers keys = {})
    {
        press(place, keys);
        release(place, keys);
    }

    void turnWheel(int angle)
    {
        const QPoint middle = viewport.rect().center();
        QWheelEvent event(middle, viewport.mapToGlobal(middle), QPoint(), QPoint(0, angle), button, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&viewport, &event);
    }

    /// Presses at \a from and goes \a way in \a moves steps.
    void pull(const QPointF &from, const QPointF &way, int moves, Qt::KeyboardModifiers keys = {})
    {
        press(from, keys);
        for (int i = 1; i <= moves; ++i)
            move(from + way * i / moves, keys);
    }
    void drag(const QPointF &from, const QPointF &way, int moves = 5, Qt::KeyboardModifiers keys = {})
    {
        pull(from, way, moves, keys);
        release(from + way, keys);
    }
    QPointF grip(Kind kind, int axis) { return viewport.handles()->grip({kind, axis}); }

    /// Chooses \a tool for \a nodes.
    void grasp(Tool tool, const std::vector<osg::NodePtr> &nodes)
    {
        ksSelection::Ids ids;
        for (const osg::NodePtr &each : nodes)
            ids.push_back(each.getFieldContainerId());
        document.selection().set(ids);
        viewport.setTool(tool);
    }

    /// As if the last step had been done long ago.
    void wait()
    {
        const QUndoCommand *step = document.stack().currentCommand();
        for (int i = 0; i < step->childCount(); ++i)
            ksCommandTime::of(*static_cast<ksUndoCommand *>(const_cast<QUndoCommand *>(step->child(i)))) = 0;
    }

    ksDocument document;
    ksViewport viewport{document};

    /// The one of the mouse that is pressed.
    Qt::MouseButton button = Qt::LeftButton;

private:
    /// As the user's mouse does: to what lies on top there.
    void send(QEvent::Type type, const QPointF &place, Qt::KeyboardModifiers keys)
    {
        QWidget *below = viewport.childAt(place.toPoint());
        QWidget *receiver = below != nullptr ? below : &viewport;
        const Qt::MouseButton changed = type == QEvent::MouseMove ? Qt::NoButton : button;
        const Qt::MouseButtons buttons = type == QEvent::MouseButtonRelease ? Qt::NoButton : button;
        QMouseEvent event(type, receiver->mapFrom(&viewport, place.toPoint()),
                          viewport.mapToGlobal(place.toPoint()), changed, buttons, keys);
        QApplication::sendEvent(receiver, &event);
    }
};

std::vector<float> valuesOf(const osg::Transform3DPtr &transform)
{
    std::vector<float> values;
    for (const osg::Vec3f &value : {transform->getTranslation(), transform->getEulerRotation(),
                                    transform->getScale(), transform->getShear()})
        values.insert(values.end(), value.getValues(), value.getValues() + 3);
    const osg::Quaternion &rotation = transform->getRotation();
    values.insert(values.end(), rotation.getValues(), rotation.getValues() + 4);
    return values;
}

/// How many pixels differ.
int differences(const QImage &one, const QImage &other)
{
    int count = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            count += one.pixel(x, y) != other.pixel(x, y) ? 1 : 0;
    return count;
}

const ksTransformProperty &translation()
{
    return *ksTransformEdits::find(QStringLiteral("translation"));
}

} // namespace

TEST_F(ksViewportTest, ShowsAnEditAndItsUndo)
{
    ASSERT_TRUE(viewport.canDraw());
    const QImage before = viewport.picture();
    const ksOrbitCamera camera = viewport.camera();
    document.add(translation().make({node("Chair")}, osg::Vec3f(-1, 0, 1), {}, nullptr));
    EXPECT_GT(differences(before, viewport.picture()), 500);
    undo();
    EXPECT_EQ(differences(before, viewport.picture()), 0);
    EXPECT_TRUE(viewport.camera() == camera);

    const auto brass = osg::UBRDFMaterialPtr::dcast(
        osg::ksMeshPtr::dcast(node("Clock")->getChild(0)->getCore())->getMaterial());
    document.add(ksFieldEdits::make(QStringLiteral("Paint"), brass, QStringLiteral("baseColor"),
                                    QVariantList{0.1, 0.2, 0.9}, ksMerging::Never));
    EXPECT_GT(differences(before, viewport.picture()), 50);
    undo();
    EXPECT_EQ(differences(before, viewport.picture()), 0);
}

TEST_F(ksViewportTest, ShowsWhatThePictureShows)
{
    // As part of the window it is no different, and nothing shines through.
    EXPECT_EQ(differences(viewport.picture(), viewport.grab().toImage()), 0);
}

TEST_F(ksViewportTest, DoesNotShowWhatIsNotRecorded)
{
    const QImage before = viewport.picture();
    const osg::NodePtr table = node("Table");
    table->setTravMask(0);
    ksNodeEdits::rename(document, node("Chair"), QStringLiteral("Stool"));
    EXPECT_EQ(differences(before, viewport.picture()), 0);
    osg::endEditCP(table, osg::Node::TravMaskFieldMask);
    ksNodeEdits::rename(document, node("Stool"), QStringLiteral("Chair"));
    EXPECT_GT(differences(before, viewport.picture()), 500);
}

TEST_F(ksViewportTest, ShowsEditsOfMeshesImagesAndLights)
{
    const auto expectChange = [this](const char *what, const std::function<void()> &edit) {
        const QImage before = viewport.picture();
        edit();
        document.add(translation().make({document.root()}, osg::Vec3f(0, 0, 0), {}, nullptr));
        EXPECT_GT(differences(before, viewport.picture()), 50) << what;
    };
    const auto table = osg::ksMeshPtr::dcast(node("Table")->getChild(3)->getCore());
    ASSERT_NE(table, osg::NullFC);
    expectChange("a mesh", [&] {
        CPEdit(table, osg::ksMesh::PositionsFieldMask);
        for (osg::Pnt3f &position : table->getPositions())
            position[1] += 0.5F;
    });
    click(viewport.camera().project(ksToQt(matrixOf(node("Table"))).map(QVector3D(0, 0.74F + 0.5F, 0.1F))));
    EXPECT_EQ(document.selection().current(), node("Table"));
    document.selection().clear();

    const auto planks = osg::UberMaterialPtr::dcast(
        osg::ksMeshPtr::dcast(node("Floor")->getChild(0)->getCore())->getMaterial());
    ASSERT_NE(planks, osg::NullFC);
    const osg::ImagePtr image = planks->getColorComponentData()[0]->getImage();
    expectChange("an image", [&] {
        CPEdit(image, osg::Image::PixelFieldMask);
        std::fill(image->getPixel().begin(), image->getPixel().end(), osg::UInt8(90));
    });
    const auto brass = osg::UBRDFMaterialPtr::dcast(
        osg::ksMeshPtr::dcast(node("Clock")->getChild(0)->getCore())->getMaterial());
    expectChange("an environment", [&] {
        CPEdit(brass, osg::UBRDFMaterial::EnvironmentFieldMask);
        brass->setEnvironment(planks);
    });
    const auto light = osg::UberLightPtr::dcast(node("CeilingSpot")->getChild(0)->getCore());
    expectChange("a cone", [&] {
        CPEdit(light, osg::UberLight::ConeAngleFieldMask);
        light->setConeAngle(80);
    });
    expectChange("a colour of light", [&] {
        CPEdit(light, osg::UberLight::DiffuseFieldMask);
        light->setDiffuse(osg::Vec3f(1, 0, 0));
    });
}

/// Scripts can set any of these.
TEST_F(ksViewportTest, ShowsAnImageOfTooFewPixelsAsWhite)
{
    const auto planks = osg::UberMaterialPtr::dcast(
        osg::ksMeshPtr::dcast(node("Floor")->getChild(0)->getCore())->getMaterial());
    const osg::ImagePtr image = planks->getColorComponentData()[0]->getImage();
    const QImage before = viewport.picture();
    QImage white;
    for (const int wrong : {0, 1 << 12, std::numeric_limits<int>::max(), -8})
        for (const char *size : {"width", "height", "depth"}) {
            document.add(ksFieldEdits::make(QString(), image, QLatin1String(size), wrong, ksMerging::Never));
            const QImage picture = viewport.picture();
            white = white.isNull() ? picture : white;
            EXPECT_GT(differences(before, picture), 500) << size << ' ' << wrong;
            EXPECT_EQ(differences(white, picture), 0) << size << ' ' << wrong;
            undo();
            EXPECT_EQ(differences(before, viewport.picture()), 0) << size << ' ' << wrong;
        }
}

TEST_F(ksViewportTest, ShowsNoHiddenNodes)
{
    const QImage before = viewport.picture();
    const osg::NodePtr book = node("Book");
    const QPoint place = placeOf(book);
    click(place);
    EXPECT_EQ(document.selection().current(), book);
    document.selection().clear();
    ksNodeEdits::show(document, {node("Table")}, false);
    EXPECT_GT(differences(before, viewport.picture()), 500);
    click(place);
    EXPECT_NE(document.selection().current(), book);
}

TEST_F(ksViewportTest, ShowsTheNextDocument)
{
    document.clear();
    const QImage empty = viewport.picture();
    document.open(ksRoomFile());
    EXPECT_GT(differences(empty, viewport.picture()), 10000);
    document.clear();
    EXPECT_EQ(differences(empty, viewport.picture()), 0);
}

TEST_F(ksViewportTest, SelectsByClick)
{
    const osg::NodePtr book = node("Book");
    const osg::NodePtr backrest = node("Backrest");
    click(placeOf(book));
    EXPECT_EQ(document.selection().ids(), ksSelection::Ids{book.getFieldContainerId()});
    click(placeOf(backrest), Qt::ControlModifier);
    EXPECT_EQ(document.selection().nodes(), (std::vector<osg::NodePtr>{book, backrest}));
    click(placeOf(book), Qt::ControlModifier);
    EXPECT_EQ(document.selection().nodes(), std::vector<osg::NodePtr>{backrest});
    click(QPoint(5, 5), Qt::ControlModifier);
    EXPECT_EQ(document.selection().nodes(), std::vector<osg::NodePtr>{backrest});
    click(QPoint(5, 5));
    EXPECT_TRUE(document.selection().ids().empty());
}

TEST_F(ksViewportTest, FindsLightsAndNothingLocked)
{
    const osg::NodePtr light = node("CeilingSpot")->getChild(0);
    ASSERT_NE(osg::UberLightPtr::dcast(light->getCore()), osg::NullFC);
    click(viewport.camera().project(ksToQt(matrixOf(light)).map(QVector3D())));
    EXPECT_EQ(document.selection().current(), light);
    // The floor is locked.
    click(viewport.camera().project(QVector3D(-1.5F, 0, 1.5F)));
    EXPECT_TRUE(document.selection().ids().empty());
}

TEST_F(ksViewportTest, SelectsWhatLiesInAFrame)
{
    const QPoint seat = placeOf(node("Seat"));
    drag(QPointF(2, 2), QPointF(590, 390));
    EXPECT_TRUE(document.selection().contains(node("Table").getFieldContainerId()));
    EXPECT_FALSE(document.selection().contains(node("Floor").getFieldContainerId())) << "it is locked";
    drag(seat - QPointF(45, 60), QPointF(90, 120));
    EXPECT_TRUE(document.selection().contains(node("Seat").getFieldContainerId()));
    EXPECT_FALSE(document.selection().contains(node("Table").getFieldContainerId())) << "it sticks out";
    const std::size_t some = document.selection().ids().size();
    drag(QPointF(2, 2), QPointF(590, 390), 5, Qt::ControlModifier);
    EXPECT_GT(document.selection().ids().size(), some);
    drag(QPointF(2, 2), QPointF(20, 20));
    EXPECT_TRUE(document.selection().ids().empty());
    EXPECT_EQ(steps(), 0);

    const osg::NodePtr points = ksContainers::createNode("Points", osg::ksMesh::create());
    document.add(ksTreeEdits::makeAdd(node("Seat"), points));
    drag(seat - QPointF(45, 60), QPointF(90, 120));
    EXPECT_TRUE(document.selection().contains(node("Seat").getFieldContainerId())) << "a mesh without points";
}

TEST_F(ksViewportTest, MovesInOneStepWhateverThePace)
{
    const osg::NodePtr chair = node("Chair");
    const std::vector<float> before = valuesOf(transform(chair));
    const QImage picture = viewport.picture();
    for (const int moves : {60, 1}) {
        grasp(Tool::Move, {chair});
        drag(grip(Kind::Axis, 0), QPointF(40, 10), moves);
        EXPECT_EQ(steps(), 1);
        const osg::Vec3f moved = transform(chair)->getTranslation();
        EXPECT_GT(moved[0], before[0] + 0.2F);
        EXPECT_NEAR(moved[1], before[1], 1e-5F);
        EXPECT_NEAR(moved[2], before[2], 1e-5F);
        undo();
        EXPECT_EQ(valuesOf(transform(chair)), before);
        EXPECT_EQ(document.stack().redoText(), QStringLiteral("Move 'Chair'"));
        document.selection().clear();
        EXPECT_EQ(differences(picture, viewport.picture()), 0);
    }
}

TEST_F(ksViewportTest, EndsInTheSamePlaceWhateverThePace)
{
    struct Drag
    {
        Tool tool;
        ksViewport::Space space;
        Kind kind;
    };
    const osg::NodePtr chair = node("Chair");
    for (const Drag &each : {Drag{Tool::Scale, ksViewport::Space::World, Kind::Axis},
                             Drag{Tool::Scale, ksViewport::Space::Local, Kind::Axis},
                             Drag{Tool::Turn, ksViewport::Space::World, Kind::Ring}}) {
        viewport.setSpace(each.space);
        std::vector<float> end;
        for (const int moves : {60, 1}) {
            grasp(each.tool, {chair});
            const std::vector<float> before = valuesOf(transform(chair));
            drag(grip(each.kind, 0), QPointF(25, 6), moves);
            EXPECT_NE(valuesOf(transform(chair)), before);
            end = end.empty() ? valuesOf(transform(chair)) : end;
            EXPECT_THAT(valuesOf(transform(chair)), testing::Pointwise(testing::FloatNear(1e-4F), end));
            undo();
        }
    }
}

TEST_F(ksViewportTest, MovesInOneStepHoweverLongItTakes)
{
    const osg::NodePtr chair = node("Chair");
    const std::vector<float> before = valuesOf(transform(chair));
    grasp(Tool::Move, {chair});
    const QPointF start = grip(Kind::Axis, 0);
    press(start);
    for (int i = 1; i <= 5; ++i) {
        move(start + QPointF(10, 2) * i);
        ASSERT_EQ(steps(), 1);
        wait();
    }
    release(start + QPointF(50, 10));
    EXPECT_EQ(steps(), 1);
    undo();
    EXPECT_EQ(valuesOf(transform(chair)), before);
}

/// However many moves of the mouse there are, a picture is drawn when there is time for it, and then of the
/// last.
TEST_F(ksViewportTest, KeepsUpWithTheMouse)
{
    const auto *canvas = viewport.findChild<QOpenGLWidget *>();
    QSignalSpy frames(canvas, &QOpenGLWidget::frameSwapped);
    const auto framesOf = [&](const std::function<void()> &work) {
        QApplication::processEvents();
        frames.clear();
        work();
        QApplication::processEvents();
        return frames.count();
    };
    grasp(Tool::Move, {node("Chair")});
    const QPointF start = grip(Kind::Axis, 0);
    EXPECT_EQ(framesOf([&] { pull(start, QPointF(40, 10), 60); }), 1);
    EXPECT_EQ(framesOf([&] { move(start + QPointF(20, 5)); }), 1);
    EXPECT_EQ(framesOf([&] { release(start + QPointF(20, 5)); }), 1) << "in full";
    EXPECT_EQ(framesOf([] {}), 0);
    EXPECT_EQ(steps(), 1);
}

TEST_F(ksViewportTest, TakesNoStepForAClickOnAHandle)
{
    const osg::NodePtr chair = node("Chair");
    grasp(Tool::Move, {chair});
    drag(grip(Kind::Axis, 0), QPointF(1, 0), 1);
    EXPECT_EQ(steps(), 0);
    EXPECT_EQ(document.selection().current(), chair);
    // Once it is a drag, it may come back to where it began.
    const QPointF start = grip(Kind::Axis, 0);
    pull(start, QPointF(30, 0), 3);
    const osg::Vec3f far = transform(chair)->getTranslation();
    move(start + QPointF(1, 0));
    EXPECT_NE(transform(chair)->getTranslation(), far);
    release(start);
    EXPECT_EQ(steps(), 1);
}

TEST_F(ksViewportTest, KeepsTheCameraDuringADrag)
{
    grasp(Tool::Move, {node("Chair")});
    const ksOrbitCamera camera = viewport.camera();
    pull(grip(Kind::Axis, 0), QPointF(40, 10), 3);
    const std::vector<float> pulled = valuesOf(transform(node("Chair")));
    turnWheel(120);
    QTest::keyClick(&viewport, Qt::Key_Left);
    QTest::keyClick(&viewport, Qt::Key_Plus);
    viewport.frameSelection();
    viewport.frameAll();
    EXPECT_TRUE(viewport.camera() == camera);
    EXPECT_EQ(valuesOf(transform(node("Chair"))), pulled);
    release(QPointF(300, 200));
    turnWheel(120);
    EXPECT_FALSE(viewport.camera() == camera);
}

/// Grabs and filters of others may take a release away, and another window the keys.
TEST_F(ksViewportTest, EndsADragThatHasLostItsReleaseOrItsFocus)
{
    const osg::NodePtr chair = node("Chair");
    grasp(Tool::Move, {chair});
    for (const bool isReleaseLost : {true, false}) {
        const QPointF start = grip(Kind::Axis, 0);
        pull(start, QPointF(40, 10), 3);
        const std::vector<float> pulled = valuesOf(transform(chair));
        if (isReleaseLost) {
            button = Qt::NoButton;
        } else {
            QFocusEvent event(QEvent::FocusOut);
            QApplication::sendEvent(&viewport, &event);
        }
        move(start + QPointF(80, 20));
        button = Qt::LeftButton;
        EXPECT_EQ(valuesOf(transform(chair)), pulled);
        EXPECT_EQ(steps(), isReleaseLost ? 1 : 2) << "what has been done stays done";
        release(start);
    }
}

TEST_F(ksViewportTest, SelectsNothingAfterEscapeInAFrame)
{
    document.selection().set(node("Vase"));
    pull(QPointF(2, 2), QPointF(590, 390), 5);
    const auto *band = viewport.findChild<QRubberBand *>();
    EXPECT_TRUE(band->isVisible());
    QTest::keyClick(&viewport, Qt::Key_Escape);
    EXPECT_FALSE(band->isVisible());
    release(QPointF(592, 392));
    EXPECT_EQ(document.selection().nodes(), std::vector<osg::NodePtr>{node("Vase")});
}

TEST_F(ksViewportTest, TakesTwoDragsAsTwoSteps)
{
    const osg::NodePtr chair = node("Chair");
    grasp(Tool::Move, {chair});
    drag(grip(Kind::Axis, 1), QPointF(0, -20));
    const std::vector<float> between = valuesOf(transform(chair));
    drag(grip(Kind::Axis, 1), QPointF(0, -20));
    EXPECT_EQ(steps(), 2);
    undo();
    EXPECT_EQ(valuesOf(transform(chair)), between);
}

TEST_F(ksViewportTest, FollowsTheMouseInAPlane)
{
    const osg::NodePtr chair = node("Chair");
    const osg::Vec3f before = transform(chair)->getTranslation();
    grasp(Tool::Move, {chair});
    const QPointF start = viewport.camera().project(viewport.handles()->frame().origin);
    const QPointF way(30, -12);
    drag(grip(Kind::Centre, 0), way);
    const QPointF end = viewport.camera().project(viewport.handles()->frame().origin);
    EXPECT_NEAR(end.x(), start.x() + way.x(), 1.5);
    EXPECT_NEAR(end.y(), start.y() + way.y(), 1.5);
    undo();
    drag(grip(Kind::Plane, 1), way);
    EXPECT_NEAR(transform(chair)->getTranslation()[1], before[1], 1e-5F);
    EXPECT_NE(transform(chair)->getTranslation()[2], before[2]);
}

TEST_F(ksViewportTest, LeavesNothingAfterEscape)
{
    const osg::NodePtr chair = node("Chair");
    const std::vector<float> before = valuesOf(transform(chair));
    grasp(Tool::Move, {chair});
    pull(grip(Kind::Axis, 0), QPointF(40, 10), 20);
    EXPECT_EQ(steps(), 1);
    EXPECT_NE(valuesOf(transform(chair)), before);
    QTest::keyClick(&viewport, Qt::Key_Escape);
    EXPECT_EQ(steps(), 0);
    EXPECT_FALSE(document.stack().canRedo());
    EXPECT_FALSE(document.isModified());
    EXPECT_EQ(valuesOf(transform(chair)), before);
    move(QPointF(300, 200));
    release(QPointF(300, 200));
    EXPECT_EQ(steps(), 0);
    EXPECT_EQ(document.selection().current(), chair);
}

TEST_F(ksViewportTest, EndsADragWhenSomebodyElseUndoesIt)
{
    const osg::NodePtr chair = node("Chair");
    const std::vector<float> before = valuesOf(transform(chair));
    grasp(Tool::Move, {chair});
    pull(grip(Kind::Axis, 0), QPointF(40, 10), 20);
    undo();
    move(QPointF(300, 200));
    release(QPointF(300, 200));
    EXPECT_EQ(valuesOf(transform(chair)), before);
}

TEST_F(ksViewportTest, MovesSeveralInOneStep)
{
    const osg::NodePtr chair = node("Chair");
    const osg::NodePtr vase = node("Vase");
    const osg::NodePtr flower = node("Flower");
    const std::vector<float> chairBefore = valuesOf(transform(chair));
    const std::vector<float> vaseBefore = valuesOf(transform(vase));
    const std::vector<float> flowerBefore = valuesOf(transform(flower));
    grasp(Tool::Move, {flower, vase, chair});
    drag(grip(Kind::Axis, 0), QPointF(40, 10), 30);
    EXPECT_EQ(steps(), 1);
    const float way = transform(chair)->getTranslation()[0] - chairBefore[0];
    EXPECT_GT(way, 0.2F);
    EXPECT_NEAR(transform(vase)->getTranslation()[0] - vaseBefore[0], way, 1e-5F);
    EXPECT_EQ(valuesOf(transform(flower)), flowerBefore) << "the vase takes it along";
    undo();
    EXPECT_EQ(valuesOf(transform(chair)), chairBefore);
    EXPECT_EQ(valuesOf(transform(vase)), vaseBefore);
}

TEST_F(ksViewportTest, MovesAlongTheNodesAxes)
{
    const osg::NodePtr picture = node("Book");
    const osg::Vec3f before = transform(picture)->getTranslation();
    viewport.setSpace(ksViewport::Space::Local);
    grasp(Tool::Move, {picture});
    drag(grip(Kind::Axis, 0), QPointF(30, 0));
    const osg::Vec3f way = transform(picture)->getTranslation() - before;
    // It is turned by 25 degrees about y.
    EXPECT_NEAR(std::atan2(-way[2], way[0]), 25 * M_PI / 180, 1e-3);
    EXPECT_NEAR(way[1], 0, 1e-5F);
}

TEST_F(ksViewportTest, TurnsInOneStep)
{
    const osg::NodePtr chair = node("Chair");
    const std::vector<float> before = valuesOf(transform(chair));
    const osg::Vec3f angles = transform(chair)->getEulerRotation();
    grasp(Tool::Turn, {chair});
    const QVector3D pivot = viewport.handles()->frame().origin;
    const QMatrix4x4 old = ksToQt(matrixOf(chair));
    const QPointF start = grip(Kind::Ring, 1);
    const QPointF way(30, 2);
    drag(start, way, 60);
    const auto directionAt = [&](const QPointF &place) {
        return (*viewport.camera().rayAt(place).meetPlane(pivot, QVector3D(0, 1, 0)) - pivot).normalized();
    };
    const QMatrix4x4 turn = ksToQt(matrixOf(chair)) * old.inverted();
    EXPECT_LT((turn.mapVector(directionAt(start)) - directionAt(start + way)).length(), 0.02F)
        << "what was grasped is where the mouse is";
    EXPECT_EQ(steps(), 1);
    osg::Matrix turned = transform(chair)->getMatrix();
    EXPECT_NEAR(turned[1][1], 1, 1e-5F) << "about y";
    const osg::Vec3f now = transform(chair)->getEulerRotation();
    EXPECT_GT((now - angles).length(), 5);
    undo();
    EXPECT_EQ(valuesOf(transform(chair)), before);
}

/// With pivot, orientation and all, the pivot stays, and what was grasped follows the mouse.
TEST_F(ksViewportTest, TurnsAboutAPivotBelowAMirroredParent)
{
    const osg::NodePtr book = node("Book");
    const auto set = [this](const char *property, const osg::NodePtr &owner, const osg::Vec3f &value) {
        document.add(ksTransformEdits::find(QLatin1String(property))->make({owner}, value, {}, nullptr));
    };
    set("rotatePivot", book, osg::Vec3f(0.1F, 0.05F, 0.2F));
    set("rotatePivotTranslation", book, osg::Vec3f(0.05F, 0, 0));
    set("rotationOrientation", book, osg::Vec3f(20, 30, 40));
    set("scale", node("Table"), osg::Vec3f(-1, 1, 1));
    const int before = steps();
    for (const auto space : {ksViewport::Space::World, ksViewport::Space::Local}) {
        viewport.setSpace(space);
        grasp(Tool::Turn, {book});
        const ksViewHandleFrame frame = viewport.handles()->frame();
        const QMatrix4x4 old = ksToQt(matrixOf(book));
        const QPointF start = grip(Kind::Ring, 1);
        const QPointF end = start + QPointF(25, 3);
        drag(start, end - start, 10);
        const QMatrix4x4 turn = ksToQt(matrixOf(book)) * old.inverted();
        EXPECT_LT((turn.map(frame.origin) - frame.origin).length(), 1e-4F);
        EXPECT_LT((turn.mapVector(frame.axes[1]) - frame.axes[1]).length(), 1e-3F);
        const auto directionAt = [&](const QPointF &place) {
            return (*viewport.camera().rayAt(place).meetPlane(frame.origin, frame.axes[1]) - frame.origin)
                .normalized();
        };
        EXPECT_LT((turn.mapVector(directionAt(start)) - directionAt(end)).length(), 0.02F);
        EXPECT_GT((directionAt(start) - directionAt(end)).length(), 0.1F);
        EXPECT_EQ(steps(), before + 1);
        undo();
    }
}

TEST_F(ksViewportTest, TurnsSeveralEachAboutAnAxisOfItsOwn)
{
    const std::vector<osg::NodePtr> nodes = {node("Chair"), node("Book")};
    document.add(ksTransformEdits::find(QStringLiteral("eulerRotation"))
                     ->make({nodes[0]}, osg::Vec3f(30, 0, 50), {}, nullptr));
    viewport.setSpace(ksViewport::Space::Local);
    grasp(Tool::Turn, nodes);
    std::vector<QMatrix4x4> before;
    for (const osg::NodePtr &each : nodes)
        before.push_back(ksToQt(matrixOf(each)));
    drag(grip(Kind::Ring, 1), QPointF(25, 3), 10);
    EXPECT_EQ(steps(), 2);
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        const QMatrix4x4 turn = before[i].inverted() * ksToQt(matrixOf(nodes[i]));
        EXPECT_LT((turn.mapVector(QVector3D(0, 1, 0)) - QVector3D(0, 1, 0)).length(), 1e-3F);
        EXPECT_GT((turn.mapVector(QVector3D(1, 0, 0)) - QVector3D(1, 0, 0)).length(), 0.02F);
    }
}

TEST_F(ksViewportTest, ScalesInOneStep)
{
    const osg::NodePtr chair = node("Chair");
    const std::vector<float> before = valuesOf(transform(chair));
    grasp(Tool::Scale, {chair});
    drag(grip(Kind::Centre, 0), QPointF(60, -40), 60);
    EXPECT_EQ(steps(), 1);
    for (unsigned int axis = 0; axis < 3; ++axis)
        EXPECT_NEAR(transform(chair)->getScale()[axis], 2, 1e-4F);
    undo();
    viewport.setSpace(ksViewport::Space::Local);
    drag(grip(Kind::Axis, 1), QPointF(0, -20), 60);
    EXPECT_EQ(steps(), 1);
    EXPECT_GT(transform(chair)->getScale()[1], 1.1F);
    EXPECT_FLOAT_EQ(transform(chair)->getScale()[0], 1);
    undo();
    EXPECT_EQ(valuesOf(transform(chair)), before);
}

TEST_F(ksViewportTest, ScalesATurnedNodeAlongTheWorldsAxes)
{
    const osg::NodePtr chair = node("Chair");
    document.add(ksTransformEdits::find(QStringLiteral("scalePivot"))
                     ->make({chair}, osg::Vec3f(0.1F, 0.2F, 0.3F), {}, nullptr));
    const std::vector<float> values = valuesOf(transform(chair));
    const QMatrix4x4 before = ksToQt(matrixOf(chair));
    grasp(Tool::Scale, {chair});
    const QVector3D pivot = viewport.handles()->frame().origin;
    drag(grip(Kind::Axis, 0), QPointF(25, 6), 10);
    EXPECT_EQ(steps(), 2);
    const QMatrix4x4 after = ksToQt(matrixOf(chair));
    const QVector3D point(0.3F, 0.4F, -0.2F);
    const QVector3D from = before.map(point) - pivot;
    const QVector3D to = after.map(point) - pivot;
    EXPECT_GT(to.x() / from.x(), 1.1F);
    EXPECT_NEAR(to.y(), from.y(), 1e-4F);
    EXPECT_NEAR(to.z(), from.z(), 1e-4F);
    undo();
    EXPECT_EQ(valuesOf(transform(chair)), values);
}

TEST_F(ksViewportTest, ScalesThroughNothing)
{
    const osg::NodePtr chair = node("Chair");
    const std::vector<float> before = valuesOf(transform(chair));
    grasp(Tool::Scale, {chair});
    const QPointF start = grip(Kind::Axis, 0);
    const QPointF origin = viewport.camera().project(viewport.handles()->frame().origin);
    drag(start, 2 * (origin - start), 40);
    EXPECT_EQ(steps(), 1);
    EXPECT_LT(transform(chair)->getMatrix().det(), 0) << "mirrored";
    undo();
    EXPECT_EQ(valuesOf(transform(chair)), before);
}

TEST_F(ksViewportTest, RefusesWhatCannotBeDone)
{
    const osg::NodePtr book = node("Book");
    document.add(ksTransformEdits::find(QStringLiteral("scale"))
                     ->make({node("Table")}, osg::Vec3f(1, 0, 1), {}, nullptr));
    const int before = steps();
    QSignalSpy refused(&viewport, &ksViewport::refused);
    grasp(Tool::Move, {book});
    drag(grip(Kind::Axis, 0), QPointF(30, 0));
    EXPECT_EQ(refused.count(), 1);
    EXPECT_THAT(refused.value(0).value(0).toString().toStdString(), testing::HasSubstr("Book"));
    EXPECT_EQ(steps(), before);
}

TEST_F(ksViewportTest, HasHandlesForWhatHasATransform)
{
    EXPECT_FALSE(viewport.handles());
    QSignalSpy changed(&viewport, &ksViewport::toolChanged);
    grasp(Tool::Turn, {node("LampBulb")->getChild(0)});
    EXPECT_EQ(changed.value(0).value(0).value<Tool>(), Tool::Turn);
    ASSERT_TRUE(viewport.handles()) << "those of the bulb, which has the light's place";
    EXPECT_NE(grip(Kind::Ring, 1), QPointF());
    viewport.setTool(Tool::Select);
    EXPECT_FALSE(viewport.handles());
}

TEST_F(ksViewportTest, HasHandlesOfWhatIsSelectedAtTheMoment)
{
    grasp(Tool::Move, {node("Chair")});
    const QPointF chair = grip(Kind::Axis, 0);
    document.selection().set(node("Table"));
    EXPECT_NE(grip(Kind::Axis, 0), chair);
    document.selection().set(node("Chair"));
    ksNodeEdits::remove(document, {node("Chair")});
    EXPECT_FALSE(viewport.handles());
    undo();
    EXPECT_EQ(grip(Kind::Axis, 0), chair);
    document.clear();
    EXPECT_FALSE(viewport.handles());
}

TEST_F(ksViewportTest, GoesAroundTheScene)
{
    const ksOrbitCamera whole = viewport.camera();
    document.selection().set(node("Vase"));
    viewport.frameSelection();
    const ksOrbitCamera near = viewport.camera();
    EXPECT_FALSE(near == whole);
    EXPECT_TRUE(viewport.rect().adjusted(150, 100, -150, -100).contains(placeOf(node("Vase"))));
    QTest::keyClick(&viewport, Qt::Key_Left);
    EXPECT_FALSE(viewport.camera() == near);
    QTest::keyClick(&viewport, Qt::Key_Right);
    drag(QPointF(300, 200), QPointF(50, 20), 5, Qt::AltModifier);
    EXPECT_FALSE(viewport.camera() == near);
    EXPECT_EQ(document.selection().current(), node("Vase"));
    EXPECT_EQ(steps(), 0);
}

TEST_F(ksViewportTest, GoesAroundAndMovesTheSceneWithOtherButtons)
{
    const QVector3D point(0, 0.7F, 0);
    const auto seen = [&] { return viewport.camera().project(point); };
    const QPointF way(30, 12);
    button = Qt::RightButton;
    QPointF before = seen();
    drag(QPointF(300, 200), way);
    EXPECT_LT(ksLengthOf(seen() - before - way), 8);
    button = Qt::MiddleButton;
    before = seen();
    drag(QPointF(300, 200), way, 5, Qt::ShiftModifier);
    EXPECT_LT(ksLengthOf(seen() - before - way), 8);
    const QVector3D eye = viewport.camera().eye();
    drag(QPointF(300, 200), way);
    EXPECT_NE(viewport.camera().eye(), eye);
    button = Qt::NoButton;
    const float pixel = viewport.camera().pixelAt(point);
    turnWheel(240);
    EXPECT_LT(viewport.camera().pixelAt(point), 0.9F * pixel);
    turnWheel(-240);
    EXPECT_NEAR(viewport.camera().pixelAt(point), pixel, 1e-3F * pixel);
    EXPECT_TRUE(document.selection().ids().empty());
}

TEST_F(ksViewportTest, SelectsLinesAndPointsNearby)
{
    const ksTestFolder folder;
    document.open(folder.write("lines.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nv 0.6 0.6 0\nl 1 2\nl 1 3\np 4\n"));
    const auto at = [this](float x, float y, const QPointF &off) {
        document.selection().clear();
        click(viewport.camera().project(QVector3D(x, y, 0)) + off);
        return document.selection().current();
    };
    EXPECT_NE(at(0.5F, 0, QPointF(0, 4)), osg::NullFC);
    EXPECT_NE(at(0, 0.5F, QPointF(-4, 0)), osg::NullFC) << "at the edge of the box around it";
    EXPECT_NE(at(0.6F, 0.6F, QPointF(2, 2)), osg::NullFC);
    EXPECT_EQ(at(0.3F, 0.3F, QPointF()), osg::NullFC);
    EXPECT_EQ(at(0.5F, 0, QPointF(0, 12)), osg::NullFC);
}

TEST_F(ksViewportTest, SelectsTheNearestOfLights)
{
    const osg::NodePtr spot = node("CeilingSpot");
    const osg::NodePtr light = spot->getChild(0);
    const auto place = [&](const osg::NodePtr &of) {
        return viewport.camera().project(ksToQt(matrixOf(of)).map(QVector3D()));
    };
    const osg::NodePtr bulb = node("LampBulb");
    const osg::NodePtr other = bulb->getChild(0);
    ASSERT_NE(osg::UberLightPtr::dcast(other->getCore()), osg::NullFC);
    // Beside each other in the picture, wherever they are in the tree.
    const QMatrix4x4 toParent = ksToQt(matrixOf(spot->getParent())).inverted();
    document.add(translation().make({spot}, osg::Vec3f(0, 0, 0), {}, nullptr));
    const ksRay ray = viewport.camera().rayAt(place(other) + QPointF(7, 0));
    const auto spotAt = toParent.map(*ray.meetPlane(ksToQt(matrixOf(other)).map(QVector3D()), ray.direction));
    document.add(translation().make({spot}, ksToOsg(spotAt), {}, nullptr));
    ASSERT_NEAR(ksLengthOf(place(light) - place(other)), 7, 2);
    for (const osg::NodePtr &wanted : {light, other}) {
        click(place(wanted));
        EXPECT_EQ(document.selection().current(), wanted);
    }
}

/// Run by themselves, see the list of tests.
TEST(ksViewportWithoutOpenGlTest, SaysSoAndGoesOn)
{
    if (qgetenv("QT_XCB_GL_INTEGRATION") != "none")
        GTEST_SKIP() << "there is OpenGL";
    ksDocument document;
    ksViewport viewport(document);
    viewport.resize(600, 400);
    viewport.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&viewport));
    EXPECT_FALSE(viewport.canDraw());
    EXPECT_TRUE(viewport.picture().isNull());
    const auto *label = viewport.findChild<QLabel *>();
    ASSERT_NE(label, nullptr);
    EXPECT_TRUE(label->isVisible());
    EXPECT_TRUE(label->text().contains(QStringLiteral("OpenGL")));
    EXPECT_TRUE(document.open(ksRoomFile()));
    viewport.frameAll();
    QTest::mouseClick(&viewport, Qt::LeftButton, {}, QPoint(300, 200));
}
