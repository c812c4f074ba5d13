// SPDX-License-Identifier: MIT
#include <editor/scene/ksImageLayout.h>
#include <editor/viewport/ksGpuImages.h>

#include <QOpenGLContext>

#include <algorithm>
#include <array>

namespace {

QOpenGLFunctions &gl()
{
    return *QOpenGLContext::currentContext()->functions();
}

GLuint createTexture(GLenum format, GLsizei width, GLsizei height, GLenum type, const void *pixels)
{
    GLuint texture = 0;
    gl().glGenTextures(1, &texture);
    gl().glBindTexture(GL_TEXTURE_2D, texture);
    gl().glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR_MIPMAP_LINEAR);
    gl().glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    gl().glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_REPEAT);
    gl().glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_REPEAT);
    gl().glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    gl().glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, width, height, 0, format, type, pixels);
    gl().glGenerateMipmap(GL_TEXTURE_2D);
    return texture;
}

GLuint createTexture(const osg::ImagePtr &image)
{
    const QImage shown = image != osg::NullFC ? ksImageLayout::pictureOf(*image) : QImage();
    GLint most = 0;
    gl().glGetIntegerv(GL_MAX_TEXTURE_SIZE, &most);
    // The image's formats have OpenGL's numbers.
    if (!shown.isNull() && std::max(shown.width(), shown.height()) <= most)
        return createTexture(image->getPixelFormat(), shown.width(), shown.height(), GL_UNSIGNED_BYTE,
                             shown.constBits());
    constexpr std::array<GLubyte, 4> White = {255, 255, 255, 255};
    return createTexture(GL_RGBA, 1, 1, GL_UNSIGNED_BYTE, White.data());
}

} // namespace

GLuint ksGpuImages::of(const osg::ImagePtr &image)
{
    const auto [entry, isNew] = known.try_emplace(image.getFieldContainerId(), 0);
    if (isNew)
        entry->second = createTexture(image);
    return entry->second;
}

void ksGpuImages::follow(const ksSceneChanges &changes)
{
    constexpr osg::BitVector Pixels = osg::Image::PixelFieldMask | osg::Image::LayoutFieldMask;
    const auto forget = [this](osg::UInt32 id) {
        if (const auto found = known.find(id); found != known.end()) {
            stale.push_back(found->second);
            known.erase(found);
        }
    };
    for (const auto &[id, mask] : changes.fields)
        if ((mask & Pixels) != 0)
            forget(id);
    for (const osg::UInt32 id : changes.destroyed)
        forget(id);
}

void ksGpuImages::release()
{
    if (!stale.empty())
        gl().glDeleteTextures(GLsizei(stale.size()), stale.data());
    stale.clear();
}

void ksGpuImages::clear()
{
    for (const auto &[id, texture] : known)
        stale.push_back(texture);
    known.clear();
    release();
}
