// SPDX-License-Identifier: MIT
#include "ksFieldTable.h"

#include <OSGPointConstraint.h>

#include <gtest/gtest.h>

namespace {

using namespace osg;

TEST(OSGPointConstraintTest, IsAConstraintWithAnOffset)
{
    EXPECT_EQ(PointConstraint::getClassType().getParent(), &AbstractConstraint::getClassType());
    EXPECT_EQ(ksFieldTableOf<PointConstraint>(), (std::vector<std::string>{"offset SFVec3f = 0 0 0"}));
}

} // namespace
