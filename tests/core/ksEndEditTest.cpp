// SPDX-License-Identifier: MIT
#include <ksundo/core/ksEndEdit.h>

#include <gmock/gmock.h>

#include <support/OSGProbeContainer.h>
#include <support/ksRecords.h>

namespace {

class ksEndEditTest : public testing::Test
{
protected:
    ksEndEditTest()
    {
        recorder.take();
        osg::ProbeContainer::takeCalls();
    }

    /// The records of one edit of the fields \a mask of the probe.
    ksRecords editOf(osg::BitVector mask) const
    {
        return ksRecords().change(recorder.idOf(probe.get()), mask);
    }

    ksRecorder recorder;
    osg::ProbeContainerRefPtr probe{osg::ProbeContainer::create()};
};

} // namespace

TEST_F(ksEndEditTest, RecordsTheChangeThenCallsTheHandler)
{
    ksEndEdit(probe.get(), osg::ProbeContainer::TextFieldMask);
    EXPECT_EQ(recorder.take(), editOf(osg::ProbeContainer::TextFieldMask));

    const auto calls = osg::ProbeContainer::takeCalls();
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].mask, osg::ProbeContainer::TextFieldMask);
    EXPECT_EQ(calls[0].origin, osg::ChangedOrigin::External);
    EXPECT_EQ(calls[0].origin, 1u);
    EXPECT_EQ(calls[0].recorded, 1u);
}

TEST_F(ksEndEditTest, PassesAllBitsOfTheMask)
{
    for (const osg::BitVector mask : {~osg::BitVector(0), osg::BitVector(1) << 63, osg::BitVector(0)}) {
        ksEndEdit(probe.get(), mask);
        EXPECT_EQ(recorder.take(), editOf(mask));
        const auto calls = osg::ProbeContainer::takeCalls();
        ASSERT_EQ(calls.size(), 1u);
        EXPECT_EQ(calls[0].mask, mask);
    }
}

TEST_F(ksEndEditTest, CallsTheHandlerWithAReadOnlyList)
{
    osg::ChangeList *changes = osg::PThreadBase::getCurrentChangeList();
    changes->setReadOnly(true);
    ksEndEdit(probe.get(), 2);
    changes->setReadOnly(false);
    EXPECT_EQ(recorder.take(), ksRecords());
    EXPECT_EQ(osg::ProbeContainer::takeCalls().size(), 1u);
}

TEST_F(ksEndEditTest, DoesNothingOnNull)
{
    ksEndEdit(osg::NullFC, 2);
    EXPECT_EQ(recorder.take(), ksRecords());
    EXPECT_EQ(osg::ProbeContainer::takeCalls().size(), 0u);
}
