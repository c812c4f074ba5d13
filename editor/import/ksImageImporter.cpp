// SPDX-License-Identifier: MIT
#include <editor/import/ksImageImporter.h>
#include <editor/import/ksModelFile.h>
#include <editor/ksEditorError.h>
#include <editor/scene/ksImageLayout.h>

#include <ksTextureManager.h>

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QImageReader>
#include <QUrl>
#include <assimp/scene.h>

#include <algorithm>
#include <new>
#include <utility>
#include <vector>

namespace {

QImage embeddedImage(const aiTexture &texture)
{
    // A height of 0 marks the bytes of an image file, whose length is the width.
    if (texture.mHeight == 0) {
        const auto *data = reinterpret_cast<const uchar *>(texture.pcData);
        const auto size = static_cast<int>(texture.mWidth);
        const QImage image = QImage::fromData(data, size);
        return image.isNull() ? QImage::fromData(data, size, texture.achFormatHint) : image;
    }
    static_assert(sizeof(aiTexel) == 4);
    return QImage(reinterpret_cast<const uchar *>(texture.pcData), static_cast<int>(texture.mWidth),
                  static_cast<int>(texture.mHeight), static_cast<int>(texture.mWidth * sizeof(aiTexel)),
                  QImage::Format_ARGB32);
}

/// The file that \a path, from the folder \a base unless it is absolute, means to a system that takes capital
/// letters for small ones; empty when there is none.
QString findFile(const QDir &base, const QString &path)
{
    QString found = QDir::isAbsolutePath(path) ? QStringLiteral("/") : base.absolutePath();
    for (const QString &part : QDir::cleanPath(path).split(QLatin1Char('/'), Qt::SkipEmptyParts)) {
        const QDir folder(found);
        QString entry = part;
        if (part != QLatin1String("..") && !folder.exists(part)) {
            const QStringList entries =
                folder.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
            const auto other = std::find_if(entries.begin(), entries.end(), [&part](const QString &name) {
                return name.compare(part, Qt::CaseInsensitive) == 0;
            });
            if (other == entries.end())
                return {};
            entry = *other;
        }
        found = folder.absoluteFilePath(entry);
    }
    const QFileInfo file(found);
    return file.isFile() ? file.filePath() : QString();
}

/// The file that a model in \a folder means by \a name: models carry paths of other systems, escaped paths,
/// and paths of the machine that they were made on.
QString locate(const QString &folder, const std::string &name)
{
    const QString path = QString::fromStdString(name).replace(QLatin1Char('\\'), QLatin1Char('/'));
    const QString unescaped = QUrl::fromPercentEncoding(path.toUtf8());
    const QDir base(folder);
    for (const QString &candidate : {path, unescaped, QFileInfo(path).fileName()}) {
        const QFileInfo found(base.absoluteFilePath(candidate));
        if (found.isFile())
            return found.filePath();
    }
    for (const QString &candidate : {path, unescaped, QFileInfo(path).fileName()})
        if (const QString found = findFile(base, candidate); !found.isEmpty())
            return found;
    return {};
}

/// The image in the file \a path, which is of the format that its name says.
QImage imageBySuffix(const QString &path)
{
    const QByteArray format = QFileInfo(path).suffix().toLower().toLatin1();
    QImage image = QImageReader(path, format).read();
    QFile file(path);
    if (image.isNull() && format == "tga" && file.open(QIODevice::ReadOnly)) {
        // Older files end without what Qt's reader looks for.
        QByteArray content = file.readAll() + QByteArray(8, '\0') + QByteArray("TRUEVISION-XFILE.", 18);
        QBuffer buffer(&content);
        image = QImageReader(&buffer, format).read();
    }
    return image;
}

/// What to install to read the image file \a path, when its format has a reader that is not there.
QString missingReader(const QString &path)
{
    const QByteArray format = QFileInfo(path).suffix().toLower().toLatin1();
    for (const char *known : {"tga", "tif", "tiff", "webp", "wbmp", "icns", "mng"})
        if (format == known && !QImageReader::supportedImageFormats().contains(format))
            return QStringLiteral("Qt's reader of such images is missing: install the package "
                                  "qt5-image-formats-plugins");
    return {};
}

const ksImageLayout &layoutFor(const QImage &image)
{
    if (image.hasAlphaChannel())
        return ksImageLayout::all()[0];
    return ksImageLayout::all()[image.isGrayscale() ? 1 : 2];
}

/// The pixels of \a source, from the lower left.
std::vector<osg::UInt8> pixelsOf(const QImage &source, const ksImageLayout &layout)
{
    const QImage pixels = source.convertToFormat(layout.format).mirrored(false, true);
    if (pixels.isNull())
        throw std::bad_alloc();

    // Lines of a QImage are padded, those of the scene graph's images are not.
    const auto lineLength =
        static_cast<std::size_t>(pixels.width()) * static_cast<std::size_t>(layout.channels);
    std::vector<osg::UInt8> data;
    data.reserve(lineLength * static_cast<std::size_t>(pixels.height()));
    for (int y = 0; y < pixels.height(); ++y) {
        const uchar *line = pixels.constScanLine(y);
        data.insert(data.end(), line, line + lineLength);
    }
    return data;
}

osg::ImageRefPtr toSceneImage(const QImage &source, const std::string &name)
{
    const osg::ImageRefPtr image(osg::Image::create());
    ksImageImporter::setPixels(image.get(), source);
    CPEdit(image.get(), osg::Image::NameFieldMask);
    image->setName(name);
    return image;
}

/// The image in the file \a path; null, and why, when it cannot be read.
QImage readFile(const QString &path, QString &reason)
{
    QImageReader reader(path);
    // The content decides: models name textures with the wrong suffix often enough. Only that of some formats
    // does not tell.
    reader.setDecideFormatFromContent(true);
    QImage image = reader.read();
    if (image.isNull())
        image = imageBySuffix(path);
    if (image.isNull()) {
        const QString missing = missingReader(path);
        reason = missing.isEmpty() ? reader.errorString() : missing;
    }
    return image;
}

} // namespace

