// SPDX-License-Identifier: MIT
#include "ksFieldTable.h"

#include <OSGAimConstraint.h>
#include <OpenSG/OSGNode.h>

#include <gtest/gtest.h>

namespace {

using namespace osg;

TEST(OSGAimConstraintTest, IsAConstraintWithTheseFields)
{
    EXPECT_EQ(AimConstraint::getClassType().getParent(), &AbstractConstraint::getClassType());
    EXPECT_EQ(ksFieldTableOf<AimConstraint>(),
              (std::vector<std::string>{"upVectorSources MFConstraintObjectPtr = ",
                                        "aimVector SFVec3f = 0 0 -1", "upVector SFVec3f = 0 1 0"}));
}

TEST(OSGAimConstraintTest, FindsUpVectorObjectsAmongTheirListOnly)
{
    const AimConstraintRefPtr constraint(AimConstraint::create());
    const NodeRefPtr node(Node::create());
    const NodeRefPtr other(Node::create());
    const ConstraintObjectRefPtr object(ConstraintObject::create());
    object->setNode(node.get());

    constraint->addSourceObject(object);
    EXPECT_TRUE(constraint->findUpVectorConstraintObject(node.get()) == NullFC);

    constraint->addUpVectorObject(object);
    constraint->addUpVectorObject(object);
    EXPECT_TRUE(constraint->findUpVectorConstraintObject(node.get()) == object.get());
    EXPECT_TRUE(constraint->findUpVectorConstraintObject(other.get()) == NullFC);
    EXPECT_TRUE(constraint->findUpVectorConstraintObject(NullFC) == NullFC);
    EXPECT_EQ(object.get().getRefCount(), 3) << "listed once in either list";

    constraint->removeSourceObject(object);
    EXPECT_TRUE(constraint->findUpVectorConstraintObject(node.get()) == object.get());
}

} // namespace
