// SPDX-License-Identifier: MIT
#include "support/ksRecords.h"

#include <OpenSG/OSGAttachment.h>
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGLock.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGThreadManager.h>
#include <OpenSG/OSGTransform.h>

#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>
#include <thread>
#include <type_traits>
#include <vector>

OSG_BEGIN_NAMESPACE

#define OSG_WITNESS_FIELDS(SF, MF)

OSG_CONTAINER_POINTER(Witness, AttachmentPtr)
OSG_CONTAINER_BASE(Witness, Attachment, OSG_WITNESS_FIELDS)

/// Notes at its end how often the watched node is counted then.
class Witness : public WitnessBase
{
    OSG_CONTAINER(Witness)

public:
    void onDestroy() override
    {
        if (watched != NullFC) {
            countAtEnd = watched.getRefCount();
        }
    }

    static inline NodePtr watched;
    static inline Int32 countAtEnd = -1;
};

OSG_DEFINE_CONTAINER(Witness, Attachment, "", OSG_WITNESS_FIELDS)

OSG_END_NAMESPACE

namespace {

using namespace osg;

static_assert(sizeof(FieldContainerPtr) == 16 && sizeof(NodePtr) == 16 && sizeof(TransformPtr) == 16);
static_assert(!std::is_polymorphic_v<NodePtr>);
static_assert(std::is_base_of_v<AttachmentContainerPtr, NodePtr>);
static_assert(std::is_base_of_v<AttachmentContainerPtr, CNodePtr>);
static_assert(std::is_base_of_v<FieldContainerPtr, AttachmentPtr>);
static_assert(std::is_base_of_v<FieldContainerPtr, NullFieldContainerPtr>);
static_assert(std::is_same_v<NodeCorePtr, FCPtr<AttachmentContainerPtr, NodeCore>>);
static_assert(std::is_same_v<TransformPtr, FCPtr<GroupPtr, Transform>>);
static_assert(std::is_same_v<GroupPtr::Inherited, NodeCorePtr>);
static_assert(std::is_same_v<GroupPtr::StoredObjectType, Group>);
static_assert(std::is_same_v<GroupPtr::ObjectType, GroupPtr> &&
              std::is_same_v<CNodePtr::ObjectType, CNodePtr>);
static_assert(std::is_same_v<NodePtr::ObjectType, NodePtr> &&
              std::is_same_v<NodePtr::StoredObjectType, Node>);
static_assert(std::is_same_v<FieldContainerPtr::ObjectType, FieldContainerPtr>);
static_assert(!std::is_convertible_v<const Node &, NodePtr>, "from a raw object only explicitly");
static_assert(!std::is_convertible_v<NodeCorePtr, GroupPtr>, "down only by dcast");
static_assert(std::is_same_v<decltype(NodePtr::dcast(FieldContainerPtr())), NodePtr>);
static_assert(std::is_same_v<decltype(std::declval<const NodePtr>().getCPtr()), Node *>);

TEST(OSGFieldContainerPtr, NullHandleIsHarmless)
{
    ksRecorder recorder;
    NodePtr null;

    EXPECT_TRUE(null == NullFC);
    EXPECT_FALSE(null != NullFC);
    EXPECT_TRUE(!null);
    EXPECT_FALSE(null ? true : false);
    EXPECT_EQ(null.getFieldContainerId(), 0u);
    EXPECT_EQ(null.getRefCount(), 0);
    EXPECT_EQ(null.getContainerSize(), 0);
    EXPECT_TRUE(NodePtr::dcast(null) == NullFC);
    EXPECT_TRUE(null == FieldContainerPtr(NullFC));

    addRefCP(null);
    subRefCP(null);
    setRefdCP(null, NodePtr());
    clearRefCP(null);
    beginEditCP(null);
    endEditCP(null);
    endEditNotChangedCP(null);
    changedCP(null);
    null.deleteContainers();

    EXPECT_EQ(recorder.take(), ksRecords());
}

TEST(OSGFieldContainerPtr, KnowsItsContainer)
{
    ksRecorder recorder;
    const NodeRefPtr node(Node::create());
    const NodePtr handle = node;

    EXPECT_EQ(recorder.idOf(handle), 1);
    EXPECT_TRUE(handle != NullFC);
    EXPECT_FALSE(!handle);
    EXPECT_TRUE(handle ? true : false);
    EXPECT_EQ(handle.getRefCount(), 1);
    EXPECT_EQ(handle.getContainerSize(), sizeof(Node));
    EXPECT_EQ(handle->getContainerSize(), sizeof(Node));
    EXPECT_EQ(&*handle, handle.getCPtr());
    EXPECT_EQ(handle->getTypeName(), std::string("Node"));
}

TEST(OSGFieldContainerPtr, ComparesContainersOnly)
{
    const NodeRefPtr node(Node::create());
    const NodeRefPtr other(Node::create());
    NodePtr marked = node;
    marked.setParentFieldPos(3);

    EXPECT_EQ(marked.getParentFieldPos(), 3);
    EXPECT_EQ(node.get().getParentFieldPos(), FieldContainerPtr::InvalidParentEPos);
    EXPECT_TRUE(marked == node.get());
    EXPECT_TRUE(FieldContainerPtr(marked) == node.get());
    EXPECT_TRUE(other.get() != node.get());
    EXPECT_TRUE((node.get() < other.get()) != (other.get() < node.get()));
    EXPECT_FALSE(node.get() < NullFC);
    EXPECT_TRUE(FieldContainerPtr() < node.get());
}

TEST(OSGFieldContainerPtr, OrderIsThatOfAddresses)
{
    std::set<NodePtr> nodes;
    for (int i = 0; i < 20; ++i) {
        const NodePtr node = Node::create();
        addRefCP(node);
        nodes.insert(node);
    }
    const Node *previous = nullptr;
    for (const NodePtr &node : nodes) {
        EXPECT_LT(previous, node.getCPtr());
        previous = node.getCPtr();
    }
    for (NodePtr node : nodes) {
        subRefCP(node);
    }
}

TEST(OSGFieldContainerPtr, DowncastNeedsTheClass)
{
    const TransformRefPtr transform(Transform::create());
    NodeCorePtr core = transform;
    core.setParentFieldPos(5);

    EXPECT_TRUE(TransformPtr::dcast(core) == core);
    EXPECT_EQ(TransformPtr::dcast(core).getParentFieldPos(), 5);
    EXPECT_TRUE(GroupPtr::dcast(core) == core);
    EXPECT_TRUE(AttachmentContainerPtr::dcast(core) == core);
    EXPECT_TRUE(FieldContainerPtr::dcast(core) == core);
    EXPECT_TRUE(NodePtr::dcast(core) == NullFC);
    EXPECT_TRUE(AttachmentPtr::dcast(core) == NullFC);
    EXPECT_TRUE(dynamic_fcptr_cast<GroupPtr>(core) == core);
    EXPECT_TRUE(dynamic_fcptr_cast<NodePtr>(core) == NullFC);

    const GroupRefPtr group(Group::create());
    EXPECT_TRUE(TransformPtr::dcast(group.get()) == NullFC);
}

TEST(OSGFieldContainerPtr, IsMadeFromARawObject)
{
    const NodeRefPtr node(Node::create());
    const Node &object = *node;

    EXPECT_TRUE(NodePtr(object) == node.get());
    EXPECT_EQ(NodePtr(object).getContainerSize(), sizeof(Node));
    EXPECT_TRUE(FieldContainerPtr(object) == node.get());
    EXPECT_TRUE(CNodePtr(node.get()) == node.get());
    EXPECT_EQ(CNodePtr(object)->getNChildren(), 0u);

    const AspectScope otherAspect(1);
    EXPECT_NE(node.get().getCPtr(), &object) << "every aspect has a copy";
    EXPECT_TRUE(NodePtr(*node) == node.get());
    EXPECT_TRUE(NodePtr(object) == node.get());
}

TEST(OSGFieldContainerPtr, CountsReferences)
{
    NodePtr node = Node::create();
    EXPECT_EQ(node.getRefCount(), 0);
    addRefCP(node);
    addRefCP(node);
    EXPECT_EQ(node.getRefCount(), 2);
    subRefCP(node);
    EXPECT_EQ(node.getRefCount(), 1);
    EXPECT_TRUE(node != NullFC);

    const UInt32 id = node.getFieldContainerId();
    subRefCP(node);
    EXPECT_TRUE(node == NullFC) << "the handle given is set to null";
    EXPECT_TRUE(FieldContainerFactory::the()->getContainer(id) == NullFC);
}

TEST(OSGFieldContainerPtr, CountsRightFromManyThreads)
{
    const NodeRefPtr node(Node::create());
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            NodePtr handle = node;
            for (int turn = 0; turn < 20000; ++turn) {
                addRefCP(handle);
                subRefCP(handle);
            }
            addRefCP(handle);
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    EXPECT_EQ(node.get().getRefCount(), 5);
    for (int i = 0; i < 4; ++i) {
        subRefCP(node.get());
    }
}

TEST(OSGFieldContainerPtr, ReleasingNullsTheVariableBehindAConstReference)
{
    struct Holder
    {
        NodePtr node = Node::create();
    } holder;
    const Holder &seen = holder;

    subRefCP(seen.node);

    EXPECT_TRUE(holder.node == NullFC);
}

TEST(OSGFieldContainerPtr, SetRefdReleasesFirst)
{
    ksRecorder recorder;
    NodePtr parent = Node::create();
    addRefCP(parent);
    const NodePtr child = Node::create();
    addRefCP(child);
    parent->addChild(child);
    recorder.take();

    NodePtr target = parent;
    setRefdCP(target, parent);
    EXPECT_EQ(recorder.take(), ksRecords()) << "the same container: nothing to do";

    // The destruction of the parent releases the child before the child gets the reference of the target.
    setRefdCP(target, child);

    EXPECT_TRUE(target == child);
    EXPECT_EQ(child.getRefCount(), 2);
    EXPECT_EQ(recorder.take(), ksRecords().destroy(1).change(2, Node::ParentFieldMask).subRef(2).addRef(2));

    clearRefCP(target);
    EXPECT_TRUE(target == NullFC);
    EXPECT_EQ(child.getRefCount(), 1);
    EXPECT_EQ(recorder.take(), ksRecords().subRef(2));
    NodePtr last = child;
    subRefCP(last);
}

TEST(OSGFieldContainerPtr, SetRefdTakesTheNewReferenceAfterTheRelease)
{
    const NodeRefPtr node(Node::create());
    FieldContainerPtr target = Witness::create();
    addRefCP(target);
    Witness::watched = node;

    setRefdCP(target, node.get());
    // The prototype of the type ends after the node.
    Witness::watched = NullFC;

    EXPECT_EQ(Witness::countAtEnd, 1);
    EXPECT_EQ(node.get().getRefCount(), 2);
    clearRefCP(target);
}

TEST(OSGFieldContainerPtr, SetRefdTakesAHandleThatGoesWithTheOldContainer)
{
    const NodeRefPtr child(Node::create());
    NodePtr target = Node::create();
    addRefCP(target);
    target->addChild(child);

    setRefdCP(target, target->getChildren()[0]);

    EXPECT_TRUE(target == child.get());
    EXPECT_EQ(child.get().getRefCount(), 2);
    clearRefCP(target);
}

TEST(OSGFieldContainerPtr, SetRefdToWhatGoesWithTheOldContainerIsNull)
{
    ksRecorder recorder;
    NodePtr target = Node::create();
    addRefCP(target);
    target->addChild(Node::create());
    recorder.take();

    setRefdCP(target, target->getChild(0));

    EXPECT_TRUE(target == NullFC);
    EXPECT_EQ(recorder.take(), ksRecords().destroy(1).change(2, Node::ParentFieldMask).destroy(2));
}

TEST(OSGFieldContainerPtr, SetRefdTakesWhatTheFactoryDoesNotKnow)
{
    const NodeRefPtr node(Node::create());
    NodePtr target = Node::create();
    addRefCP(target);
    FieldContainerFactory::the()->unregisterFieldContainer(node.get());

    setRefdCP(target, node.get());

    EXPECT_TRUE(target == node.get());
    EXPECT_EQ(node.get().getRefCount(), 2);
    clearRefCP(target);
}

TEST(OSGFieldContainerPtr, ReleasesThroughAHandleThatGoesWithTheContainer)
{
    const NodePtr parent = Node::create();
    addRefCP(parent);
    const UInt32 id = parent.getFieldContainerId();
    parent->addChild(Node::create());

    // The handle lies in the child, which the parent's end destroys.
    subRefCP(parent->getChild(0)->getParent());

    EXPECT_TRUE(FieldContainerFactory::the()->getContainer(id) == NullFC);
    EXPECT_TRUE(FieldContainerFactory::the()->getContainer(id + 1) == NullFC);
}

TEST(OSGFieldContainerPtr, HandleSetToNullIsNullInEveryAspect)
{
    NodePtr node = Node::create();
    subRefCP(node);
    const AspectScope other(1);
    EXPECT_TRUE(NodePtr::dcast(node) == NullFC);
    EXPECT_TRUE(dynamic_fcptr_cast<AttachmentContainerPtr>(node) == NullFC);
}

TEST(OSGFieldContainerPtr, DeleteContainersIgnoresCountAndRecordsNothing)
{
    const NodePtr node = Node::create();
    addRefCP(node);
    addRefCP(node);
    const UInt32 id = node.getFieldContainerId();
    ksRecorder recorder;

    node.deleteContainers();

    EXPECT_TRUE(FieldContainerFactory::the()->getContainer(id) == NullFC);
    EXPECT_EQ(recorder.take(), ksRecords());
}

TEST(OSGFieldContainerPtr, DeleteContainersWorksAfterUnregistering)
{
    const NodePtr node = Node::create();
    FieldContainerFactory &factory = *FieldContainerFactory::the();
    const UInt32 id = node.getFieldContainerId();

    EXPECT_FALSE(factory.unregisterFieldContainer(node)) << "false says that it worked";
    EXPECT_TRUE(factory.getContainer(id) == NullFC);
    EXPECT_TRUE(factory.unregisterFieldContainer(node));
    node.deleteContainers();
}

TEST(OSGFieldContainerPtr, CountsAreLockedByTheNamedPool)
{
    ASSERT_NE(FieldContainerPtrBase::_pRefCountLock, nullptr);
    EXPECT_EQ(FieldContainerPtrBase::_pRefCountLock,
              ThreadManager::the()->getLockPool("DSPTRRefCountLockPool"));
}

TEST(OSGFieldContainerPtr, ComesFromACopyOfTheContainer)
{
    const NodeRefPtr node(Node::create());
    EXPECT_TRUE(NodePtr(node.getCPtr()) == node);
    EXPECT_TRUE(FieldContainerPtr(node.getCPtr()) == node);
    EXPECT_TRUE(NodePtr(static_cast<Node *>(nullptr)) == NullFC);
    const AspectScope scope(1);
    EXPECT_TRUE(NodePtr(node.getCPtr()) == node);
}

TEST(OSGFieldContainerPtr, IsWrittenAsItsId)
{
    const NodeRefPtr node(Node::create());
    std::ostringstream text;
    text << node.get() << ' ' << NodePtr() << ' ' << node->getType().getName();
    EXPECT_EQ(text.str(), std::to_string(node.get().getFieldContainerId()) + " 0 Node");
}

TEST(OSGFieldContainerPtr, OnlyReads)
{
    const NodeRefPtr node(Node::create());
    const ConstFieldContainerPtr read(node.get());
    static_assert(std::is_same_v<decltype(read.getCPtr()), const FieldContainer *>);
    EXPECT_TRUE(read == node.get());
    EXPECT_STREQ(read->getTypeName(), "Node");
    EXPECT_TRUE(ConstFieldContainerPtr() == NullFC);
}

TEST(OSGCPEditor, OfNothingEndsNoEdit)
{
    ksRecorder recorder;
    {
        const CPEditor editor;
    }
    EXPECT_EQ(recorder.take(), ksRecords());
}

} // namespace
