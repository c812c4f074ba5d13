// SPDX-License-Identifier: MIT
#include <ksundo/core/ksFindContainer.h>
#include <ksundo/core/ksHeldReference.h>

#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGRefPtr.h>

#include <gmock/gmock.h>

#include <optional>
#include <support/ksRecords.h>
#include <type_traits>
#include <utility>

using GroupReference = ksHeldReference<osg::GroupPtr>;

static_assert(!std::is_copy_constructible_v<GroupReference> && !std::is_copy_assignable_v<GroupReference>);
static_assert(std::is_nothrow_move_constructible_v<GroupReference> &&
              std::is_nothrow_move_assignable_v<GroupReference>);
static_assert(!std::is_convertible_v<osg::GroupPtr, GroupReference>, "a reference is not taken unasked");

namespace {

/// Two groups that live as long as the test.
class ksHeldReferenceTest : public testing::Test
{
protected:
    ksHeldReferenceTest() { recorder.take(); }

    long long idOf(const osg::GroupPtr &group) const { return recorder.idOf(group); }

    ksRecorder recorder;
    osg::GroupRefPtr one{osg::Group::create()};
    osg::GroupRefPtr two{osg::Group::create()};
};

} // namespace

TEST_F(ksHeldReferenceTest, HoldsOneReferenceWhileItLives)
{
    {
        const GroupReference reference(one);
        EXPECT_EQ(reference.get(), one.get());
        EXPECT_EQ(one.get().getRefCount(), 2);
        EXPECT_EQ(recorder.take(), ksRecords().addRef(idOf(one)));
    }
    EXPECT_EQ(one.get().getRefCount(), 1);
    EXPECT_EQ(recorder.take(), ksRecords().subRef(idOf(one)));
}

TEST_F(ksHeldReferenceTest, DestroysTheContainerWithTheLastReference)
{
    const osg::GroupPtr loose = osg::Group::create();
    recorder.take();
    const osg::UInt32 id = loose.getFieldContainerId();
    const long long recordId = idOf(loose);
    {
        const GroupReference reference(loose);
        EXPECT_EQ(ksFindContainer<osg::GroupPtr>(id), loose);
    }
    EXPECT_EQ(recorder.take(), ksRecords().addRef(recordId).destroy(recordId));
    EXPECT_EQ(ksFindContainer<osg::GroupPtr>(id), osg::NullFC);
}

TEST_F(ksHeldReferenceTest, HoldsNothingByDefaultAndForNull)
{
    {
        const GroupReference empty;
        const GroupReference null{osg::GroupPtr(osg::NullFC)};
        EXPECT_EQ(empty.get(), osg::NullFC);
        EXPECT_EQ(null.get(), osg::NullFC);
    }
    EXPECT_EQ(recorder.take(), ksRecords());
}

TEST_F(ksHeldReferenceTest, GivesItsReferenceAwayWhenMovedFrom)
{
    std::optional<GroupReference> source(std::in_place, one);
    recorder.take();
    {
        const GroupReference target(std::move(*source));
        EXPECT_EQ(target.get(), one.get());
        EXPECT_EQ(source->get(), osg::NullFC);
        source.reset();
        EXPECT_EQ(one.get().getRefCount(), 2);
        EXPECT_EQ(recorder.take(), ksRecords());
    }
    EXPECT_EQ(one.get().getRefCount(), 1);
}

TEST_F(ksHeldReferenceTest, ReleasesItsOwnContainerWhenAssigned)
{
    GroupReference target(one);
    GroupReference source(two);
    recorder.take();
    target = std::move(source);
    EXPECT_EQ(target.get(), two.get());
    EXPECT_EQ(source.get(), osg::NullFC);
    EXPECT_EQ(one.get().getRefCount(), 1);
    EXPECT_EQ(two.get().getRefCount(), 2);
    EXPECT_EQ(recorder.take(), ksRecords().subRef(idOf(one)));
}

TEST_F(ksHeldReferenceTest, SurvivesAnAssignmentToItself)
{
    GroupReference reference(one);
    GroupReference &same = reference;
    recorder.take();
    reference = std::move(same);
    EXPECT_EQ(reference.get(), one.get());
    EXPECT_EQ(one.get().getRefCount(), 2);
    EXPECT_EQ(recorder.take(), ksRecords());
}

TEST_F(ksHeldReferenceTest, SwapsWithoutTouchingCounts)
{
    GroupReference first(one);
    GroupReference second(two);
    recorder.take();
    first.swap(second);
    EXPECT_EQ(first.get(), two.get());
    EXPECT_EQ(second.get(), one.get());
    EXPECT_EQ(recorder.take(), ksRecords());
}

TEST_F(ksHeldReferenceTest, IsHarmlessWhenTheContainerWasDestroyedAllTheSame)
{
    osg::GroupPtr released = osg::Group::create();
    {
        GroupReference reference(released);
        osg::subRefCP(released);
        recorder.take();
        EXPECT_EQ(reference.get(), osg::NullFC);
        const GroupReference target(std::move(reference));
        EXPECT_EQ(target.get(), osg::NullFC);
    }
    EXPECT_EQ(recorder.take(), ksRecords());
}
