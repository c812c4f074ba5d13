// SPDX-License-Identifier: MIT
#include <ksTransformVariantUtils.h>

#include <gtest/gtest.h>

#include <support/ksAspects.h>
#include <support/ksRecords.h>

namespace {

using osg::TransformVariant;

/// A variant (id 1), held once here.
class ksTransformVariantUtilsTest : public testing::Test
{
protected:
    ksTransformVariantUtilsTest() { recorder.take(); }
    ~ksTransformVariantUtilsTest() override
    {
        variant = osg::NullFC;
        recorder.take();
    }

    /// Expects one edit of \a mask since the last time, which reaches the other aspect.
    void expectOneEdit(osg::BitVector mask)
    {
        EXPECT_EQ(recorder.read(*osg::Thread::getCurrentChangeList()), ksRecords().change(1, mask));
        ksExpectSync(variant);
    }

    ksRecorder recorder;
    osg::TransformVariantRefPtr variant{TransformVariant::create()};
};

TEST_F(ksTransformVariantUtilsTest, SetsTheFlagsInOneEdit)
{
    ksTransformVariantUtils::setApplyFlags(variant, 0xFEDCBA9876543210);

    EXPECT_EQ(variant->getApplyFlags(), 0xFEDCBA9876543210);
    expectOneEdit(TransformVariant::ApplyFlagsFieldMask);
}

TEST_F(ksTransformVariantUtilsTest, SetsTheNameInOneEdit)
{
    ksTransformVariantUtils::setName(variant, "B\xC3\xA4r");

    EXPECT_EQ(variant->getName(), "B\xC3\xA4r");
    expectOneEdit(TransformVariant::NameFieldMask);
}

TEST_F(ksTransformVariantUtilsTest, SameValuesAreEditsAsWell)
{
    ksTransformVariantUtils::setApplyFlags(variant, variant->getApplyFlags());
    ksTransformVariantUtils::setName(variant, variant->getName());

    EXPECT_EQ(recorder.take(), ksRecords()
                                   .change(1, TransformVariant::ApplyFlagsFieldMask)
                                   .change(1, TransformVariant::NameFieldMask));
}

TEST_F(ksTransformVariantUtilsTest, NullVariantIsLeftAlone)
{
    ksTransformVariantUtils::setApplyFlags(osg::NullFC, 1);
    ksTransformVariantUtils::setName(osg::NullFC, "A");

    EXPECT_EQ(recorder.take(), ksRecords());
}

} // namespace
