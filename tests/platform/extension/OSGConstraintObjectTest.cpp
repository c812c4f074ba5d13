// SPDX-License-Identifier: MIT
#include "ksFieldTable.h"

#include <OSGConstraintObject.h>
#include <OpenSG/OSGNode.h>

#include <gtest/gtest.h>

#include <support/ksAspects.h>
#include <support/ksRecords.h>

namespace {

using namespace osg;

/// A constraint object (id 1) and a node (id 2), each held once here.
class OSGConstraintObjectTest : public testing::Test
{
protected:
    OSGConstraintObjectTest() { recorder.take(); }
    ~OSGConstraintObjectTest() override
    {
        object = NullFC;
        node = NullFC;
        recorder.take();
    }

    ksRecorder recorder;
    ConstraintObjectRefPtr object{ConstraintObject::create()};
    NodeRefPtr node{Node::create()};
};

TEST_F(OSGConstraintObjectTest, IsAnAttachmentContainerWithTheseFields)
{
    EXPECT_EQ(ConstraintObject::getClassType().getParent(), &AttachmentContainer::getClassType());
    EXPECT_EQ(
        ksFieldTableOf<ConstraintObject>(),
        (std::vector<std::string>{"nodeId SFUInt32 = 0", "weight SFReal32 = 1",
                                  "translationOffset SFVec3f = 0 0 0", "rotationOffset SFVec3f = 0 0 0"}));
}

TEST_F(OSGConstraintObjectTest, KnowsItsNodeWithoutHoldingIt)
{
    EXPECT_TRUE(object->getNode() == NullFC);

    object->setNode(node.get());

    EXPECT_TRUE(object->getNode() == node.get());
    EXPECT_EQ(node.get().getRefCount(), 1);
    EXPECT_EQ(recorder.take(), ksRecords()) << "the edit is up to the caller";
    endEditCP(object, ConstraintObject::NodeIdFieldMask);
    ksExpectSync(object);
}

TEST_F(OSGConstraintObjectTest, HasNoNodeOnceThatHasGone)
{
    object->setNode(node.get());

    node = NullFC;

    EXPECT_TRUE(object->getNode() == NullFC);
}

TEST_F(OSGConstraintObjectTest, NodeCanBeTakenAway)
{
    object->setNode(node.get());
    object->setNode(NullFC);

    EXPECT_TRUE(object->getNode() == NullFC);
    EXPECT_EQ(object->getNodeId(), 0u);
}

TEST_F(OSGConstraintObjectTest, IdOfAnotherKindOfContainerIsNoNode)
{
    const ksFieldTexts before = ksFieldTextsOf(object);
    const FieldContainerRefPtr name(FieldContainerFactory::the()->createFieldContainer("Name"));
    object->setNodeId(name.get().getFieldContainerId());

    EXPECT_TRUE(object->getNode() == NullFC);
    EXPECT_NE(ksFieldTextsOf(object), before);
}

} // namespace
