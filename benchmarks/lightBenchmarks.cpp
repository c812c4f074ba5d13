// SPDX-License-Identifier: MIT
#include "Fixtures.h"
#include "Meter.h"
#include "Topics.h"

#include <ksundo/light/ksAddNodeToLightLinkSetUndoCommand.h>

#include <OSGLightLinkSet.h>
#include <OSGUberLight.h>
#include <OpenSG/OSGNode.h>
#include <ksOpenSGUtils.h>
#include <ksSceneDataManager.h>

#include <utility>

namespace {

/// Every how manyth of the linked nodes is removed.
constexpr int share = 5;

/// Removes nodes from a link set by the set's operations on one node, by hand.
class HandWrittenRemoval : public QUndoCommand
{
public:
    HandWrittenRemoval(const osg::LightLinkSetPtr &set, const std::vector<osg::NodePtr> &nodes)
        : QUndoCommand(QStringLiteral("Remove Nodes"))
        , setId(set.getFieldContainerId())
    {
        const osg::MFNodePtr &list = *set->getMFSceneNodes();
        for (const osg::NodePtr &node : nodes)
            places.emplace_back(node.getFieldContainerId(), list.find(node) - list.begin());
    }

    void undo() override
    {
        for (const auto &[id, position] : places)
            find<osg::LightLinkSetPtr>(setId)->insertSceneNode(find<osg::NodePtr>(id), position);
    }

    void redo() override
    {
        for (const auto &[id, position] : places)
            find<osg::LightLinkSetPtr>(setId)->subSceneNode(find<osg::NodePtr>(id));
    }

private:
    template <class PtrT>
    static PtrT find(osg::UInt32 id)
    {
        return PtrT::dcast(osg::FieldContainerFactory::the()->getContainer(id));
    }

    osg::UInt32 setId;
    std::vector<std::pair<osg::UInt32, osg::Int32>> places;
};

QUndoCommand *makeRemoval(const ByLibrary &, const osg::LightLinkSetPtr &set,
                          const std::vector<osg::NodePtr> &nodes)
{
    return new ksAddNodeToLightLinkSetUndoCommand(set, nodes, 0, true);
}

QUndoCommand *makeRemoval(const ByHand &, const osg::LightLinkSetPtr &set,
                          const std::vector<osg::NodePtr> &nodes)
{
    return new HandWrittenRemoval(set, nodes);
}

/// Adds one node to a link set that does not hold it, by hand.
class HandWrittenAddition : public QUndoCommand
{
public:
    HandWrittenAddition(const osg::LightLinkSetPtr &set, const osg::NodePtr &node)
        : QUndoCommand(QStringLiteral("Add Node"))
        , setId(set.getFieldContainerId())
        , nodeId(node == ksOpenSGUtils::getRoot() || set->containsSceneNode(node)
                     ? 0
                     : node.getFieldContainerId())
    {}

    void undo() override
    {
        const auto node = find<osg::NodePtr>(nodeId);
        if (node != osg::NullFC)
            find<osg::LightLinkSetPtr>(setId)->subSceneNode(node);
    }

    void redo() override
    {
        const auto node = find<osg::NodePtr>(nodeId);
        if (node != osg::NullFC)
            find<osg::LightLinkSetPtr>(setId)->addSceneNode(node);
    }

private:
    template <class PtrT>
    static PtrT find(osg::UInt32 id)
    {
        return PtrT::dcast(osg::FieldContainerFactory::the()->getContainer(id));
    }

    osg::UInt32 setId;
    osg::UInt32 nodeId;
};

/// A link set with scene nodes, and a history of their removals.
template <class Edits>
class LinkedScene
{
public:
    /// One removal has been done and undone.
    explicit LinkedScene(int number)
    {
        for (int i = 0; i < number; ++i) {
            nodes.emplace_back(osg::Node::create());
            set.get()->addSceneNode(nodes.back());
            if (i % share == 0)
                removed.push_back(nodes.back());
        }
        remove();
        restore();
    }

    void remove() { edits.push(makeRemoval(edits, set, removed)); }
    void restore() { edits.undo(); }

    std::size_t linkCount() const { return set.get()->getMFSceneNodes()->size(); }

private:
    std::vector<osg::NodeRefPtr> nodes;
    std::vector<osg::NodePtr> removed;
    osg::LightLinkSetRefPtr set{osg::LightLinkSet::create()};
    Edits edits;
};

/// What is done to a link set.
enum class Change
{
    addOne,
    removeOne,
    removeEight
};

/// A link set with many scene nodes, of which few are added or removed.
class FewLinks
{
public:
    explicit FewLinks(int number)
    {
        for (int i = 0; i < number; ++i) {
            nodes.emplace_back(osg::Node::create());
            set.get()->addSceneNode(nodes.back());
        }
    }

