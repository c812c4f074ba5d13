// SPDX-License-Identifier: MIT
#include <ksundo/core/ksUndoStack.h>
#include <ksundo/field/ksFieldUndoCommand.h>
#include <ksundo/field/ksUndoUtil.h>

#include <OSGTransform3D.h>
#include <OSGUberLight.h>
#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGContainerMacros.h>
#include <OpenSG/OSGFieldFactory.h>
#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGLog.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGThreadManager.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <support/ksFieldTexts.h>
#include <thread>
#include <vector>

/// What threads may do to the scene graph at once, under ThreadSanitizer, which ends the program at the first
/// race.

OSG_BEGIN_NAMESPACE

/// A handle that nothing has asked for a field of.
OSG_CONTAINER_POINTER(Unused, FieldContainerPtr)

OSG_END_NAMESPACE

namespace {

using namespace osg;

constexpr UInt32 workers = 4;

/// Runs \a work in so many threads at once, each known to the scene graph and given its number.
template <class Work>
void runAtOnce(Work work)
{
    Barrier &start = *ThreadManager::the()->getBarrier("start");
    std::vector<std::thread> threads;
    for (UInt32 number = 0; number < workers; ++number)
        threads.emplace_back([&start, &work, number] {
            const std::string name = "worker " + std::to_string(number);
            ExternalThread::get(name.c_str())->initialize(0);
            start.enter(workers);
            work(number);
        });
    for (std::thread &thread : threads)
        thread.join();
}

FieldContainerFactory &factory()
{
    return *FieldContainerFactory::the();
}

std::ptrdiff_t countContainers()
{
    const auto &store = *factory().getFieldContainerStore();
    return std::count_if(store.begin(), store.end(),
                         [](const FieldContainerPtr &fc) { return fc != NullFC; });
}

/// The tree below \a node as the calling thread's aspect has it, but for the volumes, which each aspect
/// computes for itself.
std::string describe(const NodePtr &node)
{
    std::string text;
    for (const FieldContainerPtr &container : {FieldContainerPtr(node), FieldContainerPtr(node->getCore())}) {
        text += container->getTypeName();
        for (const auto &[name, value] : ksFieldTextsOf(container, Thread::getAspect()))
            text += name == "volume" ? "" : ' ' + name + '=' + value;
        text += '\n';
    }
    const Char8 *const name = getName(node);
    text += name != nullptr ? name : "nameless";
    for (const NodePtr &child : node->getChildren().getValues())
        text += '\n' + describe(child);
    return text;
}

/// Makes a lamp as a reader of files would, with a draft that is thrown away, and with a reference on
/// \a image for a while.
NodePtr importLamp(const std::string &name, ImagePtr image)
{
    const NodePtr lamp = factory().createNode("Node");
    setName(lamp, name);
    const auto place = Transform3DPtr::dcast(factory().createNodeCore("Transform3D"));
    place->setTranslation(Vec3f(1, 2, static_cast<Real32>(name.size())));
    endEditCP(place, Transform3D::TranslationFieldMask);
    {
        const CPEditor edit(lamp, Node::CoreFieldMask | Node::ChildrenFieldMask);
        lamp->setCore(place);
        lamp->addChild(makeCoredNode<UberLight>());
    }
    addRefCP(image);
    NodePtr draft = deepCloneTree(lamp);
    subRefCP(draft);
    EXPECT_GE(image.getRefCount(), 2);
    EXPECT_TRUE(factory().getContainer(image.getFieldContainerId()) == image);
    subRefCP(image);
    return lamp;
}

/// Puts \a lamps into the scene, takes the oldest ones out of it, and edits by commands.
void editScene(const NodePtr &scene, const std::vector<NodePtr> &lamps, UInt32 frame)
{
    ksUndoStack &stack = *ksUndoStack::get(0);
    {
        const CPEditor edit(scene, Node::ChildrenFieldMask);
        for (const NodePtr &lamp : lamps)
            scene->addChild(lamp);
        while (scene->getNChildren() > 8)
            scene->subChild(UInt32(0));
    }
    for (const NodePtr &lamp : scene->getChildren().getValues()) {
        const NodePtr bulb = lamp->getChild(0);
        stack.add(new ksFieldUndoCommand<float>(QString(), bulb->getCore(), "intensity", float(frame)));
        ksUndoUtil::makeIntTypeCommand(QString(), bulb, "travMask", frame % 3);
        stack.undo();
    }
    for (UInt32 i = 0; i < frame % 4; ++i)
        stack.undo();
}

} // namespace