ksImageImporter::ksImageImporter(const ksModelFile &model, ksWarn reportTo)
    : file(model)
    , warn(std::move(reportTo))
{}

osg::ImagePtr ksImageImporter::image(const std::string &name)
{
    const auto known = images.find(name);
    if (known != images.end())
        return known->second.get();
    // Two names of the model may mean images that are equal, or that another scene has.
    const osg::ImageRefPtr created = createImage(name);
    const osg::ImagePtr shared = ksTextureManager::the()->getImage(created, true);
    return images.emplace(name, shared).first->second.get();
}

void ksImageImporter::setPixels(const osg::ImagePtr &image, const QImage &source)
{
    const ksImageLayout *known = ksImageLayout::of(*image);
    if (known != nullptr && source.width() == image->getWidth() && source.height() == image->getHeight()) {
        image->getPixel().getValues() = pixelsOf(source, *known);
        return;
    }
    const ksImageLayout &layout = layoutFor(source);
    image->set(layout.pixelFormat, source.width(), source.height(), 1, 1, 1, 0,
               pixelsOf(source, layout).data());
}

osg::ImageRefPtr ksImageImporter::createImage(const std::string &name) const
{
    try {
        const QImage image = read(name);
        return image.isNull() ? osg::ImageRefPtr() : toSceneImage(image, name);
    } catch (const std::bad_alloc &) {
        warn(QStringLiteral("texture ") + QString::fromStdString(name) +
             QStringLiteral(": takes more memory than there is"));
        return {};
    }
}

QImage ksImageImporter::read(const std::string &name) const
{
    const QString shown = QString::fromStdString(name);
    if (const aiTexture *texture = file.scene().GetEmbeddedTexture(name.c_str())) {
        const QImage image = embeddedImage(*texture);
        if (!image.isNull())
            return image;
        warn(QStringLiteral("texture ") + shown + QStringLiteral(" within the model cannot be read"));
        return {};
    }

    const QString path = locate(file.folder(), name);
    if (path.isEmpty()) {
        warn(QStringLiteral("texture ") + shown + QStringLiteral(": no such file"));
        return {};
    }
    QString reason;
    const QImage image = readFile(path, reason);
    if (image.isNull())
        warn(QStringLiteral("texture ") + shown + QStringLiteral(": ") + reason);
    return image;
}

osg::ImageRefPtr ksImageImporter::imageInFile(const QString &path)
{
    QString reason;
    const QImage image = readFile(path, reason);
    if (image.isNull())
        throw ksEditorError(path + QStringLiteral(": ") + reason);
    const osg::ImageRefPtr created = toSceneImage(image, QFileInfo(path).fileName().toStdString());
    return osg::ImageRefPtr(ksTextureManager::the()->getImage(created, true));
}
