// SPDX-License-Identifier: MIT
#pragma once

#include <editor/scene/ksContainers.h>
#include <editor/scene/ksFieldReferences.h>
#include <editor/scene/ksMesh.h>
#include <editor/scene/ksNumericFields.h>
#include <editor/scene/ksSavedFields.h>

#include <OSGAimConstraint.h>
#include <OSGLightLinkSet.h>
#include <OSGPointConstraint.h>
#include <OSGTagAttachment.h>
#include <OSGTransformVariantsAttachment.h>
#include <OSGUBRDFMaterial.h>
#include <OSGUberLight.h>
#include <OSGUberMaterial.h>
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGMFBaseTypes.h>
#include <OpenSG/OSGMFSysTypes.h>
#include <OpenSG/OSGMFVecTypes.h>
#include <OpenSG/OSGPointLight.h>
#include <OpenSG/OSGSFBaseTypes.h>
#include <OpenSG/OSGSFMathTypes.h>
#include <OpenSG/OSGSFVecTypes.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGSimpleTexturedMaterial.h>
#include <OpenSG/OSGSwitch.h>

#include <set>
#include <string>
#include <type_traits>
#include <vector>

/// Gives a scene something of every kind that a scene can have, and every field of every container another
/// value.
class ksEverythingEdited
{
public:
    explicit ksEverythingEdited(const osg::NodePtr &root)
    {
        addContainers(root);
        std::vector<osg::FieldContainerPtr> all{root};
        std::set<osg::UInt32> known{root.getFieldContainerId()};
        for (std::size_t i = 0; i < all.size(); ++i) {
            const osg::FieldContainerPtr container = all[i];
            ksSavedFields::visit(container, [&](const osg::FieldDescription &, const osg::Field &field) {
                ksFieldReferences::visit(field, [&](const osg::FieldContainerPtr &found) {
                    if (known.insert(found.getFieldContainerId()).second)
                        all.push_back(found);
                });
            });
            edit(container);
        }
    }

private:
    static osg::NodePtr addNode(const osg::NodePtr &parent, const osg::NodeCorePtr &core, const char *name)
    {
        const osg::NodePtr node = ksContainers::createNode(name, core);
        CPEdit(parent, osg::Node::ChildrenFieldMask);
        parent->addChild(node);
        return node;
    }

    static void addContainers(const osg::NodePtr &root)
    {
        std::vector<osg::NodePtr> nodes;
        ksContainers::visitNodes(root, [&nodes](const osg::NodePtr &node) { nodes.push_back(node); });
        const osg::NodePtr first = nodes.front();
        const osg::NodePtr last = nodes.back();

        const osg::TransformVariantsAttachmentPtr variants = osg::TransformVariantsAttachment::create();
        for (int i = 0; i < 2; ++i) {
            const osg::TransformVariantPtr variant = osg::TransformVariant::create();
            variant->setTransform(osg::Transform3D::create());
            variants->insertVariant(0, variant);
        }
        const osg::TagAttachmentPtr tags = osg::TagAttachment::create();
        {
            CPEdit(last, osg::Node::AttachmentsFieldMask);
            last->addAttachment(variants);
            last->addAttachment(tags, 3);
        }
        {
            // Another node has the same tags.
            CPEdit(first, osg::Node::AttachmentsFieldMask);
            first->addAttachment(tags);
        }

        const osg::UberLightPtr light = osg::UberLight::create();
        light->setVisibilityReference(last);
        const osg::NodePtr lamp = addNode(last, light, "Lamp \xC3\xA4, \"quoted\"\n");
        const osg::LightLinkSetPtr links = osg::LightLinkSet::create();
        links->addLight(lamp);
        links->addSceneNode(last);
        links->addSceneNode(root);
        addNode(root, links, "");

        // A node that is in no scene.
        const osg::NodePtr outside = ksContainers::createNode("Outside", osg::Group::create());
        const osg::ksMeshPtr mesh = osg::ksMesh::create();
        mesh->getPositions().push_back(osg::Pnt3f(1, 2, 3));
        mesh->getIndices().push_back(0);
        addNode(outside, mesh, "Mesh outside");

        const osg::AimConstraintPtr aim = osg::AimConstraint::create();
        aim->setTarget(last);
        aim->addSourceObject(objectFor(lamp));
        aim->addUpVectorObject(objectFor(outside));
        addNode(root, aim, "Aim");
        const osg::PointConstraintPtr point = osg::PointConstraint::create();
        point->setTarget(outside);
        point->addSourceObject(objectFor(first));
        addNode(root, point, "\xFF no UTF-8");

        const osg::PointLightPtr plain = osg::PointLight::create();
        plain->setBeacon(last);
        addNode(root, plain, "Plain light");
        addNode(root, osg::Switch::create(), "Switch");
        addNode(root, osg::Transform::create(), "Matrix");
        // Two nodes of one core, one of them without a name.
        addNode(root, last->getCore(), "");
        addMaterials(root);
    }

    static osg::ConstraintObjectPtr objectFor(const osg::NodePtr &node)
    {
        const osg::ConstraintObjectPtr object = osg::ConstraintObject::create();
        object->setNode(node);
        return object;
    }

    static osg::ImagePtr makeImage(osg::UInt32 format, osg::Int32 type)
    {
        const osg::ImagePtr image = osg::Image::create();
        std::vector<osg::UInt8> pixels(3 * 2 * 4 * 2);
        for (std::size_t i = 0; i < pixels.size(); ++i)
            pixels[i] = static_cast<osg::UInt8>(i * 37);
        image->set(format, 3, 2, 1, 1, 1, 0, pixels.data(), type);
        return image;
    }

