// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGImage.h>

#include <QImage>

#include <algorithm>
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
};
