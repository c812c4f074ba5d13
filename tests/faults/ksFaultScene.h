// SPDX-License-Identifier: MIT
#pragma once

#include "OSGBystander.h"
#include "ksListener.h"

#include <OSGAimConstraint.h>
#include <OSGLightLinkSet.h>
#include <OSGTagAttachment.h>
#include <OSGTransform3D.h>
#include <OSGTransformVariant.h>
#include <OSGUBRDFMaterial.h>
#include <OSGUberLight.h>
#include <OSGUberMaterial.h>
#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGSimpleMaterial.h>

#include <gmock/gmock.h>

#include <map>
#include <string>
#include <support/OSGProbeContainer.h>
#include <support/ksAspects.h>
#include <support/ksRecords.h>
#include <vector>

/// A scene in which commands of every class find something to do, and what can be observed of them.
class ksFaultScene
{
public:
    using Events = std::vector<std::string>;
    /// Texts by record id, type and field.
    using State = std::map<std::string, std::string>;

    ksFaultScene();
    ~ksFaultScene();
    Q_DISABLE_COPY(ksFaultScene)

    /// Takes \a container out of the scene, which destroys it unless somebody else holds it.
    void drop(const osg::FieldContainerPtr &container);

    /// All fields of all living containers of the scene and their reference counts, as a thread of \a aspect
    /// sees them.
    State state(osg::UInt32 aspect = 0) const;

    /// What differs between two states, a line each.
    static std::vector<std::string> differences(const State &actual, const State &expected);

    /// Expects that the reference count of every living container is what the scene holds on it, and one for
    /// each time that it is in \a held.
    void expectCounts(const std::vector<osg::UInt32> &held) const;

    /// The key of reference counts in a state, after id and type.
    static constexpr const char *referenceCount = "(references)";

    void log(const std::string &event) { events.push_back(event); }

    /// What has been called back and logged since the last time.
    Events take() { return std::exchange(events, {}); }

    ksRecorder recorder;
    ksListener listener;

    // The scene below its root.
    osg::NodePtr root;
    osg::NodePtr box;  ///< an osg::Transform3D, with the variants a, b and c
    osg::NodePtr lamp; ///< an osg::UberLight
    osg::NodePtr mark;
    osg::NodePtr linked; ///< an osg::LightLinkSet
    osg::NodePtr listed; ///< the first of its scene nodes, constrained and mark being the others
    osg::NodePtr tagged;
    osg::NodePtr constrained; ///< an osg::AimConstraint
    osg::NodePtr source;      ///< refers to it in all three ways

    // What is not below the root.
    osg::ProbeContainerPtr probe;
    osg::TransformVariantPtr looseVariant;
    osg::UberMaterialPtr material;
    osg::ColorComponentPtr component;
    osg::ColorComponentSettingsPtr settings;
    osg::ImagePtr newImage;
    osg::UBRDFMaterialPtr brdf;
    osg::MaterialPtr environment;
    osg::BystanderPtr bystander;

    osg::LightLinkSetPtr linkSet() const { return osg::LightLinkSetPtr::dcast(linked->getCore()); }
    osg::UberLightPtr light() const { return osg::UberLightPtr::dcast(lamp->getCore()); }
    osg::AimConstraintPtr constraint() const { return osg::AimConstraintPtr::dcast(constrained->getCore()); }
    osg::TagAttachmentPtr tags() const;
    osg::TransformVariantPtr variant(unsigned long index) const;

private:
    template <class PtrT>
    PtrT keep(const PtrT &container);

    osg::NodePtr addNode(const char *name, const osg::NodeCorePtr &core);

    Events events;
    std::map<osg::UInt32, osg::RefPtr<osg::FieldContainerPtr>> kept;
};
