// SPDX-License-Identifier: MIT
#include <editor/scene/ksNodeSettings.h>
#include <editor/viewport/ksVisibleNodes.h>

#include <OpenSG/OSGThreadContext.h>
#include <OpenSG/OSGTransform.h>

const std::vector<ksVisibleNode> &ksVisibleNodes::of(const osg::NodePtr &root)
{
    if (!isStale)
        return nodes;
    const osg::AspectScope scope(1);
    nodes.clear();
    places.clear();
    boxes.clear();
    isStale = false;

    // Scenes are as deep as their files say: no recursion.
    struct Branch
    {
        osg::NodePtr node;
        int parent;
    };
    std::vector<Branch> open{{root, -1}};
    while (!open.empty()) {
        const Branch next = open.back();
        open.pop_back();
        const auto place = int(nodes.size());
        add(next.node, next.parent);
        if (int(nodes.size()) > place)
            for (osg::UInt32 i = next.node->getNChildren(); i > 0; --i)
                open.push_back({next.node->getChild(i - 1), place});
    }
    for (std::size_t i = nodes.size(); i > 0; --i) {
        ksVisibleNode &node = nodes[i - 1];
        node.end = std::max(node.end, int(i));
        if (node.parent >= 0)
            nodes[std::size_t(node.parent)].end = std::max(nodes[std::size_t(node.parent)].end, node.end);
    }
    return nodes;
}

const ksBounds &ksVisibleNodes::ownBounds(int place, ksMeshBounds &meshes)
{
    const auto [known, isNew] = boxes.try_emplace(place);
    ksBounds &bounds = known->second;
    if (!isNew)
        return bounds;
    const ksVisibleNode &node = nodes[std::size_t(place)];
    bool canInvert = false;
    const QMatrix4x4 toOwn = node.matrix.inverted(&canInvert);
    for (auto i = std::size_t(place); canInvert && i < std::size_t(node.end); ++i)
        if (nodes[i].mesh != osg::NullFC)
            bounds.include(meshes.of(nodes[i].mesh), toOwn * nodes[i].matrix);
    return bounds;
}

int ksVisibleNodes::find(osg::UInt32 id) const
{
    const auto found = places.find(id);
    return found != places.end() ? found->second : -1;
}

void ksVisibleNodes::add(const osg::NodePtr &node, int parent)
{
    if (node == osg::NullFC || node->getTravMask() == 0)
        return;
    ksVisibleNode entry{node, parent, 0, QMatrix4x4(), 1, false, 0, {}, {}, {}};
    if (parent >= 0) {
        const ksVisibleNode &above = nodes[std::size_t(parent)];
        entry.matrix = above.matrix;
        entry.opacity = above.opacity;
        entry.isLocked = above.isLocked;
        entry.renderOrder = above.renderOrder;
    }
    const auto settings =
        osg::ksNodeSettingsPtr::dcast(node->findAttachment(osg::ksNodeSettings::getClassType()));
    if (settings != osg::NullFC) {
        entry.opacity *= std::clamp(settings->getOpacity(), 0.0F, 1.0F);
        entry.isLocked = entry.isLocked || settings->getLocked();
        entry.renderOrder = settings->getRenderOrder() != 0 ? settings->getRenderOrder() : entry.renderOrder;
    }
    const osg::NodeCorePtr core = node->getCore();
    if (const auto transform = osg::TransformPtr::dcast(core); transform != osg::NullFC)
        entry.matrix *= ksToQt(transform->getMatrix());
    else if (entry.mesh = osg::ksMeshPtr::dcast(core); entry.mesh == osg::NullFC) {
        entry.light = osg::UberLightPtr::dcast(core);
        entry.links = osg::LightLinkSetPtr::dcast(core);
    }
    places.emplace(node.getFieldContainerId(), int(nodes.size()));
    nodes.push_back(entry);
}
