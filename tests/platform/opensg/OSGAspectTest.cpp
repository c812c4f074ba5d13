// SPDX-License-Identifier: MIT
#include "OSGLamp.h"

#include <OpenSG/OSGChunkMaterial.h>
#include <OpenSG/OSGDirectionalLight.h>
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGSimpleTexturedMaterial.h>
#include <OpenSG/OSGSpotLight.h>
#include <OpenSG/OSGSwitch.h>
#include <OpenSG/OSGThreadManager.h>
#include <OpenSG/OSGTransform.h>

#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace osg;

/// Runs \a work in a thread of its own on aspect 1, as a renderer does.
void inAspect1(const std::function<void()> &work)
{
    std::thread([&] {
        ExternalThread::get("aspect 1")->initialize(1);
        work();
    }).join();
}

/// Makes a copy of a container in a thread of aspect 1, and takes two references on what the copy holds too.
void expectCopyCounted(const FieldContainerPtr &original, const FieldContainerPtr &held)
{
    const Int32 count = held.getRefCount();
    FieldContainerPtr copy;
    inAspect1([&] {
        ChangeList &changes = *Thread::getCurrentChangeList();
        changes.setReadOnly(false);
        copy = original->shallowCopy();
        addRefCP(copy);
        EXPECT_EQ(held.getRefCount(), count + 2); // one for each aspect
        addRefCP(held);
        addRefCP(held);
        EXPECT_EQ(held.getRefCount(), count + 4);
        changes.applyTo(0);
    });
    EXPECT_EQ(held.getRefCount(), count + 6);
    EXPECT_EQ(copy.getRefCount(), 2);

    inAspect1([&] {
        ChangeList &changes = *Thread::getCurrentChangeList();
        changes.setReadOnly(false);
        for (int i = 0; i < 2; ++i) {
            FieldContainerPtr release = held;
            subRefCP(release);
        }
        FieldContainerPtr release = copy;
        subRefCP(release);
        changes.applyTo(0);
    });
    EXPECT_EQ(held.getRefCount(), count);
}

/// "type id field: value" of all fields of all containers from \a firstId on, as the calling thread sees
/// them.
std::vector<std::string> describeContainers(UInt32 firstId)
{
    std::vector<std::string> lines;
    const FieldContainerFactory::FieldContainerStore &store =
        *FieldContainerFactory::the()->getFieldContainerStore();
    for (UInt32 id = firstId; id < store.size(); ++id) {
        if (store[id] == NullFC) {
            continue;
        }
        const FieldContainerType &type = store[id]->getType();
        for (UInt32 fieldId = 1; fieldId <= type.getNumFieldDescs(); ++fieldId) {
            const FieldDescription &description = *type.getFieldDescription(fieldId);
            std::string value;
            const Field &field = *description.getField(store[id]);
            field.getValueByStr(value);
            if (const auto *volume = dynamic_cast<const SFDynamicVolume *>(&field)) {
                value += volume->getValue().isValid() ? " valid" : " invalid";
            }
            lines.push_back(std::string(type.getCName()) + ' ' + std::to_string(id) + ' ' +
                            description.getCName() + ": " + value);
        }
    }
    return lines;
}

/// An edit, and what has to be there before it.
struct EditOfTheScene
{
    const char *name;
    std::function<void(const NodePtr &root)> before;
    std::function<void(const NodePtr &root)> edit;
};

void PrintTo(const EditOfTheScene &edit, std::ostream *stream)
{
    *stream << edit.name;
}

void nothing(const NodePtr &)
{}

NodePtr addChildTo(const NodePtr &parent)
{
    const NodePtr child = Node::create();
    const CPEditor edit(parent, Node::ChildrenFieldMask);
    parent->addChild(child);
    return child;
}

void twoChildren(const NodePtr &root)
{
    addChildTo(root);
    addChildTo(root);
}

