// SPDX-License-Identifier: MIT
#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGSimpleTexturedMaterial.h>

#include <gtest/gtest.h>

#include <utility>
#include <vector>

OSG_BEGIN_NAMESPACE

#define OSG_SCREEN_FIELDS(SF, MF)      \
    SF(SFImagePtr, left, Left, NullFC) \
    SF(SFImagePtr, right, Right, NullFC)

OSG_CONTAINER_POINTER(Screen, AttachmentPtr)
OSG_CONTAINER_BASE(Screen, Attachment, OSG_SCREEN_FIELDS)

/// Notes its changes.
class Screen : public ScreenBase
{
    OSG_CONTAINER(Screen)

public:
    void changed(BitVector whichField, UInt32 origin) override
    {
        changes().emplace_back(whichField, origin);
        if (leaves) {
            leaves->getParents().clear();
        }
        Inherited::changed(whichField, origin);
    }

    /// The image that the handler takes all parents from; null: none.
    static inline ImagePtr leaves;

    static std::vector<std::pair<BitVector, UInt32>> &changes()
    {
        static std::vector<std::pair<BitVector, UInt32>> list;
        return list;
    }
};

OSG_DEFINE_CONTAINER(Screen, Attachment, "", OSG_SCREEN_FIELDS)

OSG_END_NAMESPACE

namespace {

using namespace osg;

typedef std::vector<std::pair<BitVector, UInt32>> Changes;

class OSGImageTest : public testing::Test
{
protected:
    OSGImageTest() { Screen::changes().clear(); }

