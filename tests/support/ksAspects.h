// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGChangeList.h>
#include <OpenSG/OSGThread.h>

#include <gtest/gtest.h>

#include <support/ksFieldTexts.h>

/// Carries over to aspect 1 what the thread has recorded.
inline void ksSyncAspects()
{
    osg::Thread::getCurrentChangeList()->applyTo(1);
}

/// Expects that an edit of \a container reaches aspect 1 by way of the change list, and only by that.
inline void ksExpectSync(const osg::FieldContainerPtr &container)
{
    const ksFieldTexts edited = ksFieldTextsOf(container);
    EXPECT_NE(ksFieldTextsOf(container, 1), edited) << "the edit changed nothing";
    ksSyncAspects();
    EXPECT_EQ(ksFieldTextsOf(container), edited);
    EXPECT_EQ(ksFieldTextsOf(container, 1), edited);
}
