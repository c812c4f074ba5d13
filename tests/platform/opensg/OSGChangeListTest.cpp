// SPDX-License-Identifier: MIT
#include "support/ksRecords.h"

#include <OpenSG/OSGAttachment.h>
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGLog.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGSFSysTypes.h>
#include <OpenSG/OSGTransform.h>

#include <gmock/gmock.h>

#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

OSG_BEGIN_NAMESPACE

#define OSG_LISTENER_FIELDS(SF, MF) SF(SFUInt32, number, Number, 0)

OSG_CONTAINER_POINTER(Listener, AttachmentPtr)
OSG_CONTAINER_BASE(Listener, Attachment, OSG_LISTENER_FIELDS)

/// Notes its changes: mask, origin, and the aspect and the value at that time.
class Listener : public ListenerBase
{
    OSG_CONTAINER(Listener)

public:
    typedef std::tuple<BitVector, UInt32, UInt32, UInt32> Call;

    void changed(BitVector whichField, UInt32 origin) override
    {
        calls().emplace_back(whichField, origin, Thread::getAspect(), getNumber());
        Inherited::changed(whichField, origin);
    }

    static std::vector<Call> &calls()
    {
        static std::vector<Call> list;
        return list;
    }
};

OSG_DEFINE_CONTAINER(Listener, Attachment, "", OSG_LISTENER_FIELDS)

OSG_END_NAMESPACE

namespace {

using namespace osg;

static_assert(std::is_base_of_v<MemoryObject, ChangeList>);
static_assert(!std::is_copy_constructible_v<ChangeList> && !std::is_copy_assignable_v<ChangeList>);

/// A change list that the test counts as a user of.
class OSGChangeListTest : public testing::Test
{
protected:
    OSGChangeListTest()
        : list(*new ChangeList)
    {
        list.addRef();
    }
    ~OSGChangeListTest() override { list.subRef(); }

    /// Fills the list with something of everything.
    void fill(ChangeList &target)
    {
        target.addChanged(node.get(), 4);
        target.addChanged(node.get(), 4);
        target.addAddRefd(node.get());
        target.addSubRefd(node.get());
        target.addCreated(1);
        target.addDestroyed(2);
    }

