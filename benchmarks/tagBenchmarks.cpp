// SPDX-License-Identifier: MIT
#include "Fixtures.h"
#include "Meter.h"
#include "Topics.h"

#include <ksundo/tag/ksTagUndoCommands.h>

#include <OSGTagAttachment.h>
#include <OpenSG/OSGNode.h>

#include <utility>

namespace {

constexpr osg::UInt32 userTags = 4;
constexpr osg::BitVector mask =
    osg::TagAttachment::UserTagsFieldMask | osg::TagAttachment::TagValuesFieldMask;

using Strings = osg::MField<std::string>;
using Values = osg::MField<osg::UInt64>;

/// The change of a container's tags by hand: both lists as they were and as they are to be.
class HandWrittenTags : public QUndoCommand
{
public:
    HandWrittenTags(const osg::NodePtr &node, Strings newTags, Values oldValues, Values newValues)
        : QUndoCommand(editText())
        , nodeId(node.getFieldContainerId())
        , before{find()->getUserTags(), std::move(oldValues)}
        , after{std::move(newTags), std::move(newValues)}
    {}

    void undo() override { write(before); }
    void redo() override { write(after); }

private:
    using Lists = std::pair<Strings, Values>;

    osg::TagAttachmentPtr find() const
    {
        const auto node = osg::NodePtr::dcast(osg::FieldContainerFactory::the()->getContainer(nodeId));
        return osg::TagAttachmentPtr::dcast(node->findAttachment(osg::TagAttachment::getClassGroupId()));
    }

    void write(const Lists &lists)
    {
        const osg::TagAttachmentPtr tags = find();
        tags->getUserTags() = lists.first;
        tags->getTagValues() = lists.second;
        osg::endEditCP(tags, mask);
    }

    osg::UInt32 nodeId;
    Lists before;
    Lists after;
};

/// A node with many tags, one of which the commands add.
class TaggedNode
{
public:
    explicit TaggedNode(int number)
    {
        const osg::TagAttachmentPtr tags = osg::TagAttachment::create();
        for (int i = 0; i < number; ++i) {
            tags->getUserTags().push_back("a tag with the number " + std::to_string(100 + i));
            tags->getTagValues().push_back(static_cast<osg::UInt64>(i));
        }
        node.get()->addAttachment(tags);
        newTags = tags->getUserTags();
        newTags.push_back("one more");
        oldValues = newValues = tags->getTagValues();
        newValues.push_back(7);
    }

    QUndoCommand *make(const ByLibrary &)
    {
        return new ksAddTagUndoCommand(editText(), node.get(), mask, userTags, "one more", &newTags,
                                       oldValues, newValues);
    }
    QUndoCommand *make(const ByHand &) { return new HandWrittenTags(node, newTags, oldValues, newValues); }

    osg::NodeRefPtr node{osg::Node::create()};
    Strings newTags;
    Values oldValues;
    Values newValues;
};

template <class Edits>
void pushTag(Meter &meter, int number)
{
    TaggedNode tagged(number);
    Edits earlier;
    earlier.push(tagged.make(earlier));
    earlier.undo();
    Edits edits;
    meter.measure(1, [&](int) { edits.push(tagged.make(edits)); });
    meter.require(edits.count() == 1, "the tag was not added");
}

template <class Edits>
void undoTag(Meter &meter, int number)
{
    TaggedNode tagged(number);
    Edits edits;
    edits.push(tagged.make(edits));
    edits.undo();
    edits.redo();
    meter.measure(1, [&](int) { edits.undo(); });
    meter.require(edits.index() == 0, "the tag was not taken back");
}

} // namespace

void addTagBenchmarks()
{
    for (const int number : {1, 10, 100, 1'000}) {
        const std::string prefix = "tags/" + std::to_string(number);
        addCase(
            prefix + "/push", [=](Meter &meter) { pushTag<ByLibrary>(meter, number); },
            [=](Meter &meter) { pushTag<ByHand>(meter, number); });
        addCase(
            prefix + "/undo", [=](Meter &meter) { undoTag<ByLibrary>(meter, number); },
            [=](Meter &meter) { undoTag<ByHand>(meter, number); });
    }
}
