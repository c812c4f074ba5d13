// SPDX-License-Identifier: MIT
#include <checker/history/ksCheckedHistory.h>
#include <checker/tour/ksMaterialTour.h>

#include <ksundo/field/ksBoolFieldUndoCommand.h>
#include <ksundo/field/ksFieldUndoCommand.h>
#include <ksundo/field/ksImageFieldUndoCommand.h>
#include <ksundo/material/ksColorComponentUndoCommand.h>
#include <ksundo/material/ksMaterialMultiUndoCommand.h>
#include <ksundo/material/ksMaterialUndoCommand.h>
#include <ksundo/material/ksSetEnvironmentUndoCommand.h>

#include <OpenSG/OSGFieldContainerFactory.h>

#include <string>

namespace {

/// An image of one pixel that has \a name.
osg::ImagePtr makeImage(const std::string &name)
{
    const osg::UInt8 pixel[] = {200, 100, 50};
    const osg::ImagePtr image = osg::Image::create();
    image->set(osg::Image::OSG_RGB_PF, 1, 1, 1, 1, 1, 0, pixel);
    CPEdit(image, osg::Image::NameFieldMask);
    image->setName(name);
    return image;
}

/// An image that is equal to \a image, with a reference to hand over.
osg::ImagePtr copyOf(const osg::ImagePtr &image)
{
    const osg::ImagePtr copy = osg::ImagePtr::dcast(image->shallowCopy());
    osg::addRefCP(copy);
    return copy;
}

/// A drag's command for the field \a name of \a container.
template <class T>
ksFieldBaseUndoCommand *dragEvent(const osg::FieldContainerPtr &container, const char *name, const T &value,
                                  ksMerging merging, QUndoCommand *parent = nullptr)
{
    auto *command = new ksFieldUndoCommand<T>(QString(), container, name, value, parent);
    ksMergingAs(merging, command);
    return command;
}

} // namespace

void ksMaterialTour::run()
{
    for (const osg::UberMaterialPtr &material : targets.layeredMaterials) {
        editComponents(material);
        editSettings(material);
        editTogether(material);
        swapImages(material->getColorComponentData(0));
    }
    for (const osg::UBRDFMaterialPtr &material : targets.physicalMaterials)
        setEnvironments(material);
}

void ksMaterialTour::editComponents(const osg::UberMaterialPtr &material)
{
    const osg::ColorComponentPtr component = material->getColorComponentData(0);
    const osg::ColorComponentSettingsPtr settings = material->getComponentSettings();
    const osg::Vec3f color = component->getColor();
    const osg::Vec3f blended = material->getBlendedColor();
    const auto colorAt = [&color](int event) {
        const float way = static_cast<float>(event + 1) / 64;
        return color + osg::Vec3f(way, way / 2, way / 4);
    };
    drag(DragEvents, [&](int event) {
        const ksMerging merging = ksMergingOfEvent(event);
        return ksMergingAs(merging,
                           new ksMaterialUndoCommand(text(material, "color"),
                                                     dragEvent(component, "color", colorAt(event), merging),
                                                     material, settings));
    });
    const osg::Vec3f blendedAnew = material->getBlendedColor();
    history.verify(component->getColor().isSame(colorAt(DragEvents - 1)),
                   QStringLiteral("the last colour is set"));
    history.verify(!blendedAnew.isSame(blended), QStringLiteral("the material has noticed"));
    history.undo();
    history.verify(component->getColor().isSame(color) && material->getBlendedColor().isSame(blended),
                   QStringLiteral("the colour is back, and the material has noticed"));
    history.redo();

    // Nobody tells the material of these.
    const float weight = component->getWeight();
    drag(DragEvents, [&](int event) {
        const ksMerging merging = ksMergingOfEvent(event);
        return ksMergingAs(
            merging, new ksColorComponentUndoCommand(
                         text(material, "weight"),
                         dragEvent(component, "weight", weight + static_cast<float>(event + 1) / 64, merging),
                         component, material));
    });
    add(new ksColorComponentUndoCommand(
            text(material, "color"), new ksFieldUndoCommand<osg::Vec3f>(QString(), component, "color", color),
            component, material),
        1);
    history.verify(component->getColor().isSame(color) && material->getBlendedColor().isSame(blendedAnew),
                   QStringLiteral("the colour is set, and the material has not noticed"));
}

