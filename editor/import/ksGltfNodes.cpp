// SPDX-License-Identifier: MIT
#include <editor/import/ksGltfNodes.h>
#include <editor/import/ksLightImporter.h>
#include <editor/scene/ksGltfNames.h>

#include <QJsonArray>
#include <assimp/scene.h>

#include <utility>
#include <vector>

/// Walks along the nodes of the document and of the scene.
class ksGltfNodes::Reader
{
public:
    Reader(const QJsonObject &document, const aiScene &readScene, ksGltfNodes &target)
        : nodes(document[QLatin1String("nodes")].toArray())
        , scene(readScene)
        , result(target)
    {
        const QJsonValue shown = document[QLatin1String("scenes")][document[QLatin1String("scene")].toInt()];
        const QJsonArray roots = shown[QLatin1String("nodes")].toArray();
        // Several roots have got a common one.
        const bool fits =
            roots.size() == 1 ? visit(roots[0], *scene.mRootNode) : visitAll(roots, *scene.mRootNode);
        if (fits)
            readLights(document[QLatin1String("extensions")][ksGltfNames::lights()][QLatin1String("lights")]);
        else
            result.sources.clear();
    }

private:
    bool visitAll(const QJsonArray &indices, const aiNode &parent)
    {
        if (static_cast<unsigned int>(indices.size()) != parent.mNumChildren)
            return false;
        for (int i = 0; i < indices.size(); ++i)
            if (!visit(indices[i], *parent.mChildren[i]))
                return false;
        return true;
    }

    bool visit(const QJsonValue &index, const aiNode &node)
    {
        const QJsonValue source = nodes.at(index.toInt(-1));
        if (!source.isObject() || !visitAll(source[QLatin1String("children")].toArray(), node))
            return false;
        result.sources[&node] = source.toObject();
        const QJsonValue light =
            source[QLatin1String("extensions")][ksGltfNames::lights()][QLatin1String("light")];
        if (light.toInt(-1) < 0)
            return true;
        // The scene has lights in the order in which nodes are found to have them, children first.
        const int position =
            positions.emplace(light.toInt(), static_cast<int>(positions.size())).first->second;
        lightNodes.emplace_back(&node, position);
        return true;
    }

    void readLights(const QJsonValue &lights)
    {
        if (positions.size() != scene.mNumLights)
            return;
        for (const auto &[light, position] : positions)
            if (ksLightImporter::type(lights[light].toObject()) != scene.mLights[position]->mType)
                return;
        result.hasLights = true;
        for (const auto &[node, position] : lightNodes)
            result.lights[node] = scene.mLights[position];
    }

    const QJsonArray nodes;
    const aiScene &scene;
    ksGltfNodes &result;
    std::vector<std::pair<const aiNode *, int>> lightNodes;

    /// Those of the lights of the document in the scene.
    std::map<int, int> positions;
};

ksGltfNodes::ksGltfNodes(const QJsonObject &document, const aiScene &scene)
    : meshes(document[QLatin1String("meshes")].toArray())
{
    const QString version = document[QLatin1String("asset")][QLatin1String("version")].toString();
    if (version.startsWith(QLatin1String("2")))
        const Reader reader(document, scene, *this);
}

QJsonObject ksGltfNodes::sourceOf(const aiNode &node) const
{
    const auto found = sources.find(&node);
    return found != sources.end() ? found->second : QJsonObject();
}

const aiLight *ksGltfNodes::lightOf(const aiNode &node) const
{
    const auto found = lights.find(&node);
    return found != lights.end() ? found->second : nullptr;
}

std::string ksGltfNodes::nameOf(const aiNode &node) const
{
    return sourceOf(node).value(QLatin1String("name")).toString().toStdString();
}

std::string ksGltfNodes::meshNameOf(const aiNode &node) const
{
    const QJsonValue mesh = meshes.at(sourceOf(node).value(QLatin1String("mesh")).toInt(-1));
    return mesh[QLatin1String("name")].toString().toStdString();
}
