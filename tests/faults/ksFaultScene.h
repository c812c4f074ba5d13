// SPDX-License-Identifier: MIT
#pragma once

#include "OSGBystander.h"
#include "ksListener.h"

#include <OSGAimConstraint.h>
#include <OSGLightLinkSet.h>
#include <OSGPointConstraint.h>
#include <OSGTagAttachment.h>
#include <OSGTransform3D.h>
#include <OSGTransformVariant.h>
#include <OSGTransformVariantsAttachment.h>
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
#include <support/ksRecords.h>
#include <support/ksWatched.h>
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

    /// What a state says of the field \a name of \a container when it has the value \a text.
    State fieldState(const osg::FieldContainerPtr &container, const std::string &name,
                     const std::string &text) const;

    /// The same when it refers to \a containers.
    State fieldState(const osg::FieldContainerPtr &container, const std::string &name,
                     const std::vector<osg::FieldContainerPtr> &containers) const;

    /// \a state as it becomes when what differs between \a from and \a to changes.
    static State moved(State state, const State &from, const State &to);

    /// \a state without the containers with the record ids \a ids.
    static State without(const std::vector<long long> &ids, const State &state);

    /// What differs between two states, a line each.
    static std::vector<std::string> differences(const State &actual, const State &expected);

    /// Expects that the reference count of every living container is what the scene holds on it, and one for
    /// each time that it is in \a held.
    void expectCounts(const std::vector<osg::UInt32> &held) const;

    /// The key of reference counts in a state, after id and type.
    static constexpr const char *referenceCount = "(references)";

    /// Notes that the application has been called.
    void log(const std::string &event)
    {
        events.push_back(event);
        interrupt();
    }

    /// Calls \a interruption at the end of the call \a number, counted from 1, that a command makes to the
    /// application from now on: a callback, a sync or notify function, a method, and a change handler, unless
    /// \a handlers is false.
    void interruptAt(int number, std::function<void()> interruption, bool handlers = true)
    {
        callsLeft = number;
        onInterruption = std::move(interruption);
        handlerCalls.onCall = nullptr;
        if (handlers)
            handlerCalls.onCall = [this] { interrupt(); };
    }

    /// The calls of all containers' change handlers since the last time.
    std::vector<ksHandlerCall> takeHandlerCalls() { return handlerCalls.take(); }

    /// What has been called back and logged since the last time.
    Events take() { return std::exchange(events, {}); }

    /// The change handlers of all containers of the scene are watched.
    const bool isWatched;
    ksRecorder recorder;
    ksListener listener;

    // The scene below its root.
    osg::NodePtr root;
    osg::NodePtr box; ///< an osg::Transform3D, with three variants
    osg::TransformVariantPtr variantA;
    osg::TransformVariantPtr variantB;
    osg::TransformVariantPtr variantC;
    osg::NodePtr lamp; ///< an osg::UberLight
    osg::NodePtr mark;
    osg::NodePtr linked; ///< an osg::LightLinkSet
    osg::NodePtr listed; ///< the first of its scene nodes, constrained and mark being the others
    osg::NodePtr tagged;
    osg::NodePtr constrained; ///< an osg::AimConstraint
    osg::NodePtr pinned;      ///< an osg::PointConstraint
    osg::NodePtr source;      ///< both constraints refer to it in all the ways that they have
    osg::ConstraintObjectPtr aimSource;
    osg::ConstraintObjectPtr aimUpVector;
    osg::ConstraintObjectPtr pointSource;
    osg::NodePtr spot;  ///< an osg::UberLight with a visibility reference
    osg::NodePtr shade; ///< that reference

    // What is not below the root.
    osg::ProbeContainerPtr probe;
    osg::TransformVariantPtr looseVariant;
    osg::UberMaterialPtr material;
    osg::ColorComponentPtr component;
    osg::ColorComponentSettingsPtr settings;
    osg::ImagePtr oldImage; ///< that of the component
    osg::ImagePtr newImage;
    osg::UBRDFMaterialPtr brdf;
    osg::MaterialPtr environment; ///< that of the material brdf
    osg::MaterialPtr newEnvironment;
    osg::BystanderPtr bystander;

    osg::LightLinkSetPtr linkSet() const { return osg::LightLinkSetPtr::dcast(linked->getCore()); }
    osg::UberLightPtr light() const { return osg::UberLightPtr::dcast(lamp->getCore()); }
    osg::UberLightPtr spotLight() const { return osg::UberLightPtr::dcast(spot->getCore()); }
    osg::AimConstraintPtr constraint() const { return osg::AimConstraintPtr::dcast(constrained->getCore()); }
    osg::PointConstraintPtr pointConstraint() const
    {
        return osg::PointConstraintPtr::dcast(pinned->getCore());
    }
    osg::TagAttachmentPtr tags() const;
    osg::TransformVariantsAttachmentPtr variants() const;
    osg::Transform3DPtr looseTransform() const { return looseVariant->getTransform(); }
    osg::NodeCorePtr boxCore() const { return box->getCore(); }
    osg::NodeCorePtr group() const { return mark->getCore(); } ///< a core, and no other one

private:
    template <class PtrT>
    PtrT keep(const PtrT &container);

    osg::NodePtr addNode(const char *name, const osg::NodeCorePtr &core);

    void interrupt()
    {
        if (callsLeft > 0 && --callsLeft == 0)
            onInterruption();
    }

    std::string prefixOf(const osg::FieldContainerPtr &container) const;

    Events events;
    int callsLeft = 0;
    std::function<void()> onInterruption;
    ksHandlerCalls handlerCalls;
    std::map<osg::UInt32, osg::RefPtr<osg::FieldContainerPtr>> kept;
};
