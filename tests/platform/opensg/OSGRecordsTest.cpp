// SPDX-License-Identifier: MIT
#include "support/ksRecords.h"

#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGSimpleTexturedMaterial.h>
#include <OpenSG/OSGTransform.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace {

using namespace osg;

constexpr BitVector Core = Node::CoreFieldMask;
constexpr BitVector Children = Node::ChildrenFieldMask;
constexpr BitVector Parent = Node::ParentFieldMask;
constexpr BitVector Volume = Node::VolumeFieldMask;
constexpr BitVector CoreParents = NodeCore::ParentsFieldMask;
constexpr BitVector AttachmentParents = Attachment::ParentsFieldMask;
constexpr BitVector Attachments = AttachmentContainer::AttachmentsFieldMask;

/// What Image::set() edits, first this and then that.
constexpr BitVector ImageLayout = 0x8f70;
constexpr BitVector ImagePixels = 0x13088;
static_assert(ImageLayout ==
              (Image::WidthFieldMask | Image::HeightFieldMask | Image::DepthFieldMask |
               Image::MipMapCountFieldMask | Image::FrameCountFieldMask | Image::FrameDelayFieldMask |
               Image::PixelFormatFieldMask | Image::DataTypeFieldMask));
static_assert(ImagePixels == (Image::DimensionFieldMask | Image::BppFieldMask | Image::PixelFieldMask |
                              Image::FrameSizeFieldMask | Image::ComponentSizeFieldMask));

/// The nodes, cores and attachments that the rows work on. Made in the order of the members, so node has id
/// 1, a 2, b 3 and so on; each holds one reference here, which is not part of what the rows see.
struct Scene
{
    NodeRefPtr node{Node::create()};
    NodeRefPtr a{Node::create()};
    NodeRefPtr b{Node::create()};
    NodeRefPtr other{Node::create()};
    GroupRefPtr group{Group::create()};
    GroupRefPtr group2{Group::create()};
    NameRefPtr name{Name::create()};
    NameRefPtr name2{Name::create()};
    ImageRefPtr image{Image::create()};
    ImageRefPtr image2{Image::create()};
    SimpleTexturedMaterialRefPtr material{SimpleTexturedMaterial::create()};
};

enum SceneId
{
    NodeId = 1,
    AId,
    BId,
    OtherId,
    GroupId,
    Group2Id,
    NameId,
    Name2Id,
    ImageId,
    Image2Id,
    MaterialId,
    NextId
};

/// What one call, or a few that belong together, puts into the change list.
struct Row
{
    const char *name;
    std::function<void(Scene &)> before;
    std::function<void(Scene &)> call;
    ksRecords expected;
};

void PrintTo(const Row &row, std::ostream *stream)
{
    *stream << row.name;
}

void nothing(Scene &)
{}

void withChildren(Scene &scene)
{
    scene.node->addChild(scene.a);
    scene.node->addChild(scene.b);
}

void withValidVolumes(Scene &scene)
{
    withChildren(scene);
    scene.other->addChild(scene.node);
    scene.other->updateVolume();
}

