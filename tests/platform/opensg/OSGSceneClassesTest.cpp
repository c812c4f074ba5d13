// SPDX-License-Identifier: MIT
#include <OpenSG/OSGDirectionalLight.h>
#include <OpenSG/OSGLog.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGSimpleTexturedMaterial.h>
#include <OpenSG/OSGSpotLight.h>
#include <OpenSG/OSGSwitch.h>
#include <OpenSG/OSGTransform.h>

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <type_traits>
#include <vector>

namespace {

using namespace osg;

/// What a type says of its fields: the inherited ones are those of the parent's row.
struct ClassRow
{
    const char *name;
    const char *parent;
    const char *group;
    bool abstract;
    /// "name type", or "name declared type/real type", and "(i)" for internal fields.
    std::vector<std::string> fields;
};

void PrintTo(const ClassRow &row, std::ostream *stream)
{
    *stream << row.name;
}

const ClassRow classes[] = {
    {"AttachmentContainer", "FieldContainer", "AttachmentContainer", true, {"attachments SFAttachmentMap"}},
    {"Node",
     "AttachmentContainer",
     "Node",
     false,
     {"volume SFDynamicVolume", "travMask SFBool/SFUInt32", "parent SFNodePtr (i)", "children MFNodePtr",
      "core SFNodeCorePtr", "externalFlags SFUInt32", "internalFlags SFUInt32"}},
    {"NodeCore", "AttachmentContainer", "NodeCore", true, {"parents MFNodePtr (i)"}},
    {"Group", "NodeCore", "Group", false, {}},
    {"Transform", "Group", "Transform", false, {"matrix SFMatrix"}},
    {"Switch", "Group", "Switch", false, {"choice SFInt32"}},
    {"Attachment",
     "FieldContainer",
     "Attachment",
     true,
     {"parents MFNodePtr/MFFieldContainerPtr (i)", "internal SFBool"}},
    {"Name", "Attachment", "name", false, {"name SFString"}},
    {"StateChunk", "Attachment", "StateChunk", true, {"ignore SFBool"}},
    {"Image",
     "AttachmentContainer",
     "Image",
     false,
     {"parents MFFieldContainerPtr",
      "dimension SFInt32",
      "width SFInt32",
      "height SFInt32",
      "depth SFInt32",
      "bpp SFInt32",
      "mipMapCount SFInt32",
      "frameCount SFInt32",
      "frameDelay SFTime",
      "pixelFormat SFUInt32",
      "pixel MFUInt8",
      "frameSize SFInt32 (i)",
      "name SFString",
      "dataType SFInt32",
      "componentSize SFInt32 (i)",
      "sideCount SFInt32",
      "sideSize SFInt32 (i)",
      "forceCompressedData SFBool",
      "forceAlphaChannel SFBool",
      "forceColorChannel SFBool",
      "forceAlphaBinary SFBool",
      "resX SFReal32",
      "resY SFReal32",
      "resUnit SFUInt16"}},
    {"Material", "AttachmentContainer", "Material", true, {"sortKey SFInt32", "transparencyMode SFInt32"}},
    {"ChunkMaterial", "Material", "ChunkMaterial", false, {"chunks MFStateChunkPtr", "slots MFInt32"}},
    {"SimpleMaterial",
     "ChunkMaterial",
     "SimpleMaterial",
     false,
     {"ambient SFColor3f", "diffuse SFColor3f", "specular SFColor3f", "shininess SFReal32",
      "emission SFColor3f", "transparency SFReal32", "lit SFBool", "colorMaterial SFGLenum"}},
    {"SimpleTexturedMaterial",
     "SimpleMaterial",
     "SimpleTexturedMaterial",
     false,
     {"image SFImagePtr", "minFilter SFGLenum", "magFilter SFGLenum", "envMode SFGLenum", "envMap SFBool"}},
    {"Light",
     "Group",
     "Light",
     true,
     {"ambient SFColor4f", "diffuse SFColor4f", "specular SFColor4f", "beacon SFNodePtr", "on SFBool",
      "constantAttenuation SFReal32", "linearAttenuation SFReal32", "quadraticAttenuation SFReal32",
      "shadowIntensity SFReal32", "shadowMode SFUInt32"}},
    {"PointLight", "Light", "PointLight", false, {"position SFPnt3f"}},
    {"DirectionalLight", "Light", "DirectionalLight", false, {"direction SFVec3f"}},
    {"SpotLight",
     "PointLight",
     "SpotLight",
     false,
     {"direction SFVec3f", "spotExponent SFReal32", "spotCutOff SFReal32"}},
};

class OSGSceneClassesTest : public testing::TestWithParam<ClassRow>
{
protected:
    FieldContainerType &typeOf(const char *name) const
    {
        FieldContainerType *type = FieldContainerFactory::the()->findType(name);
        EXPECT_NE(type, nullptr) << name;
        return *type;
    }

