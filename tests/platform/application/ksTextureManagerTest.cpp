// SPDX-License-Identifier: MIT
#include <OpenSG/OSGRefPtr.h>
#include <ksTextureManager.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <support/ksRecords.h>
#include <vector>

namespace {

using osg::Image;
using osg::ImagePtr;
using osg::ImageRefPtr;
using osg::UInt8;

class ksTextureManagerTest : public testing::Test
{
protected:
    ksTextureManagerTest() { manager.clear(); }
    ~ksTextureManagerTest() override { manager.clear(); }

    /// An image of 2 by 2 grey pixels.
    static ImagePtr makeImage(const std::string &name = "wood", UInt8 lastPixel = 4)
    {
        const UInt8 pixels[] = {1, 2, 3, lastPixel};
        const ImagePtr image = Image::create();
        image->set(Image::OSG_L_PF, 2, 2, 1, 1, 1, 0, pixels);
        image->setName(name);
        return image;
    }

    ksTextureManager &manager = *ksTextureManager::the();
    const ImageRefPtr image{makeImage()};
};

TEST_F(ksTextureManagerTest, ThereIsOne)
{
    EXPECT_EQ(ksTextureManager::the(), &manager);
}

TEST_F(ksTextureManagerTest, NullStaysNull)
{
    EXPECT_TRUE(manager.getImage(osg::NullFC, true) == osg::NullFC);
    EXPECT_TRUE(manager.getImage(osg::NullFC, false) == osg::NullFC);
}

TEST_F(ksTextureManagerTest, FirstImageIsAdopted)
{
    EXPECT_TRUE(manager.getImage(image, true) == image.get());
    EXPECT_TRUE(manager.getImage(image, true) == image.get());
}

TEST_F(ksTextureManagerTest, EqualImagesShareTheFirst)
{
    const ImageRefPtr second(makeImage());
    const ImageRefPtr third(makeImage());
    manager.getImage(image, true);

    EXPECT_TRUE(manager.getImage(second, true) == image.get());
    EXPECT_TRUE(manager.getImage(third, true) == image.get());
}

TEST_F(ksTextureManagerTest, ImagesThatDifferInAnythingAreAdopted)
{
    const std::vector<std::function<void(const ImagePtr &)>> differences = {
        [](const ImagePtr &other) { other->setName("Wood"); },
        [](const ImagePtr &other) { other->getPixel(3) = 5; },
        [](const ImagePtr &other) { other->getMFPixel()->push_back(0); },
        [](const ImagePtr &other) { other->setWidth(4); },
        [](const ImagePtr &other) { other->setHeight(1); },
        [](const ImagePtr &other) { other->setDepth(2); },
        [](const ImagePtr &other) { other->setPixelFormat(Image::OSG_A_PF); },
        [](const ImagePtr &other) { other->setDataType(Image::OSG_UINT16_IMAGEDATA); },
        [](const ImagePtr &other) { other->setMipMapCount(2); },
        [](const ImagePtr &other) { other->setFrameCount(2); },
        [](const ImagePtr &other) { other->setSideCount(6); }};
    manager.getImage(image, true);
    for (std::size_t i = 0; i < differences.size(); ++i) {
        const ImageRefPtr other(makeImage());
        differences[i](other);
        EXPECT_TRUE(manager.getImage(other, true) == other.get()) << i;

        const ImageRefPtr again(makeImage());
        differences[i](again);
        EXPECT_TRUE(manager.getImage(again, true) == other.get()) << i;
    }
}

TEST_F(ksTextureManagerTest, UnsharedImageIsAdoptedBesidesItsEqual)
{
    ImageRefPtr first(makeImage());
    const ImageRefPtr second(makeImage());
    manager.getImage(first, true);

    EXPECT_TRUE(manager.getImage(second, false) == second.get());

    EXPECT_TRUE(manager.getImage(image, true) == first.get()) << "known for longest";
    first = osg::NullFC;
    EXPECT_TRUE(manager.getImage(image, true) == second.get());
}

TEST_F(ksTextureManagerTest, HoldsNoReferencesAndRecordsNothing)
{
    ImageRefPtr second(makeImage());
    ksRecorder recorder;

    manager.getImage(second, true);
    manager.getImage(image, true);

    EXPECT_EQ(recorder.take(), ksRecords());
    EXPECT_EQ(second.get().getRefCount(), 1);
    EXPECT_EQ(image.get().getRefCount(), 1);
}

TEST_F(ksTextureManagerTest, ImageThatHasGoneIsForgotten)
{
    ImageRefPtr first(makeImage());
    manager.getImage(first, true);

    first = osg::NullFC;

    EXPECT_TRUE(manager.getImage(image, true) == image.get());
}

TEST_F(ksTextureManagerTest, EditedImageIsNoLongerKnownByWhatItWas)
{
    const ImageRefPtr first(makeImage());
    manager.getImage(first, true);

    first->getPixel(3) = 5;

    EXPECT_TRUE(manager.getImage(image, true) == image.get());
}

TEST_F(ksTextureManagerTest, EditedImageIsKnownByWhatItIsOnceItComesAgain)
{
    const ImageRefPtr first(makeImage());
    manager.getImage(first, true);
    first->getPixel(3) = 5;

    EXPECT_TRUE(manager.getImage(first, true) == first.get());

    const ImageRefPtr edited(makeImage("wood", 5));
    EXPECT_TRUE(manager.getImage(edited, true) == first.get());

    first->getPixel(3) = 4;
    EXPECT_TRUE(manager.getImage(image, true) == image.get());
}

TEST_F(ksTextureManagerTest, ImagesWithoutPixelsAreComparedByTheRest)
{
    const ImageRefPtr a(Image::create());
    const ImageRefPtr b(Image::create());
    const ImageRefPtr named(Image::create());
    named->setName("wood");
    manager.getImage(a, true);

    EXPECT_TRUE(manager.getImage(b, true) == a.get());
    EXPECT_TRUE(manager.getImage(named, true) == named.get());
}

TEST_F(ksTextureManagerTest, ClearedManagerKnowsNothing)
{
    const ImageRefPtr first(makeImage());
    manager.getImage(first, true);

    manager.clear();

    EXPECT_TRUE(manager.getImage(image, true) == image.get());
    EXPECT_TRUE(manager.getImage(first, true) == image.get());
}

TEST_F(ksTextureManagerTest, ManyImagesComeAndGo)
{
    std::vector<ImageRefPtr> staying;
    for (int i = 0; i < 1000; ++i) {
        const ImageRefPtr passing(makeImage("passing " + std::to_string(i)));
        EXPECT_TRUE(manager.getImage(passing, true) == passing.get());
        if (i % 10 == 0) {
            staying.emplace_back(makeImage("staying " + std::to_string(i)));
            manager.getImage(staying.back(), true);
        }
    }
    for (const ImageRefPtr &known : staying) {
        const ImageRefPtr equal(makeImage(known->getName()));
        EXPECT_TRUE(manager.getImage(equal, true) == known.get());
    }
}

} // namespace