void groupCore(const NodePtr &root)
{
    const CPEditor edit(root, Node::CoreFieldMask);
    root->setCore(Group::create());
}

void transformCore(const NodePtr &root)
{
    const CPEditor edit(root, Node::CoreFieldMask);
    root->setCore(Transform::create());
}

void named(const NodePtr &root)
{
    setName(root, "first");
}

template <class LightT>
void light(const NodePtr &root)
{
    const CPEditor edit(root, Node::CoreFieldMask);
    root->setCore(LightT::create());
}

template <class ContainerPtrT>
ContainerPtrT coreOf(const NodePtr &root)
{
    return ContainerPtrT::dcast(root->getCore());
}

/// Keeps a material alive: attached to nothing, it is held by the test itself.
SimpleTexturedMaterialRefPtr material;

void newMaterial(const NodePtr &)
{
    material = SimpleTexturedMaterial::create();
    endEditCP(material);
}

void newTexturedMaterial(const NodePtr &root)
{
    newMaterial(root);
    const ImagePtr image = Image::create();
    image->set(Image::OSG_L_PF, 2, 1);
    const CPEditor edit(material, SimpleTexturedMaterial::ImageFieldMask);
    material->setImage(image);
}

const EditOfTheScene edits[] = {
    {"fieldValue", nothing,
     [](const NodePtr &root) {
         const CPEditor edit(root, Node::ExternalFlagsFieldMask | Node::TravMaskFieldMask);
         root->setExternalFlags(3);
         root->setTravMask(1);
     }},
    {"travMaskOfChild", twoChildren,
     [](const NodePtr &root) {
         root->updateVolume();
         const CPEditor edit(root->getChild(0), Node::TravMaskFieldMask);
         root->getChild(0)->setTravMask(0);
     }},
    {"setCore", nothing, groupCore},
    {"replaceCore", groupCore, transformCore},
    {"removeCore", groupCore,
     [](const NodePtr &root) {
         const CPEditor edit(root, Node::CoreFieldMask);
         root->setCore(NullFC);
     }},
    {"addChildren", nothing, twoChildren},
    {"insertChild", twoChildren,
     [](const NodePtr &root) {
         const CPEditor edit(root, Node::ChildrenFieldMask);
         root->insertChild(1, Node::create());
     }},
    {"moveChild", twoChildren,
     [](const NodePtr &root) {
         const NodePtr parent = root->getChild(0);
         const CPEditor edit(parent, Node::ChildrenFieldMask);
         parent->addChild(root->getChild(1));
     }},
    {"replaceChild", twoChildren,
     [](const NodePtr &root) {
         const CPEditor edit(root, Node::ChildrenFieldMask);
         root->replaceChild(1, Node::create());
     }},
    {"subChild", twoChildren,
     [](const NodePtr &root) {
         const CPEditor edit(root, Node::ChildrenFieldMask);
         root->subChild(0u);
     }},
    {"updateVolume", twoChildren, [](const NodePtr &root) { root->updateVolume(); }},
    {"invalidateVolume",
     [](const NodePtr &root) {
         twoChildren(root);
         root->updateVolume();
     },
     [](const NodePtr &root) { root->getChild(0)->invalidateVolume(); }},
    {"addToValidVolume",
     [](const NodePtr &root) {
         twoChildren(root);
         root->updateVolume();
     },
     [](const NodePtr &root) {
         addChildTo(root->getChild(0));
         root->updateVolume();
     }},
    {"matrix", transformCore,
     [](const NodePtr &root) {
         root->updateVolume();
         const TransformPtr transform = coreOf<TransformPtr>(root);
         const CPEditor edit(transform, Transform::MatrixFieldMask);
         transform->getMatrix().setTranslate(1, 2, 3);
     }},
    {"choice",
     [](const NodePtr &root) {
         const CPEditor edit(root, Node::CoreFieldMask);
         root->setCore(Switch::create());
     },
     [](const NodePtr &root) {
         const CPEditor edit(root->getCore(), Switch::ChoiceFieldMask);
         coreOf<SwitchPtr>(root)->setChoice(Switch::ALL);
     }},
    {"setName", nothing, named},
    {"rename", named, [](const NodePtr &root) { setName(root, "second"); }},
    {"removeName", named,
     [](const NodePtr &root) {
         const CPEditor edit(root, Node::AttachmentsFieldMask);
         setName(root, nullptr);
     }},
    {"shareAttachment",
     [](const NodePtr &root) {
         named(root);
         twoChildren(root);
     },
     [](const NodePtr &root) {
         const CPEditor edit(root->getChild(0), Node::AttachmentsFieldMask);
         root->getChild(0)->addAttachment(root->findAttachment(Name::getClassType()), 2);
     }},
    {"lightValues", light<SpotLight>,
     [](const NodePtr &root) {
         const SpotLightPtr spot = coreOf<SpotLightPtr>(root);
         const CPEditor edit(spot);
         spot->setOn(false);
         spot->setDiffuse(Color4f(1, 2, 3, 4));
         spot->setBeacon(root);
         spot->setPosition(Pnt3f(1, 2, 3));
         spot->setSpotCutOff(0.1f);
     }},
    {"lightDirection", light<DirectionalLight>,
     [](const NodePtr &root) {
         const CPEditor edit(root->getCore(), DirectionalLight::DirectionFieldMask);
         coreOf<DirectionalLightPtr>(root)->setDirection(Vec3f(4, 5, 6));
     }},
    {"materialValues", newMaterial,
     [](const NodePtr &) {
         const CPEditor edit(material);
         material->setDiffuse(Color3f(1, 0, 1));
         material->setColorMaterial(5);
         material->setLit(false);
     }},
    {"setImage", nothing, newTexturedMaterial},
    {"replaceImage", newTexturedMaterial,
     [](const NodePtr &) {
         const CPEditor edit(material, SimpleTexturedMaterial::ImageFieldMask);
         material->setImage(Image::create());
     }},
    {"imagePixels", newTexturedMaterial,
     [](const NodePtr &) {
         const UInt8 pixels[] = {1, 2, 3, 4, 5, 6};
         material->getImage()->set(Image::OSG_RGB_PF, 2, 1, 1, 1, 1, 0.5, pixels);
     }},
    {"ownContainer",
     [](const NodePtr &root) {
         const CPEditor edit(root, Node::CoreFieldMask);
         root->setCore(Lamp::create());
     },
     [](const NodePtr &root) {
         const LampPtr lamp = coreOf<LampPtr>(root);
         const CPEditor edit(lamp, Lamp::PowerFieldMask | Lamp::LabelsFieldMask);
         lamp->setPower(60);
         lamp->getLabels().push_back("new");
     }},
    {"subtreeThatGoes",
     [](const NodePtr &root) {
         twoChildren(root);
         twoChildren(root->getChild(0));
         groupCore(root->getChild(0)->getChild(1));
         named(root->getChild(0));
     },
     [](const NodePtr &root) {
         const CPEditor edit(root, Node::ChildrenFieldMask);
         root->subChild(0u);
     }},
};

