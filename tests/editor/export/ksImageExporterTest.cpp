// SPDX-License-Identifier: MIT
#include <editor/export/ksImageExporter.h>
#include <tests/editor/ksEditorFixture.h>

#include <QImage>

#include <vector>

namespace {

using osg::Image;

osg::ImageRefPtr makeImage(osg::UInt32 format, osg::Int32 depth = 1, osg::Int32 levels = 1,
                           osg::Int32 type = Image::OSG_UINT8_IMAGEDATA)
{
    std::vector<osg::UInt8> pixels(200);
    for (std::size_t i = 0; i < pixels.size(); ++i)
        pixels[i] = static_cast<osg::UInt8>(i);
    const osg::ImageRefPtr image(Image::create());
    image->set(format, 3, 2, depth, levels, 1, 0, pixels.data(), type);
    return image;
}

} // namespace

/// Three pixels of three bytes do not fill a line of most image formats.
TEST(ksImageExporter, StartsAtTheUpperLeft)
{
    const QImage image = QImage::fromData(ksImageExporter::toPng(makeImage(Image::OSG_RGB_PF).get()));
    ASSERT_EQ(image.size(), QSize(3, 2));
    EXPECT_EQ(image.pixel(0, 1), qRgb(0, 1, 2));
    EXPECT_EQ(image.pixel(2, 1), qRgb(6, 7, 8));
    EXPECT_EQ(image.pixel(0, 0), qRgb(9, 10, 11));
    const QImage clear = QImage::fromData(ksImageExporter::toPng(makeImage(Image::OSG_RGBA_PF).get()));
    EXPECT_EQ(clear.pixel(1, 1), qRgba(4, 5, 6, 7));
    const QImage grey = QImage::fromData(ksImageExporter::toPng(makeImage(Image::OSG_L_PF).get()));
    EXPECT_EQ(grey.pixel(1, 0), qRgb(4, 4, 4));
}

TEST(ksImageExporter, LeavesOutWhatPngDoesNotHold)
{
    const osg::ImageRefPtr shortOfPixels = makeImage(Image::OSG_L_PF);
    shortOfPixels->getPixel().getValues().pop_back();
    const osg::ImageRefPtr oversized = makeImage(Image::OSG_L_PF);
    const osg::ImageRefPtr turned = makeImage(Image::OSG_L_PF);
    {
        CPEdit(oversized.get(), Image::WidthFieldMask);
        oversized->setWidth(4096);
        CPEdit(turned.get(), Image::WidthFieldMask | Image::HeightFieldMask);
        turned->setWidth(-3);
        turned->setHeight(-2);
    }
    for (const osg::ImageRefPtr &image :
         {makeImage(Image::OSG_BGR_PF), makeImage(Image::OSG_LA_PF), makeImage(Image::OSG_L_PF, 2),
          makeImage(Image::OSG_L_PF, 1, 2), makeImage(Image::OSG_RGB_PF, 1, 1, Image::OSG_UINT16_IMAGEDATA),
          osg::ImageRefPtr(Image::create()), shortOfPixels, oversized, turned})
        EXPECT_TRUE(ksImageExporter::toPng(image.get()).isEmpty());
}
