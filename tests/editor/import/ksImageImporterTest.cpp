// SPDX-License-Identifier: MIT
#include <editor/import/ksImageImporter.h>
#include <editor/import/ksModelFile.h>
#include <editor/session/ksMemory.h>
#include <tests/editor/ksEditorFixture.h>

#include <ksTextureManager.h>

#include <QBuffer>
#include <QDir>
#include <QImage>
#include <QImageReader>

#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ksImageImporterTest : public testing::Test
{
protected:
    /// A picture of two lines of two pixels: red and green above blue and white.
    static QImage picture()
    {
        QImage image(2, 2, QImage::Format_RGB32);
        image.setPixelColor(0, 0, Qt::red);
        image.setPixelColor(1, 0, Qt::green);
        image.setPixelColor(0, 1, Qt::blue);
        image.setPixelColor(1, 1, Qt::white);
        return image;
    }

    static std::vector<int> pixels(const osg::ImagePtr &image)
    {
        const osg::MFUInt8 &data = image->getPixel();
        return {data.begin(), data.end()};
    }

    ksTestFolder folder;
    ksModelFile model{folder.write("triangle.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n")};
    std::vector<std::string> warnings;
    ksImageImporter importer{model, [this](const QString &text) { warnings.push_back(text.toStdString()); }};
};

} // namespace

TEST_F(ksImageImporterTest, StartsAtTheLowerLeft)
{
    ASSERT_TRUE(picture().save(folder.path("picture.png")));
    const osg::ImagePtr image = importer.image("picture.png");
    ASSERT_NE(image, osg::NullFC);
    EXPECT_EQ(image->getName(), "picture.png");
    EXPECT_EQ(image->getWidth(), 2);
    EXPECT_EQ(image->getHeight(), 2);
    EXPECT_EQ(image->getPixelFormat(), osg::UInt32(osg::Image::OSG_RGB_PF));
    EXPECT_THAT(pixels(image), ElementsAre(0, 0, 255, 255, 255, 255, 255, 0, 0, 0, 255, 0));
    EXPECT_THAT(warnings, IsEmpty());
}

TEST_F(ksImageImporterTest, KeepsAlphaAndGrey)
{
    QImage glass(1, 1, QImage::Format_ARGB32);
    glass.setPixelColor(0, 0, QColor(10, 20, 30, 40));
    ASSERT_TRUE(glass.save(folder.path("glass.png")));
    const osg::ImagePtr withAlpha = importer.image("glass.png");
    EXPECT_EQ(withAlpha->getPixelFormat(), osg::UInt32(osg::Image::OSG_RGBA_PF));
    EXPECT_THAT(pixels(withAlpha), ElementsAre(10, 20, 30, 40));

    QImage fog(3, 1, QImage::Format_Grayscale8);
    fog.fill(77);
    ASSERT_TRUE(fog.save(folder.path("fog.png")));
    const osg::ImagePtr grey = importer.image("fog.png");
    EXPECT_EQ(grey->getPixelFormat(), osg::UInt32(osg::Image::OSG_L_PF));
    EXPECT_THAT(pixels(grey), ElementsAre(77, 77, 77));
}

TEST_F(ksImageImporterTest, SharesAnImageThatIsAskedForAgain)
{
    ASSERT_TRUE(picture().save(folder.path("picture.png")));
    const osg::ImagePtr image = importer.image("picture.png");
    EXPECT_EQ(importer.image("picture.png"), image);
}

TEST_F(ksImageImporterTest, FindsFilesByPathsOfOtherMachines)
{
    ASSERT_TRUE(picture().save(folder.path("a picture.png")));
    for (const char *name : {"a%20picture.png", ".\\a picture.png", "C:\\Users\\me\\a picture.png",
                             "/nowhere/a picture.png", "./a picture.png"})
        EXPECT_NE(importer.image(name), osg::NullFC) << name;
    EXPECT_THAT(warnings, IsEmpty());
}

TEST_F(ksImageImporterTest, ReadsFilesWithTheWrongSuffix)
{
    ASSERT_TRUE(picture().save(folder.path("picture.jpg"), "png"));
    EXPECT_NE(importer.image("picture.jpg"), osg::NullFC);
}

TEST_F(ksImageImporterTest, FindsFilesInAnotherCase)
{
    ASSERT_TRUE(QDir().mkpath(folder.path("Textures/Wood")));
    ASSERT_TRUE(picture().save(folder.path("Textures/Wood/Oak.PNG"), "png"));
    for (const char *name :
         {"textures/wood/oak.png", "TEXTURES\\Wood\\OAK.png", "./textures/../Textures/wood/Oak.png"})
        EXPECT_NE(importer.image(name), osg::NullFC) << name;
    EXPECT_THAT(warnings, IsEmpty());
    EXPECT_EQ(importer.image("textures/wood"), osg::NullFC);
    EXPECT_THAT(warnings, ElementsAre("texture textures/wood: no such file"));
}

