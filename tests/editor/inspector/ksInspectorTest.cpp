// SPDX-License-Identifier: MIT
#include "../ksEditorFixture.h"
#include <editor/document/ksDocument.h>
#include <editor/document/ksDocumentHistory.h>
#include <editor/document/ksNodeEdits.h>
#include <editor/edits/ksConstraintEdits.h>
#include <editor/edits/ksTransformEdits.h>
#include <editor/edits/ksTreeEdits.h>
#include <editor/inspector/ksInspector.h>
#include <editor/inspector/ksListEditor.h>

#include <ksundo/core/ksUndoGesture.h>

#include <OSGLightLinkSet.h>
#include <OSGUberLight.h>
#include <OSGUberMaterial.h>
#include <OpenSG/OSGPointLight.h>
#include <ksNodeUtils.h>

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>

using testing::ElementsAre;

namespace {

/// The demo model with a node of every kind that the inspector has a page for, and the inspector on it.
class ksInspectorTest : public testing::Test
{
protected:
    ksInspectorTest()
    {
        document.open(ksRoomFile());
        inspector = std::make_unique<ksInspector>(document);
        QObject::connect(inspector.get(), &ksInspector::refused,
                         [this](const QString &reason) { reasons += reason; });
        inspector->resize(380, 1100);
        inspector->show();
        QApplication::setActiveWindow(inspector.get());
        EXPECT_TRUE(QTest::qWaitForWindowExposed(inspector.get()));
    }

    osg::NodePtr node(const char *name) const { return ksFindNode(document.root(), name); }

    osg::NodePtr add(const osg::NodeCorePtr &core, const char *name)
    {
        const osg::NodePtr added = ksContainers::createNode(name, core);
        document.add(ksTreeEdits::makeAdd(document.root(), added));
        return added;
    }

    /// A mesh of a material of three components, the first of which is brighter than white.
    osg::NodePtr addLayered(const char *name = "Layered")
    {
        const osg::UberMaterialPtr material = osg::UberMaterial::create();
        const osg::ksMeshPtr mesh = osg::ksMesh::create();
        {
            CPEditAll(material);
            CPEditAll(mesh);
            for (const float red : {4.0F, 1.0F, 0.5F}) {
                const osg::ColorComponentPtr component = osg::ColorComponent::create();
                CPEditAll(component);
                component->setColor(osg::Vec3f(red, 1, 0));
                material->addColorComponent(component);
            }
            material->setComponentSettings(osg::ColorComponentSettings::create());
            mesh->setMaterial(material);
        }
        return add(mesh, name);
    }

    static osg::UberMaterialPtr layersOf(const osg::NodePtr &node)
    {
        return osg::UberMaterialPtr::dcast(osg::ksMeshPtr::dcast(node->getCore())->getMaterial());
    }

    void select(const std::vector<osg::NodePtr> &nodes)
    {
        ksSelection::Ids ids;
        for (const osg::NodePtr &each : nodes)
            ids.push_back(each.getFieldContainerId());
        document.selection().set(ids);
    }

    /// The control with the accessible name \a name.
    template <class WidgetT>
    WidgetT *find(const char *name) const
    {
        for (auto *widget : inspector->findChildren<WidgetT *>())
            if (widget->accessibleName() == QLatin1String(name))
                return widget;
        ADD_FAILURE() << "there is no control " << name;
        return nullptr;
    }

    bool has(const char *name) const
    {
        const auto all = inspector->findChildren<QWidget *>();
        return std::any_of(all.begin(), all.end(), [name](const QWidget *widget) {
            return widget->accessibleName() == QLatin1String(name);
        });
    }

    void type(const char *name, const char *text, Qt::Key last = Qt::Key_Return) const
    {
        auto *line = find<QLineEdit>(name);
        QWidget *target = line;
        if (auto *box = qobject_cast<QDoubleSpinBox *>(line->parentWidget()))
            target = box;
        target->setFocus();
        line->selectAll();
        QTest::keyClicks(target, QString::fromUtf8(text));
        QTest::keyClick(target, last);
    }

    QString textOf(const char *name) const { return find<QLineEdit>(name)->text(); }

    void click(const char *name) const
    {
        auto *button = find<QAbstractButton>(name);
        constexpr int WithinBox = 8;
        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(WithinBox, button->height() / 2));
    }

    /// Sends the label \a name an event of \a button at \a x.
    void mouse(QEvent::Type type, const char *name, int x, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
               Qt::MouseButton button = Qt::LeftButton) const
    {
        auto *label = find<QLabel>(name);
        const bool isDown = type != QEvent::MouseButtonRelease;
        QMouseEvent event(type, QPoint(x, 1), label->mapToGlobal(QPoint(x, 1)),
                          type == QEvent::MouseMove ? Qt::NoButton : button,
                          isDown ? Qt::LeftButton : Qt::NoButton, modifiers);
        QApplication::sendEvent(label, &event);
    }

    /// Presses on the label \a name, moves the mouse \a moves pixels, one at a time, and presses \a key or
    /// lets go.
    void scrub(const char *name, int moves, int key = 0) const
    {
        mouse(QEvent::MouseButtonPress, name, 0);
        for (int x = 1; x <= moves; ++x)
            mouse(QEvent::MouseMove, name, x);
        if (key != 0)
            QTest::keyClick(find<QLabel>(name), static_cast<Qt::Key>(key));
        mouse(QEvent::MouseButtonRelease, name, moves);
    }

    void choose(const char *name, const QString &text) const
    {
        auto *box = find<QComboBox>(name);
        box->setFocus();
        // Any key has it look for what there is to choose.
        QTest::keyClick(box, Qt::Key_Shift);
        const int index = box->findText(text);
        ASSERT_GE(index, 0) << text.toStdString();
        box->setCurrentIndex(index);
        Q_EMIT box->activated(index);
    }

    QStringList entriesOf(const char *name) const
    {
        QStringList texts;
        const auto *list = find<QListWidget>(name);
        for (int row = 0; row < list->count(); ++row)
            texts += list->item(row)->text();
        return texts;
    }

    ksUndoStack &stack() const { return document.stack(); }

    /// Runs \a edit, which is one step; expects that \a shown differs after it, and goes back and forth with
    /// undo and redo.
    template <class Shown>
    void expectStep(const std::function<void()> &edit, const Shown &shown)
    {
        const int count = stack().count();
        const auto before = shown();
        edit();
        EXPECT_EQ(stack().count(), count + 1);
        const auto after = shown();
        EXPECT_NE(before, after);
        stack().undo();
        EXPECT_EQ(shown(), before);
        stack().redo();
        EXPECT_EQ(shown(), after);
        EXPECT_EQ(reasons, QStringList());
    }

    /// How many rows \a work has read again.
    template <class Work>
    std::size_t readBy(const Work &work)
    {
        const std::size_t before = inspector->readCount();
        work();
        return inspector->readCount() - before;
    }

