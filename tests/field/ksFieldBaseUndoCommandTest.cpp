// SPDX-License-Identifier: MIT
#include "ksFieldFixture.h"

#include <ksundo/field/ksFieldBaseUndoCommand.h>

#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGSimpleAttachments.h>

#include <limits>
#include <support/ksCommandTime.h>

namespace {

/// A field command of a class that merges.
class AimingCommand : public ksFieldBaseUndoCommand
{
    KS_UNDO_COMMAND(AimingCommand)

public:
    AimingCommand(const osg::FieldContainerPtr &container, const std::string &fieldName)
        : ksFieldBaseUndoCommand(QString(), container, fieldName)
    {}
    bool mergeWith(const QUndoCommand *other) override { return absorb(other); }
};

/// The id of the field that a name finds; 0 for none.
osg::UInt32 findId(const osg::FieldContainerPtr &container, const std::string &name)
{
    const osg::FieldDescription *description = ksFieldBaseUndoCommand::findField(container, name);
    return description == nullptr ? 0 : description->getFieldId();
}

class ksFieldBaseUndoCommandTest : public ksFieldFixture
{
protected:
    void expectAim(ksFieldBaseUndoCommand &command, osg::UInt32 containerId, osg::UInt32 fieldId,
                   osg::BitVector mask)
    {
        EXPECT_EQ(command.containerId(), containerId);
        EXPECT_EQ(ksFieldTarget::idOfContainer(command), containerId);
        EXPECT_EQ(ksFieldTarget::idOfField(command), fieldId);
        EXPECT_EQ(ksFieldTarget::maskOf(command), mask);
    }

    void expectNoAim(ksFieldBaseUndoCommand &command) { expectAim(command, 0, 0, 0); }
    void expectNoAim(ksFieldBaseUndoCommand &&command) { expectNoAim(command); }
};

using ksFindField = ksFieldBaseUndoCommandTest;

/// Two field commands that merge; each test changes one thing about them.
class ksFieldCommandMerging : public ksFieldBaseUndoCommandTest
{
protected:
    ksFieldCommandMerging()
    {
        ksCommandTime::of(older) = 0.0;
        ksCommandTime::of(newer) = 0.125;
    }

    AimingCommand older{container(), "int32"};
    AimingCommand newer{container(), "int32"};
};

} // namespace

TEST_F(ksFieldBaseUndoCommandTest, AimsByNameOrById)
{
    const int id = osg::ProbeContainer::Int32FieldId;
    ksFieldBaseUndoCommand byName(QStringLiteral("text"), container(), "int32");
    ksFieldBaseUndoCommand byId(QStringLiteral("text"), container(), id);
    for (ksFieldBaseUndoCommand *command : {&byName, &byId}) {
        expectAim(*command, probeId(), id, osg::ProbeContainer::Int32FieldMask);
        EXPECT_EQ(command->text(), QStringLiteral("text"));
    }
}

TEST_F(ksFieldBaseUndoCommandTest, AimsAtTheFirstAndTheLastFieldById)
{
    ksFieldBaseUndoCommand first(QString(), container(), 1);
    expectAim(first, probeId(), 1, 2);
    const auto count = static_cast<int>(probe->getType().getNumFieldDescs());
    ksFieldBaseUndoCommand last(QString(), container(), count);
    expectAim(last, probeId(), static_cast<osg::UInt32>(count), osg::BitVector(1) << count);
}

TEST_F(ksFieldBaseUndoCommandTest, AimsByIdAtWhatNoNameFinds)
{
    const osg::NodeRefPtr node(osg::Node::create());
    ksFieldBaseUndoCommand volume(QString(), node.get(), int(osg::Node::VolumeFieldId));
    expectAim(volume, node.get().getFieldContainerId(), osg::Node::VolumeFieldId, osg::Node::VolumeFieldMask);
    ksFieldBaseUndoCommand parents(QString(), container(), int(osg::ProbeContainer::OwnParentsFieldId));
    EXPECT_EQ(ksFieldTarget::idOfField(parents), osg::ProbeContainer::OwnParentsFieldId);
}

