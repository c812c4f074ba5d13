// SPDX-License-Identifier: MIT
#include "ksSuiteKinds.h"

#include <ksundo/core/ksUndoStack.h>
#include <ksundo/field/ksUndoUtil.h>
#include <ksundo/ksundo.h>

#include <ksCommandList.h>

#include <QCoreApplication>
#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <tuple>

namespace {

using Scene = ksSuiteScene;
using Events = std::vector<std::string>;
using Entries = std::map<std::string, boost::any>;

/// Commands of one kind, in a scene of their own.
class ksCommandsOfAKind : public testing::TestWithParam<ksSuiteKind>
{
protected:
    ksCommandsOfAKind()
    {
        if (kind().setSync)
            kind().setSync(&scene);
    }

    ~ksCommandsOfAKind() override
    {
        if (kind().setSync)
            kind().setSync(nullptr);
    }

    static const ksSuiteKind &kind() { return GetParam(); }
    std::unique_ptr<QUndoCommand> make(bool hasTarget = true)
    {
        return std::unique_ptr<QUndoCommand>(kind().make(scene, hasTarget));
    }

    Events takeEvents() { return std::exchange(scene.events, {}); }

    /// The scene but for references and what the kind derives from other things.
    Scene::State state() const
    {
        Scene::State state;
        for (const auto &[key, value] : Scene::without(scene.state(), kind().derivedField))
            if (key.find('.') != std::string::npos)
                state[key] = value;
        return state;
    }