const Row rows[] = {
    {"create", nothing, [](Scene &) { Node::create(); }, ksRecords().create(NextId).change(NextId, Volume)},
    {"createEmpty", nothing, [](Scene &) { Node::createEmpty(); }, ksRecords().create(NextId)},
    {"shallowCopy", withChildren, [](Scene &s) { s.node->shallowCopy(); }, ksRecords().create(NextId)},
    {"shallowCopyOfAFullNode",
     [](Scene &s) {
         s.node->setCore(s.group.get());
         s.node->addAttachment(s.name.get());
         s.node->addAttachment(s.name2.get(), 1);
         s.node->updateVolume();
     },
     [](Scene &s) { s.node->shallowCopy(); },
     ksRecords()
         .create(NextId)
         .addRef(NameId)
         .change(NameId, AttachmentParents)
         .addRef(Name2Id)
         .change(Name2Id, AttachmentParents)
         .addRef(GroupId)
         .change(GroupId, CoreParents)
         .change(NextId, Volume)},
    {"shallowCopyOfACore", [](Scene &s) { s.group->addAttachment(s.name.get()); },
     [](Scene &s) { s.group->shallowCopy(); },
     ksRecords().create(NextId).addRef(NameId).change(NameId, AttachmentParents)},
    {"cloneTree",
     [](Scene &s) {
         s.node->addChild(s.a);
         s.a->setCore(s.group.get());
     },
     [](Scene &s) { cloneTree(s.node); },
     ksRecords()
         .create(NextId)
         .create(NextId + 1)
         .addRef(GroupId)
         .change(GroupId, CoreParents)
         .addRef(NextId + 1)
         .change(NextId + 1, Parent)
         .change(NextId, Children)},
    {"makeCoredNode", nothing, [](Scene &) { makeCoredNode<Group>(); },
     ksRecords()
         .create(NextId)
         .create(NextId + 1)
         .change(NextId + 1, Volume)
         .addRef(NextId)
         .change(NextId, CoreParents)
         .change(NextId + 1, Core)},
    {"createByName", nothing, [](Scene &) { FieldContainerFactory::the()->createFieldContainer("Group"); },
     ksRecords().create(NextId)},
    {"createTwice", nothing,
     [](Scene &) {
         Node::create();
         Group::create();
     },
     ksRecords().create(NextId).change(NextId, Volume).create(NextId + 1)},

    {"beginEdit", nothing, [](Scene &s) { beginEditCP(s.node, Core); }, ksRecords()},
    {"endEdit", nothing, [](Scene &s) { endEditCP(s.a, Node::ExternalFlagsFieldMask); },
     ksRecords().change(AId, Node::ExternalFlagsFieldMask)},
    {"endEditOfAllFields", nothing, [](Scene &s) { endEditCP(s.group); },
     ksRecords().change(GroupId, ~BitVector(0))},
    {"endEditTwice", nothing,
     [](Scene &s) {
         endEditCP(s.a, 2);
         endEditCP(s.a, 2);
     },
     ksRecords().change(AId, 2).change(AId, 2)},
    {"endEditNotChanged", withValidVolumes, [](Scene &s) { endEditNotChangedCP(s.node, Children); },
     ksRecords().change(NodeId, Children)},
    {"changedOnly", withValidVolumes, [](Scene &s) { changedCP(s.node, Children); },
     ksRecords().change(NodeId, Volume).change(OtherId, Volume)},
    {"editor", nothing, [](Scene &s) { CPEdit(s.group, CoreParents); },
     ksRecords().change(GroupId, CoreParents)},
    {"editorOfAllFields", nothing, [](Scene &s) { CPEditAll(s.group); },
     ksRecords().change(GroupId, ~BitVector(0))},
    {"endEditOfNull", nothing, [](Scene &) { endEditCP(NullFC); }, ksRecords()},

    {"addRef", nothing, [](Scene &s) { addRefCP(s.a.get()); }, ksRecords().addRef(AId)},
    {"subRef", [](Scene &s) { addRefCP(s.a.get()); }, [](Scene &s) { subRefCP(s.a.get()); },
     ksRecords().subRef(AId)},
    {"subRefOfTheLast", nothing,
     [](Scene &) {
         const NodePtr fresh = Node::create();
         addRefCP(fresh);
         NodePtr last = fresh;
         subRefCP(last);
     },
     ksRecords().create(NextId).change(NextId, Volume).addRef(NextId).destroy(NextId)},
    {"subRefWithoutAny", nothing,
     [](Scene &) {
         NodePtr fresh = Node::create();
         subRefCP(fresh);
     },
     ksRecords().create(NextId).change(NextId, Volume).destroy(NextId)},
    {"setRefd", nothing,
     [](Scene &s) {
         NodePtr held;
         setRefdCP(held, s.a.get());
         setRefdCP(held, s.a.get());
         setRefdCP(held, s.b.get());
         clearRefCP(held);
     },
     ksRecords().addRef(AId).subRef(AId).addRef(BId).subRef(BId)},

    {"setCore", nothing, [](Scene &s) { s.node->setCore(s.group.get()); },
     ksRecords().addRef(GroupId).change(GroupId, CoreParents)},
    {"setCoreAgain", [](Scene &s) { s.node->setCore(s.group.get()); },
     [](Scene &s) { s.node->setCore(s.group2.get()); },
     ksRecords().addRef(Group2Id).change(GroupId, CoreParents).subRef(GroupId).change(Group2Id, CoreParents)},
    {"setNoCore", [](Scene &s) { s.node->setCore(s.group.get()); }, [](Scene &s) { s.node->setCore(NullFC); },
     ksRecords().change(GroupId, CoreParents).subRef(GroupId)},
    {"setCoreOfValidVolume", withValidVolumes, [](Scene &s) { s.node->setCore(s.group.get()); },
     ksRecords().addRef(GroupId).change(GroupId, CoreParents).change(NodeId, Volume).change(OtherId, Volume)},
    {"setCoreWithinEdit", nothing,
     [](Scene &s) {
         const CPEditor edit(s.node, Core);
         s.node->setCore(s.group.get());
     },
     ksRecords().addRef(GroupId).change(GroupId, CoreParents).change(NodeId, Core)},

    {"addChild", nothing, [](Scene &s) { s.node->addChild(s.a); },
     ksRecords().addRef(AId).change(AId, Parent)},
    {"addChildOfAnother", [](Scene &s) { s.other->addChild(s.a); }, [](Scene &s) { s.node->addChild(s.a); },
     ksRecords().addRef(AId).change(AId, Parent).subRef(AId).change(OtherId, Children).change(AId, Parent)},
    {"addNoChild", nothing, [](Scene &s) { s.node->addChild(NullFC); }, ksRecords()},
    {"addChildToValidVolume",
     [](Scene &s) {
         s.other->addChild(s.node);
         s.other->updateVolume();
     },
     [](Scene &s) { s.node->addChild(s.a); },
     ksRecords().addRef(AId).change(AId, Parent).change(NodeId, Volume).change(OtherId, Volume)},
    {"insertChild", withChildren, [](Scene &s) { s.node->insertChild(1, s.other); },
     ksRecords().addRef(OtherId).change(OtherId, Parent)},
    {"replaceChild", withChildren, [](Scene &s) { s.node->replaceChild(0, s.other); },
     ksRecords().addRef(OtherId).change(AId, Parent).subRef(AId).change(OtherId, Parent)},
    {"replaceChildByItself", withChildren, [](Scene &s) { s.node->replaceChildBy(s.a, s.a); }, ksRecords()},
    {"subChild", withChildren, [](Scene &s) { s.node->subChild(s.a); },
     ksRecords().change(AId, Parent).subRef(AId)},
    {"subChildByIndex", withChildren, [](Scene &s) { s.node->subChild(1); },
     ksRecords().change(BId, Parent).subRef(BId)},
    {"subNoChild", withChildren, [](Scene &s) { s.node->subChild(s.other); }, ksRecords()},
    {"subChildOfValidVolume", withValidVolumes, [](Scene &s) { s.node->subChild(s.a); },
     ksRecords().change(AId, Parent).subRef(AId).change(NodeId, Volume).change(OtherId, Volume)},
    {"subNoChildOfValidVolume", withValidVolumes, [](Scene &s) { s.node->subChild(s.other); },
     ksRecords().change(NodeId, Volume).change(OtherId, Volume)},
    {"insertNoChild", withValidVolumes, [](Scene &s) { s.node->insertChild(0, NullFC); },
     ksRecords().change(NodeId, Volume).change(OtherId, Volume)},
    {"moveChildWithinEdit", withValidVolumes,
     [](Scene &s) {
         const CPEditor edit(s.other, Children);
         s.other->addChild(s.a);
     },
     ksRecords()
         .addRef(AId)
         .change(AId, Parent)
         .subRef(AId)
         .change(NodeId, Volume)
         .change(OtherId, Volume)
         .change(NodeId, Children)
         .change(AId, Parent)
         .change(OtherId, Children)},
    {"replaceChildOfValidVolume", withValidVolumes,
     [](Scene &s) { s.node->replaceChildBy(s.a, Node::createEmpty()); },
     ksRecords()
         .create(NextId)
         .addRef(NextId)
         .change(AId, Parent)
         .subRef(AId)
         .change(NextId, Parent)
         .change(NodeId, Volume)
         .change(OtherId, Volume)},
    {"subChildWithinEdit", withValidVolumes,
     [](Scene &s) {
         const CPEditor edit(s.node, Children);
         s.node->subChild(s.a);
     },
     ksRecords()
         .change(AId, Parent)
         .subRef(AId)
         .change(NodeId, Volume)
         .change(OtherId, Volume)
         .change(NodeId, Children)},

    {"updateVolume", withChildren, [](Scene &s) { s.node->updateVolume(); },
     ksRecords().change(AId, Volume).change(BId, Volume).change(NodeId, Volume)},
    {"updateValidVolume", withValidVolumes, [](Scene &s) { s.other->updateVolume(); }, ksRecords()},
    {"invalidateVolume", withValidVolumes, [](Scene &s) { s.a->invalidateVolume(); },
     ksRecords().change(AId, Volume).change(NodeId, Volume).change(OtherId, Volume)},
    {"invalidateNewVolume", withChildren, [](Scene &s) { s.a->invalidateVolume(); }, ksRecords()},
    {"invalidateStaticVolume",
     [](Scene &s) {
         withValidVolumes(s);
         s.node->getVolume().setStatic();
     },
     [](Scene &s) { s.a->invalidateVolume(); }, ksRecords().change(AId, Volume)},
    {"travMaskWithoutParent", nothing, [](Scene &s) { endEditCP(s.node, Node::TravMaskFieldMask); },
     ksRecords().change(NodeId, Node::TravMaskFieldMask)},
    {"travMaskOfValidRoot", withValidVolumes, [](Scene &s) { endEditCP(s.other, Node::TravMaskFieldMask); },
     ksRecords().change(OtherId, Node::TravMaskFieldMask).change(OtherId, Volume)},
    {"travMaskBelowStaticVolume",
     [](Scene &s) {
         withValidVolumes(s);
         s.node->getVolume().setStatic();
     },
     [](Scene &s) { endEditCP(s.a, Node::TravMaskFieldMask); },
     ksRecords().change(AId, Node::TravMaskFieldMask).change(NodeId, Volume)},
    {"travMask", withChildren, [](Scene &s) { endEditCP(s.a, Node::TravMaskFieldMask); },
     ksRecords().change(AId, Node::TravMaskFieldMask).change(NodeId, Volume)},
    {"travMaskBelowValidVolume", withValidVolumes, [](Scene &s) { endEditCP(s.a, Node::TravMaskFieldMask); },
     ksRecords()
         .change(AId, Node::TravMaskFieldMask)
         .change(NodeId, Volume)
         .change(OtherId, Volume)
         .change(NodeId, Volume)},
    {"transformMatrix",
     [](Scene &s) {
         s.node->setCore(Transform::create());
         s.node->updateVolume();
     },
     [](Scene &s) { endEditCP(s.node->getCore(), Transform::MatrixFieldMask); },
     ksRecords().change(NextId, Transform::MatrixFieldMask).change(NodeId, Volume)},

    {"addAttachment", nothing, [](Scene &s) { s.node->addAttachment(s.name.get()); },
     ksRecords().addRef(NameId).change(NameId, AttachmentParents)},
    {"addAttachmentInPlaceOfAnother", [](Scene &s) { s.node->addAttachment(s.name.get()); },
     [](Scene &s) { s.node->addAttachment(s.name2.get()); },
     ksRecords()
         .addRef(Name2Id)
         .change(Name2Id, AttachmentParents)
         .change(NameId, AttachmentParents)
         .subRef(NameId)},
    {"addAttachmentWithOtherBinding", [](Scene &s) { s.node->addAttachment(s.name.get()); },
     [](Scene &s) { s.node->addAttachment(s.name2.get(), 1); },
     ksRecords().addRef(Name2Id).change(Name2Id, AttachmentParents)},
    {"subAttachment", [](Scene &s) { s.node->addAttachment(s.name.get()); },
     [](Scene &s) { s.node->subAttachment(s.name.get()); },
     ksRecords().change(NameId, AttachmentParents).subRef(NameId)},
    {"subAttachmentOfTheSameGroup", [](Scene &s) { s.node->addAttachment(s.name.get()); },
     [](Scene &s) { s.node->subAttachment(s.name2.get()); },
     ksRecords().change(NameId, AttachmentParents).subRef(NameId)},
    {"subNoAttachment", [](Scene &s) { s.node->addAttachment(s.name.get()); },
     [](Scene &s) { s.node->subAttachment(s.name2.get(), 1); }, ksRecords()},

    {"setName", nothing, [](Scene &s) { setName(s.node, std::string("n")); },
     ksRecords()
         .create(NextId)
         .addRef(NextId)
         .change(NextId, AttachmentParents)
         .change(NodeId, Attachments)
         .change(NextId, FieldBits::AllFields)},
    {"setNameAgain", [](Scene &s) { setName(s.node, "n"); }, [](Scene &s) { setName(s.node, "m"); },
     ksRecords().change(NextId, FieldBits::AllFields)},
    {"setNoName", [](Scene &s) { s.node->addAttachment(s.name.get()); },
     [](Scene &s) { setName(s.node, nullptr); },
     ksRecords().change(NameId, AttachmentParents).subRef(NameId)},

    {"imageSet", nothing, [](Scene &s) { s.image->set(Image::OSG_RGB_PF, 2, 2); },
     ksRecords().change(ImageId, ImageLayout).change(ImageId, ImagePixels)},
    {"imageSetToNonsense", nothing,
     [](Scene &s) { s.image->set(Image::OSG_INVALID_PF, -1, 0, 0, 0, 0, 0, nullptr, 77, false, 0); },
     ksRecords().change(ImageId, ImageLayout).change(ImageId, ImagePixels)},
    {"imageSetToMoreThanItCanHold", nothing, [](Scene &s) { s.image->set(Image::OSG_RGB_PF, 40000, 40000); },
     ksRecords()},
    {"imageSetData", nothing, [](Scene &s) { s.image->setData(nullptr); },
     ksRecords().change(ImageId, ImagePixels)},
    {"imageEdit", nothing, [](Scene &s) { endEditCP(s.image, Image::WidthFieldMask); },
     ksRecords().change(ImageId, Image::WidthFieldMask)},
    {"setImage", nothing, [](Scene &s) { s.material->setImage(s.image.get()); },
     ksRecords().addRef(ImageId).change(ImageId, Image::ParentsFieldMask)},
    {"setImageAgain", [](Scene &s) { s.material->setImage(s.image.get()); },
     [](Scene &s) { s.material->setImage(s.image2.get()); },
     ksRecords()
         .addRef(Image2Id)
         .change(Image2Id, Image::ParentsFieldMask)
         .change(ImageId, Image::ParentsFieldMask)
         .subRef(ImageId)},
};