TEST_F(ksFieldBaseUndoCommandTest, HasNoAimWithAnIdThatIsNoField)
{
    const auto count = static_cast<int>(probe->getType().getNumFieldDescs());
    for (const int id :
         {0, count + 1, count + 1000, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
        expectNoAim(ksFieldBaseUndoCommand(QString(), container(), id));
}

TEST_F(ksFieldBaseUndoCommandTest, HasNoAimWithoutAContainer)
{
    expectNoAim(ksFieldBaseUndoCommand(QString(), osg::NullFC, "int32"));
    expectNoAim(ksFieldBaseUndoCommand(QString(), osg::NullFC, 1));
}

TEST_F(ksFieldBaseUndoCommandTest, LeavesWhatADerivedClassOverrides)
{
    ksFieldBaseUndoCommand command(QString(), container(), "int32");
    EXPECT_EQ(command.id(), -1);
    EXPECT_FALSE(command.mergeWith(&command));
    command.redo();
    command.undo();
    expectNoEdit();
}

TEST_F(ksFindField, FindsEveryFieldByItsName)
{
    osg::FieldContainerType &type = probe->getType();
    for (osg::UInt32 id = 1; id < osg::ProbeContainer::OwnParentsFieldId; ++id)
        EXPECT_EQ(findId(container(), type.getFieldDescription(id)->getCName()), id);
}

TEST_F(ksFindField, GivesTheDescriptionOfTheType)
{
    EXPECT_EQ(ksFieldBaseUndoCommand::findField(container(), "text"),
              probe->getType().getFieldDescription(osg::ProbeContainer::TextFieldId));
}

TEST_F(ksFindField, IgnoresTheCaseOfTheFirstLetter)
{
    EXPECT_EQ(findId(container(), "Int32"), osg::ProbeContainer::Int32FieldId);
    EXPECT_EQ(findId(container(), "Q"), osg::ProbeContainer::QFieldId);
    EXPECT_EQ(findId(container(), "q"), osg::ProbeContainer::QFieldId);
}

TEST_F(ksFindField, HeedsTheCaseOfTheOtherLetters)
{
    for (const char *name : {"inT32", "INT32", "tExt", "texT", "Glenum"})
        EXPECT_EQ(findId(container(), name), 0u) << name;
}

TEST_F(ksFindField, HeedsTheWholeName)
{
    for (const char *name : {"", "i", "int", "int3", "int320", "qq", "ext", "xint32", " int32", "int32 "})
        EXPECT_EQ(findId(container(), name), 0u) << name;
    EXPECT_EQ(findId(container(), std::string("int32\0", 6)), 0u);
    EXPECT_EQ(findId(container(), "\u00e4nt32"), 0u);
}

TEST_F(ksFindField, GivesTheFirstOfSeveral)
{
    EXPECT_EQ(findId(container(), "Level"), osg::ProbeContainer::FirstLevelFieldId);
    EXPECT_EQ(findId(container(), "level"), osg::ProbeContainer::FirstLevelFieldId);
}

TEST_F(ksFindField, FindsNothingInNull)
{
    EXPECT_EQ(ksFieldBaseUndoCommand::findField(osg::NullFC, "int32"), nullptr);
}

TEST_F(ksFindField, NeverFindsParents)
{
    const osg::GroupRefPtr group(osg::Group::create());
    const osg::NameRefPtr name(osg::Name::create());
    const osg::FieldContainerPtr containers[] = {group.get(), name.get()};
    for (const osg::FieldContainerPtr &each : containers)
        for (const char *spelling : {"parents", "Parents"})
            EXPECT_EQ(findId(each, spelling), 0u) << each->getTypeName();
}

TEST_F(ksFindField, HidesOnlyAFieldNamedExactlyParents)
{
    EXPECT_EQ(findId(container(), "Parents"), osg::ProbeContainer::OtherParentsFieldId);
    EXPECT_EQ(findId(container(), "parents"), osg::ProbeContainer::OtherParentsFieldId);
}

TEST_F(ksFindField, NeverFindsTheVolumeOfANode)
{
    const osg::NodeRefPtr node(osg::Node::create());
    EXPECT_EQ(findId(node.get(), "volume"), 0u);
    EXPECT_EQ(findId(node.get(), "Volume"), 0u);
}

TEST_F(ksFindField, FindsTheOtherFieldsOfANode)
{
    const osg::NodeRefPtr node(osg::Node::create());
    EXPECT_EQ(findId(node.get(), "attachments"), osg::Node::AttachmentsFieldId);
    EXPECT_EQ(findId(node.get(), "travMask"), osg::Node::TravMaskFieldId);
    EXPECT_EQ(findId(node.get(), "children"), osg::Node::ChildrenFieldId);
    EXPECT_EQ(findId(node.get(), "core"), osg::Node::CoreFieldId);
}

TEST_F(ksFindField, FindsAFieldOfAnotherTypeWithTheMaskOfTheVolume)
{
    ASSERT_EQ(osg::ProbeContainer::UInt64FieldMask, osg::Node::VolumeFieldMask);
    EXPECT_EQ(findId(container(), "uint64"), osg::ProbeContainer::UInt64FieldId);
}

TEST_F(ksFieldCommandMerging, HappensOnTheSameFieldAlsoWhenItHasGone)
{
    EXPECT_TRUE(older.canMergeWith(&newer));
    destroy();
    EXPECT_TRUE(older.canMergeWith(&newer));
    AimingCommand first(osg::NullFC, "int32");
    AimingCommand second(osg::NullFC, "text");
    ksCommandTime::of(second) = ksCommandTime::of(first);
    EXPECT_TRUE(first.canMergeWith(&second)) << "neither has an aim";
}

TEST_F(ksFieldCommandMerging, IsRefusedOnAnotherContainerFieldOrMask)
{
    ++ksFieldTarget::idOfContainer(newer);
    EXPECT_FALSE(older.canMergeWith(&newer));
    --ksFieldTarget::idOfContainer(newer);
    ++ksFieldTarget::idOfField(newer);
    EXPECT_FALSE(older.canMergeWith(&newer));
    --ksFieldTarget::idOfField(newer);
    ksFieldTarget::maskOf(newer) |= osg::BitVector(1) << 63;
    EXPECT_FALSE(older.canMergeWith(&newer)) << "all bits count";
}
