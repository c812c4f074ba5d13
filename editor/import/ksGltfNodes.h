// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonArray>
#include <QJsonObject>

#include <map>
#include <string>

struct aiLight;
struct aiNode;
struct aiScene;

/// What a glTF 2 file says of its nodes and Assimp does not hand over: all that stands there, names of any
/// length, and which light each has, whatever else has its name.
class ksGltfNodes
{
public:
    /// Reads the \a document that \a scene comes from. Knows of no node when the two do not fit together.
    ksGltfNodes(const QJsonObject &document, const aiScene &scene);

    /// Whether it knows the lights of all nodes.
    bool knowsLights() const { return hasLights; }

    /// What the document has for \a node; empty when nothing is known.
    QJsonObject sourceOf(const aiNode &node) const;

    /// The light of \a node; null when there is none.
    const aiLight *lightOf(const aiNode &node) const;

    /// The name of \a node; empty when there is none.
    std::string nameOf(const aiNode &node) const;

    /// The name of the mesh of \a node; empty when there is none.
    std::string meshNameOf(const aiNode &node) const;

private:
    class Reader;

    QJsonArray meshes;
    bool hasLights = false;
    std::map<const aiNode *, const aiLight *> lights;
    std::map<const aiNode *, QJsonObject> sources;
};