class OSGRecordsTest : public testing::TestWithParam<Row>
{};

TEST_P(OSGRecordsTest, ChangeListHolds)
{
    ksRecorder recorder;
    Scene scene;
    GetParam().before(scene);
    recorder.take();

    GetParam().call(scene);

    EXPECT_EQ(recorder.take(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Calls, OSGRecordsTest, testing::ValuesIn(rows),
                         [](const auto &info) { return std::string(info.param.name); });

TEST(OSGRecords, AnEndOfAnEditRecordsBeforeTheHandlerDoes)
{
    ksRecorder recorder;
    Scene scene;
    withValidVolumes(scene);
    recorder.take();

    endEditCP(scene.node, Core);

    EXPECT_EQ(recorder.take(),
              ksRecords().change(NodeId, Core).change(NodeId, Volume).change(OtherId, Volume));
}

TEST(OSGRecords, IgnoredChangesAreRecordedButCallNoHandler)
{
    ksRecorder recorder;
    Scene scene;
    withValidVolumes(scene);
    recorder.take();

    FieldContainerPtr::_ignore_change = true;
    endEditCP(scene.node, Core);
    FieldContainerPtr::_ignore_change = false;

    EXPECT_EQ(recorder.take(), ksRecords().change(NodeId, Core));
    EXPECT_TRUE(scene.node->getVolume().isValid());
}

} // namespace
