// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGImage.h>

#include <QByteArray>

/// Makes image files of images of the scene graph.
namespace ksImageExporter {

/// The file of a PNG image with the pixels of \a image, which starts at the lower left. Empty for an image
/// that PNG does not hold exactly as it is: other pixels than 8 bits of grey, RGB or RGBA, none at all, or
/// more than one level, frame, side or slice.
QByteArray toPng(const osg::ImagePtr &image);

} // namespace ksImageExporter
