// SPDX-License-Identifier: MIT
#include <ksNodeUtils.h>

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <support/ksAspects.h>
#include <support/ksRecords.h>

namespace {

using osg::Attachment;
using osg::Node;
using osg::NullFC;
using osg::TransformVariant;
using osg::TransformVariantsAttachment;
using osg::TransformVariantsAttachmentPtr;

constexpr osg::BitVector Variants = TransformVariantsAttachment::VariantsFieldMask;
constexpr osg::BitVector Attachments = Node::AttachmentsFieldMask;
constexpr osg::BitVector Parents = Attachment::ParentsFieldMask;
constexpr unsigned long anywhere = std::numeric_limits<unsigned long>::max();

/// A node (id 1) without variants, and variants a (id 2), b (id 3) and c (id 4), each held once here.
class ksNodeUtilsVariantTest : public testing::Test
{
protected:
    ksNodeUtilsVariantTest()
    {
        node = Node::create();
        a = named("A");
        b = named("B");
        c = named("C");
        recorder.take();
    }
    ~ksNodeUtilsVariantTest() override
    {
        node = NullFC;
        a = NullFC;
        b = NullFC;
        c = NullFC;
        recorder.take();
    }

    static osg::TransformVariantPtr named(const char *name)
    {
        const osg::TransformVariantPtr variant = TransformVariant::create();
        variant->setName(name);
        return variant;
    }

    /// Gives the node an attachment (id 5) with the variants a, b and c.
    TransformVariantsAttachmentPtr fill()
    {
        const auto attachment = ksNodeUtils::createTransformVariantsAttachment(node);
        for (const osg::TransformVariantRefPtr *variant : {&a, &b, &c})
            ksNodeUtils::insertTransformVariant(node, anywhere, variant->get());
        return attachment;
    }

    /// The names of the variants in their order.
    std::string order() const
    {
        std::string names;
        for (osg::UInt32 i = 0; i < ksNodeUtils::getTransformVariantCount(node); ++i)
            names += ksNodeUtils::getTransformVariant(node, i)->getName();
        return names;
    }

    static int countOf(const osg::FieldContainerPtr &container) { return container.getRefCount(); }

