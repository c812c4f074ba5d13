// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// What the editor's glTF files are known by.
namespace ksGltfNames {

/// The program that a file says it is of.
inline QString generator()
{
    return QStringLiteral("ks-editor");
}

/// The member of "extras" that holds what glTF has no place for. That of a node is a text in JSON: an array
/// of containers, the node first, each an array of its id in the file, its class, and an object with its
/// fields by name. A container is where the first node is that leads to it; everywhere else there is its id.
/// Fields as they are in new containers, and those that glTF itself holds, are left out. Values are texts of
/// the scene graph; handles are ids, attachments pairs of id and binding. That of an image is the id of the
/// container that it is the pixels of.
inline QString extras()
{
    return QStringLiteral("ksundo");
}

/// The extension that holds lights.
inline QString lights()
{
    return QStringLiteral("KHR_lights_punctual");
}

/// The extension that holds how textures lie on surfaces.
inline QString textureTransform()
{
    return QStringLiteral("KHR_texture_transform");
}

} // namespace ksGltfNames