TEST_F(ksImageImporterTest, ReadsTgaImages)
{
    std::string content("\0\0\2\0\0\0\0\0\0\0\0\0\4\0\4\0\30\0", 18);
    for (int pixel = 0; pixel < 16; ++pixel)
        content += "\x0A\x14\x1E";
    folder.write("paint.tga", content);
    const osg::ImagePtr image = importer.image("paint.tga");
    if (QImageReader::supportedImageFormats().contains("tga")) {
        ASSERT_NE(image, osg::NullFC);
        EXPECT_EQ(image->getWidth(), 4);
        EXPECT_EQ(pixels(image)[0], 30);
        EXPECT_EQ(pixels(image)[2], 10);
        EXPECT_THAT(warnings, IsEmpty());
    } else {
        EXPECT_THAT(warnings,
                    ElementsAre("texture paint.tga: Qt's reader of such images is missing: install the "
                                "package qt5-image-formats-plugins"));
    }
}

TEST_F(ksImageImporterTest, WarnsOnceOfWhatCannotBeRead)
{
    EXPECT_EQ(importer.image("missing.png"), osg::NullFC);
    EXPECT_EQ(importer.image("missing.png"), osg::NullFC);
    folder.write("broken.png", "not a picture");
    EXPECT_EQ(importer.image("broken.png"), osg::NullFC);
    EXPECT_EQ(importer.image(""), osg::NullFC);
    EXPECT_THAT(warnings,
                ElementsAre("texture missing.png: no such file",
                            "texture broken.png: Unsupported image format", "texture : no such file"));
}

/// A small file may hold more than there is memory for.
TEST_F(ksImageImporterTest, WarnsOfImagesThatTakeTooMuchMemory)
{
    if (!ksMemoryGuard::isEffective())
        GTEST_SKIP() << "the sanitizers reserve more memory than there is";
    constexpr int Size = 20000;
    QImage bomb(Size, Size, QImage::Format_Mono);
    bomb.fill(0);
    ASSERT_TRUE(bomb.save(folder.path("bomb.png")));
    bomb = {};
    const ksMemoryGuard guard(ksMemory::used() + 200 * 1024 * 1024);
    EXPECT_EQ(importer.image("bomb.png"), osg::NullFC);
    EXPECT_THAT(warnings, ElementsAre("texture bomb.png: takes more memory than there is"));
}

TEST_F(ksImageImporterTest, ReadsTexturesWithinTheModel)
{
    QByteArray png;
    QBuffer buffer(&png);
    ASSERT_TRUE(picture().save(&buffer, "png"));
    // Two triangles, whose materials have a texture each.
    const std::string gltf =
        R"({"asset":{"version":"2.0"},"scene":0,"scenes":[{"nodes":[0]}],"nodes":[{"mesh":0}],
        "meshes":[{"primitives":[{"attributes":{"POSITION":0},"material":0},
                                 {"attributes":{"POSITION":0},"material":1}]}],
        "materials":[{"pbrMetallicRoughness":{"baseColorTexture":{"index":0}}},
                     {"pbrMetallicRoughness":{"baseColorTexture":{"index":1}}}],
        "textures":[{"source":0},{"source":1}],
        "accessors":[{"bufferView":0,"componentType":5126,"count":3,"type":"VEC3"}],
        "bufferViews":[{"buffer":0,"byteLength":36}],
        "buffers":[{"byteLength":36,"uri":"data:application/octet-stream;base64,)" +
        QByteArray(36, '\0').toBase64().toStdString() + R"("}],
        "images":[{"uri":"data:image/png;base64,)" +
        png.toBase64().toStdString() + R"("},{"uri":"data:image/png;base64,bm90IGEgcGljdHVyZQ=="}]})";
    const ksModelFile embedding(folder.write("embedded.gltf", gltf));
    ksImageImporter embedded(embedding,
                             [this](const QString &text) { warnings.push_back(text.toStdString()); });
    const osg::ImagePtr image = embedded.image("*0");
    ASSERT_NE(image, osg::NullFC);
    EXPECT_THAT(pixels(image), ElementsAre(0, 0, 255, 255, 255, 255, 255, 0, 0, 0, 255, 0));
    EXPECT_EQ(embedded.image("*1"), osg::NullFC);
    EXPECT_THAT(warnings, ElementsAre("texture *1 within the model cannot be read"));
}

TEST_F(ksImageImporterTest, SharesImagesWithTheApplication)
{
    ASSERT_TRUE(picture().save(folder.path("picture.png")));
    const osg::ImagePtr image = importer.image("picture.png");
    ksImageImporter another(model, [](const QString &) {});
    EXPECT_EQ(another.image("picture.png"), image);
    EXPECT_EQ(ksTextureManager::the()->getImage(image, true), image);
}
