// SPDX-License-Identifier: MIT
#pragma once

#include <editor/document/ksSceneChanges.h>

#include <OpenSG/OSGImage.h>

#include <QOpenGLFunctions>

#include <unordered_map>
#include <vector>

/// Textures of the scene's images, made when they are drawn first. Each call needs the context that all
/// others had, but follow().
class ksGpuImages
{
public:
    /// The texture's name; for null, and for an image without pixels, that of a white one.
    GLuint of(const osg::ImagePtr &image);

    /// Notes what \a changes concern, which release() lets go of, as clear() does of all.
    void follow(const ksSceneChanges &changes);
    void release();
    void clear();

private:
    /// The white one is that of the id 0.
    std::unordered_map<osg::UInt32, GLuint> known;
    std::vector<GLuint> stale;
};