class OSGAspectTest : public testing::TestWithParam<EditOfTheScene>
{
protected:
    OSGAspectTest() { endEditCP(root); }

    ~OSGAspectTest() override
    {
        material = NullFC;
        root = NullFC;
        sync();
    }

    static void sync()
    {
        inAspect1([] { ThreadManager::getAppThread()->getChangeList()->applyAndClear(); });
    }

    std::vector<std::string> inOtherAspect() const
    {
        std::vector<std::string> lines;
        inAspect1([&] { lines = describeContainers(firstId); });
        return lines;
    }

    /// Both aspects are equal, and as in \a expected apart from containers that have gone.
    void expectEqualAspects(const std::vector<std::string> &expected) const
    {
        const std::vector<std::string> lines = describeContainers(firstId);
        EXPECT_EQ(inOtherAspect(), lines);
        EXPECT_THAT(expected, testing::IsSupersetOf(lines));
    }

    const UInt32 firstId =
        static_cast<UInt32>(FieldContainerFactory::the()->getFieldContainerStore()->size());
    NodeRefPtr root{Node::create()};
};

TEST_P(OSGAspectTest, OtherAspectIsEqualAfterApplyingTheList)
{
    GetParam().before(root);
    sync();
    const std::vector<std::string> before = describeContainers(firstId);
    EXPECT_EQ(inOtherAspect(), before);

    GetParam().edit(root);
    const std::vector<std::string> after = describeContainers(firstId);
    EXPECT_NE(after, before) << "the edit changes nothing";
    EXPECT_NE(inOtherAspect(), after) << "the edit shows without the list";
    sync();

    expectEqualAspects(after);
}

