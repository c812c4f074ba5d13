// SPDX-License-Identifier: MIT
#include <ksundo/core/ksFindContainer.h>

#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGTransform.h>

#include <gmock/gmock.h>

#include <limits>

namespace {

class ksFindContainerTest : public testing::Test
{
protected:
    osg::TransformRefPtr transform{osg::Transform::create()};
    osg::UInt32 id = transform.get().getFieldContainerId();
};

} // namespace

TEST_F(ksFindContainerTest, FindsAContainerByItsId)
{
    EXPECT_EQ(ksFindContainer<osg::TransformPtr>(id), transform.get());
}

TEST_F(ksFindContainerTest, FindsAContainerOfADerivedType)
{
    EXPECT_EQ(ksFindContainer<osg::GroupPtr>(id), transform.get());
    EXPECT_EQ(ksFindContainer<osg::NodeCorePtr>(id), transform.get());
    EXPECT_EQ(ksFindContainer<osg::AttachmentContainerPtr>(id), transform.get());
    EXPECT_EQ(ksFindContainer<osg::FieldContainerPtr>(id), transform.get());
}

TEST_F(ksFindContainerTest, FindsNoContainerOfAnotherType)
{
    EXPECT_EQ(ksFindContainer<osg::NodePtr>(id), osg::NullFC);
    EXPECT_EQ(ksFindContainer<osg::NamePtr>(id), osg::NullFC);
    const osg::GroupRefPtr group(osg::Group::create());
    EXPECT_EQ(ksFindContainer<osg::TransformPtr>(group.get().getFieldContainerId()), osg::NullFC);
}

TEST_F(ksFindContainerTest, FindsNothingByAnIdNeverGiven)
{
    const auto next =
        static_cast<osg::UInt32>(osg::FieldContainerFactory::the()->getFieldContainerStore()->size());
    for (const osg::UInt32 never : {0u, next, next + 1, std::numeric_limits<osg::UInt32>::max()}) {
        EXPECT_EQ(ksFindContainer<osg::FieldContainerPtr>(never), osg::NullFC) << never;
        EXPECT_EQ(ksFindContainer<osg::TransformPtr>(never), osg::NullFC) << never;
    }
}

TEST_F(ksFindContainerTest, FindsNoContainerThatHasGone)
{
    transform = osg::NullFC;
    EXPECT_EQ(ksFindContainer<osg::FieldContainerPtr>(id), osg::NullFC);
    EXPECT_EQ(ksFindContainer<osg::TransformPtr>(id), osg::NullFC);
}