TEST(ksThreads, EditRenderAndImportAtOnce)
{
    constexpr UInt32 frames = 120;
    const std::ptrdiff_t before = countContainers();
    NodeRefPtr scene(makeCoredNode<Group>());
    ImageRefPtr image(Image::create());
    Thread::getCurrentChangeList()->applyTo(1);

    const std::array<PThreadBase *, 3> writers = {Thread::getCurrent(), ExternalThread::get("importer 1"),
                                                  ExternalThread::get("importer 2")};
    std::array<NodePtr, 2> imported;
    std::vector<NodePtr> lamps;
    const auto takeImported = [&] { lamps.assign(imported.begin(), imported.end()); };

    // Each frame all work at once. Then they wait while one of them, which may touch everything, meets them.
    Barrier &barrier = *ThreadManager::the()->getBarrier("frame");
    const auto live = [&](auto work, auto meet) {
        for (UInt32 frame = 0; frame < frames; ++frame) {
            work(frame);
            barrier.enter(4);
            meet();
            barrier.enter(4);
        }
    };
    const auto wait = [] {};

    std::vector<std::thread> importers;
    for (const UInt32 number : {0u, 1u})
        importers.emplace_back([&, number] {
            static_cast<ExternalThread *>(writers[number + 1])->initialize(0);
            live([&](UInt32 frame) { imported[number] = importLamp(std::string(frame, 'x'), image); }, wait);
        });

    Thread &renderer = *Thread::get("renderer");
    const auto render = [&] {
        std::string drawn = describe(scene);
        const auto draw = [&](UInt32) {
            for (int i = 0; i < 4; ++i) {
                scene->updateVolume();
                EXPECT_EQ(describe(scene), drawn);
            }
        };
        const auto meet = [&] {
            for (PThreadBase *writer : writers)
                writer->getChangeList()->applyTo(Thread::getAspect());
            takeImported();
            drawn = describe(scene);
            const AspectScope edited(0);
            EXPECT_EQ(describe(scene), drawn);
        };
        live(draw, meet);
    };
    renderer.runFunction(render, 1);

    live([&](UInt32 frame) { editScene(scene, lamps, frame); }, wait);
    for (std::thread &importer : importers)
        importer.join();
    BaseThread::join(&renderer);

    EXPECT_EQ(scene->getNChildren(), 8u);
    editScene(scene, lamps, frames);
    ksUndoStack::clearAll();
    scene = NullFC;
    image = NullFC;
    Thread::getCurrentChangeList()->applyTo(1);
    EXPECT_EQ(countContainers(), before);
}

TEST(ksThreads, CountReferencesExactly)
{
    constexpr Int32 rounds = 1000;
    const ImageRefPtr image(Image::create());
    std::array<std::pair<UInt32, UInt32>, workers> recorded;
    runAtOnce([&](UInt32 number) {
        for (Int32 i = 0; i < rounds; ++i) {
            ImagePtr held = image;
            addRefCP(held);
            EXPECT_GE(held.getRefCount(), 2);
            if (i % 2 == 0)
                subRefCP(held);
        }
        const ChangeList &changes = *Thread::getCurrentChangeList();
        recorded[number] = {changes.sizeAddRefd(), changes.sizeSubRefd()};
    });
    EXPECT_EQ(image.get().getRefCount(), 1 + Int32(workers) * rounds / 2);
    for (const auto &[added, released] : recorded) {
        EXPECT_EQ(added, UInt32(rounds));
        EXPECT_EQ(released, UInt32(rounds) / 2);
    }
    for (Int32 i = 0; i < Int32(workers) * rounds / 2; ++i) {
        ImagePtr held = image;
        subRefCP(held);
    }
}

TEST(ksThreads, TheLastOneDestroys)
{
    std::array<ImagePtr, 200> images;
    for (ImagePtr &image : images) {
        image = Image::create();
        for (UInt32 i = 0; i < workers; ++i)
            addRefCP(image);
    }
    const std::ptrdiff_t before = countContainers();
    std::array<std::pair<UInt32, UInt32>, workers> recorded;
    runAtOnce([&](UInt32 number) {
        for (ImagePtr image : images)
            subRefCP(image);
        const ChangeList &changes = *Thread::getCurrentChangeList();
        recorded[number] = {changes.sizeSubRefd(), changes.sizeDestroyed()};
    });
    EXPECT_EQ(countContainers(), before - std::ptrdiff_t(images.size()));
    UInt32 destroyed = 0;
    for (const auto &[released, last] : recorded) {
        EXPECT_EQ(released + last, images.size());
        destroyed += last;
    }
    EXPECT_EQ(destroyed, images.size());
}

TEST(ksThreads, GiveEveryContainerAnIdOfItsOwn)
{
    std::array<std::vector<FieldContainerPtr>, workers> made;
    runAtOnce([&](UInt32 number) {
        for (int i = 0; i < 100; ++i) {
            made[number].push_back(factory().createFieldContainer(i % 2 == 0 ? "Node" : "UberLight"));
            const FieldContainerPtr &last = made[number].back();
            EXPECT_TRUE(factory().getContainer(last.getFieldContainerId()) == last);
        }
    });
    std::set<UInt32> ids;
    for (std::vector<FieldContainerPtr> &containers : made)
        for (FieldContainerPtr &container : containers) {
            ids.insert(container.getFieldContainerId());
            subRefCP(container);
        }
    EXPECT_EQ(ids.size(), workers * 100);
}

