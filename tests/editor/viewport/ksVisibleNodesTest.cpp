// SPDX-License-Identifier: MIT
#include "../ksEditorFixture.h"
#include <editor/viewport/ksLamp.h>
#include <editor/viewport/ksVisibleNodes.h>

#include <OSGLightLinkSet.h>
#include <OSGTransform3D.h>
#include <OSGUberLight.h>
#include <OpenSG/OSGThreadContext.h>

namespace {

/// "Root", below it "Child" with a transform, and below that "Leaf".
class ksVisibleNodesTest : public ksEditorFixture
{
protected:
    ksVisibleNodesTest()
    {
        CPEdit(child, osg::FieldBits::AllFields);
        child->addChild(leaf);
        child->setCore(osg::Transform3D::create());
    }

    static osg::Transform3DPtr transformOf(const osg::NodePtr &node)
    {
        return osg::Transform3DPtr::dcast(node->getCore());
    }

    /// Adds a node with \a core below \a parent.
    static osg::NodePtr add(const osg::NodePtr &parent, const osg::NodeCorePtr &core)
    {
        const osg::NodePtr node = makeNode("Added");
        CPEdit(node, osg::Node::CoreFieldMask);
        node->setCore(core);
        CPEdit(parent, osg::Node::ChildrenFieldMask);
        parent->addChild(node);
        return node;
    }

    const std::vector<ksVisibleNode> &list()
    {
        ksSyncAspects();
        visible.clear();
        return visible.of(root.get());
    }
    const ksVisibleNode &entry(const osg::NodePtr &node)
    {
        return list()[std::size_t(visible.find(node.getFieldContainerId()))];
    }
    ksLamps lamps()
    {
        const std::vector<ksVisibleNode> &nodes = list();
        const osg::AspectScope scope(1);
        return ksLamps::of(nodes);
    }
    unsigned int shiningOn(const osg::NodePtr &node)
    {
        const ksLamps all = lamps();
        return all.shiningOn[std::size_t(visible.find(node.getFieldContainerId()))];
    }

    osg::NodePtr leaf = makeNode("Leaf");
    ksVisibleNodes visible;
};

} // namespace

TEST_F(ksVisibleNodesTest, HandsDownWhatNodesAre)
{
    {
        const osg::ksNodeSettingsPtr settings = childSettings();
        CPEdit(settings, osg::FieldBits::AllFields);
        settings->setOpacity(0.5F);
        settings->setLocked(true);
        settings->setRenderOrder(7);
        const osg::ksNodeSettingsPtr below = ksSettingsOf(leaf);
        CPEdit(below, osg::FieldBits::AllFields);
        below->setOpacity(0.5F);
        const osg::Transform3DPtr transform = transformOf(child);
        CPEdit(transform, osg::Transform3D::TranslationFieldMask | osg::Transform3D::ShearFieldMask);
        transform->setTranslation(osg::Vec3f(1, 2, 3));
        transform->setShear(osg::Vec3f(2, 0, 0));
    }
    const ksVisibleNode &found = entry(leaf);
    EXPECT_EQ(found.opacity, 0.25F);
    EXPECT_TRUE(found.isLocked);
    EXPECT_EQ(found.renderOrder, 7);
    EXPECT_EQ(found.matrix.map(QVector3D(0, 1, 0)), QVector3D(3, 3, 3)) << "sheared and moved";
    EXPECT_EQ(list()[0].end, 3);
    EXPECT_FALSE(list()[0].isLocked);
}

TEST_F(ksVisibleNodesTest, LeavesOutWhatIsHidden)
{
    EXPECT_EQ(list().size(), 3u);
    child->setTravMask(0);
    EXPECT_EQ(list().size(), 3u) << "nobody was told";
    osg::endEditCP(child, osg::Node::TravMaskFieldMask);
    EXPECT_EQ(list().size(), 1u);
    EXPECT_EQ(visible.find(leaf.getFieldContainerId()), -1);
    EXPECT_EQ(list()[0].end, 1);
}

TEST_F(ksVisibleNodesTest, HasTheBoxesOfWhatIsThereNow)
{
    ksMeshBounds meshes;
    const auto boxOf = [&](const osg::NodePtr &node) {
        list();
        const osg::AspectScope scope(1);
        meshes.clear();
        return visible.ownBounds(visible.find(node.getFieldContainerId()), meshes);
    };
    EXPECT_TRUE(boxOf(child).isEmpty());
    const osg::ksMeshPtr mesh = osg::ksMesh::create();
    add(leaf, mesh);
    for (const float height : {1.0F, 2.0F}) {
        {
            CPEdit(mesh, osg::ksMesh::PositionsFieldMask);
            mesh->getPositions().push_back(osg::Pnt3f(0, height, 0));
        }
        EXPECT_EQ(boxOf(child).centre().y(), (1 + height) / 2);
    }
}

TEST_F(ksVisibleNodesTest, ShinesOnWhatLinkSetsSay)
{
    add(root, osg::UberLight::create());
    const osg::NodePtr spot = add(root, osg::UberLight::create());
    EXPECT_EQ(shiningOn(leaf), 3u);
    const osg::LightLinkSetPtr links = osg::LightLinkSet::create();
    add(root, links);
    links->addLight(spot);
    EXPECT_EQ(shiningOn(leaf), 1u) << "linked to nothing";
    links->addSceneNode(child);
    EXPECT_EQ(shiningOn(leaf), 3u) << "below what it is linked to";
    EXPECT_EQ(shiningOn(root), 1u);
    EXPECT_EQ(lamps().lamps.size(), 2u);
    links->subLight(spot);
    links->subSceneNode(child);
}

TEST_F(ksVisibleNodesTest, ShinesWhileItsReferenceIsSeen)
{
    const osg::UberLightPtr light = osg::UberLight::create();
    add(root, light);
    {
        CPEdit(light, osg::UberLight::VisibilityReferenceFieldMask | osg::UberLight::ConeAngleFieldMask);
        light->setVisibilityReference(leaf);
        light->setConeAngle(60);
    }
    ASSERT_EQ(lamps().lamps.size(), 1u);
    EXPECT_NEAR(lamps().lamps[0].innerCosine, std::cos(M_PI / 6), 1e-5);
    EXPECT_FALSE(lamps().lamps[0].isFromAfar);
    child->setTravMask(0);
    osg::endEditCP(child, osg::Node::TravMaskFieldMask);
    EXPECT_TRUE(lamps().lamps.empty());
    light->setVisibilityReference(osg::NullFC);
}