    ksTestFolder folder;
    ksDocument document;
    std::unique_ptr<ksInspector> inspector;
    QStringList reasons;
};

} // namespace

TEST_F(ksInspectorTest, ShowsTheCurrentNode)
{
    EXPECT_FALSE(find<QLabel>("")->text().isEmpty());
    EXPECT_FALSE(find<QToolButton>("Node")->isVisible());
    select({node("Chair"), node("Table")});
    EXPECT_TRUE(find<QToolButton>("Node")->isVisible());
    EXPECT_EQ(textOf("Name"), QStringLiteral("Table"));
    EXPECT_EQ(textOf("Comment"), QStringLiteral("oiled walnut"));
    EXPECT_EQ(textOf("User flags"), QStringLiteral("4294967301"));
    EXPECT_FALSE(find<QToolButton>("Light")->isVisible());
    document.clear();
    EXPECT_FALSE(find<QToolButton>("Node")->isVisible());
}

TEST_F(ksInspectorTest, EditsNodes)
{
    const osg::NodePtr table = node("Table");
    select({table});
    expectStep([&] { type("Name", "Desk"); }, [&] { return textOf("Name"); });
    EXPECT_EQ(ksContainers::nameOf(table), QStringLiteral("Desk"));
    EXPECT_EQ(stack().undoText(), QStringLiteral("Rename 'Table'"));
    expectStep([&] { click("Shown"); }, [&] { return find<QCheckBox>("Shown")->isChecked(); });
    EXPECT_EQ(table->getTravMask(), 0u);
    expectStep([&] { type("Comment", "waxed"); }, [&] { return textOf("Comment"); });
    expectStep([&] { type("Opacity", "0.5"); }, [&] { return textOf("Opacity"); });
    EXPECT_EQ(ksSettingsOf(table)->getOpacity(), 0.5F);
    expectStep([&] { type("Layer", "250"); }, [&] { return textOf("Layer"); });
    expectStep([&] { type("User flags", "18446744073709551615"); }, [&] { return textOf("User flags"); });
    EXPECT_EQ(ksSettingsOf(table)->getUserFlags(), ~osg::UInt64(0));
    expectStep([&] { click("Locked"); }, [&] { return find<QCheckBox>("Locked")->isChecked(); });
}

TEST_F(ksInspectorTest, NamesNodesThatHaveNoName)
{
    const osg::NodePtr bare = add(osg::Group::create(), "");
    select({bare});
    expectStep([&] { type("Name", "Vase"); }, [&] { return textOf("Name"); });
    EXPECT_EQ(ksContainers::nameOf(bare), QStringLiteral("Vase"));
}

TEST_F(ksInspectorTest, KeepsTheFocusWhenThePageIsMadeAnew)
{
    const osg::NodePtr bare = add(osg::Group::create(), "");
    select({bare});
    type("Name", "Vase");
    EXPECT_TRUE(find<QLineEdit>("Name")->hasFocus());
    stack().undo();
    EXPECT_TRUE(find<QLineEdit>("Name")->hasFocus());
    // Widgets show themselves once they are laid out.
    QCoreApplication::processEvents();
    type("Name", "Vase", Qt::Key_Tab);
    EXPECT_TRUE(find<QCheckBox>("Shown")->hasFocus());
    // What has been named is no longer what Escape takes back.
    QTest::keyClick(find<QCheckBox>("Shown"), Qt::Key_Escape);
    EXPECT_EQ(ksContainers::nameOf(bare), QStringLiteral("Vase"));
    EXPECT_EQ(stack().count(), 2);
    scrub("Layer, drag to change", 5);
    EXPECT_EQ(stack().count(), 3);
}

TEST_F(ksInspectorTest, EndsWhatAControlIsAboutWhenItGoes)
{
    const osg::NodePtr bare = add(osg::Group::create(), "");
    select({bare});
    type("Name", "Vase");
    {
        ksUndoGesture drag(&stack());
        const ksTransformProperty &translation = *ksTransformEdits::find(QStringLiteral("translation"));
        document.add(translation.make({node("Table")}, osg::Vec3f(1, 2, 3), {}, nullptr));
        drag.takeBack();
    }
    EXPECT_EQ(ksContainers::nameOf(bare), QStringLiteral("Vase"));
    EXPECT_EQ(stack().count(), 2);
}

TEST_F(ksInspectorTest, TakesBackOnlyWhatTheControlHasDone)
{
    select({node("Table")});
    auto *line = find<QLineEdit>("Comment");
    line->setFocus();
    QTest::keyClicks(line, QStringLiteral("abc"));
    QTest::keyClick(find<QCheckBox>("Shown"), Qt::Key_Escape);
    EXPECT_EQ(stack().count(), 1);
    EXPECT_TRUE(stack().canUndo());
    QTest::keyClick(line, Qt::Key_Escape);
    EXPECT_FALSE(stack().canUndo());
}

TEST_F(ksInspectorTest, TakesAWordAsOneStepAndTwoAsTwo)
{
    select({node("Table")});
    type("Comment", "one word", Qt::Key_Return);
    EXPECT_EQ(stack().count(), 1);
    type("Comment", "another", Qt::Key_Tab);
    EXPECT_EQ(stack().count(), 2);
    type("Comment", "wrong", Qt::Key_Escape);
    EXPECT_EQ(textOf("Comment"), QStringLiteral("another"));
    EXPECT_EQ(stack().count(), 2);
    EXPECT_FALSE(stack().canRedo());
    type("Opacity", "0.3", Qt::Key_Escape);
    EXPECT_EQ(textOf("Opacity"), QStringLiteral("0.75"));
    EXPECT_EQ(stack().count(), 2);
}

TEST_F(ksInspectorTest, KeepsFocusAndCursor)
{
    select({node("Table")});
    auto *line = find<QLineEdit>("Comment");
    line->setFocus();
    line->setCursorPosition(3);
    QTest::keyClicks(line, QStringLiteral("ab"));
    EXPECT_EQ(line->cursorPosition(), 5);
    stack().undo();
    EXPECT_EQ(find<QLineEdit>("Comment"), line);
    EXPECT_TRUE(line->hasFocus());
    EXPECT_EQ(line->text(), QStringLiteral("oiled walnut"));
    EXPECT_EQ(line->cursorPosition(), 5);
    // What was redone is not what is typed next.
    stack().redo();
    QTest::keyClicks(line, QStringLiteral("c"));
    EXPECT_EQ(stack().count(), 2);
    stack().undo();
    EXPECT_EQ(line->text(), QStringLiteral("oilabed walnut"));
}

