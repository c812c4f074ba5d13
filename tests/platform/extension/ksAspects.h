// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGChangeList.h>
#include <OpenSG/OSGFieldContainer.h>
#include <OpenSG/OSGThread.h>
#include <OpenSG/OSGThreadContext.h>

#include <gtest/gtest.h>

#include <map>
#include <string>

/// The values of fields as exact texts, by name.
using ksFieldTexts = std::map<std::string, std::string>;

/// The values of all fields of \a container, as a thread of \a aspect sees them.
inline ksFieldTexts ksFieldTextsOf(const osg::FieldContainerPtr &container, osg::UInt32 aspect = 0)
{
    const osg::AspectScope scope(aspect);
    ksFieldTexts texts;
    osg::FieldContainerType &type = container->getType();
    for (osg::UInt32 id = 1; id <= type.getNumFieldDescs(); ++id)
        container->getField(id)->getValueByStr(texts[type.getFieldDescription(id)->getCName()]);
    return texts;
}

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
