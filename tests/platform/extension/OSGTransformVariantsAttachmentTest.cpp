// SPDX-License-Identifier: MIT
#include <OSGTransformVariantsAttachment.h>
#include <OpenSG/OSGNode.h>

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <support/ksAspects.h>
#include <support/ksRecords.h>

namespace {

using namespace osg;

constexpr BitVector Variants = TransformVariantsAttachment::VariantsFieldMask;

/// An attachment (id 1) and three variants (ids 2 to 4), each held once here.
class OSGTransformVariantsAttachmentTest : public testing::Test
{
protected:
    OSGTransformVariantsAttachmentTest()
    {
        const char *name = "A";
        for (TransformVariantRefPtr *variant : {&a, &b, &c}) {
            *variant = TransformVariant::create();
            (*variant)->setName(name);
            name = name[0] == 'A' ? "B" : "C";
        }
        recorder.take();
    }
    ~OSGTransformVariantsAttachmentTest() override
    {
        attachment = NullFC;
        a = NullFC;
        b = NullFC;
        c = NullFC;
        recorder.take();
    }

    void insert(UInt32 index, const TransformVariantPtr &variant)
    {
        const CPEditor edit(attachment, Variants);
        attachment->insertVariant(index, variant);
    }

    void remove(UInt32 index)
    {
        const CPEditor edit(attachment, Variants);
        attachment->removeVariant(index);
    }

    /// The names of the variants in their order.
    std::string order() const
    {
        std::string names;
        for (const TransformVariantPtr &variant : attachment->getVariants())
            names += variant->getName();
        return names;
    }

    ksRecorder recorder;
    TransformVariantsAttachmentRefPtr attachment{TransformVariantsAttachment::create()};
    TransformVariantRefPtr a;
    TransformVariantRefPtr b;
    TransformVariantRefPtr c;
};

TEST_F(OSGTransformVariantsAttachmentTest, StartsEmpty)
{
    EXPECT_EQ(TransformVariantsAttachment::getClassType().getParent(), &Attachment::getClassType());
    EXPECT_EQ(order(), "");
}

TEST_F(OSGTransformVariantsAttachmentTest, InsertsAtItsPlaceAndHoldsTheVariant)
{
    insert(0, a);
    EXPECT_EQ(recorder.take(), ksRecords().change(1, Variants).addRef(2));
    EXPECT_EQ(a.get().getRefCount(), 2);

    insert(0, b);
    EXPECT_EQ(order(), "BA");
    insert(1, c);
    EXPECT_EQ(order(), "BCA");
}

TEST_F(OSGTransformVariantsAttachmentTest, PlacesBeyondTheEndAreTheEnd)
{
    insert(7, a);
    insert(std::numeric_limits<UInt32>::max(), b);
    insert(2, c);

    EXPECT_EQ(order(), "ABC");
}

TEST_F(OSGTransformVariantsAttachmentTest, RemovesAndReleases)
{
    insert(0, a);
    insert(1, b);
    insert(2, c);
    recorder.take();

    remove(1);

    EXPECT_EQ(order(), "AC");
    EXPECT_EQ(b.get().getRefCount(), 1);
    EXPECT_EQ(recorder.take(), ksRecords().change(1, Variants).subRef(3));
}

TEST_F(OSGTransformVariantsAttachmentTest, VariantThatNobodyElseHoldsIsDestroyedWhenRemoved)
{
    insert(0, a);
    a = NullFC;
    recorder.take();

    remove(0);

    EXPECT_EQ(recorder.take(), ksRecords().change(1, Variants).destroy(2));
}

TEST_F(OSGTransformVariantsAttachmentTest, RemovesNothingBeyondTheEnd)
{
    insert(0, a);

    for (const UInt32 index : {1u, 2u, std::numeric_limits<UInt32>::max()})
        attachment->removeVariant(index);

    EXPECT_EQ(order(), "A");
    EXPECT_EQ(a.get().getRefCount(), 2);
}

TEST_F(OSGTransformVariantsAttachmentTest, DestroyedAttachmentReleasesItsVariants)
{
    insert(0, a);
    insert(1, b);
    b = NullFC;
    recorder.take();

    attachment = NullFC;

    EXPECT_EQ(a.get().getRefCount(), 1);
    EXPECT_EQ(recorder.take(), ksRecords().destroy(1).subRef(2).destroy(3));
}

TEST_F(OSGTransformVariantsAttachmentTest, BothAspectsHoldTheVariants)
{
    insert(0, a);
    insert(1, b);
    ksExpectSync(attachment);
    EXPECT_EQ(a.get().getRefCount(), 3) << "one of this test, one of the list in either aspect";

    remove(0);
    ksExpectSync(attachment);
    EXPECT_EQ(a.get().getRefCount(), 1);
    EXPECT_EQ(b.get().getRefCount(), 3);

    attachment = NullFC;
    ksSyncAspects();
    EXPECT_EQ(b.get().getRefCount(), 1);
}

TEST_F(OSGTransformVariantsAttachmentTest, CopyLeavesTheVariantsToTheOriginal)
{
    insert(0, a);

    const TransformVariantsAttachmentRefPtr copy(
        TransformVariantsAttachmentPtr::dcast(attachment->shallowCopy()));

    EXPECT_TRUE(copy->getVariants().empty());
    EXPECT_EQ(a.get().getRefCount(), 2);
}

} // namespace