TEST_P(OSGAspectTest, OtherAspectIsEqualAfterApplyingAllAtOnce)
{
    GetParam().before(root);
    GetParam().edit(root);
    const std::vector<std::string> after = describeContainers(firstId);

    sync();

    expectEqualAspects(after);
}

TEST_P(OSGAspectTest, EveryAspectsReferencesAreCounted)
{
    GetParam().before(root);
    GetParam().edit(root);
    std::vector<Int32> counts;
    const FieldContainerFactory::FieldContainerStore &store =
        *FieldContainerFactory::the()->getFieldContainerStore();
    for (UInt32 id = firstId; id < store.size(); ++id) {
        counts.push_back(2 * store[id].getRefCount());
    }

    sync();

    for (UInt32 id = firstId; id < store.size(); ++id) {
        EXPECT_EQ(store[id].getRefCount(), counts[id - firstId]) << id - firstId;
    }
}

TEST_P(OSGAspectTest, ContainersThatNobodyHoldsAreGoneInTheEnd)
{
    GetParam().before(root);
    sync();
    GetParam().edit(root);
    sync();
    const FieldContainerFactory::FieldContainerStore &store =
        *FieldContainerFactory::the()->getFieldContainerStore();

    material = NullFC;
    root = NullFC;
    sync();

    UInt32 alive = 0;
    for (UInt32 id = firstId; id < store.size(); ++id) {
        alive += store[id] != NullFC;
    }
    EXPECT_EQ(alive, 0u);
}

INSTANTIATE_TEST_SUITE_P(Edits, OSGAspectTest, testing::ValuesIn(edits),
                         [](const auto &info) { return std::string(info.param.name); });

TEST(OSGAspect, CopiesMadeInAspect1CountWhatTheyHold)
{
    const NodeRefPtr node(Node::create());
    node->setCore(Group::create());
    endEditCP(node.get(), Node::CoreFieldMask);
    setName(node.get(), std::string("Box"));
    Thread::getCurrentChangeList()->applyTo(1);

    expectCopyCounted(node.get(), node->getCore());
    expectCopyCounted(node.get(), node->findAttachment(Name::getClassGroupId()));
}

TEST(OSGAspect, ImageParentsKeepTheirMarkAcrossAspects)
{
    material = SimpleTexturedMaterial::create();
    material->setImage(Image::create());
    Thread::getCurrentChangeList()->applyTo(1);
    {
        const AspectScope scope(1);
        const ImagePtr image = material->getImage();
        EXPECT_TRUE(image == NullFC) << "the edit of the material was left out";
    }
    endEditCP(material, SimpleTexturedMaterial::ImageFieldMask);
    Thread::getCurrentChangeList()->applyTo(1);
    {
        const AspectScope scope(1);
        const ImagePtr image = material->getImage();
        ASSERT_TRUE(image != NullFC);
        EXPECT_EQ(image->getParents(0).getParentFieldPos(), SimpleTexturedMaterial::ImageFieldId);
    }
    material = NullFC;
    Thread::getCurrentChangeList()->applyTo(1);
}

} // namespace
