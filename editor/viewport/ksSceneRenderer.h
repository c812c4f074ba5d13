// SPDX-License-Identifier: MIT
#pragma once

#include <editor/viewport/ksGpuMesh.h>
#include <editor/viewport/ksLamp.h>
#include <editor/viewport/ksMeshBounds.h>
#include <editor/viewport/ksOrbitCamera.h>
#include <editor/viewport/ksSceneCache.h>
#include <editor/viewport/ksSurface.h>
#include <editor/viewport/ksVisibleNodes.h>

#include <OpenSG/OSGImage.h>

#include <QOpenGLShaderProgram>
#include <QOpenGLTexture>

#include <memory>
#include <unordered_map>
#include <vector>

/// Draws meshes with their materials in the light of the scene, or in that of a lamp beside the camera where
/// the scene has none. Each call needs the context that all others had, but followers.
class ksSceneRenderer
{
public:
    ksSceneRenderer();

    /// False when the shaders cannot be used here.
    bool prepare();

    /// Draws \a nodes; the calling thread reads aspect 1. What can be seen through is drawn last, what is far
    /// away first.
    void draw(const std::vector<ksVisibleNode> &nodes, ksMeshBounds &bounds, const ksOrbitCamera &camera);

    void follow(const ksSceneChanges &changes);
    void clear();

private:
    void drawNode(const ksVisibleNode &node, unsigned int lamps);
    const ksSurface &surfaceOf(const ksVisibleNode &node);
    void setLamps(unsigned int which);
    void setSurface(const ksSurface &shown);
    void bindImage(int unit, const char *sampler, const osg::ImagePtr &image);

    struct NodeUniforms
    {
        int opacity;
        int hasNormals;
        int toWorld;
        int normalToWorld;
    };

    QOpenGLShaderProgram program;
    NodeUniforms perNode{};
    ksSceneCache<osg::ksMeshPtr, std::unique_ptr<ksGpuMesh>> meshes;
    ksSceneCache<osg::ImagePtr, std::unique_ptr<QOpenGLTexture>> images;

    /// The state of the drawing that is going on.
    std::vector<ksLamp> lamps;
    unsigned int shining = 0;
    std::unordered_map<osg::UInt32, ksSurface> surfaces;
    const ksSurface *surface = nullptr;
};