TEST_F(ksInspectorTest, LeavesUndoToTheWindow)
{
    select({node("Table")});
    QAction undo;
    undo.setShortcut(QKeySequence::Undo);
    QObject::connect(&undo, &QAction::triggered, [this] { document.history().undo(); });
    inspector->addAction(&undo);
    auto *line = find<QLineEdit>("Comment");
    line->setFocus();
    QTest::keyClicks(line, QStringLiteral("abc"));
    QTest::keyClick(line, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(line->text(), QStringLiteral("oiled walnut"));
    EXPECT_FALSE(stack().canUndo());
    EXPECT_TRUE(stack().canRedo());
}

TEST_F(ksInspectorTest, ForgetsWhatIsNoLongerSelected)
{
    const osg::NodePtr table = node("Table");
    select({table});
    QTest::keyClicks(find<QLineEdit>("Comment"), QStringLiteral("abc"));
    select({node("Chair")});
    type("Comment", "def");
    EXPECT_EQ(stack().count(), 2);
    ksNodeEdits::remove(document, {node("Chair")});
    stack().undo();
    EXPECT_EQ(textOf("Comment"), QStringLiteral("def"));
    document.open(ksRoomFile());
    EXPECT_FALSE(find<QToolButton>("Node")->isVisible());
}

TEST_F(ksInspectorTest, FollowsSelectedNodesThatGoAndComeBack)
{
    const auto isShown = [&] { return find<QToolButton>("Node")->isVisible(); };
    select({node("Table")});
    ksNodeEdits::remove(document, {node("Table")});
    EXPECT_FALSE(isShown());
    EXPECT_TRUE(find<QLabel>("")->isVisible());
    stack().undo();
    EXPECT_TRUE(isShown());
    EXPECT_EQ(textOf("Name"), QStringLiteral("Table"));
    EXPECT_FALSE(find<QLabel>("")->isVisible());
    // One of several, below what goes.
    select({node("Table"), node("Seat")});
    EXPECT_EQ(textOf("Name"), QStringLiteral("Seat"));
    ksNodeEdits::remove(document, {node("Chair")});
    EXPECT_EQ(textOf("Name"), QStringLiteral("Table"));
    stack().undo();
    EXPECT_EQ(textOf("Name"), QStringLiteral("Seat"));
}

TEST_F(ksInspectorTest, KeepsTheDigitsThatItDoesNotShow)
{
    const osg::NodePtr table = node("Table");
    select({table});
    type("Translation x", "0.12345678");
    EXPECT_EQ(textOf("Translation x"), QStringLiteral("0.123457"));
    auto *box = find<QLineEdit>("Translation x")->parentWidget();
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_EQ(stack().count(), 1);
    EXPECT_EQ(ksNodeUtils::getTransformNodeTranslation(table, false, -1)[0], 0.12345678F);
    type("Translation x", "16777215");
    EXPECT_EQ(textOf("Translation x"), QStringLiteral("16777215"));
}

TEST_F(ksInspectorTest, KeepsWhatIsBeingTyped)
{
    select({node("Table")});
    auto *line = find<QLineEdit>("Translation x");
    line->parentWidget()->setFocus();
    line->selectAll();
    QTest::keyClicks(line->parentWidget(), QStringLiteral("12"));
    const ksTransformProperty &translation = *ksTransformEdits::find(QStringLiteral("translation"));
    document.add(translation.make({node("Table")}, osg::Vec3f(0.2F, 7, 0.3F), {}, nullptr));
    EXPECT_EQ(textOf("Translation y"), QStringLiteral("7"));
    EXPECT_EQ(line->text(), QStringLiteral("12"));
    QTest::keyClick(line->parentWidget(), Qt::Key_Return);
    EXPECT_EQ(stack().count(), 2);
    EXPECT_EQ(ksNodeUtils::getTransformNodeTranslation(node("Table"), false, -1)[1], 7);
}

TEST_F(ksInspectorTest, TakesADragAsOneStep)
{
    const osg::NodePtr table = node("Table");
    select({table});
    const auto shown = [&] { return textOf("Translation y"); };
    expectStep([&] { scrub("Translation y, drag to change", 60); }, shown);
    EXPECT_EQ(shown(), QStringLiteral("6.01"));
    EXPECT_EQ(stack().undoText(), QStringLiteral("Translate 'Table'"));
    scrub("Translation y, drag to change", 5);
    EXPECT_EQ(stack().count(), 2);
    scrub("Translation y, drag to change", 60, Qt::Key_Escape);
    EXPECT_EQ(stack().count(), 2);
    EXPECT_FALSE(stack().canRedo());
    EXPECT_EQ(shown(), QStringLiteral("6.51"));
    expectStep([&] { scrub("Opacity, drag to change", 60); }, [&] { return textOf("Opacity"); });
    EXPECT_EQ(textOf("Opacity"), QStringLiteral("1")) << "within its range";
    expectStep([&] { scrub("Quaternion x, drag to change", 60); }, [&] { return textOf("Quaternion x"); });
    EXPECT_EQ(textOf("Quaternion x"), QStringLiteral("0.6"));
}

TEST_F(ksInspectorTest, DragsFasterAndSlowerWithoutAJump)
{
    select({node("Table")});
    const char *const label = "Scale pivot y, drag to change";
    type("Scale pivot y", "0");
    mouse(QEvent::MouseButtonPress, label, 0);
    mouse(QEvent::MouseMove, label, 10);
    EXPECT_EQ(textOf("Scale pivot y"), QStringLiteral("1"));
    mouse(QEvent::MouseMove, label, 11, Qt::ShiftModifier);
    EXPECT_EQ(textOf("Scale pivot y"), QStringLiteral("2"));
    mouse(QEvent::MouseMove, label, 21, Qt::ControlModifier);
    EXPECT_EQ(textOf("Scale pivot y"), QStringLiteral("2.1"));
    mouse(QEvent::MouseButtonRelease, label, 21, Qt::NoModifier, Qt::RightButton);
    mouse(QEvent::MouseMove, label, 22);
    EXPECT_EQ(textOf("Scale pivot y"), QStringLiteral("2.2")) << "the left button is down still";
    mouse(QEvent::MouseButtonRelease, label, 22);
    mouse(QEvent::MouseMove, label, 32);
    EXPECT_EQ(textOf("Scale pivot y"), QStringLiteral("2.2"));
}

TEST_F(ksInspectorTest, EndsADragThatLosesItsRelease)
{
    select({node("Table")});
    const char *const name = "Scale pivot y, drag to change";
    type("Scale pivot y", "0");
    auto *label = find<QLabel>(name);
    const QPoint far(99, 1);
    QMouseEvent released(QEvent::MouseMove, far, label->mapToGlobal(far), Qt::NoButton, Qt::NoButton, {});
    QHideEvent hidden;
    QEvent left(QEvent::WindowDeactivate);
    QEvent blocked(QEvent::WindowBlocked);
    for (QEvent *event : std::initializer_list<QEvent *>{&released, &hidden, &left, &blocked}) {
        const int count = stack().count();
        mouse(QEvent::MouseButtonPress, name, 0);
        mouse(QEvent::MouseMove, name, 10);
        EXPECT_EQ(QWidget::keyboardGrabber(), label);
        const QString shown = textOf("Scale pivot y");
        QApplication::sendEvent(label, event);
        EXPECT_EQ(QWidget::keyboardGrabber(), nullptr);
        mouse(QEvent::MouseMove, name, 20);
        EXPECT_EQ(textOf("Scale pivot y"), shown) << event->type();
        EXPECT_EQ(stack().count(), count + 1);
    }
}

TEST_F(ksInspectorTest, EditsAllSelectedNodesInOneStep)
{
    const std::vector<osg::NodePtr> nodes = {node("Chair"), node("Lamp"), node("Table")};
    select(nodes);
    const auto heights = [&] {
        std::vector<float> all;
        for (const osg::NodePtr &each : nodes)
            all.push_back(ksNodeUtils::getTransformNodeTranslation(each, false, -1)[1]);
        return all;
    };
    const osg::Vec3f chair = ksNodeUtils::getTransformNodeTranslation(nodes[0], false, -1);
    expectStep([&] { scrub("Translation y, drag to change", 60); }, heights);
    EXPECT_THAT(heights(), testing::Each(6.01F));
    EXPECT_EQ(ksNodeUtils::getTransformNodeTranslation(nodes[0], false, -1)[0], chair[0])
        << "the other parts stay";
    expectStep([&] { type("Comment", "for sale"); }, [&] { return ksSettingsOf(nodes[0])->getComment(); });
    EXPECT_EQ(ksSettingsOf(nodes[1])->getComment(), "for sale");
    EXPECT_EQ(stack().undoText(), QStringLiteral("Set Comment of 'Chair', 'Lamp', 'Table'"));
    expectStep([&] { type("Name", "Thing"); }, [&] { return ksContainers::nameOf(nodes[1]); });
    EXPECT_EQ(stack().count(), 3);
}

TEST_F(ksInspectorTest, GivesOthersWhatTheShownNodeHasAlready)
{
    const std::vector<osg::NodePtr> nodes = {node("Chair"), node("Table")};
    select({nodes[0]});
    type("Translation y", "1");
    select(nodes);
    const auto height = [&] { return ksNodeUtils::getTransformNodeTranslation(nodes[0], false, -1)[1]; };
    type("Translation y", "2");
    select({nodes[0]});
    type("Translation y", "1");
    select(nodes);
    expectStep([&] { type("Translation y", "2"); }, height);
    EXPECT_EQ(height(), 2);
    // Nothing has been typed.
    select({nodes[0]});
    type("Translation y", "1");
    select(nodes);
    const int count = stack().count();
    QTest::keyClick(find<QLineEdit>("Translation y")->parentWidget(), Qt::Key_Return);
    EXPECT_EQ(stack().count(), count);
    type("Translation y", "2", Qt::Key_Escape);
    QTest::keyClick(find<QLineEdit>("Translation y")->parentWidget(), Qt::Key_Return);
    EXPECT_EQ(stack().count(), count);

    // What has been typed is no number.
    type("Translation y", "-", Qt::Key_Tab);
    type("Translation y", "", Qt::Key_Backspace);
    EXPECT_EQ(textOf("Translation y"), QString());
    QTest::keyClick(find<QLineEdit>("Translation y")->parentWidget(), Qt::Key_Tab);
    EXPECT_EQ(stack().count(), count);

    const auto flags = [&] { return ksSettingsOf(nodes[0])->getUserFlags(); };
    expectStep([&] { type("User flags", "4294967301"); }, flags);
    EXPECT_EQ(flags(), 4294967301u);
}

TEST_F(ksInspectorTest, ShowsThatValuesDiffer)
{
    const osg::NodePtr chair = node("Chair");
    select({chair, node("Table")});
    const auto isMixed = [&](const char *name) { return find<QLineEdit>(name)->font().italic(); };
    const auto shown = [&] { return find<QCheckBox>("Shown")->checkState(); };
    EXPECT_TRUE(isMixed("Name"));
    EXPECT_FALSE(isMixed("Scale pivot x"));
    EXPECT_EQ(shown(), Qt::Checked);
    ksNodeEdits::show(document, {chair}, false);
    EXPECT_EQ(shown(), Qt::PartiallyChecked);
    click("Shown");
    EXPECT_EQ(shown(), Qt::Checked);
    EXPECT_NE(chair->getTravMask(), 0u);
    click("Shown");
    EXPECT_EQ(shown(), Qt::Unchecked);
    stack().undo();
    stack().undo();
    EXPECT_EQ(shown(), Qt::PartiallyChecked);
    type("Name", "Thing");
    EXPECT_FALSE(isMixed("Name"));
}

TEST_F(ksInspectorTest, RefusesWhatMakesNoSense)
{
    select({node("Table")});
    type("Opacity", "7");
    EXPECT_EQ(textOf("Opacity"), QStringLiteral("0.75"));
    EXPECT_EQ(reasons, QStringList(QStringLiteral("'opacity' takes numbers from 0 to 1, not 7")));
    type("User flags", "many");
    EXPECT_EQ(textOf("User flags"), QStringLiteral("4294967301"));
    EXPECT_EQ(reasons.size(), 2);
    type("Opacity", "what");
    EXPECT_EQ(textOf("Opacity"), QStringLiteral("0.75"));
    EXPECT_EQ(stack().count(), 0);
}

TEST_F(ksInspectorTest, EditsTransforms)
{
    const osg::NodePtr table = node("Table");
    select({table});
    for (const char *name :
         {"Translation x", "Rotation x", "Scale x", "Shear x", "Scale pivot x", "Rotate pivot x",
          "Scale pivot shift x", "Rotate pivot shift x", "Orientation x", "Direction x", "Quaternion x"}) {
        SCOPED_TRACE(name);
        expectStep([&] { type(name, "0.4"); }, [&] { return textOf(name); });
    }
    EXPECT_EQ(textOf("Translation x"), QStringLiteral("0.4"));
    expectStep([&] { choose("Rotation order", QStringLiteral("ZYX")); },
               [&] { return find<QComboBox>("Rotation order")->currentText(); });
    expectStep([&] { choose("Inherit type", QStringLiteral("Type 2")); },
               [&] { return find<QComboBox>("Inherit type")->currentText(); });
    expectStep([&] { choose("Direction's axis", QStringLiteral("z axis")); },
               [&] { return find<QComboBox>("Direction's axis")->currentText(); });
    expectStep([&] { click("Follows direction"); },
               [&] { return find<QCheckBox>("Follows direction")->isChecked(); });
}

TEST_F(ksInspectorTest, TakesQuaternionsPartByPart)
{
    const osg::NodePtr table = node("Table");
    select({table});
    const auto parts = [&] {
        QStringList all;
        for (const char *name : {"Quaternion x", "Quaternion y", "Quaternion z", "Quaternion w"})
            all += textOf(name);
        return all.join(QLatin1Char(' ')).toStdString();
    };
    for (const char *name : {"Quaternion x", "Quaternion y", "Quaternion z"})
        type(name, "0");
    EXPECT_EQ(parts(), "0 0 0 1");
    type("Quaternion x", "0.5");
    EXPECT_EQ(parts(), "0.5 0 0 0.866025");
    type("Quaternion y", "0.5");
    type("Quaternion z", "-0.5");
    EXPECT_EQ(parts(), "0.5 0.5 -0.5 0.5");
    type("Quaternion y", "0.8");
    EXPECT_EQ(parts(), "0.424264 0.8 -0.424264 0") << "there is no room for the others";
    type("Quaternion w", "0.6");
    EXPECT_EQ(parts(), "0.339411 0.64 -0.339411 0.6") << "about the same axis";
    type("Quaternion w", "7");
    EXPECT_EQ(parts(), "0 0 0 1");
    type("Quaternion w", "0");
    EXPECT_EQ(parts(), "1 0 0 0");

    // A drag beyond the end and back again.
    type("Quaternion w", "0.6");
    type("Quaternion y", "0.5");
    const std::string before = parts();
    for (const char *name : {"Quaternion w, drag to change", "Quaternion y, drag to change"}) {
        mouse(QEvent::MouseButtonPress, name, 0);
        for (const int x : {40, 90, 40, 1})
            mouse(QEvent::MouseMove, name, x);
        EXPECT_NE(parts(), before);
        mouse(QEvent::MouseMove, name, 0);
        EXPECT_EQ(parts(), before);
        mouse(QEvent::MouseButtonRelease, name, 0);
    }
}

TEST_F(ksInspectorTest, EditsInWorldSpace)
{
    const osg::NodePtr vase = node("Vase");
    const osg::NodePtr above = vase->getParent();
    select({vase});
    choose("Space", QStringLiteral("World"));
    EXPECT_EQ(stack().count(), 0);
    const auto world = [&] { return ksNodeUtils::getTransformNodeTranslation(vase, true, -1); };
    expectStep([&] { type("Translation x", "3"); }, [&] { return textOf("Translation x"); });
    EXPECT_NEAR(world()[0], 3, 1e-5);
    // What is above it is moved: the place in the world is another.
    const ksTransformProperty &translation = *ksTransformEdits::find(QStringLiteral("translation"));
    document.add(translation.make({above}, osg::Vec3f(10, 0, 0), {}, nullptr));
    EXPECT_NEAR(textOf("Translation x").toDouble(), static_cast<double>(world()[0]), 1e-5);
    const ksTransformProperty &scale = *ksTransformEdits::find(QStringLiteral("scale"));
    document.add(scale.make({above}, osg::Vec3f(1, 0, 1), {}, nullptr));
    type("Translation x", "4");
    EXPECT_EQ(reasons.size(), 1);
    select({node("Chair")});
    EXPECT_EQ(find<QComboBox>("Space")->currentText(), QStringLiteral("World"));
}

TEST_F(ksInspectorTest, EditsVariants)
{
    const osg::NodePtr table = node("Table");
    select({table});
    const auto entries = [&] { return entriesOf("Variants"); };
    const auto addVariant = [&](const char *name) {
        find<QLineEdit>("Variants, what to add")->setText(QString::fromLatin1(name));
        click("Variants, add");
    };
    const int known = entries().size();
    expectStep([&] { addVariant("open"); }, entries);
    expectStep([&] { addVariant("closed"); }, entries);
    auto *list = find<QListWidget>("Variants");
    list->setCurrentRow(known + 1);
    expectStep([&] { click("Variants, move up"); }, entries);
    EXPECT_EQ(entries().mid(known), QStringList({QStringLiteral("closed"), QStringLiteral("open")}));
    EXPECT_EQ(list->currentRow(), known);
    expectStep([&] { list->item(known)->setText(QStringLiteral("shut")); }, entries);
    expectStep([&] { list->model()->moveRow({}, known, {}, known + 2); }, entries);
    EXPECT_EQ(entries().mid(known), QStringList({QStringLiteral("open"), QStringLiteral("shut")}));

    list->setCurrentRow(known);
    expectStep([&] { click("Applies Rotation"); },
               [&] { return find<QCheckBox>("Applies Rotation")->isChecked(); });
    EXPECT_FALSE(find<QCheckBox>("Applies Rotation")->isChecked());
    list->setCurrentRow(known + 1);
    EXPECT_TRUE(find<QCheckBox>("Applies Rotation")->isChecked());

    // The transform of a variant is edited on the page of transforms.
    choose("Transform", QStringLiteral("Variant open"));
    const QString own = textOf("Translation x");
    expectStep([&] { type("Translation x", "8"); }, [&] { return textOf("Translation x"); });
    EXPECT_FALSE(find<QLineEdit>("Shear x")->isEnabled());
    choose("Transform", QStringLiteral("The node's own"));
    EXPECT_EQ(textOf("Translation x"), own);

    list->setCurrentRow(known);
    expectStep([&] { click("Variants, apply"); }, [&] { return textOf("Translation x"); });
    EXPECT_EQ(stack().undoText(), QStringLiteral("Apply variant"));

    expectStep([&] { click("Variants, remove"); }, entries);
    QCoreApplication::processEvents();
    list->setFocus();
    expectStep([&] { QTest::keyClick(list, Qt::Key_Delete); }, entries);
    EXPECT_EQ(entries().size(), known);
}

TEST_F(ksInspectorTest, EditsVariantsOfSeveralNodesByName)
{
    const osg::NodePtr chair = node("Chair");
    const osg::NodePtr table = node("Table");
    const osg::NodePtr vase = node("Vase");
    const auto addVariant = [&](const std::vector<osg::NodePtr> &nodes, const char *name) {
        select(nodes);
        find<QLineEdit>("Variants, what to add")->setText(QString::fromLatin1(name));
        click("Variants, add");
    };
    addVariant({chair}, "other");
    addVariant({table, chair}, "open");
    addVariant({table}, "shut");
    select({vase, chair, table});
    const auto places = [&] {
        QList<float> all;
        for (const osg::NodePtr &each : {chair, vase, table})
            for (const int index : {-1, 0, 1})
                if (index < static_cast<int>(ksNodeUtils::getTransformVariantCount(each)))
                    all += ksNodeUtils::getTransformNodeTranslation(each, false, index)[0];
        return all;
    };
    // Only the variant called so of the nodes that have it.
    choose("Transform", QStringLiteral("Variant open"));
    const QList<float> before = places();
    expectStep([&] { type("Translation x", "8"); }, places);
    QList<float> wanted = before;
    wanted[2] = 8;
    wanted[5] = 8;
    EXPECT_EQ(places(), wanted);
    expectStep([&] { choose("Rotation order", QStringLiteral("ZYX")); },
               [&] { return find<QComboBox>("Rotation order")->currentText(); });
    expectStep([&] { choose("Inherit type", QStringLiteral("Type 2")); },
               [&] { return find<QComboBox>("Inherit type")->currentText(); });
    for (const osg::NodePtr &each : {chair, vase, table}) {
        EXPECT_EQ(ksNodeUtils::getTransformNodeEulerRotationOrder(each, -1), "XYZ");
        EXPECT_EQ(ksNodeUtils::getTransform3D(each, -1)->getInheritType(), 0);
    }
    EXPECT_EQ(ksNodeUtils::getTransformNodeEulerRotationOrder(chair, 1), "ZYX");

    // It is the same one when others have moved.
    auto *list = find<QListWidget>("Variants");
    list->setCurrentRow(0);
    click("Applies Shear");
    const auto flagsOf = [](const osg::NodePtr &each, int index) {
        return ksNodeUtils::getTransformVariant(each, static_cast<unsigned long>(index))->getApplyFlags();
    };
    EXPECT_NE(flagsOf(chair, 1), osg::TransformVariantFlags::AllComponents);
    EXPECT_EQ(flagsOf(chair, 0), osg::TransformVariantFlags::AllComponents);
    click("Variants, move down");
    EXPECT_EQ(find<QComboBox>("Transform")->currentText(), QStringLiteral("Variant open"));
    EXPECT_EQ(textOf("Translation x"), QStringLiteral("8"));
    list->item(1)->setText(QStringLiteral("ajar"));
    EXPECT_EQ(ksNodeUtils::getTransformVariantName(chair, 0), "other");
    EXPECT_EQ(ksNodeUtils::getTransformVariantName(chair, 1), "ajar");
    click("Variants, remove");
    EXPECT_EQ(ksNodeUtils::getTransformVariantCount(chair), 1u);
    EXPECT_EQ(ksNodeUtils::getTransformVariantName(chair, 0), "other");
    EXPECT_EQ(find<QComboBox>("Transform")->currentText(), QStringLiteral("The node's own"));
    EXPECT_EQ(reasons, QStringList());
}

TEST_F(ksInspectorTest, EditsLights)
{
    osg::NodePtr light;
    ksContainers::visitNodes(document.root(), [&light](const osg::NodePtr &each) {
        if (osg::UberLightPtr::dcast(each->getCore()) != osg::NullFC)
            light = each;
    });
    select({light});
    for (const char *name :
         {"Diffuse R", "Glossy G", "Intensity", "Penumbra angle", "Cone angle", "Reference distance"}) {
        SCOPED_TRACE(name);
        expectStep([&] { type(name, "2.5"); }, [&] { return textOf(name); });
    }
    expectStep([&] { choose("Attenuation", QStringLiteral("Linear")); },
               [&] { return find<QComboBox>("Attenuation")->currentText(); });
    type("Cone angle", "400");
    EXPECT_EQ(reasons.size(), 1);
    reasons.clear();

    click("Visibility reference: Use selected");
    EXPECT_EQ(reasons.size(), 1) << "nothing else is selected";
    reasons.clear();
    select({node("Table"), light});
    const auto reference = [&] { return find<QComboBox>("Visibility reference")->currentText(); };
    expectStep([&] { click("Visibility reference: Use selected"); }, reference);
    EXPECT_EQ(reference(), QStringLiteral("Table"));
    ksNodeEdits::rename(document, node("Table"), QStringLiteral("Desk"));
    EXPECT_EQ(reference(), QStringLiteral("Desk"));
    expectStep([&] { choose("Visibility reference", QStringLiteral("None")); }, reference);
}

TEST_F(ksInspectorTest, EditsColours)
{
    const osg::NodePtr layered = addLayered();
    select({layered});
    const auto colour = [&] { return layersOf(layered)->getColorComponentData(0)->getColor(); };
    click("Component 1 Color, choose a colour");
    auto *dialog = inspector->findChild<QColorDialog *>();
    ASSERT_NE(dialog, nullptr);
    const int before = stack().count();
    for (int blue = 0; blue < 20; ++blue)
        dialog->setCurrentColor(QColor(255, 0, blue));
    EXPECT_EQ(colour()[0], 4) << "as bright as before";
    EXPECT_EQ(stack().count(), before + 1);
    dialog->reject();
    EXPECT_EQ(stack().count(), before);
    EXPECT_EQ(colour()[1], 1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    click("Component 1 Color, choose a colour");
    dialog = inspector->findChild<QColorDialog *>();
    ASSERT_NE(dialog, nullptr);
    dialog->setCurrentColor(QColor(0, 255, 0));
    dialog->setCurrentColor(QColor(0, 255, 255));
    dialog->accept();
    EXPECT_EQ(stack().count(), before + 1);
    EXPECT_EQ(textOf("Component 1 Color B"), QStringLiteral("4"));
    stack().undo();
    EXPECT_EQ(textOf("Component 1 Color R"), QStringLiteral("4"));
    EXPECT_EQ(textOf("Component 1 Color B"), QStringLiteral("0"));
}

TEST_F(ksInspectorTest, EditsColoursOfFourParts)
{
    const osg::NodePtr lamp = add(osg::PointLight::create(), "Plain");
    select({lamp});
    click("All fields");
    expectStep([&] { type("PointLight Diffuse A", "0.5"); }, [&] { return textOf("PointLight Diffuse A"); });
    click("PointLight Diffuse, choose a colour");
    auto *dialog = inspector->findChild<QColorDialog *>();
    ASSERT_NE(dialog, nullptr);
    dialog->setCurrentColor(QColor(255, 0, 0, 255));
    dialog->accept();
    EXPECT_EQ(textOf("PointLight Diffuse A"), QStringLiteral("1"));
}

TEST_F(ksInspectorTest, EditsLayeredMaterials)
{
    const osg::NodePtr layered = addLayered();
    select({layered});
    for (const char *name : {"Component 2 Weight", "Component 3 Color G", "Settings Mapping scale x",
                             "Settings Projection size", "All components Weight", "All components Color G"}) {
        SCOPED_TRACE(name);
        expectStep([&] { type(name, "0.75"); }, [&] { return textOf(name); });
    }
    EXPECT_EQ(layersOf(layered)->getColorComponentData(0)->getColor(), osg::Vec3f(4, 0.75F, 0));
    EXPECT_EQ(layersOf(layered)->getColorComponentData(2)->getColor(), osg::Vec3f(0.5F, 0.75F, 0));
    EXPECT_EQ(layersOf(layered)->getColorComponentData(2)->getWeight(), 0.75F);
    expectStep([&] { type("Sort key", "3"); }, [&] { return textOf("Sort key"); });
    expectStep([&] { click("Component 2 Enabled"); },
               [&] { return find<QCheckBox>("Component 2 Enabled")->isChecked(); });
    expectStep([&] { scrub("All components Weight, drag to change", 20); },
               [&] { return textOf("Component 1 Weight"); });

    // Several at once.
    const osg::NodePtr other = addLayered("Other");
    select({other, layered});
    const auto weights = [&] {
        return std::make_pair(layersOf(other)->getColorComponentData(1)->getWeight(),
                              layersOf(other)->getColorComponentData(0)->getWeight());
    };
    expectStep([&] { scrub("Component 2 Weight, drag to change", 20); }, weights);
    expectStep([&] { scrub("All components Weight, drag to change", 20); }, weights);
}

TEST_F(ksInspectorTest, SkipsComponentsThatAreNotThere)
{
    const osg::NodePtr some = addLayered();
    const osg::NodePtr none = addLayered("None");
    const auto drop = [](const osg::NodePtr &node, std::size_t count) {
        const osg::UberMaterialPtr material = layersOf(node);
        CPEdit(material, osg::UberMaterial::ColorComponentDataFieldMask);
        for (std::size_t i = 0; i < count; ++i)
            material->getColorComponentData()[i] = osg::NullFC;
    };
    drop(some, 2);
    drop(none, 3);
    for (const std::vector<osg::NodePtr> &nodes :
         {std::vector<osg::NodePtr>{some}, {none, some}, {some, none}}) {
        select(nodes);
        EXPECT_FALSE(has("Component 2 Weight"));
        EXPECT_EQ(has("All components Weight"), nodes.back() == some);
        expectStep([&] { click("Component 3 Enabled"); },
                   [&] { return find<QCheckBox>("Component 3 Enabled")->isChecked(); });
    }
    select({none, some});
    expectStep([&] { type("All components Color G", "0.5"); }, [&] { return textOf("Component 3 Color G"); });
}

TEST_F(ksInspectorTest, EditsImages)
{
    const osg::NodePtr layered = addLayered();
    select({layered});
    const auto image = [&] { return layersOf(layered)->getColorComponentData(0)->getImage(); };
    const auto load = [&](const QString &path) {
        click("Component 1 Image, load from a file");
        auto *dialog = inspector->findChild<QFileDialog *>();
        ASSERT_NE(dialog, nullptr);
        Q_EMIT dialog->fileSelected(path);
        dialog->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    const auto isRemovable = [&] { return find<QPushButton>("Component 1 Image, remove")->isEnabled(); };
    // The material takes notice of it.
    int notices = 0;
    QObject::connect(&document, &ksDocument::changed, inspector.get(), [&](const ksSceneChanges &changes) {
        if (changes.concern(layersOf(layered).getFieldContainerId(), osg::FieldBits::AllFields))
            ++notices;
    });
    expectStep([&] { load(ksRoomFile("planks.png")); }, isRemovable);
    EXPECT_NE(image(), osg::NullFC);
    EXPECT_EQ(notices, 3);
    expectStep([&] { click("Component 1 Image, remove"); }, isRemovable);
    EXPECT_EQ(image(), osg::NullFC);
    load(folder.path("missing.png"));
    EXPECT_EQ(reasons.size(), 1);
}

TEST_F(ksInspectorTest, EditsMeshesAndTheirMaterials)
{
    const osg::NodePtr table = node("Table");
    select({table});
    expectStep([&] { type("Roughness", "0.125"); }, [&] { return textOf("Roughness"); });
    expectStep([&] { type("Base color G", "3"); }, [&] { return textOf("Base color G"); });
    const auto environment = [&] { return find<QComboBox>("Environment")->currentText(); };
    expectStep([&] { choose("Environment", QStringLiteral("Brass")); }, environment);
    const auto material = [&] { return find<QComboBox>("Material")->currentText(); };
    expectStep([&] { choose("Material", QStringLiteral("Porcelain")); }, material);
    EXPECT_NE(textOf("Roughness"), QStringLiteral("0.125")) << "the page shows the other material";
    stack().undo();
    choose("Environment", QStringLiteral("Walnut"));
    EXPECT_EQ(reasons.size(), 1) << "it would mirror itself";
    EXPECT_EQ(environment(), QStringLiteral("Brass"));
    reasons.clear();
    stack().redo();
    expectStep([&] { choose("Material", QStringLiteral("None")); }, [&] { return has("Roughness"); });
}

TEST_F(ksInspectorTest, EditsTags)
{
    const osg::NodePtr bulb = node("Vase");
    const osg::NodePtr table = node("Table");
    select({table, bulb});
    for (const QString &list : {QStringLiteral("User tags"), QStringLiteral("Layers")}) {
        SCOPED_TRACE(list.toStdString());
        const std::string name = list.toStdString();
        const auto entries = [&] { return entriesOf(name.c_str()); };
        const auto addTag = [&] {
            auto *line = find<QLineEdit>((name + ", what to add").c_str());
            line->setText(QStringLiteral("fragile"));
            QTest::keyClick(line, Qt::Key_Return);
        };
        expectStep(addTag, entries);
        EXPECT_EQ(textOf((name + ", what to add").c_str()), QString());
        addTag();
        EXPECT_EQ(reasons.size(), 1) << "it is there already";
        EXPECT_EQ(textOf((name + ", what to add").c_str()), QStringLiteral("fragile")) << "to be mended";
        reasons.clear();
        find<QListWidget>(name.c_str())->setCurrentRow(entries().size() - 1);
        expectStep([&] { click((name + ", remove").c_str()); }, entries);
    }
}

/// Nobody does what it asks for.
TEST(ksListEditorTest, StaysWithTheEntryThatIsNotMoved)
{
    ksListEditor editor(ksListEditor::MoveEntry);
    editor.showValue(QStringList{QStringLiteral("one"), QStringLiteral("two")});
    editor.findChildren<QToolButton *>().last()->click();
    EXPECT_EQ(editor.currentRow(), 0);
}

TEST_F(ksInspectorTest, EditsLinkSets)
{
    const osg::LightLinkSetPtr set = osg::LightLinkSet::create();
    const osg::NodePtr links = add(set, "Links");
    const osg::NodePtr lamp = add(osg::UberLight::create(), "Glow");
    for (const std::vector<osg::NodePtr> &none :
         {std::vector<osg::NodePtr>{links}, {document.root(), links}, {node("Chair"), links}}) {
        select(none);
        click("Lights, add the other selected nodes");
        EXPECT_EQ(reasons.size(), 1);
        reasons.clear();
    }
    select({document.root(), links});
    click("Nodes that they shine on, add the other selected nodes");
    EXPECT_EQ(reasons.size(), 1);
    reasons.clear();
    select({node("Table"), lamp, links});
    const auto lights = [&] { return entriesOf("Lights"); };
    const auto nodes = [&] { return entriesOf("Nodes that they shine on"); };
    expectStep([&] { click("Lights, add the other selected nodes"); }, lights);
    EXPECT_EQ(lights(), QStringList(QStringLiteral("Glow")));
    expectStep([&] { click("Nodes that they shine on, add the other selected nodes"); }, nodes);
    EXPECT_EQ(nodes(), QStringList({QStringLiteral("Table"), QStringLiteral("Glow")}));
    expectStep([&] { click("Nodes that they shine on, remove"); }, nodes);
    EXPECT_EQ(nodes(), QStringList(QStringLiteral("Glow")));

    // A group stands for the light below it; a second set has it, too.
    const osg::NodePtr bulb = node("LampBulb light");
    const osg::LightLinkSetPtr second = osg::LightLinkSet::create();
    const osg::NodePtr others = add(second, "Others");
    select({bulb->getParent(), bulb, others, links});
    expectStep([&] { click("Lights, add the other selected nodes"); }, lights);
    EXPECT_EQ(lights(), QStringList({QStringLiteral("Glow"), QStringLiteral("LampBulb light")}));
    EXPECT_THAT(second->getLights().getValues(), ElementsAre(bulb));
    find<QListWidget>("Lights")->setCurrentRow(1);
    expectStep([&] { click("Lights, remove"); }, lights);
    EXPECT_TRUE(second->getLights().empty());
    find<QListWidget>("Lights")->setCurrentRow(0);
    expectStep([&] { click("Lights, remove"); }, lights);
}

TEST_F(ksInspectorTest, EditsConstraints)
{
    const osg::NodePtr aim =
        add(ksConstraintEdits::makeAim(node("Table"), {node("Chair")}, {node("Lamp")}), "Aim");
    select({aim});
    const auto entries = [&] { return entriesOf("Refers to"); };
    EXPECT_EQ(entries(), QStringList({QStringLiteral("Target: Table"), QStringLiteral("Source: Chair"),
                                      QStringLiteral("Up: Lamp")}));
    find<QListWidget>("Refers to")->setCurrentRow(1);
    expectStep([&] { click("Refers to, remove"); }, entries);
    EXPECT_EQ(entries(), QStringList({QStringLiteral("Target: Table"), QStringLiteral("Up: Lamp")}));
}

TEST_F(ksInspectorTest, EditsAllFields)
{
    const osg::NodePtr aim = add(ksConstraintEdits::makeAim(node("Table"), {}, {}), "Aim");
    select({aim});
    click("All fields");
    expectStep([&] { type("AimConstraint Aim vector y", "0.5"); },
               [&] { return textOf("AimConstraint Aim vector y"); });
    EXPECT_TRUE(find<QLineEdit>("AimConstraint Target")->isReadOnly());
    EXPECT_EQ(textOf("ksNodeSettings Opacity"), QStringLiteral("1"));
    click("All fields");
    EXPECT_FALSE(find<QLineEdit>("AimConstraint Target")->isVisible());

    const osg::NodePtr table = node("Table");
    select({table});
    click("All fields");
    const char *const mode = "Transform3D Rotation direction mode";
    expectStep([&] { scrub("Transform3D Rotation direction mode, drag to change", 60); },
               [&] { return textOf(mode); });
    EXPECT_EQ(textOf(mode), QStringLiteral("2")) << "within its range";
    click("All fields");
    find<QLineEdit>("User tags, what to add")->setText(QStringLiteral("oak"));
    click("User tags, add");
    click("All fields");
    const auto entries = [&] { return entriesOf("TagAttachment User tags"); };
    find<QLineEdit>("TagAttachment User tags, what to add")->setText(QStringLiteral("old"));
    expectStep([&] { click("TagAttachment User tags, add"); }, entries);
    EXPECT_EQ(entries(), entriesOf("User tags"));
}

TEST_F(ksInspectorTest, ReadsOnlyTheRowsConcerned)
{
    const osg::NodePtr table = node("Table");
    select({table});
    EXPECT_EQ(readBy([&] { ksNodeEdits::show(document, {node("Chair")}, false); }), 0u);
    EXPECT_EQ(readBy([&] { ksNodeEdits::rename(document, node("Chair"), QStringLiteral("Stool")); }), 0u);
    EXPECT_EQ(readBy([&] { ksNodeEdits::move(document, {node("Lamp")}, node("Stool")); }), 0u);
    EXPECT_EQ(readBy([&] { type("Comment", "x"); }), 1u);
    EXPECT_EQ(readBy([&] { stack().undo(); }), 1u);
    EXPECT_EQ(readBy([&] { stack().redo(); }), 1u);
    EXPECT_EQ(readBy([&] { type("Translation x", "5"); }), 1u);
    EXPECT_EQ(readBy([&] { type("Rotation x", "5"); }), 2u) << "and the quaternion";
    EXPECT_EQ(readBy([&] { stack().undo(); }), 2u);
}

TEST_F(ksInspectorTest, CostsNoMoreInLargeScenes)
{
    std::vector<std::size_t> reads;
    for (const int size : {1000, 50000}) {
        document.clear();
        osg::NodePtr last = document.root();
        const osg::NodePtr branch = ksContainers::createNode("Branch", osg::Transform3D::create());
        {
            CPEdit(branch, osg::Node::ChildrenFieldMask);
            for (int i = 0; i < size; ++i) {
                last = ksContainers::createNode("Leaf", osg::Transform3D::create());
                branch->addChild(last);
            }
        }
        document.add(ksTreeEdits::makeAdd(document.root(), branch));
        select({branch, last});
        reads.push_back(readBy([&] {
            type("Translation x", "5");
            type("Name", "Other");
            ksNodeEdits::rename(document, branch, QStringLiteral("Elsewhere"));
            ksNodeEdits::show(document, {branch->getChild(0)}, false);
            stack().undo();
            stack().undo();
        }));
    }
    EXPECT_EQ(reads[0], reads[1]);
    EXPECT_LT(reads[0], 20u);
}

TEST_F(ksInspectorTest, NamesEveryControl)
{
    const osg::NodePtr links = add(osg::LightLinkSet::create(), "Links");
    const osg::NodePtr aim = add(ksConstraintEdits::makeAim(node("Table"), {}, {}), "Aim");
    const osg::NodePtr lamp = add(osg::UberLight::create(), "Glow");
    const osg::NodePtr layered = addLayered();
    select({node("Table")});
    click("All fields");
    int controls = 0;
    const std::function<void(QAccessibleInterface *, const QString &)> visit =
        [&](QAccessibleInterface *control, const QString &place) {
            const QString name = control->text(QAccessible::Name);
            const QString here = place + QLatin1Char('/') + name;
            const QAccessible::Role role = control->role();
            const bool isControl =
                control->state().focusable || (role != QAccessible::Client && role != QAccessible::Pane);
            if (isControl && !control->state().invisible) {
                ++controls;
                EXPECT_FALSE(name.isEmpty()) << here.toStdString() << " has a control without a name, "
                                             << control->object()->metaObject()->className();
            }
            for (int i = 0; i < control->childCount(); ++i)
                if (QAccessibleInterface *child = control->child(i))
                    visit(child, here);
        };
    for (const osg::NodePtr &shown : {node("Table"), links, aim, lamp, layered}) {
        select({shown});
        // Widgets show themselves once they are laid out.
        QCoreApplication::processEvents();
        visit(QAccessible::queryAccessibleInterface(inspector.get()), ksContainers::nameOf(shown));
    }
    EXPECT_GT(controls, 500);
}
