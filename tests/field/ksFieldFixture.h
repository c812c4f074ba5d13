// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGChangeList.h>
#include <OpenSG/OSGThread.h>

#include <gmock/gmock.h>

#include <string>
#include <support/OSGProbeContainer.h>
#include <support/ksFieldTarget.h>
#include <support/ksFieldTexts.h>
#include <support/ksRecords.h>

/// A container to edit, and everything that an edit of it can be observed by.
class ksFieldFixture : public testing::Test
{
protected:
    ksFieldFixture() { forget(); }
    ~ksFieldFixture() override { osg::FieldContainerPtr::_ignore_change = false; }

    osg::FieldContainerPtr container() const { return probe.get(); }
    osg::UInt32 probeId() const { return container().getFieldContainerId(); }

    /// The values of all fields of the probe, by name, as a thread of \a aspect sees them.
    ksFieldTexts values(osg::UInt32 aspect = 0) const { return ksFieldTextsOf(container(), aspect); }

    /// Forgets what has been recorded and handled so far.
    void forget()
    {
        recorder.take();
        osg::ProbeContainer::takeCalls();
    }

    /// The records of one edit of the probe's field \a mask.
    ksRecords editOf(osg::BitVector mask) const
    {
        return ksRecords().change(recorder.idOf(container()), mask);
    }

    /// Expects that exactly one edit has been ended since the last time: that of the field \a mask of the
    /// probe, which held \a value by then.
    void expectOneEdit(osg::BitVector mask, const std::string &value)
    {
        EXPECT_EQ(recorder.take(), editOf(mask));
        const auto calls = osg::ProbeContainer::takeCalls();
        ASSERT_EQ(calls.size(), 1u);
        EXPECT_EQ(calls[0].mask, mask);
        EXPECT_EQ(calls[0].origin, 1u);
        EXPECT_EQ(calls[0].value, value);
        EXPECT_EQ(calls[0].recorded, 1u);
    }

    void expectNoEdit()
    {
        EXPECT_EQ(recorder.take(), ksRecords());
        EXPECT_EQ(osg::ProbeContainer::takeCalls().size(), 0u);
    }

    /// Expects of the children of \a parent, built in turn with the text "text" and without one, that they
    /// aim at the field of the probe with the id \a id.
    void expectForms(const QUndoCommand &parent, osg::UInt32 id) const
    {
        for (int i = 0; i < parent.childCount(); ++i) {
            auto &command =
                dynamic_cast<ksFieldBaseUndoCommand &>(*const_cast<QUndoCommand *>(parent.child(i)));
            EXPECT_EQ(command.text(), i % 2 == 0 ? QStringLiteral("text") : QString());
            EXPECT_EQ(command.containerId(), probeId());
            EXPECT_EQ(ksFieldTarget::idOfField(command), id);
            EXPECT_EQ(ksFieldTarget::maskOf(command), osg::BitVector(1) << id);
        }
    }

    /// Destroys the probe.
    void destroy()
    {
        probe = osg::NullFC;
        forget();
    }

    static osg::ChangeList &changes() { return *osg::PThreadBase::getCurrentChangeList(); }

    ksRecorder recorder;
    osg::ProbeContainerRefPtr probe{osg::ProbeContainer::create()};
};
