// SPDX-License-Identifier: MIT
#include <tests/editor/ksEditorFixture.h>

#include <OpenSG/OSGSimpleMaterial.h>

TEST(ksMesh, HoldsAReferenceOnItsMaterial)
{
    osg::SimpleMaterialRefPtr first(osg::SimpleMaterial::create());
    osg::SimpleMaterialRefPtr second(osg::SimpleMaterial::create());
    {
        const osg::ksMeshRefPtr mesh(osg::ksMesh::create());
        mesh->setMaterial(first.get());
        EXPECT_EQ(first.get().getRefCount(), 2);
        mesh->setMaterial(first.get());
        EXPECT_EQ(first.get().getRefCount(), 2);
        mesh->setMaterial(second.get());
        EXPECT_EQ(first.get().getRefCount(), 1);
        EXPECT_EQ(second.get().getRefCount(), 2);
    }
    EXPECT_EQ(second.get().getRefCount(), 1);
}

TEST(ksMesh, KeepsItsMaterialAlive)
{
    const osg::ksMeshRefPtr mesh(osg::ksMesh::create());
    const osg::SimpleMaterialPtr material = osg::SimpleMaterial::create();
    const osg::UInt32 id = material.getFieldContainerId();
    mesh->setMaterial(material);
    EXPECT_EQ(osg::FieldContainerFactory::the()->getContainer(id), material);
    mesh->setMaterial(osg::NullFC);
    EXPECT_EQ(osg::FieldContainerFactory::the()->getContainer(id), osg::NullFC);
}

TEST(ksMesh, CopiesShareTheMaterialWithReferencesOfTheirOwn)
{
    const osg::SimpleMaterialRefPtr material(osg::SimpleMaterial::create());
    {
        const osg::ksMeshRefPtr mesh(osg::ksMesh::create());
        mesh->setMaterial(material.get());
        const int heldByOne = material.get().getRefCount();
        const osg::ksMeshRefPtr copy(osg::ksMeshPtr::dcast(mesh->shallowCopy()));
        EXPECT_EQ(copy->getMaterial(), material);
        EXPECT_GT(material.get().getRefCount(), heldByOne);
    }
    EXPECT_EQ(material.get().getRefCount(), 1);
}
