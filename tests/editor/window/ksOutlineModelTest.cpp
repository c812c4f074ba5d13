// SPDX-License-Identifier: MIT
#include "../ksEditorFixture.h"
#include <editor/document/ksDocument.h>
#include <editor/document/ksDocumentHistory.h>
#include <editor/document/ksNodeEdits.h>
#include <editor/edits/ksTransformEdits.h>
#include <editor/window/ksOutlineModel.h>

#include <QAbstractItemModelTester>
#include <QMimeData>
#include <QSignalSpy>
#include <gmock/gmock.h>

#include <memory>

namespace {

class ksOutlineModelTest : public testing::Test
{
protected:
    ksOutlineModelTest() { document.open(ksRoomFile()); }

    osg::NodePtr node(const char *name) const { return ksFindNode(document.root(), name); }
    QModelIndex indexOf(const osg::NodePtr &node) const { return model.indexOf(node.getFieldContainerId()); }

    /// Expects that the rows below \a index are the nodes of the scene, all the way down.
    void expectSameTree(const QModelIndex &index)
    {
        const osg::NodePtr node = model.nodeAt(index);
        ASSERT_EQ(model.rowCount(index), static_cast<int>(node->getNChildren()));
        for (int row = 0; row < model.rowCount(index); ++row) {
            const QModelIndex child = model.index(row, 0, index);
            ASSERT_EQ(model.nodeAt(child), node->getChild(static_cast<osg::UInt32>(row)));
            EXPECT_EQ(model.parent(child), index);
            expectSameTree(child);
        }
    }
    void expectSameTree() { expectSameTree(model.index(0, 0)); }

    /// How many rows \a work touches.
    template <class Work>
    std::size_t touchedBy(const Work &work)
    {
        const QObject context;
        std::size_t touched = 0;
        const auto note = [&touched](const QModelIndex &, int first, int last) {
            touched += static_cast<std::size_t>(last - first + 1);
        };
        QObject::connect(&model, &QAbstractItemModel::rowsInserted, &context, note);
        QObject::connect(&model, &QAbstractItemModel::rowsRemoved, &context, note);
        QObject::connect(&model, &QAbstractItemModel::rowsMoved, &context, note);
        QObject::connect(&model, &QAbstractItemModel::dataChanged, &context, [&touched] { ++touched; });
        work();
        return touched;
    }

