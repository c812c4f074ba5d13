// SPDX-License-Identifier: MIT
#include <checker/history/ksCheckedHistory.h>
#include <checker/history/ksTranscript.h>
#include <checker/tour/ksTourExtras.h>
#include <editor/history/ksRecord.h>
#include <editor/import/ksSceneImporter.h>
#include <tests/editor/ksEditorFixture.h>

#include <ksLights.h>

#include <sstream>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using ksTourExtrasTest = ksEditorFixture;

} // namespace

TEST_F(ksTourExtrasTest, HaveWhatThisSceneLacks)
{
    ksTourTargets targets(root);
    EXPECT_THAT(targets.transforms, IsEmpty());
    EXPECT_THAT(targets.lights, IsEmpty());
    const ksTourExtras extras(targets);
    EXPECT_THAT(targets.lights, ElementsAre(extras.light()));
    ASSERT_EQ(targets.transforms.size(), 1u);
    EXPECT_EQ(targets.transforms.front()->getParent(), extras.node());
    ASSERT_EQ(targets.layeredMaterials.size(), 1u);
    EXPECT_EQ(targets.layeredMaterials.front()->getColorComponentData().size(), 1u);
    EXPECT_EQ(targets.physicalMaterials.size(), 1u);
    EXPECT_EQ(root->getNChildren(), 1u);
}

TEST_F(ksTourExtrasTest, LeaveOutWhatTheModelHas)
{
    const osg::NodeRefPtr room(ksSceneImporter([](const QString &) {}).load(ksRoomFile()));
    ksTourTargets targets(room);
    const std::vector<osg::NodePtr> transforms = targets.transforms;
    const std::size_t lights = targets.lights.size();
    EXPECT_GT(lights, 0u);
    const ksTourExtras extras(targets);
    EXPECT_EQ(targets.transforms, transforms);
    EXPECT_EQ(targets.lights.size(), lights + 1);
    EXPECT_EQ(ksFindNode(extras.node(), "Tour transform"), osg::NullFC);
    EXPECT_EQ(ksFindNode(extras.node(), "Tour layers"), osg::NullFC);
}

TEST_F(ksTourExtrasTest, HaveAnInstanceWithOneSubstitute)
{
    ksTourTargets targets(root);
    const ksTourExtras extras(targets);
    EXPECT_TRUE(ksLights::isInstance(extras.instance()));
    EXPECT_FALSE(ksLights::isInstance(extras.light()));
    int candidates = 0;
    for (const osg::NodePtr &node : extras.light()->getCore()->getParents())
        candidates +=
            ksLights::isInstance(node) || ksLights::isExcludedFromInstanceSubstitution(node) ? 0 : 1;
    EXPECT_EQ(candidates, 1);
    EXPECT_EQ(extras.light()->getCore()->getParents().size(), 3u);
}

TEST_F(ksTourExtrasTest, ConstrainNodesOfTheModelFirst)
{
    ksTourTargets targets(root);
    const ksTourExtras extras(targets);
    EXPECT_THAT(extras.constrained(), ElementsAre(root.get(), child, extras.places().front()));
    const osg::AimConstraintPtr aim = extras.constraint();
    EXPECT_EQ(aim->getTarget(), root.get());
    EXPECT_EQ(aim->getSources().size(), 3u);
    EXPECT_NE(aim->findUpVectorConstraintObject(root.get()), osg::NullFC);
    for (const osg::NodePtr &node : extras.constrained())
        EXPECT_NE(aim->findSourceConstraintObject(node), osg::NullFC);
}

TEST_F(ksTourExtrasTest, ComeAndGoWithTheHistory)
{
    const std::ptrdiff_t before = ksLivingContainers();
    {
        std::ostringstream out;
        ksRecord record(out, {ksRecordStyle::Verbose});
        ksTranscript transcript(record);
        ksCheckedHistory history(root, transcript);
        ksTourTargets targets(root);
        const ksTourExtras extras(targets);
        extras.addTo(history);
        EXPECT_EQ(extras.node()->getParent(), root.get());
        EXPECT_EQ(child->findAttachment(osg::TagAttachment::getClassType()), extras.tags().back());
        while (history.stack()->canUndo())
            history.undo();
        EXPECT_EQ(root->getNChildren(), 1u);
        EXPECT_EQ(history.differenceCount(), 0) << out.str();
    }
    EXPECT_EQ(ksLivingContainers(), before);
}
