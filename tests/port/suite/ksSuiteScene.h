// SPDX-License-Identifier: MIT
#pragma once

#include "ksSuiteHost.h"

#include <OSGColorComponentSettings.h>
#include <OSGLightLinkSet.h>
#include <OSGTagAttachment.h>
#include <OSGTransform3D.h>
#include <OSGTransformVariant.h>
#include <OSGTransformVariantsAttachment.h>
#include <OSGUBRDFMaterial.h>
#include <OSGUberLight.h>
#include <OSGUberMaterial.h>
#include <OpenSG/OSGChangeList.h>
#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGFieldContainerType.h>
#include <OpenSG/OSGFieldDescription.h>
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGMFBaseTypes.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGThread.h>
#include <ksNodeUtils.h>
#include <ksPlatform.h>

#include <QObject>

#include <algorithm>

/// A scene in which commands of every class find something to do, made by means that every platform has.
class ksSuiteScene : public QObject
{
    Q_OBJECT

public:
    /// Fields and counts of references by container and name.
    using State = std::map<std::string, std::string>;

    ksSuiteScene()
    {
        ksSuiteHost::setRoot(root);
        ksNodeUtils::createTransformVariantsAttachment(box);
        ksNodeUtils::insertTransformVariant(box, 0, variantA);
        ksNodeUtils::insertTransformVariant(box, 1, variantB);
        tagged->addAttachment(tags);
        tags->getMFTagValues()->push_back(1);
        userTags()->push_back("old");
        osg::setRefdCP(brdf->getSFEnvironment()->getValue(), keep(osg::UBRDFMaterial::create()));
        osg::setRefdCP(aim()->getSFTarget()->getValue(), source);
        aim()->addSourceObject(ksSuiteHost::makeConstraintObject(source));
        aim()->addUpVectorObject(ksSuiteHost::makeConstraintObject(source));
        oldImage->setName("old");
        newImage->setName("new");
        endId = nextId();
    }

    ~ksSuiteScene() override
    {
        ksSuiteHost::setRoot(osg::NodePtr());
        for (const osg::FieldContainerPtr &container : kept)
            osg::subRefCP(container);
    }

    /// Lets go of \a container, which destroys it unless somebody else holds it.
    void drop(const osg::FieldContainerPtr &container)
    {
        const auto place = std::find(kept.begin(), kept.end(), container);
        const osg::FieldContainerPtr dropped = *place;
        kept.erase(place);
        osg::subRefCP(dropped);
    }

    /// The same for a child of the root.
    void dropNode(const osg::NodePtr &node)
    {
        const osg::NodePtr dropped = node;
        root->subChild(dropped);
    }

    /// The living containers that were made since the scene was begun, and before \a end.
    std::vector<osg::UInt32> livingIds(osg::UInt32 end = nextId()) const
    {
        std::vector<osg::UInt32> ids;
        for (osg::UInt32 id = firstId; id < end; ++id)
            if (osg::FieldContainerFactory::the()->getContainer(id) != osg::NullFC)
                ids.push_back(id);
        return ids;
    }

    /// All of the scene that lives, but for what scene graphs derive for themselves.
    State state() const
    {
        State state;
        for (const osg::UInt32 id : livingIds(endId)) {
            const auto container = osg::FieldContainerFactory::the()->getContainer(id);
            const auto &type = container->getType();
            const std::string key = std::to_string(id) + type.getCName();
            state[key] = std::to_string(container.getRefCount());
            for (osg::UInt32 field = 1; field <= type.getNumFieldDescs(); ++field) {
                const std::string name = type.getFieldDescription(field)->getCName();
                if (name != "volume" && name != "matrix")
                    container->getField(field)->getValueByStr(state[key + '.' + name]);
            }
        }
        return state;
    }

    /// \a state without what only a field called \a name says.
    static State without(State state, const std::string &name)
    {
        for (auto entry = state.begin(); entry != state.end();)
            entry = entry->first.substr(entry->first.find('.') + 1) == name ? state.erase(entry) : ++entry;
        return state;
    }

    osg::NodePtr addNode(const char *name, const osg::NodeCorePtr &core)
    {
        const osg::NodePtr node = osg::Node::create();
        node->setCore(core);
        osg::setName(node, std::string(name));
        root->addChild(node);
        endId = nextId();
        return node;
    }

    osg::UberLightPtr light() const { return osg::UberLightPtr::dcast(lamp->getCore()); }
    osg::LightLinkSetPtr linkSet() const { return osg::LightLinkSetPtr::dcast(linked->getCore()); }
    osg::AimConstraintPtr aim() const { return osg::AimConstraintPtr::dcast(constrained->getCore()); }
    osg::Transform3DPtr transform() const { return osg::Transform3DPtr::dcast(box->getCore()); }
    osg::MField<std::string> *userTags() const
    {
        return static_cast<osg::MField<std::string> *>(tags->getField(4));
    }

    void log(const std::string &event) { events.push_back(event); }

    /// What commands call by the name of a method.
    Q_INVOKABLE void switched(bool) { log("called"); }
    Q_INVOKABLE void finished() { log("called"); }

private:
    template <class PtrT>
    PtrT keep(const PtrT &container)
    {
        osg::addRefCP(container);
        kept.push_back(container);
        return container;
    }

    osg::NodePtr makeRoot()
    {
        const osg::NodePtr node = keep(osg::Node::create());
        node->setCore(osg::Group::create());
        return node;
    }

    static osg::UInt32 nextId()
    {
        const osg::GroupPtr last = osg::Group::create();
        const osg::UInt32 id = last.getFieldContainerId();
        osg::addRefCP(last);
        osg::subRefCP(last);
        return id;
    }

    std::vector<osg::FieldContainerPtr> kept;
    const osg::UInt32 firstId = nextId();
    osg::UInt32 endId = firstId;

public:
    std::vector<std::string> events;

    const osg::NodePtr root = makeRoot();
    const osg::NodePtr box = addNode("Box", osg::Transform3D::create());
    const osg::NodePtr lamp = addNode("Lamp", osg::UberLight::create());
    const osg::NodePtr mark = addNode("Mark", osg::Group::create());
    const osg::NodePtr source = addNode("Source", osg::Group::create());
    const osg::NodePtr linked = addNode("Linked", osg::LightLinkSet::create());
    const osg::NodePtr constrained = addNode("Constrained", osg::AimConstraint::create());
    const osg::NodePtr tagged = addNode("Tagged", osg::Group::create());
    const osg::TagAttachmentPtr tags = osg::TagAttachment::create();
    const osg::TransformVariantPtr variantA = osg::TransformVariant::create();
    const osg::TransformVariantPtr variantB = osg::TransformVariant::create();
    const osg::TransformVariantPtr looseVariant = keep(osg::TransformVariant::create());
    const osg::FieldContainerPtr probe = keep(ksSuiteHost::makeProbe());
    const osg::FieldContainerPtr holder = keep(ksSuiteHost::makeImageHolder());
    const osg::ImagePtr oldImage = keep(osg::Image::create());
    const osg::ImagePtr newImage = keep(osg::Image::create());
    const osg::UberMaterialPtr material = keep(osg::UberMaterial::create());
    const osg::ColorComponentSettingsPtr settings = keep(osg::ColorComponentSettings::create());
    const osg::UBRDFMaterialPtr brdf = keep(osg::UBRDFMaterial::create());
    const osg::MaterialPtr environment = keep(osg::UBRDFMaterial::create());
};