    ksRecorder recorder;
    osg::NodeRefPtr node;
    osg::TransformVariantRefPtr a;
    osg::TransformVariantRefPtr b;
    osg::TransformVariantRefPtr c;
};

TEST_F(ksNodeUtilsVariantTest, NodeHasNoAttachmentAtFirst)
{
    EXPECT_TRUE(ksNodeUtils::getTransformVariantsAttachment(node) == NullFC);
    EXPECT_EQ(ksNodeUtils::getTransformVariantCount(node), 0u);
    EXPECT_TRUE(ksNodeUtils::getTransformVariant(node, 0) == NullFC);
    EXPECT_EQ(ksNodeUtils::getTransformVariantName(node, 0), "");
}

TEST_F(ksNodeUtilsVariantTest, CreatesAnEmptyAttachment)
{
    const auto attachment = ksNodeUtils::createTransformVariantsAttachment(node);

    EXPECT_EQ(recorder.take(), ksRecords().create(5).addRef(5).change(5, Parents).change(1, Attachments));
    ASSERT_TRUE(attachment != NullFC);
    EXPECT_TRUE(ksNodeUtils::getTransformVariantsAttachment(node) == attachment);
    EXPECT_EQ(countOf(attachment), 1);
    EXPECT_TRUE(attachment->getVariants().empty());
}

TEST_F(ksNodeUtilsVariantTest, CreatesNoSecondAttachment)
{
    const auto attachment = fill();
    recorder.take();

    EXPECT_TRUE(ksNodeUtils::createTransformVariantsAttachment(node) == attachment);

    EXPECT_EQ(recorder.take(), ksRecords());
    EXPECT_EQ(order(), "ABC");
}

TEST_F(ksNodeUtilsVariantTest, DetachesTheAttachmentAndAttachesItAgain)
{
    const osg::TransformVariantsAttachmentRefPtr attachment(fill());
    EXPECT_EQ(countOf(attachment), 2);
    recorder.take();

    ksNodeUtils::removeTransformVariantsAttachment(node);
    EXPECT_EQ(recorder.take(), ksRecords().change(5, Parents).subRef(5).change(1, Attachments));
    EXPECT_TRUE(ksNodeUtils::getTransformVariantsAttachment(node) == NullFC);
    EXPECT_EQ(countOf(attachment), 1);
    EXPECT_EQ(attachment->getVariants().size(), 3u);

    ksNodeUtils::setTransformVariantsAttachment(node, attachment);
    EXPECT_EQ(recorder.take(), ksRecords().addRef(5).change(5, Parents).change(1, Attachments));
    EXPECT_TRUE(ksNodeUtils::getTransformVariantsAttachment(node) == attachment.get());
    EXPECT_EQ(countOf(attachment), 2);
    EXPECT_EQ(order(), "ABC");
}

TEST_F(ksNodeUtilsVariantTest, DetachedAttachmentThatNobodyHoldsIsDestroyed)
{
    fill();
    recorder.take();

    ksNodeUtils::removeTransformVariantsAttachment(node);

    EXPECT_EQ(recorder.take(),
              ksRecords().change(5, Parents).destroy(5).subRef(2).subRef(3).subRef(4).change(1, Attachments));
    EXPECT_EQ(countOf(a), 1);
}

TEST_F(ksNodeUtilsVariantTest, NewAttachmentTakesThePlaceOfTheOldOne)
{
    const osg::TransformVariantsAttachmentRefPtr old(fill());
    const auto other = TransformVariantsAttachment::create();
    recorder.take();

    ksNodeUtils::setTransformVariantsAttachment(node, other);

    EXPECT_EQ(recorder.take(),
              ksRecords().addRef(6).change(6, Parents).change(5, Parents).subRef(5).change(1, Attachments));
    EXPECT_TRUE(ksNodeUtils::getTransformVariantsAttachment(node) == other);
    EXPECT_EQ(countOf(old), 1);
}

TEST_F(ksNodeUtilsVariantTest, AttachedAttachmentIsNotAttachedAgain)
{
    const auto attachment = fill();
    recorder.take();

    ksNodeUtils::setTransformVariantsAttachment(node, attachment);
    ksNodeUtils::setTransformVariantsAttachment(node, NullFC);
    ksNodeUtils::setTransformVariantsAttachment(NullFC, attachment);

    EXPECT_EQ(recorder.take(), ksRecords());
    EXPECT_EQ(countOf(attachment), 1);
}

TEST_F(ksNodeUtilsVariantTest, RemovingNoAttachmentDoesNothing)
{
    ksNodeUtils::removeTransformVariantsAttachment(node);
    ksNodeUtils::removeTransformVariantsAttachment(NullFC);

    EXPECT_EQ(recorder.take(), ksRecords());
}

TEST_F(ksNodeUtilsVariantTest, InsertsAtItsPlaceInOneEdit)
{
    ksNodeUtils::createTransformVariantsAttachment(node);
    recorder.take();

    ksNodeUtils::insertTransformVariant(node, 0, a);
    EXPECT_EQ(recorder.take(), ksRecords().change(5, Variants).addRef(2));
    EXPECT_EQ(countOf(a), 2);
    ksNodeUtils::insertTransformVariant(node, 0, b);
    EXPECT_EQ(order(), "BA");
    ksNodeUtils::insertTransformVariant(node, 1, c);
    EXPECT_EQ(order(), "BCA");
    EXPECT_EQ(ksNodeUtils::getTransformVariantCount(node), 3u);
}

TEST_F(ksNodeUtilsVariantTest, PlacesBeyondTheEndAreTheEnd)
{
    ksNodeUtils::createTransformVariantsAttachment(node);

    ksNodeUtils::insertTransformVariant(node, 1, a);
    ksNodeUtils::insertTransformVariant(node, anywhere, b);
    // Nothing of it is left in 32 bits.
    ksNodeUtils::insertTransformVariant(node, 1ul << 32, c);

    EXPECT_EQ(order(), "ABC");
}

TEST_F(ksNodeUtilsVariantTest, InsertsNothingWithoutAttachmentOrVariant)
{
    ksNodeUtils::insertTransformVariant(node, 0, a);
    ksNodeUtils::insertTransformVariant(NullFC, 0, a);
    EXPECT_EQ(recorder.take(), ksRecords());
    EXPECT_EQ(countOf(a), 1);

    ksNodeUtils::createTransformVariantsAttachment(node);
    recorder.take();
    ksNodeUtils::insertTransformVariant(node, 0, NullFC);
    EXPECT_EQ(recorder.take(), ksRecords());
    EXPECT_EQ(ksNodeUtils::getTransformVariantCount(node), 0u);
}

TEST_F(ksNodeUtilsVariantTest, RemovesInOneEdit)
{
    fill();
    recorder.take();

    ksNodeUtils::removeTransformVariant(node, 1);

    EXPECT_EQ(recorder.take(), ksRecords().change(5, Variants).subRef(3));
    EXPECT_EQ(countOf(b), 1);
    EXPECT_EQ(order(), "AC");
}

TEST_F(ksNodeUtilsVariantTest, RemovedVariantThatNobodyHoldsIsDestroyed)
{
    fill();
    b = NullFC;
    recorder.take();

    ksNodeUtils::removeTransformVariant(node, 1);

    EXPECT_EQ(recorder.take(), ksRecords().change(5, Variants).destroy(3));
    EXPECT_EQ(order(), "AC");
}

TEST_F(ksNodeUtilsVariantTest, LastVariantLeavesTheAttachment)
{
    const auto attachment = ksNodeUtils::createTransformVariantsAttachment(node);
    ksNodeUtils::insertTransformVariant(node, 0, a);

    ksNodeUtils::removeTransformVariant(node, 0);

    EXPECT_TRUE(ksNodeUtils::getTransformVariantsAttachment(node) == attachment);
    EXPECT_EQ(ksNodeUtils::getTransformVariantCount(node), 0u);
}

TEST_F(ksNodeUtilsVariantTest, PlacesWithoutVariantAreLeftAlone)
{
    fill();
    recorder.take();
    for (const int index : {-1, 3, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        ksNodeUtils::removeTransformVariant(node, index);
        EXPECT_EQ(ksNodeUtils::getTransformVariantName(node, index), "");
    }
    for (const unsigned long index : {3ul, 1ul << 32, anywhere})
        EXPECT_TRUE(ksNodeUtils::getTransformVariant(node, index) == NullFC);
    ksNodeUtils::removeTransformVariant(NullFC, 0);

    EXPECT_EQ(recorder.take(), ksRecords());
    EXPECT_EQ(order(), "ABC");
}

TEST_F(ksNodeUtilsVariantTest, AnswersForANullNode)
{
    EXPECT_TRUE(ksNodeUtils::getTransformVariantsAttachment(NullFC) == NullFC);
    EXPECT_TRUE(ksNodeUtils::createTransformVariantsAttachment(NullFC) == NullFC);
    EXPECT_EQ(ksNodeUtils::getTransformVariantCount(NullFC), 0u);
    EXPECT_TRUE(ksNodeUtils::getTransformVariant(NullFC, 0) == NullFC);
    EXPECT_EQ(ksNodeUtils::getTransformVariantName(NullFC, 0), "");
    EXPECT_EQ(recorder.take(), ksRecords());
}

TEST_F(ksNodeUtilsVariantTest, NamesByPlace)
{
    fill();

    EXPECT_EQ(ksNodeUtils::getTransformVariantName(node, 0), "A");
    EXPECT_EQ(ksNodeUtils::getTransformVariantName(node, 2), "C");
}

TEST_F(ksNodeUtilsVariantTest, DestroyedNodeReleasesAll)
{
    fill();
    b = NullFC;
    recorder.take();

    node = NullFC;

    EXPECT_EQ(recorder.take(),
              ksRecords().destroy(1).change(5, Parents).destroy(5).subRef(2).destroy(3).subRef(4));
    EXPECT_EQ(countOf(a), 1);
    EXPECT_EQ(countOf(c), 1);
}

TEST_F(ksNodeUtilsVariantTest, OtherAspectFollows)
{
    const osg::TransformVariantsAttachmentRefPtr attachment(
        ksNodeUtils::createTransformVariantsAttachment(node));
    ksExpectSync(node);
    ksNodeUtils::insertTransformVariant(node, 0, a);
    ksNodeUtils::insertTransformVariant(node, 0, b);
    ksExpectSync(attachment);
    ksNodeUtils::removeTransformVariant(node, 0);
    ksExpectSync(attachment);
    ksNodeUtils::removeTransformVariantsAttachment(node);
    ksExpectSync(node);
    ksNodeUtils::setTransformVariantsAttachment(node, attachment);
    ksExpectSync(node);
}

} // namespace