    ksDocument document;
    ksOutlineModel model{document};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

} // namespace

TEST_F(ksOutlineModelTest, HasTheTree)
{
    expectSameTree();
    EXPECT_EQ(model.data(indexOf(node("Table")), Qt::DisplayRole).toString(), QStringLiteral("Table"));
    document.clear();
    expectSameTree();
    EXPECT_EQ(model.rowCount(model.index(0, 0)), 0);
}

TEST_F(ksOutlineModelTest, TouchesTheRowsThatAnEditConcerns)
{
    const osg::NodePtr table = node("Table");
    QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
    const ksTransformProperty &translation = *ksTransformEdits::find(QStringLiteral("translation"));
    EXPECT_EQ(touchedBy([&] { document.add(translation.make({table}, osg::Vec3f(1, 2, 3), {}, nullptr)); }),
              0u);
    EXPECT_EQ(touchedBy([&] { ksNodeEdits::rename(document, table, QStringLiteral("Desk")); }), 1u);
    EXPECT_EQ(model.data(indexOf(table), Qt::DisplayRole).toString(), QStringLiteral("Desk"));
    EXPECT_EQ(touchedBy([&] { ksNodeEdits::show(document, {table, node("Chair")}, false); }), 2u);
    EXPECT_EQ(touchedBy([&] { ksNodeEdits::move(document, {node("Chair")}, table, 0); }), 2u);
    expectSameTree();
    EXPECT_EQ(touchedBy([&] { ksNodeEdits::remove(document, {table}); }), 1u);
    expectSameTree();
    EXPECT_FALSE(indexOf(table).isValid());
    EXPECT_EQ(touchedBy([&] { document.stack().undo(); }), 1u);
    EXPECT_EQ(touchedBy([&] { document.stack().undo(); }), 2u);
    expectSameTree();
    const osg::NodePtr root = document.root();
    EXPECT_EQ(touchedBy([&] { ksNodeEdits::move(document, {root->getChild(2)}, root, 0); }), 1u);
    expectSameTree();
    EXPECT_EQ(touchedBy([&] { ksNodeEdits::move(document, {root->getChild(0)}, root); }), 1u);
    expectSameTree();
    EXPECT_EQ(touchedBy([&] { document.stack().undo(); }), 1u);
    expectSameTree();
    EXPECT_EQ(reset.count(), 0);
}

TEST_F(ksOutlineModelTest, TellsOnceOfWhatBelongsTogether)
{
    const osg::NodePtr root = document.root();
    std::vector<osg::NodePtr> all;
    for (osg::UInt32 i = 0; i < root->getNChildren(); ++i)
        all.push_back(root->getChild(i));
    ASSERT_GT(all.size(), 2u);
    QSignalSpy told(&document, &ksDocument::changed);
    const QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    const QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    ksNodeEdits::remove(document, all);
    EXPECT_EQ(told.count(), 1);
    EXPECT_EQ(removed.count(), 1);
    document.stack().undo();
    EXPECT_EQ(inserted.count(), 1);
    expectSameTree();
    // Some of them, in another order, along with one that is new.
    ksNodeEdits::asOneStep(document, QStringLiteral("shuffle"), [&] {
        ksNodeEdits::move(document, {all[0]}, root);
        ksNodeEdits::move(document, {all[2]}, root, 0);
        ksNodeEdits::add(document, root);
        ksNodeEdits::move(document, {all[1]}, root);
    });
    expectSameTree();
    document.stack().undo();
    expectSameTree();
}

TEST_F(ksOutlineModelTest, KeepsPlacesOfRowsThatStay)
{
    const QPersistentModelIndex legs = indexOf(node("Legs"));
    const osg::NodePtr table = node("Table");
    ksNodeEdits::move(document, {table}, document.root(), 0);
    EXPECT_EQ(model.nodeAt(legs), node("Legs"));
    EXPECT_EQ(model.parent(legs), indexOf(table));
}

TEST_F(ksOutlineModelTest, Edits)
{
    const osg::NodePtr table = node("Table");
    EXPECT_TRUE(model.setData(indexOf(table), QStringLiteral("Desk"), Qt::EditRole));
    EXPECT_EQ(document.stack().undoText(), QStringLiteral("Rename 'Table'"));
    const QModelIndex shown = indexOf(table).siblingAtColumn(ksOutlineModel::VisibilityColumn);
    EXPECT_EQ(model.data(shown, Qt::CheckStateRole).toInt(), Qt::Checked);
    EXPECT_TRUE(model.setData(shown, Qt::Unchecked, Qt::CheckStateRole));
    EXPECT_EQ(table->getTravMask(), 0u);
    EXPECT_EQ(model.data(shown, Qt::CheckStateRole).toInt(), Qt::Unchecked);
    EXPECT_FALSE(model.setData({}, 1, Qt::EditRole));
    EXPECT_EQ(model.flags({}), Qt::NoItemFlags);
}

TEST_F(ksOutlineModelTest, DropsNodesElsewhere)
{
    const osg::NodePtr table = node("Table");
    const osg::NodePtr chair = node("Chair");
    QSignalSpy refused(&model, &ksOutlineModel::refused);
    const std::unique_ptr<QMimeData> dragged(model.mimeData({indexOf(chair)}));
    model.dropMimeData(dragged.get(), Qt::MoveAction, 1, 0, indexOf(table));
    EXPECT_EQ(table->getChild(1), chair);
    EXPECT_EQ(document.stack().count(), 1);

    const std::unique_ptr<QMimeData> above(model.mimeData({indexOf(table)}));
    model.dropMimeData(above.get(), Qt::MoveAction, -1, -1, indexOf(chair));
    ASSERT_EQ(refused.count(), 1);
    EXPECT_THAT(refused.at(0).at(0).toString().toStdString(),
                testing::EndsWith("'Table' cannot be moved below itself"));
    EXPECT_EQ(document.stack().count(), 1);
    expectSameTree();
}