void ksMaterialTour::editSettings(const osg::UberMaterialPtr &material)
{
    const osg::ColorComponentSettingsPtr settings = material->getComponentSettings();
    const float angle = settings->getMappingRotation();
    drag(DragEvents, [&](int event) {
        const ksMerging merging = ksMergingOfEvent(event);
        return ksMergingAs(
            merging, new ksMaterialUndoCommand(text(material, "mappingRotation"),
                                               dragEvent(settings, "mappingRotation",
                                                         angle + static_cast<float>(event + 1), merging),
                                               material, settings));
    });
    history.verify(settings->getMappingRotation() == angle + DragEvents,
                   QStringLiteral("the last angle is set"));
    const bool isPlanar = settings->getPlanarProjection();
    add(new ksMaterialUndoCommand(text(material, "planarProjection"),
                                  new ksBoolFieldUndoCommand(settings, "planarProjection", !isPlanar),
                                  material, settings),
        1);
    history.verify(settings->getPlanarProjection() != isPlanar, QStringLiteral("the projection is switched"));
    history.undo();
    history.redo();
}

void ksMaterialTour::editTogether(const osg::UberMaterialPtr &material)
{
    const osg::ColorComponentSettingsPtr settings = material->getComponentSettings();
    const osg::ColorComponentPtr component = material->getColorComponentData(0);
    const float weight = component->getWeight();
    const auto make = [&](float newWeight, ksMerging merging) {
        auto *batch = new ksMaterialMultiUndoCommand(text(material, "weights"), material, settings);
        for (const osg::ColorComponentPtr &each : material->getColorComponentData())
            dragEvent(each, "weight", newWeight, merging, batch);
        dragEvent(settings, "projectionSize", 4 * newWeight, merging, batch);
        return batch;
    };
    add(make(0.5F, ksMerging::Never), 1);
    add(make(0.75F, ksMerging::WithPrevious), 0);
    history.verify(component->getWeight() == 0.75F && settings->getProjectionSize() == 3,
                   QStringLiteral("the last values are set"));
    history.undo();
    history.verify(component->getWeight() == weight, QStringLiteral("one undo takes both back"));
    history.redo();

    const osg::Vec3f blended = material->getBlendedColor();
    for (const bool enabled : {false, true}) {
        auto *all = new ksMaterialMultiUndoCommand(text(material, "enabled"), material, settings);
        for (const osg::ColorComponentPtr &each : material->getColorComponentData())
            new ksBoolFieldUndoCommand(each, "enabled", enabled, all);
        add(all, 1);
        history.verify(material->getBlendedColor().isSame(enabled ? blended : osg::Vec3f(1, 1, 1)),
                       QStringLiteral("without components the material is white"));
    }
}

void ksMaterialTour::swapImages(const osg::ColorComponentPtr &component)
{
    const osg::ImagePtr before = component->getImage();
    const osg::ImagePtr made = makeImage("tour " + std::to_string(component.getFieldContainerId()));
    setImage(component, made, made);
    setImage(component, osg::NullFC, osg::NullFC);
    for (const osg::ImagePtr &known : {made, before}) {
        if (known == osg::NullFC)
            continue;
        const osg::ImagePtr copy = copyOf(known);
        const osg::UInt32 id = copy.getFieldContainerId();
        setImage(component, copy, known);
        history.verify(osg::FieldContainerFactory::the()->getContainer(id) == osg::NullFC,
                       QStringLiteral("the image that is known already replaces its copy, which goes"));
    }
}

void ksMaterialTour::setImage(const osg::ColorComponentPtr &component, const osg::ImagePtr &given,
                              const osg::ImagePtr &wanted)
{
    const osg::ImagePtr before = component->getImage();
    const auto verifyShown = [&](const osg::ImagePtr &image) {
        history.verify(component->getImage() == image, QStringLiteral("the component has the image"));
        verifyCalls(log, {"shown"});
    };
    auto *command = new ksImageFieldUndoCommand(component, "image", given);
    command->setNotifyFunction(log.writer("shown"));
    add(command, 1);
    verifyShown(wanted);
    history.undo();
    verifyShown(before);
    history.redo();
    verifyShown(wanted);
}

void ksMaterialTour::setEnvironments(const osg::UBRDFMaterialPtr &material)
{
    for (const osg::MaterialPtr environment :
         {targets.layeredMaterials.front(), targets.layeredMaterials.back()}) {
        const osg::MaterialPtr before = material->getEnvironment();
        add(new ksSetEnvironmentUndoCommand(material, environment), 1);
        history.verify(material->getEnvironment() == environment, QStringLiteral("the environment is set"));
        history.undo();
        history.verify(material->getEnvironment() == before, QStringLiteral("the environment is taken back"));
        history.redo();
    }
}