    /// The row's form of a field.
    static std::string describe(const FieldDescription &description, const FieldContainerPtr &container)
    {
        std::string text = description.getCName() + std::string(" ") + description.getFieldType().getCName();
        if (container != NullFC) {
            const Field *field = container->getField(description.getFieldId());
            const std::string real = field->getType().getCName();
            if (real != description.getFieldType().getCName()) {
                text += '/' + real;
            }
        }
        return text + (description.isInternal() ? " (i)" : "");
    }
};

TEST_P(OSGSceneClassesTest, TypeIsAsItShouldBe)
{
    const ClassRow &row = GetParam();
    const FieldContainerType &type = typeOf(row.name);

    EXPECT_STREQ(type.getCParentName(), row.parent);
    EXPECT_EQ(type.getParent(), &typeOf(row.parent));
    EXPECT_EQ(type.isAbstract(), row.abstract);
    EXPECT_STREQ(FieldContainerFactory::the()->findGroupName(type.getGroupId()), row.group);
}

TEST_P(OSGSceneClassesTest, FieldsAreAsTheyShouldBe)
{
    const ClassRow &row = GetParam();
    const FieldContainerType &type = typeOf(row.name);
    FieldContainerPtr container = type.getPrototype();
    if (type == Attachment::getClassType()) {
        container = Name::getClassType().getPrototype();
    }
    const UInt32 inherited = typeOf(row.parent).getNumFieldDescs();

    ASSERT_EQ(type.getNumFieldDescs(), inherited + row.fields.size());
    for (UInt32 id = 1; id <= type.getNumFieldDescs(); ++id) {
        const FieldDescription &description = *type.getFieldDescription(id);
        EXPECT_EQ(description.getFieldId(), id);
        EXPECT_EQ(description.getFieldMask(), TypeTraits<BitVector>::One << id);
        EXPECT_TRUE(description.isValid());
        if (id > inherited) {
            EXPECT_EQ(describe(description, container), row.fields[id - inherited - 1]);
        }
    }
}

TEST_P(OSGSceneClassesTest, ContainersKnowTheirType)
{
    const ClassRow &row = GetParam();
    const FieldContainerRefPtr container(FieldContainerFactory::the()->createFieldContainer(row.name));

    if (row.abstract) {
        EXPECT_TRUE(container == NullFC);
        return;
    }
    const FieldContainer &object = *container;
    EXPECT_EQ(&container->getType(), &typeOf(row.name));
    EXPECT_EQ(&object.getType(), &typeOf(row.name));
    EXPECT_EQ(object.getTypeId(), typeOf(row.name).getId());
    EXPECT_EQ(object.getGroupId(), typeOf(row.name).getGroupId());
    EXPECT_STREQ(object.getTypeName(), row.name);
    EXPECT_EQ(object.getContainerSize(), container.get().getContainerSize());
}

INSTANTIATE_TEST_SUITE_P(Types, OSGSceneClassesTest, testing::ValuesIn(classes),
                         [](const auto &info) { return std::string(info.param.name); });

TEST(OSGSceneClasses, IdsAndMasksAreConstants)
{
    static_assert(Node::AttachmentsFieldId == 1);
    static_assert(Node::VolumeFieldId == 2 && Node::VolumeFieldMask == 0x4);
    static_assert(Node::TravMaskFieldId == 3 && Node::TravMaskFieldMask == 0x8);
    static_assert(Node::ParentFieldId == 4 && Node::ParentFieldMask == 0x10);
    static_assert(Node::ChildrenFieldId == 5 && Node::ChildrenFieldMask == 0x20);
    static_assert(Node::CoreFieldId == 6 && Node::CoreFieldMask == 0x40);
    static_assert(Node::ExternalFlagsFieldId == 7 && Node::ExternalFlagsFieldMask == 0x80);
    static_assert(Node::InternalFlagsFieldId == 8 && Node::InternalFlagsFieldMask == 0x100);
    static_assert(Node::NextFieldId == 9);
    static_assert(NodeCore::ParentsFieldId == 2);
    static_assert(Group::NextFieldId == 3);
    static_assert(Transform::MatrixFieldId == 3 && Switch::ChoiceFieldId == 3);
    static_assert(Attachment::ParentsFieldId == 1 && Attachment::InternalFieldId == 2);
    static_assert(Name::SimpleFieldId == 3);
    static_assert(Image::ParentsFieldId == 2 && Image::PixelFieldId == 12 && Image::NameFieldId == 14);
    static_assert(Image::ForceCompressedDataFieldId == 19 && Image::ForceAlphaBinaryFieldId == 22);
    static_assert(Image::ResXFieldId == 23 && Image::ResUnitFieldId == 25);
    static_assert(Material::SortKeyFieldId == 2 && Material::TransparencyModeFieldId == 3);
    static_assert(ChunkMaterial::ChunksFieldId == 4 && ChunkMaterial::SlotsFieldId == 5);
    static_assert(SimpleMaterial::AmbientFieldId == 6 && SimpleMaterial::ColorMaterialFieldId == 13);
    static_assert(SimpleTexturedMaterial::ImageFieldId == 14);
    static_assert(Light::AmbientFieldId == 3 && Light::BeaconFieldId == 6 && Light::OnFieldId == 7);
    static_assert(Light::ConstantAttenuationFieldId == 8 && Light::QuadraticAttenuationFieldId == 10);
    static_assert(Light::ShadowIntensityFieldId == 11 && Light::ShadowModeFieldId == 12);
    static_assert(PointLight::PositionFieldId == 13 && DirectionalLight::DirectionFieldId == 13);
    static_assert(SpotLight::DirectionFieldId == 14 && SpotLight::SpotCutOffFieldId == 16);
    static_assert(FieldContainer::MTInfluenceMask == 0 && Node::MTInfluenceMask == 0);
    static_assert(FieldBits::AllFields == ~BitVector(0) && FieldBits::NoField == 0);
    static_assert(FieldBits::Field0 == 1 && FieldBits::Field31 == BitVector(1) << 31);
    static_assert(ChangedOrigin::External == 1 && ChangedOrigin::Sync == 2 && ChangedOrigin::Child == 4);
    static_assert(ChangedOrigin::Abstract == 8 && ChangedOrigin::AbstrIgnoreCore == 0x100);
    static_assert(ChangedOrigin::AbstrIgnoreChild == 0x200 && ChangedOrigin::AbstrCheckValid == 0x400);
    static_assert(ChangedOrigin::AbstrIncRefCount == 0x800);
    static_assert(std::is_same_v<LightPtr, FCPtr<GroupPtr, Light>>);
    static_assert(std::is_same_v<ImagePtr, FCPtr<AttachmentContainerPtr, Image>>);
    static_assert(std::is_same_v<MaterialPtr, FCPtr<AttachmentContainerPtr, Material>>);
    static_assert(std::is_same_v<ChunkMaterialPtr, FCPtr<MaterialPtr, ChunkMaterial>>);
    static_assert(std::is_same_v<StateChunkPtr, FCPtr<AttachmentPtr, StateChunk>>);
    static_assert(std::is_same_v<Node::Ptr, NodePtr> && std::is_same_v<Transform::Ptr, TransformPtr>);
}

TEST(OSGSceneClasses, NewContainersHaveTheirDefaults)
{
    const SpotLightRefPtr spot(SpotLight::create());
    EXPECT_EQ(spot->getAmbient(), Color4f(0, 0, 0, 1));
    EXPECT_EQ(spot->getDiffuse(), Color4f(1, 1, 1, 1));
    EXPECT_TRUE(spot->getOn());
    EXPECT_EQ(spot->getConstantAttenuation(), 1);
    EXPECT_EQ(spot->getLinearAttenuation(), 0);
    EXPECT_TRUE(spot->getBeacon() == NullFC);
    EXPECT_EQ(spot->getDirection(), Vec3f(0, 0, 1));
    EXPECT_EQ(spot->getShadowIntensity(), 0);
    EXPECT_EQ(spot->getSpotCutOff(), 0);

    const SwitchRefPtr choice(Switch::create());
    EXPECT_EQ(choice->getChoice(), Switch::NONE);
    const SimpleTexturedMaterialRefPtr material(SimpleTexturedMaterial::create());
    EXPECT_TRUE(material->getLit());
    EXPECT_EQ(material->getShininess(), 1);
    EXPECT_EQ(material->getColorMaterial(), 0x1201u);
    EXPECT_EQ(material->getMinFilter(), 0x2703u);
    EXPECT_TRUE(material->getImage() == NullFC);
    const TransformRefPtr transform(Transform::create());
    EXPECT_EQ(transform->getMatrix(), Matrix());
}

TEST(OSGSceneClasses, LightsTakeNumbers)
{
    const SpotLightRefPtr spot(SpotLight::create());
    spot->setAmbient(1, 2, 3, 4);
    spot->setDiffuse(5, 6, 7, 8);
    spot->setSpecular(9, 10, 11, 12);
    spot->setPosition(1, 2, 3);
    spot->setDirection(4, 5, 6);
    spot->setAttenuation(7, 8, 9);
    const DirectionalLightRefPtr sun(DirectionalLight::create());
    sun->setDirection(1, 2, 3);

    EXPECT_EQ(spot->getAmbient(), Color4f(1, 2, 3, 4));
    EXPECT_EQ(spot->getDiffuse(), Color4f(5, 6, 7, 8));
    EXPECT_EQ(spot->getSpecular(), Color4f(9, 10, 11, 12));
    EXPECT_EQ(spot->getPosition(), Pnt3f(1, 2, 3));
    EXPECT_EQ(spot->getDirection(), Vec3f(4, 5, 6));
    EXPECT_EQ(spot->getConstantAttenuation(), 7);
    EXPECT_EQ(spot->getLinearAttenuation(), 8);
    EXPECT_EQ(spot->getQuadraticAttenuation(), 9);
    EXPECT_EQ(sun->getDirection(), Vec3f(1, 2, 3));
}

TEST(OSGSceneClasses, BeaconIsNotCounted)
{
    const PointLightRefPtr light(PointLight::create());
    const NodeRefPtr beacon(Node::create());
    light->setBeacon(beacon);
    EXPECT_EQ(beacon.get().getRefCount(), 1);
}

TEST(OSGSceneClasses, DumpsItsFields)
{
    std::vector<std::string> lines;
    const SwitchRefPtr choice(Switch::create());
    const LogSink previous = setLogSink([&](const std::string &line) { lines.push_back(line); });
    choice->dump();
    setLogSink(previous);
    const std::string id = std::to_string(choice.get().getFieldContainerId());
    EXPECT_EQ(lines,
              (std::vector<std::string>{"Switch " + id, "  attachments: ", "  parents: ", "  choice: -1"}));
}

} // namespace
