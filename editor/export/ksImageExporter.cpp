// SPDX-License-Identifier: MIT
#include <editor/export/ksImageExporter.h>
#include <editor/scene/ksImageLayout.h>

#include <QBuffer>
#include <QImage>

namespace {

bool isPlain(const osg::Image &image)
{
    return image.getDataType() == osg::Image::OSG_UINT8_IMAGEDATA && image.getDepth() == 1 &&
           image.getMipMapCount() == 1 && image.getFrameCount() == 1 && image.getSideCount() == 1 &&
           image.getWidth() > 0 && image.getHeight() > 0;
}

} // namespace

QByteArray ksImageExporter::toPng(const osg::ImagePtr &image)
{
    const ksImageLayout *layout = ksImageLayout::of(*image);
    if (layout == nullptr || !isPlain(*image))
        return {};
    const osg::MFUInt8::StorageType &pixels = image->getPixel().getValues();
    const int lineLength = image->getWidth() * layout->channels;
    if (pixels.size() != static_cast<std::size_t>(lineLength) * static_cast<std::size_t>(image->getHeight()))
        return {};
    const QImage picture(pixels.data(), image->getWidth(), image->getHeight(), lineLength, layout->format);
    QByteArray file;
    QBuffer buffer(&file);
    return picture.mirrored(false, true).save(&buffer, "PNG") ? file : QByteArray();
}
