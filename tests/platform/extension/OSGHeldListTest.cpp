// SPDX-License-Identifier: MIT
#include <OSGAimConstraint.h>
#include <OSGLightLinkSet.h>
#include <OSGUberMaterial.h>
#include <OpenSG/OSGNode.h>

#include <gtest/gtest.h>

#include <support/ksAspects.h>
#include <support/ksRecords.h>
#include <vector>

namespace {

using namespace osg;

// Lists that hold a reference on each entry, which the class's operations and destructor look after: each
// with the class that has it, the class of its entries, and ways to add, remove and read them, in one edit.

template <class HolderT, class HeldT>
struct List
{
    typedef HolderT Holder;
    typedef HeldT Held;
    typedef typename HolderT::Ptr HolderPtr;
    typedef typename HeldT::Ptr HeldPtr;
};

struct LinkedLights : List<LightLinkSet, Node>
{
    static constexpr BitVector mask = LightLinkSet::LightsFieldMask;
    static void add(const HolderPtr &set, const NodePtr &node) { set->addLight(node); }
    static void remove(const HolderPtr &set, const NodePtr &node) { set->subLight(node); }
    static MFNodePtr &get(const HolderPtr &set) { return *set->getMFLights(); }
};

struct LinkedSceneNodes : List<LightLinkSet, Node>
{
    static constexpr BitVector mask = LightLinkSet::SceneNodesFieldMask;
    static void add(const HolderPtr &set, const NodePtr &node) { set->addSceneNode(node); }
    static void remove(const HolderPtr &set, const NodePtr &node) { set->subSceneNode(node); }
    static MFNodePtr &get(const HolderPtr &set) { return *set->getMFSceneNodes(); }
};

struct MaterialComponents : List<UberMaterial, ColorComponent>
{
    static constexpr BitVector mask = UberMaterial::ColorComponentDataFieldMask;
    static void add(const HolderPtr &material, const HeldPtr &component)
    {
        const CPEditor edit(material, mask);
        material->addColorComponent(component);
    }
    static void remove(const HolderPtr &material, const HeldPtr &component)
    {
        const CPEditor edit(material, mask);
        material->subColorComponent(component);
    }
    static MFColorComponentPtr &get(const HolderPtr &material)
    {
        return *material->getMFColorComponentData();
    }
};

struct ConstraintSources : List<AimConstraint, ConstraintObject>
{
    static constexpr BitVector mask = AbstractConstraint::SourcesFieldMask;
    static void add(const HolderPtr &constraint, const HeldPtr &object)
    {
        const CPEditor edit(constraint, mask);
        constraint->addSourceObject(object);
    }
    static void remove(const HolderPtr &constraint, const HeldPtr &object)
    {
        const CPEditor edit(constraint, mask);
        constraint->removeSourceObject(object);
    }
    static MFConstraintObjectPtr &get(const HolderPtr &constraint) { return *constraint->getMFSources(); }
};

struct UpVectorSources : List<AimConstraint, ConstraintObject>
{
    static constexpr BitVector mask = AimConstraint::UpVectorSourcesFieldMask;
    static void add(const HolderPtr &constraint, const HeldPtr &object)
    {
        const CPEditor edit(constraint, mask);
        constraint->addUpVectorObject(object);
    }
    static void remove(const HolderPtr &constraint, const HeldPtr &object)
    {
        const CPEditor edit(constraint, mask);
        constraint->removeUpVectorObject(object);
    }
    static MFConstraintObjectPtr &get(const HolderPtr &constraint)
    {
        return *constraint->getMFUpVectorSources();
    }
};

/// A container with such a list (id 1) and three containers to be listed (ids 2 to 4), each held once here.
template <class T>
class OSGHeldListTest : public testing::Test
{
protected:
    typedef typename T::HeldPtr HeldPtr;

    OSGHeldListTest() { recorder.take(); }
    ~OSGHeldListTest() override
    {
        holder = NullFC;
        a = NullFC;
        b = NullFC;
        c = NullFC;
        recorder.take();
    }