    const NodeRefPtr node{Node::create()};
    ksRecorder recorder;
    ChangeList &list;
};

TEST_F(OSGChangeListTest, KeepsOrderAndDuplicates)
{
    list.addChanged(node.get(), 2);
    list.addChanged(node.get(), 8);
    list.addChanged(node.get(), 2);
    list.addCreated(9);
    list.addCreated(7);
    list.addCreated(9);

    EXPECT_EQ(list.sizeChanged(), 3u);
    EXPECT_EQ(list.sizeCreated(), 3u);
    EXPECT_EQ(list.sizeAddRefd(), 0u);
    const UInt32 id = node.get().getFieldContainerId();
    EXPECT_THAT(std::vector<ChangeList::ChangeEntry>(list.beginChanged(), list.endChanged()),
                testing::ElementsAre(std::make_pair(id, BitVector(2)), std::make_pair(id, BitVector(8)),
                                     std::make_pair(id, BitVector(2))));
    const ChangeList::changed_size_type size = list.sizeChanged();
    EXPECT_EQ(size, 3u);
    EXPECT_THAT(std::vector<ChangeList::IdRefEntry>(list.beginCreated(), list.endCreated()),
                testing::ElementsAre(9, 7, 9));
}

TEST_F(OSGChangeListTest, CountsEveryKind)
{
    EXPECT_TRUE(list.empty());
    fill(list);
    EXPECT_FALSE(list.empty());
    EXPECT_EQ(list.sizeChanged(), 2u);
    EXPECT_EQ(list.sizeAddRefd(), 1u);
    EXPECT_EQ(list.sizeSubRefd(), 1u);
    EXPECT_EQ(list.sizeCreated(), 1u);
    EXPECT_EQ(list.sizeDestroyed(), 1u);
    EXPECT_EQ(*list.beginDestroyed(), 2u);
    list.clearAll();
    EXPECT_TRUE(list.empty());
}

TEST_F(OSGChangeListTest, IsNotEmptyWithAnyKind)
{
    list.addDestroyed(1);
    EXPECT_FALSE(list.empty());
    list.clearAll();
    list.addSubRefd(node.get());
    EXPECT_FALSE(list.empty());
    list.clearAll();
    list.addAddRefd(node.get());
    EXPECT_FALSE(list.empty());
    list.clearAll();
    list.addCreated(1);
    EXPECT_FALSE(list.empty());
}

TEST_F(OSGChangeListTest, ReadOnlyRecordsNothing)
{
    list.setReadOnly(true);
    fill(list);
    EXPECT_TRUE(list.empty());
    EXPECT_TRUE(list.isReadOnly());
    list.setReadOnly(false);
    fill(list);
    EXPECT_FALSE(list.empty());
}

TEST_F(OSGChangeListTest, NewListsAreReadOnlyUnlessToldOtherwise)
{
    ChangeList::setReadWriteDefault(false);
    ChangeList &readOnly = *new ChangeList;
    ChangeList::setReadWriteDefault();
    ChangeList &readWrite = *new ChangeList;
    readOnly.addRef();
    readWrite.addRef();

    EXPECT_TRUE(readOnly.isReadOnly());
    EXPECT_FALSE(readWrite.isReadOnly());

    readOnly.subRef();
    readWrite.subRef();
}

TEST_F(OSGChangeListTest, ReadOnlyThreadWorksWithoutRecords)
{
    Thread::getCurrentChangeList()->setReadOnly(true);
    NodePtr fresh = Node::create();
    addRefCP(fresh);
    fresh->setCore(Group::create());
    endEditCP(fresh, Node::CoreFieldMask);
    EXPECT_EQ(fresh.getRefCount(), 1);
    subRefCP(fresh);
    EXPECT_TRUE(fresh == NullFC);
    Thread::getCurrentChangeList()->setReadOnly(false);

    EXPECT_EQ(recorder.take(), ksRecords());
}

TEST_F(OSGChangeListTest, SwapExchangesEntries)
{
    ChangeList &other = *new ChangeList;
    other.addRef();
    fill(list);
    const ksRecords before = recorder.read(list);
    other.setReadOnly(true);

    list.swap(other);

    EXPECT_TRUE(list.empty());
    EXPECT_EQ(recorder.read(other), before);
    EXPECT_FALSE(list.isReadOnly());
    other.subRef();
}

TEST_F(OSGChangeListTest, MergeAppends)
{
    ChangeList &other = *new ChangeList;
    other.addRef();
    fill(list);
    fill(other);
    const ksRecords before = recorder.read(other);

    EXPECT_TRUE(list.merge(other));

    EXPECT_EQ(recorder.read(other), before);
    EXPECT_EQ(list.sizeChanged(), 4u);
    EXPECT_EQ(list.sizeAddRefd(), 2u);
    EXPECT_EQ(list.sizeSubRefd(), 2u);
    EXPECT_EQ(list.sizeCreated(), 2u);
    EXPECT_EQ(list.sizeDestroyed(), 2u);
    other.subRef();
}

TEST_F(OSGChangeListTest, SettingTheAspectClears)
{
    fill(list);
    list.setAspect(1);
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(list.getAspect(), 1u);
}

/// Edits that have been recorded in aspect 0, applied to aspect 1.
class OSGChangeListApplyTest : public OSGChangeListTest
{
protected:
    void edit()
    {
        const CPEditor editor(node, Node::ExternalFlagsFieldMask);
        node->setExternalFlags(5);
    }

    UInt32 flagsInAspect1() const
    {
        const AspectScope scope(1);
        return node->getExternalFlags();
    }

