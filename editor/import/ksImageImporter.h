// SPDX-License-Identifier: MIT
#pragma once

#include <editor/import/ksWarn.h>

#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGRefPtr.h>

#include <map>
#include <string>

class QImage;
class ksModelFile;

/// Makes images of the scene graph from the textures of a model file. A texture that several materials use
/// becomes one image. The images are known to the application's texture manager.
class ksImageImporter
{
public:
    /// \a model must outlive the importer. Textures that cannot be read are reported to \a reportTo.
    ksImageImporter(const ksModelFile &model, ksWarn reportTo);

    /// The image that the model calls \a name: the path of a file, absolute or from the model's folder, in
    /// small or capital letters, or the name of a texture within the model. NullFC, after a warning, when it
    /// cannot be read. Images are 8 bits a channel, grey, RGB or RGBA, and start at the lower left.
    osg::ImagePtr image(const std::string &name);

    /// Reads what the model calls \a name; null, after a warning, when that cannot be done.
    QImage read(const std::string &name) const;

    /// Gives \a image the pixels of \a source, which must not be null, in its own pixel format when it is of
    /// the same size, else in the one that fits. The edit is up to the caller.
    static void setPixels(const osg::ImagePtr &image, const QImage &source);

    /// The image in the file \a path, in the same form; the texture manager knows it. Throws ksEditorError
    /// when it cannot be read.
    static osg::ImageRefPtr imageInFile(const QString &path);

private:
    osg::ImageRefPtr createImage(const std::string &name) const;

    const ksModelFile &file;
    ksWarn warn;
    std::map<std::string, osg::ImageRefPtr> images;
};
