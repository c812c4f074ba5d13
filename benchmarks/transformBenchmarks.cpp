// SPDX-License-Identifier: MIT
#include "Fixtures.h"
#include "Meter.h"
#include "Topics.h"

#include <ksundo/core/NodeUtils.h>
#include <ksundo/transform/ksTransformValueUndoCommands.h>
#include <ksundo/transform/ksTransformVariantMoveCommand.h>

#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <ksNodeUtils.h>

#include <QCoreApplication>

#include <algorithm>
#include <utility>

namespace {

osg::NodePtr makeNode()
{
    const osg::NodePtr node = osg::Node::create();
    CPEditAll(node);
    node->setCore(osg::Transform3D::create());
    osg::setName(node, "Table");
    return node;
}

QString textFor(const osg::NodePtr &node)
{
    return QCoreApplication::translate("ksTranslationUndoCommand", "Translate") + QStringLiteral(" '") +
           QString::fromUtf8(NodeUtils::getName(node)) + QLatin1Char('\'');
}

/// The translation of a node, by hand on Qt alone and the application's own getter and setter.
class HandWrittenTranslation : public HandWrittenBase
{
public:
    HandWrittenTranslation(const osg::NodePtr &node, const osg::Vec3f &value, QUndoCommand *parent = nullptr)
        : HandWrittenBase(textFor(node), parent)
        , nodeId(node.getFieldContainerId())
        , value(value)
        , time(std::chrono::steady_clock::now())
    {}

    void undo() override { exchange(); }
    void redo() override { exchange(); }
    int id() const override { return 2; }

    bool canMergeWith(const HandWrittenTranslation &newer) const
    {
        const std::chrono::duration<double> delay = newer.time - time;
        return newer.nodeId == nodeId && delay.count() < longMergeWindow;
    }

    bool mergeWith(const QUndoCommand *other) override
    {
        const auto *newer = static_cast<const HandWrittenTranslation *>(other);
        if (!canMergeWith(*newer))
            return false;
        time = newer->time;
        return true;
    }

    void describe(ksMessage &message) const override
    {
        message.set("id", id(), true);
        message.set("node", nodeId, true);
        message.set("transformCommand", true, true);
    }

private:
    void exchange()
    {
        const auto node = osg::NodePtr::dcast(osg::FieldContainerFactory::the()->getContainer(nodeId));
        if (node == osg::NullFC)
            return;
        const osg::Vec3f previous = ksNodeUtils::getTransformNodeTranslation(node, false, -1);
        ksNodeUtils::setTransformNodeTranslation(node, value[0], value[1], value[2], false, -1);
        value = previous;
    }

    osg::UInt32 nodeId;
    osg::Vec3f value;
    std::chrono::steady_clock::time_point time;
};

/// Several of them as one step, which merges when all of them do.
class HandWrittenTranslations : public QUndoCommand
{
public:
    using QUndoCommand::QUndoCommand;

    int id() const override { return 4; }

    bool mergeWith(const QUndoCommand *other) override
    {
        if (other->childCount() != childCount())
            return false;
        for (int i = 0; i < childCount(); ++i)
            if (!mine(i).canMergeWith(static_cast<const HandWrittenTranslation &>(*other->child(i))))
                return false;
        for (int i = 0; i < childCount(); ++i)
            mine(i).mergeWith(other->child(i));
        return true;
    }

private:
    HandWrittenTranslation &mine(int i)
    {
        return static_cast<HandWrittenTranslation &>(const_cast<QUndoCommand &>(*child(i)));
    }
};

QUndoCommand *makeTranslation(const ByLibrary &, const osg::NodePtr &node, const osg::Vec3f &value,
                              QUndoCommand *parent = nullptr)
{
    return new ksTranslationUndoCommand(node, value, false, longMergeWindow, parent);
}

QUndoCommand *makeTranslation(const ByHand &, const osg::NodePtr &node, const osg::Vec3f &value,
                              QUndoCommand *parent = nullptr)
{
    return new HandWrittenTranslation(node, value, parent);
}

QUndoCommand *makeComposite(const ByLibrary &)
{
    return new ksMultiCommand(editText());
}

QUndoCommand *makeComposite(const ByHand &)
{
    return new HandWrittenTranslations(editText());
}

int received = 0;

bool receive(const char *, ksMessage &message, int)
{
    received += static_cast<int>(message.values().size());
    return true;
}

template <class Edits>
void drag(Meter &meter)
{
    const osg::NodeRefPtr node(makeNode());
    Edits edits;
    edits.setMessageCallback(&receive);
    const auto event = [&](int i) {
        edits.push(makeTranslation(edits, node, osg::Vec3f(static_cast<float>(i), 0, 0)));
    };
    event(0);
    event(1);
    received = 0;
    meter.measure(stepCount, event);
    meter.require(edits.count() == 1 && received == 6 * stepCount, "the drag is not one step");
}

/// The events of a drag of some nodes at once, each a composite that merges into the first.
template <class Edits>
void dragTogether(Meter &meter, int number)
{
    std::vector<osg::NodeRefPtr> nodes;
    nodes.reserve(static_cast<std::size_t>(number));
    for (int i = 0; i < number; ++i)
        nodes.emplace_back(makeNode());
    Edits edits;
    int heard = 0;
    edits.listen(heard);
    const auto event = [&](int step) {
        QUndoCommand *composite = makeComposite(edits);
        for (const osg::NodeRefPtr &node : nodes)
            makeTranslation(edits, node, osg::Vec3f(static_cast<float>(step), 0, 0), composite);
        edits.push(composite);
    };
    event(0);
    event(1);
    constexpr int events = 100;
    meter.measure(events, event, number);
    meter.require(edits.count() == 1 && heard == events + 2, "the drag is not one step");
}

/// A node below some others, each of which is moved and turned.
class Branch
{
public:
    explicit Branch(int depth)
    {
        for (int i = 0; i < depth; ++i) {
            const osg::NodePtr child = makeNode();
            ksNodeUtils::setTransformNodeTranslation(child, 1, 2, 3, false, -1);
            ksNodeUtils::setTransformNodeRotation(child, 10, 20, 30, -1);
            if (!nodes.empty())
                nodes.back().get()->addChild(child);
            nodes.emplace_back(child);
        }
    }