    Scene scene;
};

template <class T>
T valueOf(const Entries &entries, const std::string &key)
{
    const T *value = entries.count(key) == 0 ? nullptr : boost::any_cast<T>(&entries.at(key));
    EXPECT_NE(value, nullptr) << key;
    return value == nullptr ? T() : *value;
}

osg::UInt32 changeCount()
{
    return osg::Thread::getCurrentChangeList()->sizeChanged();
}

std::vector<std::pair<std::string, Entries>> messages;

bool takeMessage(const char *name, ksMessage &message, int)
{
    messages.emplace_back(name, ksSuiteHost::entriesOf(message));
    return true;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(, ksCommandsOfAKind, testing::ValuesIn(ksSuiteKinds()));

TEST(ksSuiteKinds, HoldEveryCommandClass)
{
#define KS_NAME(Class) #Class,
    const std::set<std::string> listed{KS_COMMAND_LIST(KS_NAME)};
#undef KS_NAME
    std::set<std::string> tried;
    for (const ksSuiteKind &kind : ksSuiteKinds())
        tried.insert(kind.name);
    EXPECT_EQ(tried, listed);
}

TEST_P(ksCommandsOfAKind, AreUndoneAndRedone)
{
    const Scene::State before = state();
    const auto command = make();
    EXPECT_EQ(state(), before);
    EXPECT_EQ(takeEvents(), Events());

    const osg::UInt32 changes = changeCount();
    command->redo();
    const Scene::State after = state();
    EXPECT_EQ(after == before, kind().changesNothing);
    EXPECT_EQ(takeEvents(), kind().events);
    EXPECT_EQ(changeCount() == changes, kind().changesNothing) << "edits are recorded";

    command->undo();
    EXPECT_EQ(state(), kind().undoIsEmpty ? after : before);
    EXPECT_EQ(takeEvents(), kind().undoIsEmpty ? Events() : kind().events);

    if (kind().undoIsEmpty)
        return;
    command->redo();
    EXPECT_EQ(state(), after);
    EXPECT_EQ(takeEvents(), kind().events);
}

TEST_P(ksCommandsOfAKind, DoNothingWithoutATarget)
{
    if (kind().needsTarget)
        return;
    const Scene::State before = scene.state();
    {
        const auto command = make(false);
        for (int i = 0; i < 2; ++i) {
            command->redo();
            command->undo();
        }
    }
    EXPECT_EQ(scene.state(), before);
}

TEST_P(ksCommandsOfAKind, DoNothingOnceTheTargetHasGone)
{
    if (kind().changesNothing || kind().undoIsEmpty)
        return;
    const auto command = make();
    kind().dropTarget(scene);
    const bool isKeptAlive = kind().name == "ksAddTagUndoCommand" || kind().name == "ksSubTagUndoCommand";
    const Scene::State before = scene.state();
    for (int i = 0; i < 2; ++i) {
        command->redo();
        EXPECT_EQ(scene.state() == before, !isKeptAlive);
        EXPECT_EQ(takeEvents(), kind().idleEvents);
        command->undo();
        EXPECT_EQ(scene.state(), before);
        EXPECT_EQ(takeEvents(), kind().idleEvents);
    }
}

TEST_P(ksCommandsOfAKind, HoldWhatTheyNeedAndNothingElse)
{
    const Scene::State before = scene.state();
    std::vector<osg::FieldContainerPtr> held;
    if (kind().held)
        held = kind().held(scene);
    std::vector<osg::Int32> counts;
    for (const osg::FieldContainerPtr &container : held)
        counts.push_back(container.getRefCount());

    auto command = make();
    for (std::size_t i = 0; i < held.size(); ++i)
        EXPECT_EQ(held[i].getRefCount(), counts[i] + 1);
    EXPECT_EQ(scene.state() == before, held.empty());
    if (kind().undoIsEmpty)
        return;
    command->redo();
    command->undo();
    command.reset();
    EXPECT_EQ(Scene::without(scene.state(), kind().derivedField),
              Scene::without(before, kind().derivedField));
}

TEST_P(ksCommandsOfAKind, LeaveNothingBehindWhenTheyAreDestroyedDone)
{
    auto own = std::make_unique<Scene>();
    const auto make = [&] { return std::unique_ptr<QUndoCommand>(kind().make(*own, true)); };
    make()->redo();
    {
        const auto command = make();
        command->redo();
        command->undo();
        command->redo();
    }
    const auto isAlive = [](osg::UInt32 id) {
        return osg::FieldContainerFactory::the()->getContainer(id) != osg::NullFC;
    };
    std::vector<osg::UInt32> ids = own->livingIds();
    own.reset();
    EXPECT_EQ(std::count_if(ids.begin(), ids.end(), isAlive), 0);
}

TEST_P(ksCommandsOfAKind, MergeWhenTheyFollowEachOther)
{
    const Scene::State before = state();
    ksUndoStack stack;
    for (int i = 0; i < 2; ++i) {
        auto command = make();
        for (int child = -1; child < command->childCount(); ++child) {
            const QUndoCommand *part = child < 0 ? command.get() : command->child(child);
            if (auto *edit = dynamic_cast<ksUndoCommand *>(const_cast<QUndoCommand *>(part)))
                edit->setMergeResponseDelta(-1.0);
        }
        stack.add(command.release());
    }
    EXPECT_EQ(stack.count(), kind().merges ? 1 : 2);
    if (kind().undoIsEmpty)
        return;
    stack.undo();
    stack.undo();
    EXPECT_EQ(state(), before);
}

TEST_P(ksCommandsOfAKind, TellWhatTheyConcern)
{
    messages.clear();
    ksUndoStack stack;
    stack.setMessageCallback(&takeMessage);
    ksSuiteKind::Keys containers;
    if (kind().tells)
        containers = kind().tells(scene);
    stack.add(make().release());
    stack.undo();

    ASSERT_EQ(messages.size(), 2u);
    EXPECT_EQ(messages[0].first, "ksURManager::redo");
    EXPECT_EQ(messages[1].first, "ksURManager::undo");
    for (const auto &[name, entries] : messages) {
        std::set<std::string> keys{"index", "added", "text", "id"};
        EXPECT_EQ(valueOf<int>(entries, "index"), 0);
        EXPECT_EQ(valueOf<bool>(entries, "added"), name == "ksURManager::redo");
        EXPECT_EQ(valueOf<std::string>(entries, "text"), stack.redoText().toStdString());
        EXPECT_EQ(valueOf<int>(entries, "id"), kind().id());
        for (const auto &[key, id] : containers) {
            EXPECT_EQ(valueOf<unsigned int>(entries, key), id);
            keys.insert(key);
        }
        keys.insert(kind().flags.begin(), kind().flags.end());
        std::set<std::string> told;
        for (const auto &entry : entries)
            told.insert(entry.first);
        EXPECT_EQ(told, keys);
    }
}

namespace {

/// What not every class does.
class ksSuite : public testing::Test
{
protected:
    /// Expects that \a command changes the scene, and leaves it as it was when it is undone and destroyed.
    void expectUndone(std::unique_ptr<QUndoCommand> command, const Scene::State &before)
    {
        command->redo();
        const Scene::State after = scene.state();
        EXPECT_NE(after, before);
        command->undo();
        command->redo();
        EXPECT_EQ(scene.state(), after);
        command->undo();
        command.reset();
        EXPECT_EQ(scene.state(), before);
    }

    std::vector<osg::NodePtr> addNodes(std::size_t count)
    {
        std::vector<osg::NodePtr> nodes;
        while (nodes.size() < count)
            nodes.push_back(scene.addNode("Node", osg::Group::create()));
        return nodes;
    }

    Scene scene;
};

template <class Command, class... Arguments>
std::unique_ptr<QUndoCommand> made(Arguments &&...arguments)
{
    return std::make_unique<Command>(std::forward<Arguments>(arguments)...);
}

} // namespace

TEST_F(ksSuite, WritesEveryComponentOfATransformationToItsPlace)
{
    const auto components = [](const ksTransformation &values) {
        return std::make_tuple(values.translation, values.rotation, values.scale, values.shear,
                               values.scalePivot, values.rotatePivot, values.scalePivotTranslation,
                               values.rotatePivotTranslation, values.inheritType, values.eulerRotationOrder,
                               values.rotationDirectionOn, values.rotationDirection,
                               values.rotationDirectionMode);
    };
    ksTransformation values;
    float number = 0;
    for (osg::Vec3f *vector : {&values.translation, &values.rotation, &values.scale, &values.shear,
                               &values.scalePivot, &values.rotatePivot, &values.scalePivotTranslation,
                               &values.rotatePivotTranslation, &values.rotationDirection})
        *vector = osg::Vec3f(++number, 2, 3);
    values.inheritType = 1;
    values.eulerRotationOrder = "ZXY";
    values.rotationDirectionOn = true;
    values.rotationDirectionMode = 2;

    ksTransformationUndoCommand command(scene.box, values, false);
    command.redo();
    EXPECT_EQ(components(ksTransformation::of(scene.transform())), components(values));
    EXPECT_EQ(ksNodeUtils::getTransformNodeTranslation(scene.box, false, -1), values.translation);
    EXPECT_EQ(ksNodeUtils::getTransformNodeRotatePivot(scene.box, false, -1), values.rotatePivot);
    EXPECT_EQ(ksNodeUtils::getTransformNodeScalePivot(scene.box, false, -1), values.scalePivot);
}

TEST_F(ksSuite, DefinesTheRotationAsAQuaternionForTheSceneGraph)
{
    scene.transform()->setRotationAsQuaternion(osg::Quaternion(osg::Vec3f(0, 0, 1), 0.5f));
    EXPECT_NEAR(ksNodeUtils::getTransformNodeRotation(scene.box, -1)[2], 28.6479f, 1e-3f);
}

TEST_F(ksSuite, FindsTheFieldsItself)
{
    const auto finds = [this](const auto &command) {
        const auto [container, field] = command.getField();
        return container == scene.probe && field != nullptr;
    };
    const osg::FieldContainerPtr &probe = scene.probe;
    EXPECT_TRUE(finds(ksFieldUndoCommand<osg::Int64>(QString(), probe, "int64", 1)));
    EXPECT_TRUE(finds(ksFieldUndoCommand<osg::UInt64>(QString(), probe, "uint64", 1)));
    EXPECT_TRUE(finds(ksFieldUndoCommand<int>(QString(), probe, "int32", 1)));
    EXPECT_TRUE(finds(ksFieldUndoCommand<unsigned int>(QString(), probe, "uint32", 1)));
    EXPECT_TRUE(finds(ksFieldUndoCommand<short>(QString(), probe, "int16", 1)));
    EXPECT_TRUE(finds(ksFieldUndoCommand<unsigned short>(QString(), probe, "uint16", 1)));
    EXPECT_TRUE(finds(ksFieldUndoCommand<signed char>(QString(), probe, "int8", 1)));
    EXPECT_TRUE(finds(ksFieldUndoCommand<unsigned char>(QString(), probe, "uint8", 1)));
    EXPECT_TRUE(finds(ksFieldUndoCommand<float>(QString(), probe, "real32", 1)));
    EXPECT_TRUE(finds(ksFieldUndoCommand<double>(QString(), probe, "real64", 1)));
    EXPECT_TRUE(finds(ksStringFieldUndoCommand(probe, "text", "new")));
    EXPECT_TRUE(finds(ksStringsFieldUndoCommand(probe, "words", osg::MField<std::string>())));
    EXPECT_NE(ksImageFieldUndoCommand(scene.holder, "image", scene.newImage).getField().second, nullptr);
}

TEST_F(ksSuite, FindsTheCommandForAField)
{
    const Scene::State before = scene.state();
    ksUndoStack *stack = ksUndoStack::get(0);
    stack->clear();
    for (const char *field :
         {"int64", "uint64", "int32", "uint32", "int16", "uint16", "int8", "uint8", "flag"})
        ksUndoUtil::makeIntTypeCommand(QString(), scene.probe, field, 66);
    for (const char *field : {"real32", "real64"})
        ksUndoUtil::makeFloatTypeCommand(QString(), scene.probe, field, 0.5);
    EXPECT_EQ(stack->count(), 11);
    ksUndoUtil::makeIntTypeCommand(QString(), osg::NullFC, "int32", 66);
    ksUndoUtil::makeIntTypeCommand(QString(), scene.probe, "words", 66);
    EXPECT_EQ(stack->count(), 11);
    while (stack->canUndo())
        stack->undo();
    EXPECT_EQ(scene.state(), before);
}

TEST_F(ksSuite, NamesNodes)
{
    EXPECT_EQ(ksUndoUtil::makeNameList(scene.box), QLatin1String("'Box'"));
    EXPECT_EQ(ksUndoUtil::makeNameList(std::vector<osg::NodePtr>{scene.box, osg::NullFC, scene.lamp}),
              QLatin1String("'Box', 'Lamp'"));
    EXPECT_EQ(ksUndoUtil::makeNameList(std::vector<ksNodePtr>{ksSuiteHost::handleOf(scene.box)}),
              QLatin1String("'Box'"));
    EXPECT_EQ(NodeUtils::getName(scene.root), std::string("Group"));
    EXPECT_EQ(NodeUtils::getName(osg::NullFC), nullptr);
    EXPECT_EQ(NodeUtils::getName(osg::Node::create()), nullptr);
}

TEST_F(ksSuite, PutsManyNodesOfALinkSetBackInTheirPlaces)
{
    const std::vector<osg::NodePtr> nodes = addNodes(12);
    std::vector<osg::NodePtr> odd;
    for (std::size_t i = 1; i < nodes.size(); i += 2)
        odd.push_back(nodes[i]);
    for (const unsigned int list : {0u, 3u}) {
        ksAddNodeToLightLinkSetUndoCommand(scene.linkSet(), nodes, list, false).redo();
        const Scene::State before = scene.state();
        expectUndone(made<ksAddNodeToLightLinkSetUndoCommand>(scene.linkSet(), odd, list, true), before);
        expectUndone(made<ksAddNodeToLightLinkSetUndoCommand>(scene.linkSet(), nodes, list, true), before);
    }
}

TEST_F(ksSuite, KeepsTheRootOutOfLinkSets)
{
    const Scene::State before = scene.state();
    ksAddNodeToLightLinkSetUndoCommand(scene.linkSet(), scene.root, 0, false).redo();
    EXPECT_EQ(scene.state(), before);
    EXPECT_EQ(ksSuiteHost::takeErrors(), Events{"Cannot add Root to Light Link Set."});
}

TEST_F(ksSuite, LinksTheOnlyNodeThatStandsForAnInstance)
{
    constexpr osg::UInt32 instanceFlag = 0x2;
    const osg::NodeCorePtr core = scene.mark->getCore();
    const osg::NodePtr instance = scene.addNode("Instance", core);
    ksPlatform::setExternalFlags(instance, instanceFlag);
    const osg::NodePtr excluded = scene.addNode("Excluded", core);
    ksSuiteHost::exclude(excluded);

    ksAddNodeToLightLinkSetUndoCommand(scene.linkSet(), {instance, osg::NullFC}, 3, false).redo();
    ASSERT_EQ(scene.linkSet()->getMFLights()->size(), 1u);
    EXPECT_EQ((*scene.linkSet()->getMFLights())[0], scene.mark);
}

TEST_F(ksSuite, TakesNoImageForAnImage)
{
    ksImageFieldUndoCommand(scene.holder, "image", scene.oldImage).redo();
    const Scene::State before = scene.state();
    expectUndone(made<ksImageFieldUndoCommand>(scene.holder, "image", osg::NullFC), before);
}

TEST_F(ksSuite, SharesImagesThatTheApplicationKnows)
{
    ksImageFieldUndoCommand(scene.holder, "image", scene.newImage).redo();
    const osg::ImagePtr equal = osg::Image::create();
    equal->setName("new");
    osg::addRefCP(equal);
    const osg::UInt32 id = equal.getFieldContainerId();
    const Scene::State before = scene.state();
    {
        const ksImageFieldUndoCommand command(scene.holder, "image", equal);
        EXPECT_EQ(osg::FieldContainerFactory::the()->getContainer(id), osg::NullFC);
    }
    EXPECT_EQ(scene.state(), before);
}

TEST_F(ksSuite, SetsAndTakesBackTheFirstEnvironment)
{
    const osg::UBRDFMaterialPtr bare = osg::UBRDFMaterialPtr::dcast(scene.environment);
    const Scene::State before = scene.state();
    expectUndone(made<ksSetEnvironmentUndoCommand>(bare, scene.brdf), before);
}

TEST_F(ksSuite, TouchesAMaterialOnlyWhenThereIsOne)
{
    auto *inner = new ksFieldUndoCommand<int>(QString(), scene.probe, "int32", 7);
    const Scene::State before = scene.state();
    expectUndone(made<ksMaterialUndoCommand>(QString(), inner, osg::NullFC, osg::NullFC), before);
}

TEST_F(ksSuite, TakesAVisibilityReferenceAway)
{
    ksAddNodeAsVisibilityReferenceUndoCommand(scene.light(), scene.mark, false).redo();
    EXPECT_EQ(ksPlatform::externalFlags(scene.mark), 0x10u);
    const Scene::State before = scene.state();
    expectUndone(made<ksAddNodeAsVisibilityReferenceUndoCommand>(scene.light(), scene.mark, true), before);
}

TEST_F(ksSuite, CallsTheChangeHandlerUnlessTheApplicationIgnoresChanges)
{
    ksFieldUndoCommand<int> command(QString(), scene.probe, "int32", 7);
    ksSuiteHost::takeCalls();
    command.redo();
    EXPECT_EQ(ksSuiteHost::takeCalls(), 1);
    const osg::UInt32 changes = changeCount();
    ksSuiteHost::ignoreChanges(true);
    command.undo();
    ksSuiteHost::ignoreChanges(false);
    EXPECT_EQ(ksSuiteHost::takeCalls(), 0);
    EXPECT_EQ(changeCount(), changes + 1);
}

namespace {

/// Goes after everything else, when there is no scene graph to ask.
const ksHeldReference<osg::NodePtr> nothing;

/// Leaves a command in each stack that holds the last reference on a node.
void leaveCommands()
{
    for (const unsigned int which : {0u, 1u}) {
        const osg::NodePtr node = osg::Node::create();
        node->addAttachment(osg::TagAttachment::create());
        osg::MField<std::string> tags;
        const osg::MField<osg::UInt64> values;
        ksUndoStack::get(which)->add(new ksAddTagUndoCommand(QString(), node, osg::BitVector(1) << 4, 4,
                                                             "tag", &tags, values, values));
    }
}

} // namespace

/// With the argument "stacks-first" it makes the stacks before the scene graph runs, and tells them to let go
/// before it ends; otherwise it runs the tests and leaves the stacks to themselves.
int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    const bool stacksFirst = argc > 1 && std::string(argv[1]) == "stacks-first";
    if (stacksFirst)
        ksUndoStack::get(0);
    ksSuiteHost::start(argc, argv);
    const QCoreApplication application(argc, argv);
    leaveCommands();
    if (!stacksFirst)
        return RUN_ALL_TESTS();
    ksUndoStack::clearAll();
    return 0;
}
