// SPDX-License-Identifier: MIT
#include <editor/export/ksImageExporter.h>

#include <QBuffer>
#include <QImage>

namespace {

QImage::Format formatOf(const osg::Image &image)
{
    switch (image.getPixelFormat()) {
    case osg::Image::OSG_L_PF:
        return QImage::Format_Grayscale8;
    case osg::Image::OSG_RGB_PF:
        return QImage::Format_RGB888;
    case osg::Image::OSG_RGBA_PF:
        return QImage::Format_RGBA8888;
    default:
        return QImage::Format_Invalid;
    }
}

bool isPlain(const osg::Image &image)
{
    return image.getDataType() == osg::Image::OSG_UINT8_IMAGEDATA && image.getDepth() == 1 &&
           image.getMipMapCount() == 1 && image.getFrameCount() == 1 && image.getSideCount() == 1 &&
           image.getWidth() > 0 && image.getHeight() > 0;
}

} // namespace

QByteArray ksImageExporter::toPng(const osg::ImagePtr &image)
{
    const QImage::Format format = formatOf(*image);
    if (format == QImage::Format_Invalid || !isPlain(*image))
        return {};
    const osg::MFUInt8::StorageType &pixels = image->getPixel().getValues();
    const int lineLength = image->getWidth() * QImage::toPixelFormat(format).bitsPerPixel() / 8;
    if (pixels.size() != static_cast<std::size_t>(lineLength) * static_cast<std::size_t>(image->getHeight()))
        return {};
    const QImage picture(pixels.data(), image->getWidth(), image->getHeight(), lineLength, format);
    QByteArray file;
    QBuffer buffer(&file);
    return picture.mirrored(false, true).save(&buffer, "PNG") ? file : QByteArray();
}
