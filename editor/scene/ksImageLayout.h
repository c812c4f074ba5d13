// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGImage.h>

#include <QImage>

#include <algorithm>
#include <cstdint>
#include <iterator>

/// How the pixels of an image of 8 bits a channel lie in memory, for Qt and for the scene graph.
struct ksImageLayout
{
    QImage::Format format;
    osg::UInt32 pixelFormat;
    int channels;

    static constexpr int Count = 3;

    /// Those that the editor knows.
    static const ksImageLayout (&all())[Count]
    {
        static constexpr ksImageLayout Layouts[] = {{QImage::Format_RGBA8888, osg::Image::OSG_RGBA_PF, 4},
                                                    {QImage::Format_Grayscale8, osg::Image::OSG_L_PF, 1},
                                                    {QImage::Format_RGB888, osg::Image::OSG_RGB_PF, 3}};
        return Layouts;
    }

    /// That of \a image; null when it is another one.
    static const ksImageLayout *of(const osg::Image &image)
    {
        const auto *found =
            std::find_if(std::begin(all()), std::end(all()), [&image](const ksImageLayout &layout) {
                return layout.pixelFormat == image.getPixelFormat();
            });
        return found != std::end(all()) ? found : nullptr;
    }

    /// The pixels of \a image where they are, in lines from the lower left; null unless it is one flat
    /// picture of as many pixels as its size says.
    static QImage pictureOf(const osg::Image &image)
    {
        const ksImageLayout *layout = of(image);
        const bool isFlat = image.getDataType() == osg::Image::OSG_UINT8_IMAGEDATA && image.getDepth() == 1 &&
                            image.getMipMapCount() == 1 && image.getFrameCount() == 1 &&
                            image.getSideCount() == 1 && image.getWidth() > 0 && image.getHeight() > 0;
        if (layout == nullptr || !isFlat)
            return {};
        const osg::MFUInt8::StorageType &pixels = image.getPixel().getValues();
        const auto line = std::uint64_t(image.getWidth()) * std::uint64_t(layout->channels);
        if (pixels.size() != line * std::uint64_t(image.getHeight()))
            return {};
        return QImage(pixels.data(), image.getWidth(), image.getHeight(), int(line), layout->format);
    }
};