    void add(const HeldPtr &held) { T::add(holder, held); }
    void remove(const HeldPtr &held) { T::remove(holder, held); }
    const std::vector<HeldPtr> &values() const { return T::get(holder).getValues(); }

    ksRecorder recorder;
    RefPtr<typename T::HolderPtr> holder{T::Holder::create()};
    RefPtr<HeldPtr> a{T::Held::create()};
    RefPtr<HeldPtr> b{T::Held::create()};
    RefPtr<HeldPtr> c{T::Held::create()};
};

using HeldLists =
    testing::Types<LinkedLights, LinkedSceneNodes, MaterialComponents, ConstraintSources, UpVectorSources>;
TYPED_TEST_SUITE(OSGHeldListTest, HeldLists);

TYPED_TEST(OSGHeldListTest, AddsAtTheEndAndHolds)
{
    EXPECT_TRUE(this->values().empty());

    this->add(this->b);
    EXPECT_EQ(this->recorder.take(), ksRecords().change(1, TypeParam::mask).addRef(3));
    EXPECT_EQ(this->b.get().getRefCount(), 2);

    this->add(this->a);
    this->add(this->c);
    EXPECT_EQ(this->values(), (std::vector<typename TypeParam::HeldPtr>{this->b, this->a, this->c}));
}

TYPED_TEST(OSGHeldListTest, RemovesAndReleases)
{
    this->add(this->a);
    this->add(this->b);
    this->add(this->c);
    this->recorder.take();

    this->remove(this->b);

    EXPECT_EQ(this->values(), (std::vector<typename TypeParam::HeldPtr>{this->a, this->c}));
    EXPECT_EQ(this->b.get().getRefCount(), 1);
    EXPECT_EQ(this->recorder.take(), ksRecords().change(1, TypeParam::mask).subRef(3));
}

TYPED_TEST(OSGHeldListTest, WhatNobodyElseHoldsIsDestroyedWhenItIsRemoved)
{
    this->add(this->a);
    this->a = NullFC;
    this->recorder.take();

    this->remove(this->values().front());

    EXPECT_TRUE(this->values().empty());
    EXPECT_EQ(this->recorder.take(), ksRecords().change(1, TypeParam::mask).destroy(2));
}

TYPED_TEST(OSGHeldListTest, NullAndWhatIsNotListedChangeNothing)
{
    this->add(this->a);

    this->add(NullFC);
    this->remove(NullFC);
    this->remove(this->b);

    EXPECT_EQ(this->values(), (std::vector<typename TypeParam::HeldPtr>{this->a}));
    EXPECT_EQ(this->a.get().getRefCount(), 2);
    EXPECT_EQ(this->b.get().getRefCount(), 1);
}

TYPED_TEST(OSGHeldListTest, DestroyedHolderReleases)
{
    this->add(this->a);
    this->add(this->b);
    this->b = NullFC;
    this->recorder.take();

    this->holder = NullFC;

    EXPECT_EQ(this->a.get().getRefCount(), 1);
    EXPECT_EQ(this->recorder.take(), ksRecords().destroy(1).subRef(2).destroy(3));
}

TYPED_TEST(OSGHeldListTest, BothAspectsHold)
{
    ksSyncAspects();
    this->add(this->a);
    this->add(this->b);
    ksExpectSync(this->holder);
    EXPECT_EQ(this->a.get().getRefCount(), 3) << "one of this test, one of the list in either aspect";

    this->remove(this->a);
    ksExpectSync(this->holder);
    EXPECT_EQ(this->a.get().getRefCount(), 1);
    EXPECT_EQ(this->b.get().getRefCount(), 3);

    this->holder = NullFC;
    ksSyncAspects();
    EXPECT_EQ(this->b.get().getRefCount(), 1);
}

TYPED_TEST(OSGHeldListTest, CopyLeavesTheEntriesToTheOriginal)
{
    this->add(this->a);

    const RefPtr<typename TypeParam::HolderPtr> copy(
        TypeParam::HolderPtr::dcast(this->holder->shallowCopy()));

    EXPECT_TRUE(TypeParam::get(copy).empty());
    EXPECT_EQ(this->a.get().getRefCount(), 2);
}

} // namespace
