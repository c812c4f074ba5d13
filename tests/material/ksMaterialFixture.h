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
        {
            const osg::CPEditor edit(material, osg::FieldBits::AllFields);
            material->addColorComponent(component);
            material->setComponentSettings(settings);
        }
        forget();
        calls.take();
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
