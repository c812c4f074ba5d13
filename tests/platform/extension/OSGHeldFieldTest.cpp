// SPDX-License-Identifier: MIT
#include <OSGPointConstraint.h>
#include <OSGUBRDFMaterial.h>
#include <OSGUberLight.h>
#include <OSGUberMaterial.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGSimpleMaterial.h>

#include <gtest/gtest.h>

#include <support/ksAspects.h>
#include <support/ksRecords.h>

namespace {

using namespace osg;

// Fields that hold a reference on another container, which the class's setter and destructor look after: each
// with the class that has it, the class of what it holds, and ways to set and to get it.

struct LightVisibilityReference
{
    typedef UberLight Holder;
    typedef Node Held;
    static constexpr BitVector mask = UberLight::VisibilityReferenceFieldMask;
    static constexpr auto set = &UberLight::setVisibilityReference;
    static NodePtr &get(const UberLightPtr &light) { return light->getSFVisibilityReference()->getValue(); }
};

struct ComponentImage
{
    typedef ColorComponent Holder;
    typedef Image Held;
    static constexpr BitVector mask = ColorComponent::ImageFieldMask;
    static constexpr auto set = &ColorComponent::setImage;
    static ImagePtr &get(const ColorComponentPtr &component) { return component->getSFImage()->getValue(); }
};

struct MaterialSettings
{
    typedef UberMaterial Holder;
    typedef ColorComponentSettings Held;
    static constexpr BitVector mask = UberMaterial::ComponentSettingsFieldMask;
    static constexpr auto set = &UberMaterial::setComponentSettings;
    static ColorComponentSettingsPtr &get(const UberMaterialPtr &material)
    {
        return material->getSFComponentSettings()->getValue();
    }
};

struct MaterialEnvironment
{
    typedef UBRDFMaterial Holder;
    typedef SimpleMaterial Held;
    static constexpr BitVector mask = UBRDFMaterial::EnvironmentFieldMask;
    static constexpr auto set = &UBRDFMaterial::setEnvironment;
    static MaterialPtr &get(const UBRDFMaterialPtr &material)
    {
        return material->getSFEnvironment()->getValue();
    }
};

struct ConstraintTarget
{
    typedef PointConstraint Holder;
    typedef Node Held;
    static constexpr BitVector mask = AbstractConstraint::TargetFieldMask;
    static constexpr auto set = &AbstractConstraint::setTarget;
    static AttachmentContainerPtr &get(const PointConstraintPtr &constraint)
    {
        return constraint->getSFTarget()->getValue();
    }
};

/// A container with such a field (id 1) and two containers to be held (ids 2 and 3), each held once here.
template <class T>
class OSGHeldFieldTest : public testing::Test
{
protected:
    typedef typename T::Holder Holder;
    typedef typename T::Held Held;

    OSGHeldFieldTest() { recorder.take(); }
    ~OSGHeldFieldTest() override
    {
        holder = NullFC;
        first = NullFC;
        second = NullFC;
        recorder.take();
    }

    template <class PtrT>
    void hold(const PtrT &held)
    {
        const CPEditor edit(holder, T::mask);
        ((*holder).*T::set)(held);
    }

    ksRecorder recorder;
    RefPtr<typename Holder::Ptr> holder{Holder::create()};
    RefPtr<typename Held::Ptr> first{Held::create()};
    RefPtr<typename Held::Ptr> second{Held::create()};
};

using HeldFields = testing::Types<LightVisibilityReference, ComponentImage, MaterialSettings,
                                  MaterialEnvironment, ConstraintTarget>;
TYPED_TEST_SUITE(OSGHeldFieldTest, HeldFields);

TYPED_TEST(OSGHeldFieldTest, WhatIsSetIsHeld)
{
    EXPECT_TRUE(TypeParam::get(this->holder) == NullFC);

    this->hold(this->first.get());

    EXPECT_TRUE(TypeParam::get(this->holder) == this->first.get());
    EXPECT_EQ(this->first.get().getRefCount(), 2);
    EXPECT_EQ(this->recorder.take(), ksRecords().change(1, TypeParam::mask).addRef(2));
}

TYPED_TEST(OSGHeldFieldTest, WhatIsReplacedIsReleased)
{
    this->hold(this->first.get());
    this->recorder.take();

    this->hold(this->second.get());

    EXPECT_EQ(this->first.get().getRefCount(), 1);
    EXPECT_EQ(this->second.get().getRefCount(), 2);
    EXPECT_EQ(this->recorder.take(), ksRecords().change(1, TypeParam::mask).addRef(3).subRef(2));
}

TYPED_TEST(OSGHeldFieldTest, SameValueChangesNoCount)
{
    this->hold(this->first.get());
    this->recorder.take();

    this->hold(TypeParam::get(this->holder));

    EXPECT_EQ(this->first.get().getRefCount(), 2);
    EXPECT_EQ(this->recorder.take(), ksRecords().change(1, TypeParam::mask));
}

TYPED_TEST(OSGHeldFieldTest, WhatNobodyElseHoldsIsDestroyedWhenItIsTakenAway)
{
    this->hold(this->first.get());
    this->first = NullFC;
    this->recorder.take();

    this->hold(typename TypeParam::Held::Ptr());

    EXPECT_TRUE(TypeParam::get(this->holder) == NullFC);
    EXPECT_EQ(this->recorder.take(), ksRecords().change(1, TypeParam::mask).destroy(2));
}

TYPED_TEST(OSGHeldFieldTest, FieldCanBeSetWithCounting)
{
    setRefdCP(TypeParam::get(this->holder), this->first.get());
    EXPECT_EQ(this->first.get().getRefCount(), 2);

    setRefdCP(TypeParam::get(this->holder), NullFC);
    EXPECT_EQ(this->first.get().getRefCount(), 1);
}

TYPED_TEST(OSGHeldFieldTest, DestroyedHolderReleases)
{
    this->hold(this->first.get());
    this->recorder.take();

    this->holder = NullFC;

    EXPECT_EQ(this->first.get().getRefCount(), 1);
    EXPECT_EQ(this->recorder.take(), ksRecords().destroy(1).subRef(2));
}

TYPED_TEST(OSGHeldFieldTest, BothAspectsHold)
{
    ksSyncAspects();
    this->hold(this->first.get());
    ksExpectSync(this->holder);
    EXPECT_EQ(this->first.get().getRefCount(), 3) << "one of this test, one of the holder in either aspect";

    this->hold(this->second.get());
    ksExpectSync(this->holder);
    EXPECT_EQ(this->first.get().getRefCount(), 1);
    EXPECT_EQ(this->second.get().getRefCount(), 3);

    this->holder = NullFC;
    ksSyncAspects();
    EXPECT_EQ(this->second.get().getRefCount(), 1);
}

TYPED_TEST(OSGHeldFieldTest, CopyLeavesItToTheOriginal)
{
    this->hold(this->first.get());

    const RefPtr<typename TypeParam::Holder::Ptr> copy(
        TypeParam::Holder::Ptr::dcast(this->holder->shallowCopy()));

    EXPECT_TRUE(TypeParam::get(copy) == NullFC);
    EXPECT_EQ(this->first.get().getRefCount(), 2);
}

} // namespace
