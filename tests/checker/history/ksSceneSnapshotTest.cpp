// SPDX-License-Identifier: MIT
#include <checker/history/ksSceneSnapshot.h>
#include <tests/editor/ksEditorFixture.h>

#include <vector>

namespace {

using testing::IsEmpty;
using testing::SizeIs;
using Scope = ksSceneSnapshot::Scope;

class ksSceneSnapshotTest : public ksEditorFixture
{
protected:
    std::vector<ksDifference> changes(Scope scope = Scope::Scene) const
    {
        return before.differences(ksSceneSnapshot(root, before), scope);
    }

    ksSceneSnapshot before{root, {}};
};

} // namespace

TEST_F(ksSceneSnapshotTest, EqualsItself)
{
    EXPECT_THAT(changes(Scope::Everything), IsEmpty());
    EXPECT_THAT(before.differences(ksSceneSnapshot(root, {}), Scope::Everything), IsEmpty());
}

TEST_F(ksSceneSnapshotTest, NamesTheFieldThatChanged)
{
    childSettings()->setLayer(3);
    ASSERT_THAT(changes(), SizeIs(1));
    const ksDifference difference = changes().front();
    EXPECT_EQ(difference.container, childSettings().getFieldContainerId());
    EXPECT_EQ(difference.type, "ksNodeSettings");
    EXPECT_EQ(difference.field, osg::UInt32(osg::ksNodeSettings::LayerFieldId));
    EXPECT_EQ(difference.name, "layer");
    EXPECT_EQ(difference.expected, "0");
    EXPECT_EQ(difference.actual, "3");
}

TEST_F(ksSceneSnapshotTest, SeesEveryFieldThatChanged)
{
    childSettings()->setLayer(3);
    childSettings()->setComment("new");
    root->setTravMask(1);
    EXPECT_THAT(changes(), SizeIs(3));
}

TEST_F(ksSceneSnapshotTest, ComparesTheSceneOrEverything)
{
    const osg::ksNodeSettingsRefPtr loose(osg::ksNodeSettings::create());
    EXPECT_THAT(changes(Scope::Scene), IsEmpty());
    ASSERT_THAT(changes(Scope::Everything), SizeIs(1));
    const ksDifference difference = changes(Scope::Everything).front();
    EXPECT_EQ(difference.container, loose.get().getFieldContainerId());
    EXPECT_EQ(difference.field, 0u);
    EXPECT_EQ(difference.expected, "absent");
    EXPECT_EQ(difference.actual, "present");
}

TEST_F(ksSceneSnapshotTest, ComparesWhatIsKeptOutOfTheScene)
{
    const osg::NodeRefPtr kept(child);
    const osg::ksNodeSettingsPtr settings = childSettings();
    root->subChild(child);
    const ksSceneSnapshot outside(root, before);
    settings->setLayer(3);
    const osg::ksNodeSettingsRefPtr added(osg::ksNodeSettings::create());
    const ksSceneSnapshot edited(root, before);
    EXPECT_THAT(outside.differences(edited, Scope::Scene), IsEmpty());
    ASSERT_THAT(outside.differences(edited, Scope::Kept), SizeIs(1));
    EXPECT_EQ(outside.differences(edited, Scope::Kept).front().name, "layer");
    // What is in the scene at one time and out of it at the other is missing there.
    for (const auto &[one, other] : {std::pair(before, edited), std::pair(edited, before)}) {
        EXPECT_EQ(one.differences(other, Scope::Kept).size(), one.differences(other, Scope::Scene).size());
        EXPECT_EQ(one.differences(other, Scope::Kept).back().field, 0u);
    }
}

TEST_F(ksSceneSnapshotTest, SeesContainersThatLeaveTheScene)
{
    const osg::NodeRefPtr kept(child);
    const osg::UInt32 id = child.getFieldContainerId();
    root->subChild(child);
    const std::vector<ksDifference> found = changes();
    EXPECT_EQ(std::count_if(found.begin(), found.end(),
                            [id](const ksDifference &difference) {
                                return difference.container == id && difference.actual == "absent";
                            }),
              1);
    EXPECT_EQ(before.count(Scope::Scene) - ksSceneSnapshot(root, before).count(Scope::Scene), 4);
}

TEST_F(ksSceneSnapshotTest, SeesContainersThatHaveGone)
{
    const osg::ksNodeSettingsPtr settings = childSettings();
    const osg::UInt32 id = settings.getFieldContainerId();
    child->subAttachment(settings);
    ASSERT_EQ(osg::FieldContainerFactory::the()->getContainer(id), osg::NullFC);
    const std::vector<ksDifference> found = changes();
    ASSERT_THAT(found, SizeIs(2));
    EXPECT_EQ(found[0].name, "attachments");
    EXPECT_EQ(found[1].container, id);
    EXPECT_EQ(found[1].actual, "absent");
}

TEST_F(ksSceneSnapshotTest, CountsWhatCanBeReached)
{
    // Two nodes, each with a core, a name and settings.
    EXPECT_EQ(before.count(Scope::Scene), 8);
    const std::ptrdiff_t living = ksLivingContainers();
    EXPECT_EQ(ksSceneSnapshot(root, before).count(Scope::Everything), living);
}

TEST_F(ksSceneSnapshotTest, AdoptsOneFieldOfAnother)
{
    const osg::UInt32 id = childSettings().getFieldContainerId();
    childSettings()->setLayer(3);
    childSettings()->setComment("new");
    const ksSceneSnapshot after(root, before);
    before.adopt(after, id, osg::ksNodeSettings::LayerFieldId);
    EXPECT_EQ(before.text(id, osg::ksNodeSettings::LayerFieldId), "3");
    ASSERT_THAT(before.differences(after, Scope::Scene), SizeIs(1));
    EXPECT_EQ(before.differences(after, Scope::Scene).front().name, "comment");
}

TEST_F(ksSceneSnapshotTest, IsNotTouchedByWhatItLacks)
{
    const osg::UInt32 id = childSettings().getFieldContainerId();
    ksSceneSnapshot empty;
    empty.adopt(before, id, osg::ksNodeSettings::LayerFieldId);
    EXPECT_EQ(empty.text(id, osg::ksNodeSettings::LayerFieldId), "");
    before.adopt(empty, id, osg::ksNodeSettings::LayerFieldId);
    EXPECT_EQ(before.text(id, osg::ksNodeSettings::LayerFieldId), "0");
    EXPECT_EQ(before.content(id, osg::ksNodeSettings::LayerFieldId), std::string(1, 0));
    EXPECT_EQ(empty.content(id, osg::ksNodeSettings::LayerFieldId), "");
    EXPECT_EQ(before.text(id, 99), "");
    EXPECT_EQ(before.text(id, 0), "");
}