/// Two threads use a field for the first time, while two look types of fields up.
TEST(ksThreads, MakeATypeOfFieldOnce)
{
    const UInt32 before = FieldFactory::getNFieldTypes();
    const FieldType &known = SFReal32::getClassType();
    std::array<const FieldType *, 2> types;
    runAtOnce([&](UInt32 number) {
        if (number < 2) {
            types[number] = &SFUnusedPtr::getClassType();
            EXPECT_EQ(FieldFactory::getFieldType("SFUnusedPtr"), types[number]);
        }
        for (int i = 0; i < 100; ++i) {
            if (number == 2) {
                EXPECT_EQ(FieldFactory::getFieldType("SFReal32"), &known);
            } else if (number == 3) {
                EXPECT_EQ(FieldFactory::getFieldType(known.getId()), &known);
            }
        }
    });
    EXPECT_EQ(types[0], types[1]);
    EXPECT_EQ(FieldFactory::getNFieldTypes(), before + 1);
}

/// Two threads load libraries, as it were, and unload them, while two look something up, near to where these
/// come and go.
TEST(ksThreads, BringTypesOfContainers)
{
    const PrototypeCreateF makePrototype = [] { return FieldContainerPtr(Group::createEmpty()); };
    const FieldContainerType &node = Node::getClassType();
    const UInt32 types = factory().getNumTypes();
    UInt32 groups = factory().getNumGroups();
    const std::ptrdiff_t containers = countContainers();

    const auto bring = [&](const std::string &name) {
        FieldContainerType type(name.c_str(), "Group", "", makePrototype, nullptr, nullptr, 0);
        EXPECT_TRUE(factory().initializePendingTypes());
        EXPECT_EQ(factory().findType(name.c_str()), &type);
        EXPECT_EQ(factory().findGroupName(type.getGroupId()), name);
        NodeCorePtr core = factory().createNodeCore(name.c_str());
        EXPECT_TRUE(core != NullFC && type.isDerivedFrom(Group::getClassType()));
        subRefCP(core);
    };
    const std::vector<std::function<void()>> lookUps = {
        [] { EXPECT_EQ(factory().findType("Late"), nullptr); },
        [] { EXPECT_EQ(factory().findType(TypeTraits<UInt32>::Max), nullptr); },
        [] { EXPECT_EQ(factory().findGroupId("Late"), 0); },
        [&] { EXPECT_STREQ(factory().findGroupName(node.getGroupId()), "Node"); },
        [&] { EXPECT_GE(factory().getNumTypes(), types); },
        [&] { EXPECT_GE(factory().getNumGroups(), groups); },
    };
    for (std::size_t i = 0; i < lookUps.size(); ++i) {
        runAtOnce([&](UInt32 number) {
            for (int round = 0; round < 20; ++round)
                if (number < 2)
                    bring("Late " + std::to_string(i) + '.' + std::to_string(number * 20 + round));
                else
                    for (int again = 0; again < 10; ++again)
                        lookUps[i]();
        });
        groups += 40;
    }
    EXPECT_EQ(factory().getNumTypes(), types);
    EXPECT_EQ(factory().getNumGroups(), groups);
    EXPECT_EQ(countContainers(), containers);
}

TEST(ksThreads, FindTheSameByOneName)
{
    ThreadManager &manager = *ThreadManager::the();
    std::array<std::array<void *, 3>, workers> found;
    runAtOnce([&](UInt32 number) {
        found[number] = {manager.getThread("same"), manager.getLock("same"), manager.getLockPool("same")};
        EXPECT_EQ(Thread::find("same"), found[number][0]);
    });
    EXPECT_EQ(std::set<decltype(found)::value_type>(found.begin(), found.end()).size(), 1u);
}

TEST(ksThreads, LogWhileTheReceiverChanges)
{
    std::atomic<int> lines{0};
    const auto count = [&lines](const std::string &) { ++lines; };
    const LogSink previous = setLogSink(count);
    runAtOnce([&](UInt32 number) {
        for (int i = 0; i < 100; ++i) {
            if (number == 0)
                setLogSink(count);
            logWarning("line");
        }
    });
    setLogSink(previous);
    EXPECT_EQ(lines, int(workers) * 100);
}

/// Starts the scene graph. There is no application object, so that all threads are those of the tests.
int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    ChangeList::setReadWriteDefault();
    osgInit(argc, argv);
    return RUN_ALL_TESTS();
}