    ChangeList &current = *Thread::getCurrentChangeList();
};

TEST_F(OSGChangeListApplyTest, ApplyToClears)
{
    edit();
    EXPECT_EQ(flagsInAspect1(), 0u);

    current.applyTo(1);

    EXPECT_EQ(flagsInAspect1(), 5u);
    EXPECT_TRUE(current.empty());
}

TEST_F(OSGChangeListApplyTest, ApplyWorksOnTheThreadsAspectAndClears)
{
    const auto flagsAfter = [this](UInt32 flags, void (*apply)(ChangeList &)) {
        edit();
        node->setExternalFlags(flags);
        const AspectScope scope(1);
        apply(current);
        EXPECT_TRUE(current.empty());
        return node->getExternalFlags();
    };
    EXPECT_EQ(flagsAfter(5, [](ChangeList &changes) { changes.apply(); }), 5u);
    EXPECT_EQ(flagsAfter(6, [](ChangeList &changes) { changes.applyToCurrent(); }), 6u);
    EXPECT_EQ(flagsAfter(7, [](ChangeList &changes) { changes.applyAndClear(); }), 7u);
}

TEST_F(OSGChangeListApplyTest, NothingIsAppliedToTheListsOwnAspect)
{
    addRefCP(node.get());
    edit();
    const Int32 count = node.get().getRefCount();
    current.setReadOnly(true);

    current.applyTo(0);

    EXPECT_TRUE(current.isReadOnly());
    EXPECT_EQ(node.get().getRefCount(), count);
    EXPECT_EQ(current.sizeAddRefd(), 1u);
    EXPECT_EQ(current.sizeChanged(), 1u);

    current.applyToCurrent();

    EXPECT_TRUE(current.empty());
    EXPECT_TRUE(current.isReadOnly());
    EXPECT_EQ(node.get().getRefCount(), count);
    current.setReadOnly(false);
    NodePtr release = node;
    subRefCP(release);
}

TEST_F(OSGChangeListApplyTest, TheListIsReadWriteAfterwards)
{
    current.setReadOnly(true);
    current.applyTo(1);
    EXPECT_FALSE(current.isReadOnly());
}

TEST_F(OSGChangeListApplyTest, AnotherListIsReadWriteAfterwardsAsTheThreadsOwnIs)
{
    current.setReadOnly(true);
    list.setReadOnly(true);
    list.applyTo(1);
    EXPECT_FALSE(current.isReadOnly());
    EXPECT_FALSE(list.isReadOnly());
}

TEST_F(OSGChangeListApplyTest, CopiesOnlyTheMaskedFields)
{
    node->setTravMask(1);
    edit();
    current.applyTo(1);

    const AspectScope scope(1);
    EXPECT_EQ(node->getExternalFlags(), 5u);
    EXPECT_EQ(node->getTravMask(), TypeTraits<UInt32>::Max);
}

TEST_F(OSGChangeListApplyTest, CallsChangeHandlersWithoutRecords)
{
    // A new matrix makes volumes invalid, which is recorded in aspect 0 but must not be while it is applied.
    node->setCore(Transform::create());
    node->updateVolume();
    endEditCP(node, FieldBits::AllFields);
    node->updateVolume();
    current.applyTo(1);
    endEditCP(node->getCore(), Transform::MatrixFieldMask);
    ASSERT_EQ(current.sizeChanged(), 2u);
    ChangeList &onlyMatrix = list;
    onlyMatrix.addChanged(node->getCore(), Transform::MatrixFieldMask);

    onlyMatrix.applyTo(1);

    EXPECT_EQ(current.sizeChanged(), 2u);
    const AspectScope scope(1);
    EXPECT_FALSE(node->getVolume().isValid());
}

TEST_F(OSGChangeListApplyTest, TellsHandlersThatItIsASync)
{
    const ListenerRefPtr listener(Listener::create());
    listener->setNumber(7);
    endEditNotChangedCP(listener, Listener::NumberFieldMask);
    Listener::calls().clear();

    current.applyTo(1);

    EXPECT_THAT(Listener::calls(),
                testing::ElementsAre(Listener::Call(Listener::NumberFieldMask, ChangedOrigin::Sync, 1, 7)));
}

TEST_F(OSGChangeListApplyTest, SkipsContainersThatHaveGone)
{
    NodePtr gone = Node::create();
    endEditCP(gone, 4);
    addRefCP(gone);
    current.addSubRefd(gone);
    subRefCP(gone);
    ASSERT_TRUE(gone == NullFC);

    current.applyTo(1);

    EXPECT_TRUE(current.empty());
}

TEST_F(OSGChangeListApplyTest, TakesReferencesBeforeItReleases)
{
    NodePtr fresh = Node::create();
    const UInt32 id = fresh.getFieldContainerId();
    ChangeList &other = list;
    other.addSubRefd(fresh);
    other.addAddRefd(fresh);
    addRefCP(fresh);
    current.clearAll();

    other.applyTo(1);

    EXPECT_EQ(FieldContainerFactory::the()->getContainer(id).getRefCount(), 1);
    subRefCP(fresh);
}

TEST_F(OSGChangeListTest, IsDeletedByItsMakerOrItsLastUser)
{
    delete new ChangeList;
    ChangeList *counted = new ChangeList;
    addRefP(counted);
    addRefP(counted);
    subRefP(counted);
    EXPECT_EQ(counted->getRefCount(), 1);
    subRefP(counted);
    addRefP(static_cast<ChangeList *>(nullptr));
    subRefP(static_cast<ChangeList *>(nullptr));
}

TEST_F(OSGChangeListTest, DumpsItsEntries)
{
    list.addChanged(node.get(), 4);
    list.addCreated(7);
    list.addCreated(8);
    std::vector<std::string> lines;
    const LogSink previous = setLogSink([&](const std::string &line) { lines.push_back(line); });
    list.dump();
    setLogSink(previous);
    EXPECT_THAT(lines,
                testing::ElementsAre("changed: " + std::to_string(node.get().getFieldContainerId()) + "/4",
                                     "addRefd:", "subRefd:", "created: 7 8", "destroyed:"));
}

} // namespace
