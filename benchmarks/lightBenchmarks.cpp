// SPDX-License-Identifier: MIT
#include "Fixtures.h"
#include "Meter.h"
#include "Topics.h"

#include <ksundo/light/ksAddNodeToLightLinkSetUndoCommand.h>

#include <OSGLightLinkSet.h>

#include <utility>

namespace {

/// Every how manyth of the linked nodes is removed.
constexpr int share = 5;

/// Removes nodes from a link set by the set's operations on one node, by hand.
class HandWrittenRemoval : public QUndoCommand
{
public:
    HandWrittenRemoval(const osg::LightLinkSetPtr &set, const std::vector<osg::NodePtr> &nodes)
        : setId(set.getFieldContainerId())
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