    /// The command that adds a further node, or removes one or some in the middle.
    QUndoCommand *make(const ByLibrary &, Change change) const
    {
        if (change == Change::removeEight)
            return new ksAddNodeToLightLinkSetUndoCommand(set, inTheMiddle(8), 0, true);
        const bool remove = change == Change::removeOne;
        return new ksAddNodeToLightLinkSetUndoCommand(set, remove ? inTheMiddle(1).front() : further.get(), 0,
                                                      remove);
    }
    QUndoCommand *make(const ByHand &, Change change) const
    {
        if (change == Change::addOne)
            return new HandWrittenAddition(set, further);
        return new HandWrittenRemoval(set, inTheMiddle(change == Change::removeOne ? 1 : 8));
    }

private:
    std::vector<osg::NodePtr> inTheMiddle(int number) const
    {
        const auto begin = nodes.begin() + static_cast<std::ptrdiff_t>(nodes.size() / 2);
        return {begin, begin + number};
    }

    std::vector<osg::NodeRefPtr> nodes;
    osg::NodeRefPtr further{osg::Node::create()};
    osg::LightLinkSetRefPtr set{osg::LightLinkSet::create()};
};

/// A push, an undo and a redo each of a command on few of many linked nodes.
template <class Edits>
void changeFewLinks(Meter &meter, int number, Change change)
{
    const FewLinks links(number);
    Edits edits;
    int heard = 0;
    edits.listen(heard);
    edits.push(links.make(edits, change));
    edits.undo();
    meter.measure(
        1,
        [&](int) {
            edits.push(links.make(edits, change));
            edits.undo();
            edits.redo();
        },
        3);
    meter.require(edits.count() == 1, "a step is missing");
}

/// Adds the instances of one light to a link set.
void linkInstances(Meter &meter, int number)
{
    const osg::NodeRefPtr root(osg::Node::create());
    ksOpenSGUtils::setRoot(root);
    ksSceneDataManager::setSceneRoot(0, root);
    const osg::UberLightRefPtr core(osg::UberLight::create());
    std::vector<osg::NodePtr> instances;
    for (int i = 0; i <= number; ++i) {
        const osg::NodePtr node = osg::Node::create();
        node->setCore(core);
        root.get()->addChild(node);
        if (i == 0)
            continue; // the light that stands for its instances
        node->setExternalFlags(osg::NodeExternalFlags::Instance);
        instances.push_back(node);
    }
    const osg::LightLinkSetRefPtr set(osg::LightLinkSet::create());
    ByLibrary edits;
    meter.measure(
        1, [&](int) { edits.push(new ksAddNodeToLightLinkSetUndoCommand(set, instances, 3, false)); },
        number);
    meter.require(int(set.get()->getMFLights()->size()) == number, "the light is not linked");
    ksOpenSGUtils::setRoot(osg::NullFC);
    ksSceneDataManager::setSceneRoot(0, osg::NullFC);
}

template <class Edits>
void removeLinks(Meter &meter, int number)
{
    LinkedScene<Edits> scene(number);
    meter.measure(
        1, [&](int) { scene.remove(); }, number + number / share);
    meter.require(scene.linkCount() == std::size_t(number - number / share), "nodes were not removed");
}

template <class Edits>
void restoreLinks(Meter &meter, int number)
{
    LinkedScene<Edits> scene(number);
    scene.remove();
    meter.measure(
        1, [&](int) { scene.restore(); }, number + number / share);
    meter.require(scene.linkCount() == std::size_t(number), "nodes were not put back");
}

} // namespace

void addLightBenchmarks()
{
    for (const int number : {20, 100, 1'000, 10'000, 100'000}) {
        const std::string prefix = "links/" + std::to_string(number);
        for (const auto &[name, change] :
             {std::pair("/add one", Change::addOne), std::pair("/remove one", Change::removeOne),
              std::pair("/remove eight", Change::removeEight)})
            addCase(
                prefix + name,
                [=, change = change](Meter &meter) { changeFewLinks<ByLibrary>(meter, number, change); },
                [=, change = change](Meter &meter) { changeFewLinks<ByHand>(meter, number, change); });
    }
    for (const int number : {100, 1'000, 10'000})
        addCase("links/" + std::to_string(number) + "/instances",
                [=](Meter &meter) { linkInstances(meter, number); });
    for (const int number : {1'000, 3'000, 10'000}) {
        const std::string prefix = "links/" + std::to_string(number);
        addCase(
            prefix + "/remove", [=](Meter &meter) { removeLinks<ByLibrary>(meter, number); },
            [=](Meter &meter) { removeLinks<ByHand>(meter, number); });
        addCase(
            prefix + "/restore", [=](Meter &meter) { restoreLinks<ByLibrary>(meter, number); },
            [=](Meter &meter) { restoreLinks<ByHand>(meter, number); });
    }
}
