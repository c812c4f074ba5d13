// SPDX-License-Identifier: MIT
#include <OSGTransformVariant.h>

#include <gtest/gtest.h>

#include <support/ksAspects.h>
#include <support/ksRecords.h>

namespace {

using namespace osg;

constexpr BitVector TransformField = TransformVariant::TransformFieldMask;

/// A variant (id 1) and two transforms (ids 2 and 3), each held once here.
class OSGTransformVariantTest : public testing::Test
{
protected:
    OSGTransformVariantTest()
    {
        endEditCP(variant);
        recorder.take();
    }
    ~OSGTransformVariantTest() override
    {
        variant = NullFC;
        first = NullFC;
        second = NullFC;
        recorder.take();
    }

    void store(const Transform3DPtr &transform)
    {
        const CPEditor edit(variant, TransformField);
        variant->setTransform(transform);
    }

    ksRecorder recorder;
    TransformVariantRefPtr variant{TransformVariant::create()};
    Transform3DRefPtr first{Transform3D::create()};
    Transform3DRefPtr second{Transform3D::create()};
};

TEST_F(OSGTransformVariantTest, StartsUnnamedWithoutTransformAndWithAllFlags)
{
    EXPECT_EQ(TransformVariant::getClassType().getParent(), &FieldContainer::getClassType());
    EXPECT_EQ(TransformVariant::getClassType().getNumFieldDescs(), 3u);
    EXPECT_EQ(variant->getName(), "");
    EXPECT_EQ(variant->getApplyFlags(), TransformVariantFlags::AllComponents);
    EXPECT_TRUE(variant->getTransform() == NullFC);
    EXPECT_EQ(variant->getSFApplyFlags()->getType(), SFUInt64::getClassType());
    EXPECT_STREQ(variant->getSFTransform()->getType().getCName(), "SFTransform3DPtr");
}

TEST_F(OSGTransformVariantTest, EveryComponentHasAFlagOfItsOwn)
{
    namespace Flags = TransformVariantFlags;
    const UInt64 flags[] = {Flags::Translation,
                            Flags::Rotation,
                            Flags::Scale,
                            Flags::Shear,
                            Flags::ScalePivot,
                            Flags::RotatePivot,
                            Flags::ScalePivotTranslation,
                            Flags::RotatePivotTranslation,
                            Flags::RotationOrientation,
                            Flags::RotationDirection,
                            Flags::EulerRotationOrder,
                            Flags::InheritType};
    UInt64 bit = 1;
    UInt64 all = 0;
    for (const UInt64 flag : flags) {
        EXPECT_EQ(flag, bit);
        bit <<= 1;
        all |= flag;
    }
    EXPECT_EQ(all, Flags::AllComponents);
}

TEST_F(OSGTransformVariantTest, StoredTransformIsHeld)
{
    store(first);

    EXPECT_TRUE(variant->getTransform() == first.get());
    EXPECT_EQ(first.get().getRefCount(), 2);
    EXPECT_EQ(recorder.take(), ksRecords().change(1, TransformField).addRef(2));
}

TEST_F(OSGTransformVariantTest, ReplacedTransformIsReleased)
{
    store(first);
    recorder.take();

    store(second);

    EXPECT_TRUE(variant->getTransform() == second.get());
    EXPECT_EQ(first.get().getRefCount(), 1);
    EXPECT_EQ(second.get().getRefCount(), 2);
    EXPECT_EQ(recorder.take(), ksRecords().change(1, TransformField).addRef(3).subRef(2));
}

TEST_F(OSGTransformVariantTest, SameTransformChangesNoCount)
{
    store(first);
    recorder.take();

    store(variant->getTransform());

    EXPECT_EQ(first.get().getRefCount(), 2);
    EXPECT_EQ(recorder.take(), ksRecords().change(1, TransformField));
}

TEST_F(OSGTransformVariantTest, TransformThatNobodyElseHoldsIsDestroyedWithItsReplacement)
{
    store(first);
    first = NullFC;
    recorder.take();

    store(NullFC);

    EXPECT_TRUE(variant->getTransform() == NullFC);
    EXPECT_EQ(recorder.take(), ksRecords().change(1, TransformField).destroy(2));
}

TEST_F(OSGTransformVariantTest, DestroyedVariantReleasesItsTransform)
{
    store(first);
    recorder.take();

    variant = NullFC;

    EXPECT_EQ(first.get().getRefCount(), 1);
    EXPECT_EQ(recorder.take(), ksRecords().destroy(1).subRef(2));
}

TEST_F(OSGTransformVariantTest, BothAspectsHoldTheTransform)
{
    store(first);
    ksExpectSync(variant);
    EXPECT_EQ(first.get().getRefCount(), 3) << "one of this test, one of the variant in either aspect";

    store(second);
    ksExpectSync(variant);
    EXPECT_EQ(first.get().getRefCount(), 1);
    EXPECT_EQ(second.get().getRefCount(), 3);

    variant = NullFC;
    ksSyncAspects();
    EXPECT_EQ(second.get().getRefCount(), 1);
}

TEST_F(OSGTransformVariantTest, CopyLeavesTheTransformToTheOriginal)
{
    store(first);
    variant->setName("A");
    variant->setApplyFlags(5);

    const TransformVariantRefPtr copy(TransformVariantPtr::dcast(variant->shallowCopy()));

    EXPECT_EQ(copy->getName(), "A");
    EXPECT_EQ(copy->getApplyFlags(), 5u);
    EXPECT_TRUE(copy->getTransform() == NullFC);
    EXPECT_EQ(first.get().getRefCount(), 2);
}

TEST_F(OSGTransformVariantTest, FlagsKeepAll64Bits)
{
    variant->setApplyFlags(0xFEDCBA9876543210);
    endEditCP(variant, TransformVariant::ApplyFlagsFieldMask);

    ksExpectSync(variant);
    EXPECT_EQ(variant->getApplyFlags(), 0xFEDCBA9876543210);
}

} // namespace
