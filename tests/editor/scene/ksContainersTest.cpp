// SPDX-License-Identifier: MIT
#include <tests/editor/ksEditorFixture.h>

#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGSimpleMaterial.h>

namespace {
using ksContainersTest = ksEditorFixture;
}

TEST_F(ksContainersTest, FindTheNodeThatAContainerBelongsTo)
{
    EXPECT_EQ(ksContainers::ownerOf(child), child);
    EXPECT_EQ(ksContainers::ownerOf(child->getCore()), child);
    EXPECT_EQ(ksContainers::ownerOf(childSettings()), child);
    const osg::SimpleMaterialRefPtr material(osg::SimpleMaterial::create());
    EXPECT_EQ(ksContainers::ownerOf(material.get()), osg::NullFC);
    const osg::ksNodeSettingsRefPtr loose(osg::ksNodeSettings::create());
    EXPECT_EQ(ksContainers::ownerOf(loose.get()), osg::NullFC);
    EXPECT_EQ(ksContainers::ownerOf(osg::NullFC), osg::NullFC);
}

TEST_F(ksContainersTest, NameContainersAfterTheirNodeOrThemselves)
{
    EXPECT_EQ(ksContainers::nameOf(child), QStringLiteral("Child"));
    EXPECT_EQ(ksContainers::nameOf(child->getCore()), QStringLiteral("Child"));
    EXPECT_EQ(ksContainers::nameOf(childSettings()), QStringLiteral("Child"));
    const osg::SimpleMaterialRefPtr material(osg::SimpleMaterial::create());
    EXPECT_EQ(ksContainers::nameOf(material.get()), QString());
    osg::setName(material.get(), "L\xC3\xA4rche");
    EXPECT_EQ(ksContainers::nameOf(material.get()), QStringLiteral("Lärche"));
    const osg::ImageRefPtr image(osg::Image::create());
    image->setName("bark.png");
    EXPECT_EQ(ksContainers::nameOf(image.get()), QStringLiteral("bark.png"));
}

TEST_F(ksContainersTest, LabelsTellTypeIdAndName)
{
    const QString id = QString::number(child.getFieldContainerId());
    EXPECT_EQ(ksContainers::label(child), QStringLiteral("Node ") + id + QStringLiteral(" 'Child'"));
    const osg::GroupRefPtr group(osg::Group::create());
    EXPECT_EQ(ksContainers::label(group.get()),
              QStringLiteral("Group ") + QString::number(group.get().getFieldContainerId()));
    EXPECT_EQ(ksContainers::label(osg::NullFC), QStringLiteral("nothing"));
}

TEST_F(ksContainersTest, VisitNodesInOrderFromTheTop)
{
    const osg::NodePtr second = makeNode("Second");
    const osg::NodePtr grandchild = makeNode("Grandchild");
    child->addChild(grandchild);
    root->addChild(second);
    std::vector<osg::NodePtr> visited;
    ksContainers::visitNodes(root, [&visited](const osg::NodePtr &node) { visited.push_back(node); });
    EXPECT_THAT(visited, testing::ElementsAre(root.get(), child, grandchild, second));
}
