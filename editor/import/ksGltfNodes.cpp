// SPDX-License-Identifier: MIT
#include <editor/import/ksGltfNodes.h>

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <assimp/scene.h>

#include <vector>

namespace {

aiLightSourceType typeOf(const QString &name)
{
    if (name == QLatin1String("directional"))
        return aiLightSource_DIRECTIONAL;
    return name == QLatin1String("spot") ? aiLightSource_SPOT : aiLightSource_POINT;
}

} // namespace

/// Walks along the nodes of the document and of the scene.
class ksGltfNodes::Reader
{
public:
    Reader(const QJsonObject &document, const aiScene &readScene, ksGltfNodes &target)
        : nodes(document.value(QLatin1String("nodes")).toArray())
        , sources(document.value(QLatin1String("extensions"))
                      .toObject()
                      .value(QLatin1String("KHR_lights_punctual"))
                      .toObject()
                      .value(QLatin1String("lights"))
                      .toArray())
        , scene(readScene)
        , result(target)
    {
        const QJsonArray roots = document.value(QLatin1String("scenes"))
                                     .toArray()
                                     .at(document.value(QLatin1String("scene")).toInt())
                                     .toObject()
                                     .value(QLatin1String("nodes"))
                                     .toArray();
        const aiNode &root = *scene.mRootNode;
        bool fits = roots.size() == 1 ? visit(roots[0].toInt(-1), root) : visitAll(roots, root);
        if (!fits)
            result.names.clear();
        fits = fits && order.size() == scene.mNumLights;
        for (std::size_t i = 0; fits && i < order.size(); ++i)
            fits = typeOf(sources.at(order[i]).toObject().value(QLatin1String("type")).toString()) ==
                   scene.mLights[i]->mType;
        result.hasLights = fits;
        for (const auto &[node, source] : lightSources)
            for (std::size_t i = 0; fits && i < order.size(); ++i)
                if (order[i] == source)
                    result.lights[node] = scene.mLights[i];
    }

private:
    bool visitAll(const QJsonArray &indices, const aiNode &parent)
    {
        if (static_cast<unsigned int>(indices.size()) != parent.mNumChildren)
            return false;
        for (int i = 0; i < indices.size(); ++i)
            if (!visit(indices[i].toInt(-1), *parent.mChildren[i]))
                return false;
        return true;
    }

    bool visit(int index, const aiNode &node)
    {
        if (index < 0 || index >= nodes.size())
            return false;
        const QJsonObject source = nodes.at(index).toObject();
        if (!visitAll(source.value(QLatin1String("children")).toArray(), node))
            return false;
        result.names[&node] = source.value(QLatin1String("name")).toString().toStdString();
        const int light = source.value(QLatin1String("extensions"))
                              .toObject()
                              .value(QLatin1String("KHR_lights_punctual"))
                              .toObject()
                              .value(QLatin1String("light"))
                              .toInt(-1);
        if (light < 0)
            return true;
        // The scene has lights in the order in which nodes are found to have them, children first.
        lightSources[&node] = light;
        bool isKnown = false;
        for (const int known : order)
            isKnown = isKnown || known == light;
        if (!isKnown)
            order.push_back(light);
        return true;
    }

    const QJsonArray nodes;
    const QJsonArray sources;
    const aiScene &scene;
    ksGltfNodes &result;
    std::map<const aiNode *, int> lightSources;
    std::vector<int> order;
};

ksGltfNodes::ksGltfNodes(const QJsonObject &document, const aiScene &scene)
{
    const QString version =
        document.value(QLatin1String("asset")).toObject().value(QLatin1String("version")).toString();
    if (version.startsWith(QLatin1String("2")))
        const Reader reader(document, scene, *this);
}

const aiLight *ksGltfNodes::lightOf(const aiNode &node) const
{
    const auto found = lights.find(&node);
    return found != lights.end() ? found->second : nullptr;
}

std::string ksGltfNodes::nameOf(const aiNode &node) const
{
    const auto found = names.find(&node);
    return found != names.end() ? found->second : std::string();
}
