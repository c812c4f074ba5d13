// SPDX-License-Identifier: MIT
#include <editor/export/ksImageExporter.h>
#include <editor/scene/ksImageLayout.h>

#include <QBuffer>
#include <QImage>

QByteArray ksImageExporter::toPng(const osg::ImagePtr &image)
{
    const QImage picture = ksImageLayout::pictureOf(*image);
    if (picture.isNull())
        return {};
    QByteArray file;
    QBuffer buffer(&file);
    return picture.mirrored(false, true).save(&buffer, "PNG") ? file : QByteArray();
}
