// SPDX-License-Identifier: MIT
#pragma once

#include <checker/tour/ksTourTargets.h>

#include <OSGAimConstraint.h>
#include <OSGLightLinkSet.h>
#include <OSGTagAttachment.h>
#include <OpenSG/OSGRefPtr.h>

class ksCheckedHistory;

/// What a tour needs in a scene and models do not have, all below one node: a link set, a constraint, a light
/// with an instance. A model may also lack things that others have; of these there is one, too.
class ksTourExtras
{
public:
    /// Makes the extras, outside the scene as yet, and adds to \a targets what they lack: a transform, both
    /// kinds of materials. The light is always among the lights.
    explicit ksTourExtras(ksTourTargets &targets);

    /// Adds the extras to the scene of \a history, and tags without entries to all target nodes, each as a
    /// step that can be undone.
    void addTo(ksCheckedHistory &history) const;

    /// The node that all is below, which has settings.
    osg::NodePtr node() const { return group; }
    osg::ksNodeSettingsPtr settings() const;

    /// The light, and a node that is an instance of it. A third node that has the light as its core is
    /// excluded from the substitution of instances.
    osg::NodePtr light() const { return lightNode; }
    osg::NodePtr instance() const { return instanceNode; }

    /// Without lights and nodes.
    osg::LightLinkSetPtr links() const { return linkSet; }

    /// Five nodes without anything.
    const std::vector<osg::NodePtr> &places() const { return placeNodes; }

    /// Three nodes, those of the model first. The constraint aims the first one, which is also what its up
    /// vector comes from, at all three.
    const std::vector<osg::NodePtr> &constrained() const { return constrainedNodes; }
    osg::AimConstraintPtr constraint() const { return aim; }

    /// One per target node.
    const std::vector<osg::TagAttachmentPtr> &tags() const { return tagAttachments; }

private:
    osg::NodePtr addNode(const char *name, const osg::NodeCorePtr &core) const;
    void addMesh(const char *name, const osg::MaterialPtr &material) const;
    void addLights();
    void addLacking() const;
    void addConstraint();

    ksTourTargets &targets;
    osg::NodeRefPtr group;
    osg::NodePtr lightNode;
    osg::NodePtr instanceNode;
    osg::LightLinkSetPtr linkSet;
    std::vector<osg::NodePtr> placeNodes;
    std::vector<osg::NodePtr> constrainedNodes;
    osg::AimConstraintPtr aim;
    std::vector<osg::TagAttachmentPtr> tagAttachments;

    /// Those that no node has as yet go with the extras.
    std::vector<osg::RefPtr<osg::TagAttachmentPtr>> heldAttachments;
};