    /// A mesh with a material, which has an environment, which has images of many kinds.
    static void addMaterials(const osg::NodePtr &root)
    {
        const osg::UberMaterialPtr layers = osg::UberMaterial::create();
        for (const osg::UInt32 format :
             {osg::Image::OSG_L_PF, osg::Image::OSG_RGB_PF, osg::Image::OSG_RGBA_PF, osg::Image::OSG_BGR_PF,
              osg::Image::OSG_LA_PF})
            for (const osg::Int32 type :
                 {osg::Image::OSG_UINT8_IMAGEDATA, osg::Image::OSG_UINT16_IMAGEDATA}) {
                const osg::ColorComponentPtr component = osg::ColorComponent::create();
                component->setImage(makeImage(format, type));
                layers->addColorComponent(component);
            }
        layers->setComponentSettings(osg::ColorComponentSettings::create());
        const osg::UBRDFMaterialPtr surface = osg::UBRDFMaterial::create();
        surface->setEnvironment(layers);
        const osg::SimpleTexturedMaterialPtr textured = osg::SimpleTexturedMaterial::create();
        textured->setImage(layers->getColorComponentData(0)->getImage());
        for (const osg::MaterialPtr &material :
             {osg::MaterialPtr(surface), osg::MaterialPtr(layers), osg::MaterialPtr(textured)}) {
            const osg::ksMeshPtr mesh = osg::ksMesh::create();
            for (int i = 0; i < 4; ++i) {
                mesh->getPositions().push_back(osg::Pnt3f(float(i % 2), i < 2 ? 0.0F : 1.0F, 0));
                mesh->getTexCoords().push_back(osg::Vec2f(0.1F * float(i), 0.1F * float(i)));
            }
            mesh->getIndices().getValues() = {2, 0, 1, 2, 1, 3};
            mesh->setMaterial(material);
            addNode(root, mesh, "Square");
            // The same at another opacity.
            const osg::NodePtr faint = addNode(root, mesh, "Square");
            osg::ksNodeSettingsPtr::dcast(faint->findAttachment(osg::ksNodeSettings::getClassType()))
                ->setOpacity(0.25F);
        }
    }

    static void edit(const osg::FieldContainerPtr &container)
    {
        CPEdit(container, osg::FieldBits::AllFields);
        ksSavedFields::visit(container, [&](const osg::FieldDescription &description, osg::Field &field) {
            const bool isLayout = osg::ImagePtr::dcast(container) != osg::NullFC &&
                                  ((description.getFieldMask() & osg::Image::LayoutFieldMask) != 0 ||
                                   description.getFieldId() == osg::Image::DimensionFieldId);
            const bool isOrder = std::string(description.getCName()) == "eulerRotationOrder";
            const bool isOfFaces = osg::ksMeshPtr::dcast(container) != osg::NullFC &&
                                   description.getFieldId() == osg::ksMesh::CornersPerFaceFieldId;
            if (isOrder)
                static_cast<osg::SFString &>(field).setValue("ZXY");
            else if (!isLayout && !isOfFaces &&
                     ksSavedFields::referenceOf(container, description) == ksSavedFields::Reference::None)
                change(field);
        });
    }

    template <class T>
    static void changeNumber(T &number)
    {
        if constexpr (std::is_floating_point_v<T>)
            number = number * T(1.1) + T(0.3);
        else
            number = static_cast<T>(~number);
    }

    static void changeText(std::string &text) { text += "\n, \"\\ \xE2\x82\xAC\xC2\xA0\x01"; }

    static void change(osg::Field &field)
    {
        const auto changeOne = [](auto &typed) { changeNumber(typed.getValue()); };
        const auto changeAll = [](auto &typed) {
            using T = typename std::decay_t<decltype(typed)>::StoredType;
            for (osg::UInt32 i = 0; i < T::Size; ++i)
                changeNumber(typed.getValue().getValues()[i]);
        };
        if (ksNumericFields::visit(field, changeOne) ||
            ksNumericFields::visitAs<osg::Vec2f, osg::Vec3f, osg::Vec4f, osg::Pnt3f, osg::Color3f,
                                     osg::Color4f, osg::Quaternion, osg::Matrix>(field, changeAll))
            return;
        if (auto *flag = dynamic_cast<osg::SFBool *>(&field))
            flag->setValue(!flag->getValue());
        else if (auto *text = dynamic_cast<osg::SFString *>(&field))
            changeText(text->getValue());
        else if (auto *texts = dynamic_cast<osg::MFString *>(&field))
            texts->getValues().insert(texts->getValues().end(), {"one, two", "", "\xFE", "\"three\""});
        else if (auto *numbers = dynamic_cast<osg::MFUInt64 *>(&field))
            numbers->getValues().insert(numbers->getValues().end(), {0, ~osg::UInt64(0)});
        else if (auto *points = dynamic_cast<osg::MFPnt3f *>(&field))
            changeVectors(*points);
        else if (auto *vectors = dynamic_cast<osg::MFVec3f *>(&field))
            changeVectors(*vectors);
        else if (auto *coordinates = dynamic_cast<osg::MFVec2f *>(&field))
            changeVectors(*coordinates);
        else if (auto *pixels = dynamic_cast<osg::MFUInt8 *>(&field))
            for (osg::UInt8 &pixel : pixels->getValues())
                changeNumber(pixel);
    }

    template <class FieldT>
    static void changeVectors(FieldT &field)
    {
        for (auto &vector : field.getValues())
            for (osg::UInt32 i = 0; i < std::decay_t<decltype(vector)>::Size; ++i)
                changeNumber(vector.getValues()[i]);
    }
};
