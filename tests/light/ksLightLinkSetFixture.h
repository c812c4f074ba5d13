// SPDX-License-Identifier: MIT
#pragma once

#include <OSGLightLinkSet.h>
#include <OpenSG/OSGGroup.h>
#include <ksOpenSGUtils.h>
#include <ksSceneDataManager.h>

#include <string>
#include <support/ksSceneFixture.h>
#include <support/ksWatched.h>
#include <vector>

/// A link set whose change handler can be watched, and a scene with nodes A to L, which the test holds.
///
///     root             of the whole scene graph
///       sceneRoot      of scene 0
///         A ... L
class ksLightLinkSetFixture : public ksSceneFixture
{
protected:
    static constexpr int nodeCount = 12;

    ksLightLinkSetFixture()
    {
        append(root, sceneRoot);
        for (int i = 0; i < nodeCount; ++i) {
            held.emplace_back(nodeWith(osg::Group::create()));
            append(sceneRoot, held.back());
        }
        ksOpenSGUtils::setRoot(root);
        ksSceneDataManager::setSceneRoot(0, sceneRoot);
    }
    ~ksLightLinkSetFixture() override
    {
        ksOpenSGUtils::setRoot(osg::NullFC);
        ksSceneDataManager::setSceneRoot(0, osg::NullFC);
    }

    /// The nodes with these letters; '-' is null, '/' the root.
    std::vector<osg::NodePtr> nodes(const std::string &letters) const
    {
        std::vector<osg::NodePtr> result;
        for (const char letter : letters)
            result.push_back(letter == '-' ? osg::NodePtr() : letter == '/' ? root.get() : at(letter).get());
        return result;
    }

    osg::NodePtr node(char letter) const { return nodes({letter}).front(); }

    /// The letters of the nodes of a list; '?' for one that has none.
    std::string letters(const osg::MFNodePtr &list) const
    {
        std::string result;
        for (const osg::NodePtr &entry : list) {
            char letter = '?';
            for (int i = 0; i < nodeCount; ++i)
                if (held[static_cast<std::size_t>(i)] == entry)
                    letter = static_cast<char>('A' + i);
            result += letter;
        }
        return result;
    }

    /// Takes a node out of the scene.
    static void takeOut(const osg::NodePtr &node)
    {
        const osg::NodePtr parent = node->getParent();
        const osg::CPEditor edit(parent, osg::Node::ChildrenFieldMask);
        parent->subChild(node);
    }

    osg::NodeRefPtr &at(char letter) { return held.at(static_cast<std::size_t>(letter - 'A')); }
    const osg::NodeRefPtr &at(char letter) const { return held.at(static_cast<std::size_t>(letter - 'A')); }

    osg::LightLinkSetRefPtr set{ksWatched<osg::LightLinkSet>::create()};
    osg::NodeRefPtr root{nodeWith(osg::Group::create())};
    osg::NodeRefPtr sceneRoot{nodeWith(osg::Group::create())};
    std::vector<osg::NodeRefPtr> held;
};
