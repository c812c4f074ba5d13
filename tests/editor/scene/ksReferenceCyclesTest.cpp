// SPDX-License-Identifier: MIT
#include <editor/scene/ksReferenceCycles.h>
#include <tests/editor/ksEditorFixture.h>

#include <OSGAimConstraint.h>
#include <OSGLightLinkSet.h>
#include <OSGUBRDFMaterial.h>
#include <OSGUberLight.h>

namespace {

class ksReferenceCyclesTest : public ksEditorFixture
{
protected:
    void addChild(const osg::NodeCorePtr &core) const
    {
        CPEdit(child, osg::Node::ChildrenFieldMask);
        child->addChild(ksContainers::createNode("Core", core));
    }
};

} // namespace

TEST_F(ksReferenceCyclesTest, KnowWhatHoldsItself)
{
    using ksReferenceCycles::wouldClose;
    const osg::UberLightPtr light = osg::UberLight::create();
    const osg::NodePtr other = makeNode("Other");
    addChild(light);
    {
        CPEdit(root.get(), osg::Node::ChildrenFieldMask);
        root->addChild(other);
    }
    EXPECT_TRUE(wouldClose(light, root.get()));
    EXPECT_TRUE(wouldClose(light, child));
    EXPECT_TRUE(wouldClose(light, light));
    EXPECT_FALSE(wouldClose(light, other));
    EXPECT_FALSE(wouldClose(light, osg::NullFC));
    EXPECT_EQ(ksErrorOf([&] { ksReferenceCycles::refuse(light, other); }), "");
    EXPECT_NE(ksErrorOf([&] { ksReferenceCycles::refuse(light, child); }), "");
}

/// By way of a material in between.
TEST_F(ksReferenceCyclesTest, KnowMaterials)
{
    const osg::RefPtr<osg::UBRDFMaterialPtr> first(osg::UBRDFMaterial::create());
    const osg::RefPtr<osg::UBRDFMaterialPtr> second(osg::UBRDFMaterial::create());
    first->setEnvironment(second.get());
    EXPECT_TRUE(ksReferenceCycles::wouldClose(second.get(), first.get()));
    EXPECT_FALSE(ksReferenceCycles::wouldClose(first.get(), second.get()));
}

/// Also those that the scene's materials only lead to.
TEST_F(ksReferenceCyclesTest, OfMaterialsAreReleasedFromAfar)
{
    const std::ptrdiff_t before = ksLivingContainers();
    {
        const osg::NodeRefPtr scene(makeNode("Scene"));
        const osg::ksMeshPtr mesh = osg::ksMesh::create();
        osg::UBRDFMaterialPtr chain[] = {osg::UBRDFMaterial::create(), osg::UBRDFMaterial::create(),
                                         osg::UBRDFMaterial::create()};
        {
            CPEditAll(mesh);
            CPEdit(scene.get(), osg::Node::CoreFieldMask);
            scene->setCore(mesh);
            mesh->setMaterial(chain[0]);
        }
        for (int i = 0; i < 3; ++i) {
            CPEditAll(chain[i]);
            chain[i]->setEnvironment(chain[i < 2 ? i + 1 : 1]);
        }
        ksReferenceCycles::release(scene);
        EXPECT_NE(chain[0]->getEnvironment(), osg::NullFC);
    }
    EXPECT_EQ(ksLivingContainers(), before);
}

TEST_F(ksReferenceCyclesTest, AreReleased)
{
    const osg::UberLightPtr light = osg::UberLight::create();
    const osg::AimConstraintPtr aim = osg::AimConstraint::create();
    const osg::LightLinkSetPtr links = osg::LightLinkSet::create();
    const osg::ksMeshPtr mesh = osg::ksMesh::create();
    const osg::UBRDFMaterialPtr metal = osg::UBRDFMaterial::create();
    const osg::NodePtr other = makeNode("Other");
    for (const osg::NodeCorePtr core :
         {osg::NodeCorePtr(light), osg::NodeCorePtr(aim), osg::NodeCorePtr(links), osg::NodeCorePtr(mesh)})
        addChild(core);
    {
        CPEdit(root.get(), osg::Node::ChildrenFieldMask);
        CPEditAll(light);
        CPEditAll(aim);
        CPEditAll(mesh);
        CPEditAll(metal);
        root->addChild(other);
        mesh->setMaterial(metal);
        light->setVisibilityReference(child);
        aim->setTarget(root.get());
        metal->setEnvironment(metal);
    }
    for (const osg::NodePtr &node : {child, other}) {
        links->addSceneNode(node);
        links->addLight(node);
    }
    ksReferenceCycles::release(root.get());
    EXPECT_EQ(light->getVisibilityReference(), osg::NullFC);
    EXPECT_EQ(aim->getTarget(), osg::NullFC);
    EXPECT_EQ(metal->getEnvironment(), osg::NullFC);
    // What closes no circle stays.
    EXPECT_EQ(links->getSceneNodes().size(), 1u);
    EXPECT_TRUE(links->containsSceneNode(other) && links->containsLight(other));
    EXPECT_FALSE(links->containsLight(child));
}
