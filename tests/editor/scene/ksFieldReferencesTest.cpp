// SPDX-License-Identifier: MIT
#include <editor/scene/ksFieldReferences.h>
#include <tests/editor/ksEditorFixture.h>

#include <vector>

namespace {

class ksFieldReferencesTest : public ksEditorFixture
{
protected:
    static std::vector<osg::FieldContainerPtr> containersOf(const osg::Field &field)
    {
        std::vector<osg::FieldContainerPtr> containers;
        ksFieldReferences::visit(field, [&containers](const osg::FieldContainerPtr &container) {
            containers.push_back(container);
        });
        return containers;
    }
};

} // namespace

TEST_F(ksFieldReferencesTest, AreFoundInFieldsOfAllHandles)
{
    using Containers = std::vector<osg::FieldContainerPtr>;
    EXPECT_EQ(containersOf(*child->getField("parent")), Containers{root.get()});
    EXPECT_EQ(containersOf(*child->getField("core")), Containers{child->getCore()});
    EXPECT_EQ(containersOf(*root->getField("children")), Containers{child});
    EXPECT_EQ(containersOf(*childSettings()->getField("parents")), Containers{child});
    EXPECT_EQ(containersOf(*child->getField("attachments")).size(), 2u);
    EXPECT_EQ(containersOf(*root->getField("parent")), Containers{});
    EXPECT_EQ(containersOf(*root->getField("travMask")), Containers{});
}

TEST_F(ksFieldReferencesTest, KnowWhichFieldsHaveAny)
{
    EXPECT_TRUE(ksFieldReferences::arePossibleIn(*root->getField("children")));
    EXPECT_TRUE(ksFieldReferences::arePossibleIn(*root->getField("core")));
    EXPECT_TRUE(ksFieldReferences::arePossibleIn(*root->getField("attachments")));
    EXPECT_FALSE(ksFieldReferences::arePossibleIn(*root->getField("travMask")));
}
