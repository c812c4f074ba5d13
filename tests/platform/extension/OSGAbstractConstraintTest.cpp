// SPDX-License-Identifier: MIT
#include <OSGPointConstraint.h>
#include <OpenSG/OSGNode.h>

#include <gtest/gtest.h>

#include <support/ksRecords.h>
#include <type_traits>

namespace {

using namespace osg;

/// A constraint (id 1), two source objects (ids 2 and 3) for two nodes (ids 4 and 5), each held once here.
class OSGAbstractConstraintTest : public testing::Test
{
protected:
    OSGAbstractConstraintTest()
    {
        a->setNode(nodeA.get());
        b->setNode(nodeB.get());
        recorder.take();
    }
    ~OSGAbstractConstraintTest() override
    {
        constraint = NullFC;
        a = NullFC;
        b = NullFC;
        nodeA = NullFC;
        nodeB = NullFC;
        recorder.take();
    }

    ConstraintObjectPtr find(const NodePtr &node) const
    {
        return constraint->findSourceConstraintObject(node);
    }

    ksRecorder recorder;
    AbstractConstraintRefPtr constraint{PointConstraint::create()};
    ConstraintObjectRefPtr a{ConstraintObject::create()};
    ConstraintObjectRefPtr b{ConstraintObject::create()};
    NodeRefPtr nodeA{Node::create()};
    NodeRefPtr nodeB{Node::create()};
};

TEST_F(OSGAbstractConstraintTest, IsAnAbstractCore)
{
    const FieldContainerType &type = AbstractConstraint::getClassType();
    EXPECT_TRUE(type.isAbstract());
    EXPECT_EQ(type.getParent(), &NodeCore::getClassType());
    EXPECT_STREQ(constraint->getMFSources()->getType().getCName(), "MFConstraintObjectPtr");
    EXPECT_EQ(constraint->getSFTarget()->getType(), SFAttachmentContainerPtr::getClassType());
    static_assert(std::is_same_v<AbstractConstraintPtr,
                                 FCPtr<FCPtr<AttachmentContainerPtr, NodeCore>, AbstractConstraint>>);
    static_assert(std::is_same_v<ConstraintObjectPtr, FCPtr<AttachmentContainerPtr, ConstraintObject>>);
}

TEST_F(OSGAbstractConstraintTest, FindsTheSourceObjectOfANode)
{
    constraint->addSourceObject(a);
    constraint->addSourceObject(b);

    EXPECT_TRUE(find(nodeA) == a.get());
    EXPECT_TRUE(find(nodeB) == b.get());
}

TEST_F(OSGAbstractConstraintTest, FindsTheFirstOfSeveralForTheSameNode)
{
    b->setNode(nodeA.get());
    constraint->addSourceObject(b);
    constraint->addSourceObject(a);

    EXPECT_TRUE(find(nodeA) == b.get());
}

TEST_F(OSGAbstractConstraintTest, FindsNothingForNullAndForForeignNodes)
{
    b->setNode(NullFC);
    constraint->addSourceObject(b);
    constraint->addSourceObject(a);

    EXPECT_TRUE(find(NullFC) == NullFC) << "also with a source object that has no node";
    EXPECT_TRUE(find(nodeB) == NullFC);
}

TEST_F(OSGAbstractConstraintTest, SourceObjectIsListedOnlyOnce)
{
    constraint->addSourceObject(a);
    recorder.take();

    constraint->addSourceObject(a);

    EXPECT_EQ(constraint->getSources().size(), 1u);
    EXPECT_EQ(a.get().getRefCount(), 2);
    EXPECT_EQ(recorder.take(), ksRecords());
}

TEST_F(OSGAbstractConstraintTest, EditsAreUpToTheCaller)
{
    constraint->addSourceObject(a);
    constraint->removeSourceObject(a);
    constraint->setTarget(nodeA.get());

    EXPECT_EQ(recorder.take(), ksRecords().addRef(2).subRef(2).addRef(4));
}

TEST_F(OSGAbstractConstraintTest, KnowsItsTarget)
{
    EXPECT_FALSE(constraint->hasTarget(NullFC));
    EXPECT_FALSE(constraint->hasTarget(nodeA.get()));

    constraint->setTarget(nodeA.get());

    EXPECT_TRUE(constraint->hasTarget(nodeA.get()));
    EXPECT_FALSE(constraint->hasTarget(nodeB.get()));
    EXPECT_FALSE(constraint->hasTarget(NullFC));
}

} // namespace