    const ImageRefPtr image{Image::create()};
    const ScreenRefPtr screen{Screen::create()};
};

TEST_F(OSGImageTest, NewImageIsEmpty)
{
    EXPECT_EQ(image->getData(), nullptr);
    EXPECT_FALSE(image->isValid());
    EXPECT_EQ(image->getWidth(), 0);
    EXPECT_EQ(image->getHeight(), 1);
    EXPECT_EQ(image->getDepth(), 1);
    EXPECT_EQ(image->getBpp(), 1);
    EXPECT_EQ(image->getMipMapCount(), 1);
    EXPECT_EQ(image->getFrameCount(), 1);
    EXPECT_EQ(image->getSideCount(), 1);
    EXPECT_EQ(image->getDataType(), Image::OSG_UINT8_IMAGEDATA);
}

TEST_F(OSGImageTest, SetTakesLayoutAndPixels)
{
    const UInt8 pixels[] = {1, 2, 3, 4, 5, 6};
    EXPECT_TRUE(image->set(Image::OSG_RGB_PF, 1, 2, 1, 1, 1, 0.5, pixels));

    EXPECT_EQ(image->getDimension(), 2);
    EXPECT_EQ(image->getWidth(), 1);
    EXPECT_EQ(image->getHeight(), 2);
    EXPECT_EQ(image->getDepth(), 1);
    EXPECT_EQ(image->getBpp(), 3);
    EXPECT_EQ(image->getFrameDelay(), 0.5);
    EXPECT_EQ(image->getPixelFormat(), UInt32(Image::OSG_RGB_PF));
    EXPECT_EQ(image->getComponentSize(), 1);
    EXPECT_EQ(image->getSideSize(), 6);
    EXPECT_EQ(image->getFrameSize(), 6);
    EXPECT_EQ(image->getPixel().getValues(), (std::vector<UInt8>{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(image->getData(), &image->getPixel()[0]);
}

TEST_F(OSGImageTest, SetCountsLevelsSidesAndFrames)
{
    EXPECT_TRUE(
        image->set(Image::OSG_RGBA_PF, 4, 2, 1, 3, 5, 0, nullptr, Image::OSG_FLOAT32_IMAGEDATA, true, 6));

    EXPECT_EQ(image->getBpp(), 16);
    EXPECT_EQ(image->getSideSize(), (8 + 2 + 1) * 16);
    EXPECT_EQ(image->getFrameSize(), 6 * (8 + 2 + 1) * 16);
    EXPECT_EQ(image->getPixel().getValues(), std::vector<UInt8>(5 * 6 * (8 + 2 + 1) * 16, 0));
    EXPECT_EQ(image->getFrameCount(), 5);
    EXPECT_EQ(image->getSideCount(), 6);
    EXPECT_EQ(image->getMipMapCount(), 3);
}

TEST_F(OSGImageTest, SetKnowsFormatsAndTypes)
{
    for (const auto &[format, components] : {std::make_pair(Image::OSG_A_PF, 1),
                                             {Image::OSG_L_PF, 1},
                                             {Image::OSG_LA_PF, 2},
                                             {Image::OSG_RGB_PF, 3},
                                             {Image::OSG_BGR_PF, 3},
                                             {Image::OSG_RGBA_PF, 4},
                                             {Image::OSG_BGRA_PF, 4}}) {
        EXPECT_TRUE(image->set(format, 1));
        EXPECT_EQ(image->getBpp(), components);
        EXPECT_EQ(image->getDimension(), 1);
    }
    for (const auto &[type, bytes] : {std::make_pair(Image::OSG_UINT8_IMAGEDATA, 1),
                                      {Image::OSG_UINT16_IMAGEDATA, 2},
                                      {Image::OSG_FLOAT16_IMAGEDATA, 2},
                                      {Image::OSG_UINT32_IMAGEDATA, 4},
                                      {Image::OSG_FLOAT32_IMAGEDATA, 4}}) {
        EXPECT_TRUE(image->set(Image::OSG_L_PF, 1, 1, 2, 1, 1, 0, nullptr, type));
        EXPECT_EQ(image->getBpp(), bytes);
        EXPECT_EQ(image->getDimension(), 3);
    }
}

TEST_F(OSGImageTest, SizesBelowOneBecomeOne)
{
    EXPECT_TRUE(
        image->set(Image::OSG_L_PF, 0, -1, 0, -2, 0, 0, nullptr, Image::OSG_UINT8_IMAGEDATA, true, 0));
    for (const Int32 size : {image->getWidth(), image->getHeight(), image->getDepth(),
                             image->getMipMapCount(), image->getFrameCount(), image->getSideCount()}) {
        EXPECT_EQ(size, 1);
    }
    EXPECT_EQ(image->getPixel().size(), 1u);
}

TEST_F(OSGImageTest, UnknownFormatsAndTypesAreSetButGiveNoPixels)
{
    EXPECT_FALSE(image->set(Image::OSG_INVALID_PF, 2));
    EXPECT_EQ(image->getWidth(), 2);
    EXPECT_FALSE(image->set(77, 3));
    EXPECT_EQ(image->getWidth(), 3);
    EXPECT_EQ(image->getPixelFormat(), 77u);
    EXPECT_FALSE(image->set(Image::OSG_L_PF, 4, 1, 1, 1, 1, 0, nullptr, 88));
    EXPECT_EQ(image->getWidth(), 4);
    EXPECT_EQ(image->getDataType(), 88);
    EXPECT_FALSE(image->isValid());
}

TEST_F(OSGImageTest, SetRefusesMoreBytesThanItCanCount)
{
    EXPECT_FALSE(image->set(Image::OSG_RGB_PF, 40000, 40000));
    EXPECT_FALSE(image->set(Image::OSG_L_PF, 0x7FFFFFFF, 0x7FFFFFFF, 0x7FFFFFFF));
    EXPECT_FALSE(image->set(Image::OSG_L_PF, 20000, 20000, 1, 1, 10));
    EXPECT_EQ(image->getWidth(), 0);
}

TEST_F(OSGImageTest, SetWithoutDataKeepsAsManyPixels)
{
    const UInt8 pixels[] = {1, 2};
    image->set(Image::OSG_L_PF, 2, 1, 1, 1, 1, 0, pixels);
    image->set(Image::OSG_LA_PF, 1);
    EXPECT_EQ(image->getPixel().getValues(), (std::vector<UInt8>{1, 2}));
    image->set(Image::OSG_L_PF, 3);
    EXPECT_EQ(image->getPixel().getValues(), (std::vector<UInt8>{0, 0, 0}));
}

TEST_F(OSGImageTest, SetWithoutAllocationKeepsNoPixels)
{
    image->set(Image::OSG_L_PF, 3);
    EXPECT_FALSE(image->set(Image::OSG_L_PF, 2, 1, 1, 1, 1, 0, nullptr, Image::OSG_UINT8_IMAGEDATA, false));
    EXPECT_EQ(image->getData(), nullptr);
    EXPECT_EQ(image->getFrameSize(), 2);
}

TEST_F(OSGImageTest, PixelsAreSetAndClearedAlone)
{
    const UInt8 pixels[] = {1, 2};
    image->set(Image::OSG_L_PF, 2);
    EXPECT_TRUE(image->setData(pixels));
    EXPECT_EQ(image->getPixel().getValues(), (std::vector<UInt8>{1, 2}));
    EXPECT_TRUE(image->isValid());
    image->clearData();
    EXPECT_FALSE(image->isValid());
    EXPECT_EQ(image->getWidth(), 2);
}

TEST_F(OSGImageTest, KnowsItsSizeInBytes)
{
    image->set(Image::OSG_LA_PF, 4, 2, 1, 3, 5, 0, nullptr, Image::OSG_UINT16_IMAGEDATA, true, 6);
    EXPECT_EQ(image->getSize(), 5u * 6 * (8 + 2 + 1) * 4);
    EXPECT_EQ(image->getSize(false), 5u * 6 * 8 * 4);
    EXPECT_EQ(image->getSize(true, false), 6u * (8 + 2 + 1) * 4);
    EXPECT_EQ(image->getSize(false, false, false), 8u * 4);
}

TEST_F(OSGImageTest, KnowsFormatsWithAlpha)
{
    for (const auto &[format, hasAlpha] : {std::make_pair(Image::OSG_A_PF, true),
                                           {Image::OSG_L_PF, false},
                                           {Image::OSG_LA_PF, true},
                                           {Image::OSG_RGB_PF, false},
                                           {Image::OSG_RGBA_PF, true},
                                           {Image::OSG_BGR_PF, false},
                                           {Image::OSG_BGRA_PF, true}}) {
        image->set(format, 1);
        EXPECT_EQ(image->hasAlphaChannel(), hasAlpha) << format;
    }
}

TEST_F(OSGImageTest, AnEditOfTheLayoutMakesNewSizes)
{
    image->setWidth(4);
    image->setHeight(2);
    image->setBpp(8);
    image->setSideCount(6);
    image->setDataType(Image::OSG_FLOAT32_IMAGEDATA);
    endEditCP(image, Image::NameFieldMask);
    EXPECT_EQ(image->getSideSize(), 0);
    endEditCP(image, Image::WidthFieldMask | Image::HeightFieldMask);
    EXPECT_EQ(image->getSideSize(), 4 * 2 * 8);
    EXPECT_EQ(image->getFrameSize(), 6 * 4 * 2 * 8);
    EXPECT_EQ(image->getComponentSize(), 4);
}

TEST_F(OSGImageTest, SidesReachOtherAspectsWithThePixels)
{
    Thread::getCurrentChangeList()->clearAll();
    image->set(Image::OSG_RGB_PF, 2, 2, 1, 1, 1, 0, nullptr, Image::OSG_UINT8_IMAGEDATA, true, 6);
    Thread::getCurrentChangeList()->applyTo(1);
    const AspectScope scope(1);
    EXPECT_EQ(image->getSideCount(), 6);
    EXPECT_EQ(image->getSideSize(), 12);
    EXPECT_EQ(image->getFrameSize(), 6 * 12);
}

TEST_F(OSGImageTest, ChangeReachesTheFieldsThatHoldTheImage)
{
    image->addParent(screen.get(), Screen::LeftFieldId);
    image->addParent(screen.get(), Screen::RightFieldId);

    endEditCP(image, Image::NameFieldMask);

    EXPECT_EQ(Screen::changes(), (Changes{{Screen::LeftFieldMask, ChangedOrigin::Child},
                                          {Screen::RightFieldMask, ChangedOrigin::Child}}));

    Screen::changes().clear();
    image->subParent(screen.get(), Screen::LeftFieldId);
    endEditCP(image, Image::NameFieldMask);
    EXPECT_EQ(Screen::changes(), (Changes{{Screen::RightFieldMask, ChangedOrigin::Child}}));
    image->subParent(screen.get(), Screen::LeftFieldId);
    EXPECT_EQ(image->getParents().size(), 1u);
}

TEST_F(OSGImageTest, ChangeReachesParentsWithoutAMarkWithAllFields)
{
    image->getParents().push_back(screen.get());
    endEditCP(image, Image::NameFieldMask);
    EXPECT_EQ(Screen::changes(), (Changes{{FieldBits::AllFields, ChangedOrigin::Child}}));
}

TEST_F(OSGImageTest, HandlersOfParentsMayEditTheParents)
{
    image->addParent(screen.get(), Screen::LeftFieldId);
    image->addParent(screen.get(), Screen::RightFieldId);
    Screen::leaves = image;
    endEditCP(image, Image::NameFieldMask);
    Screen::leaves = NullFC;
    EXPECT_EQ(Screen::changes().size(), 2u);
    EXPECT_TRUE(image->getParents().empty());
}

TEST_F(OSGImageTest, MaterialKeepsReferenceAndParent)
{
    const SimpleTexturedMaterialRefPtr material(SimpleTexturedMaterial::create());
    const ImageRefPtr second(Image::create());

    material->setImage(image);
    EXPECT_TRUE(material->getImage() == image.get());
    EXPECT_EQ(image.get().getRefCount(), 2);
    ASSERT_EQ(image->getParents().size(), 1u);
    EXPECT_TRUE(image->getParents(0) == material.get());
    EXPECT_EQ(image->getParents(0).getParentFieldPos(), SimpleTexturedMaterial::ImageFieldId);

    material->setImage(second);
    EXPECT_EQ(image.get().getRefCount(), 1);
    EXPECT_TRUE(image->getParents().empty());
    EXPECT_EQ(second.get().getRefCount(), 2);

    material->setImage(second);
    EXPECT_EQ(second.get().getRefCount(), 2);
    EXPECT_EQ(second->getParents().size(), 1u);
    material->setImage(NullFC);
    EXPECT_EQ(second.get().getRefCount(), 1);
    EXPECT_TRUE(material->getImage() == NullFC);
}

} // namespace