    osg::NodePtr end() const { return nodes.back(); }

private:
    std::vector<osg::NodeRefPtr> nodes;
};

/// The translation of a node in world space by hand: what leads from its parent to the world is put together
/// once a step.
class HandWrittenWorldTranslation : public QUndoCommand
{
public:
    HandWrittenWorldTranslation(const osg::NodePtr &node, const osg::Vec3f &value)
        : QUndoCommand(textFor(node))
        , nodeId(node.getFieldContainerId())
        , value(value)
    {}

    void undo() override { exchange(); }
    void redo() override { exchange(); }

private:
    void exchange()
    {
        const auto node = osg::NodePtr::dcast(osg::FieldContainerFactory::the()->getContainer(nodeId));
        if (node == osg::NullFC)
            return;
        osg::Matrix4d toWorld;
        for (osg::NodePtr parent = node->getParent(); parent != osg::NullFC; parent = parent->getParent())
            if (const auto transform = osg::TransformPtr::dcast(parent->getCore()))
                toWorld.multLeft(osg::inPrecisionOf<osg::Matrix4d>(transform->getMatrix()));
        const osg::Vec3f previous =
            transformed(toWorld, ksNodeUtils::getTransformNodeTranslation(node, false, -1));
        if (toWorld.invert()) {
            const osg::Vec3f local = transformed(toWorld, value);
            ksNodeUtils::setTransformNodeTranslation(node, local[0], local[1], local[2], false, -1);
        }
        value = previous;
    }

    static osg::Vec3f transformed(const osg::Matrix4d &matrix, const osg::Vec3f &position)
    {
        osg::Point<osg::Real64, 3> result(osg::inPrecisionOf<osg::Vec3d>(position));
        matrix.multMatrixPnt(result, result);
        return osg::inPrecisionOf<osg::Vec3f>(result);
    }

    osg::UInt32 nodeId;
    osg::Vec3f value;
};

QUndoCommand *makeWorldTranslation(const ByLibrary &, const osg::NodePtr &node, const osg::Vec3f &value)
{
    return new ksTranslationUndoCommand(node, value, true, false);
}

QUndoCommand *makeWorldTranslation(const ByHand &, const osg::NodePtr &node, const osg::Vec3f &value)
{
    return new HandWrittenWorldTranslation(node, value);
}

/// An undo of a translation in world space of a node so deep in its tree.
template <class Edits>
void undoInWorld(Meter &meter, int depth)
{
    const Branch branch(depth);
    Edits edits;
    int heard = 0;
    edits.listen(heard);
    for (int i = 0; i < stepCount; ++i)
        edits.push(makeWorldTranslation(edits, branch.end(), osg::Vec3f(static_cast<float>(i), 0, 0)));
    edits.undo();
    edits.redo();
    meter.measure(stepCount, [&edits](int) { edits.undo(); });
    meter.require(edits.index() == 0, "a step was not undone");
}

/// Moves variants of a node by the application's own operations, by hand.
class HandWrittenMove : public QUndoCommand
{
public:
    HandWrittenMove(const osg::NodePtr &node, const std::vector<int> &from, int to)
        : nodeId(node.getFieldContainerId())
    {
        for (const int index : from) {
            const auto variant = ksNodeUtils::getTransformVariant(node, static_cast<unsigned long>(index));
            oldPlaces.emplace_back(index, variant.getFieldContainerId());
            newPlaces.emplace_back(to++, variant.getFieldContainerId());
        }
        std::sort(oldPlaces.begin(), oldPlaces.end());
    }

