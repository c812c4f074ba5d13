// SPDX-License-Identifier: MIT
#include <checker/history/ksMirror.h>
#include <tests/editor/ksEditorFixture.h>

#include <OpenSG/OSGChangeList.h>
#include <OpenSG/OSGThread.h>

#include <thread>

namespace {

class ksMirrorTest : public ksEditorFixture
{
protected:
    int mirroredLayer()
    {
        int layer = -1;
        mirror.run([this, &layer] { layer = childSettings()->getLayer(); });
        return layer;
    }

    ksMirror mirror;
};

} // namespace

TEST_F(ksMirrorTest, WorksOnAspect1InItsOwnThread)
{
    osg::UInt32 aspect = 0;
    std::thread::id thread;
    mirror.run([&] {
        aspect = osg::Thread::getAspect();
        thread = std::this_thread::get_id();
    });
    EXPECT_EQ(aspect, 1u);
    EXPECT_NE(thread, std::this_thread::get_id());
    EXPECT_EQ(osg::Thread::getAspect(), 0u);
}

TEST_F(ksMirrorTest, LearnsOfEditsFromTheChangeListOnly)
{
    mirror.update();
    {
        CPEdit(childSettings(), osg::ksNodeSettings::LayerFieldMask);
        childSettings()->setLayer(7);
    }
    EXPECT_EQ(mirroredLayer(), 0);
    mirror.update();
    EXPECT_EQ(mirroredLayer(), 7);
    EXPECT_TRUE(osg::Thread::getCurrentChangeList()->empty());

    childSettings()->setLayer(8);
    mirror.update();
    EXPECT_EQ(mirroredLayer(), 7);
}
