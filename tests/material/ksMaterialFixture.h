// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/field/ksFieldUndoCommand.h>

#include <OSGUberMaterial.h>

#include <string>
#include <support/ksSceneFixture.h>
#include <support/ksWatched.h>
#include <vector>

/// A material with one colour component and settings for it, whose change handlers are watched; they find the
/// component's weight. Commands set that weight, which is 1.
class ksMaterialFixture : public ksSceneFixture
{
protected:
    using Weight = ksFieldUndoCommand<float>;

    ksMaterialFixture()
    {
        fillMaterial();
        forget();
        calls.take();
    }

    /// Lets aspect 1, which knows nothing of the scene yet, have what the material holds, too.
    void shareMaterial()
    {
        material->subColorComponent(component);
        material->setComponentSettings(osg::NullFC);
        forget();
        fillMaterial();
        ksSyncAspects();
        calls.take();
    }

    /// Expects that the latest step reaches aspect 1 by way of the change list.
    void expectSharedStep()
    {
        ksExpectSync(component.get());
        for (const osg::FieldContainerPtr &each :
             {osg::FieldContainerPtr(material), osg::FieldContainerPtr(settings)})
            EXPECT_EQ(ksFieldTextsOf(each, 1), ksFieldTextsOf(each));
    }

    static osg::UInt32 idOf(const osg::FieldContainerPtr &container)
    {
        return container.getFieldContainerId();
    }

    static std::string keyOf(const char *name, const osg::FieldContainerPtr &container)
    {
        return std::string(name) + "=uint:" + std::to_string(idOf(container));
    }

    /// A field command that sets the weight.
    Weight *weightCommand(float weight, QUndoCommand *parent = nullptr) const
    {
        return new Weight(QString(), component.get(), "weight", weight, parent);
    }

    /// The record of a step that changes the weight and touches nothing.
    ksRecords weightEdit() const { return ksRecords().change(recorder.idOf(component.get()), weightMask); }

    /// The record of a step that changes the weight, then touches the settings and the material.
    ksRecords touchingEdit() const
    {
        return weightEdit()
            .change(recorder.idOf(settings.get()), projectionMask)
            .change(recorder.idOf(material.get()), componentsMask);
    }

    /// The calls of handlers by an edit of the weight to \a weight without touches.
    std::vector<ksHandlerCall> weightCalls(const char *weight) const
    {
        return {{idOf(component.get()), weightMask, 1, 1, weight}};
    }

    /// The calls of handlers by an edit of the weight to \a weight with touches.
    std::vector<ksHandlerCall> touchingCalls(const char *weight) const
    {
        return {{idOf(component.get()), weightMask, 1, 1, weight},
                {idOf(settings.get()), projectionMask, 1, 2, weight},
                {idOf(material.get()), componentsMask, 1, 3, weight}};
    }

    /// Expects that the latest step was \a edit and called \a handlers.
    void expectStep(const ksRecords &edit, const std::vector<ksHandlerCall> &handlers)
    {
        EXPECT_EQ(recorder.take(), edit);
        EXPECT_EQ(calls.take(), handlers);
    }

    void destroyMaterial()
    {
        material = osg::NullFC;
        forget();
    }

    /// Takes the settings from the material, which destroys them.
    void destroySettings()
    {
        material->setComponentSettings(osg::NullFC);
        settings = osg::NullFC;
        forget();
    }

    /// Takes the component from the material, which destroys it.
    void destroyComponent()
    {
        material->subColorComponent(component);
        component = osg::NullFC;
        forget();
    }

    void fillMaterial()
    {
        const osg::CPEditor edit(material, osg::FieldBits::AllFields);
        material->addColorComponent(component);
        material->setComponentSettings(settings);
    }

    static constexpr osg::BitVector weightMask = osg::ColorComponent::WeightFieldMask;
    static constexpr osg::BitVector projectionMask = osg::ColorComponentSettings::PlanarProjectionFieldMask;
    static constexpr osg::BitVector componentsMask = osg::UberMaterial::ColorComponentDataFieldMask;

    osg::RefPtr<osg::UberMaterialPtr> material{ksWatched<osg::UberMaterial>::create()};
    osg::RefPtr<osg::ColorComponentSettingsPtr> settings{ksWatched<osg::ColorComponentSettings>::create()};
    osg::RefPtr<osg::ColorComponentPtr> component{ksWatched<osg::ColorComponent>::create()};
    ksHandlerCalls calls{[this] {
        std::string text = "gone";
        if (component != osg::NullFC)
            component->getSFWeight()->getValueByStr(text);
        return text;
    }};
};