    void undo() override { move(newPlaces, oldPlaces); }
    void redo() override { move(oldPlaces, newPlaces); }

private:
    using Places = std::vector<std::pair<int, osg::UInt32>>;

    void move(const Places &from, const Places &to) const
    {
        const auto *factory = osg::FieldContainerFactory::the();
        const auto node = osg::NodePtr::dcast(factory->getContainer(nodeId));
        std::vector<osg::RefPtr<osg::TransformVariantPtr>> held;
        held.reserve(from.size());
        for (auto place = from.rbegin(); place != from.rend(); ++place) {
            held.emplace_back(osg::TransformVariantPtr::dcast(factory->getContainer(place->second)));
            ksNodeUtils::removeTransformVariant(node, place->first);
        }
        for (const auto &[index, id] : to)
            ksNodeUtils::insertTransformVariant(node, static_cast<unsigned long>(index),
                                                osg::TransformVariantPtr::dcast(factory->getContainer(id)));
    }

    osg::UInt32 nodeId;
    Places oldPlaces;
    Places newPlaces;
};

/// Which variants a move takes, and to where.
struct Move
{
    std::vector<int> from;
    int to = 0;
};

/// The second half of \a number variants in the opposite order: the list has little to shift.
Move reversal(int number)
{
    Move move;
    move.to = number / 2;
    for (int i = number - 1; i >= move.to; --i)
        move.from.push_back(i);
    return move;
}

/// Every other of \a number variants to the front: the list shifts half of itself for each.
Move gathering(int number)
{
    Move move;
    for (int i = 1; i < number; i += 2)
        move.from.push_back(i);
    return move;
}

QUndoCommand *makeMove(const ByLibrary &, const osg::NodePtr &node, const Move &move)
{
    return new ksTransformVariantMoveCommand(node, move.from, move.to, nullptr, [](auto &&...) {});
}

QUndoCommand *makeMove(const ByHand &, const osg::NodePtr &node, const Move &move)
{
    return new HandWrittenMove(node, move.from, move.to);
}

template <class Edits>
void moveVariants(Meter &meter, int number, const Move &move)
{
    const osg::NodeRefPtr node(makeNode());
    ksNodeUtils::createTransformVariantsAttachment(node);
    for (int i = 0; i < number; ++i)
        ksNodeUtils::insertTransformVariant(node, static_cast<unsigned long>(i),
                                            osg::TransformVariant::create());
    const osg::TransformVariantPtr first =
        ksNodeUtils::getTransformVariant(node, static_cast<unsigned long>(move.from.front()));

    Edits edits;
    edits.push(makeMove(edits, node, move));
    edits.undo();
    meter.measure(
        1, [&](int) { edits.redo(); }, number + static_cast<int>(move.from.size()));
    meter.require(ksNodeUtils::getTransformVariant(node, static_cast<unsigned long>(move.to)) == first,
                  "the variants were not moved");
}

void addMoves(const std::string &name, Move (*moveOf)(int))
{
    for (const int number : {100, 1'000, 10'000}) {
        const Move move = moveOf(number);
        addCase(
            "variants/" + std::to_string(number) + '/' + name,
            [=](Meter &meter) { moveVariants<ByLibrary>(meter, number, move); },
            [=](Meter &meter) { moveVariants<ByHand>(meter, number, move); });
    }
}

} // namespace

void addTransformBenchmarks()
{
    addCase("transform/drag event", drag<ByLibrary>, drag<ByHand>);
    for (const int number : {1, 20, 1'000})
        addCase(
            "transform/drag of " + std::to_string(number),
            [=](Meter &meter) { dragTogether<ByLibrary>(meter, number); },
            [=](Meter &meter) { dragTogether<ByHand>(meter, number); });
    for (const int depth : {1, 4, 16})
        addCase(
            "transform/world undo at depth " + std::to_string(depth),
            [=](Meter &meter) { undoInWorld<ByLibrary>(meter, depth); },
            [=](Meter &meter) { undoInWorld<ByHand>(meter, depth); });
    addMoves("reverse", reversal);
    addMoves("gather", gathering);
}
