// SPDX-License-Identifier: MIT
#include <checker/history/ksCheckedHistory.h>
#include <checker/history/ksTranscript.h>
#include <checker/tour/ksCommandClasses.h>
#include <checker/tour/ksTour.h>
#include <editor/history/ksRecord.h>
#include <editor/import/ksSceneImporter.h>
#include <editor/ksEditorError.h>
#include <editor/session/ksOpenScene.h>
#include <tests/editor/ksEditorFixture.h>

#include <ksundo/core/ksUndoStack.h>
#include <ksundo/transform/ksEulerRotationOrderUndoCommand.h>
#include <ksundo/transform/ksTransformValueUndoCommands.h>

#include <set>
#include <sstream>

namespace {

/// Whether commands of a few classes would call a sync function.
struct ksSyncProbe : ksTranslationUndoCommand, ksEulerRotationOrderUndoCommand
{
    static bool isSyncing()
    {
        return ksTranslationUndoCommand::s_sync || ksEulerRotationOrderUndoCommand::s_sync;
    }
};

class ksTourTest : public testing::Test
{
protected:
    void tour(const osg::NodePtr &root)
    {
        const ksOpenScene scene(root);
        ksRecord record(out, {ksRecordStyle::Verbose});
        ksTranscript transcript(record);
        ksCheckedHistory history(root, transcript);
        const ksSceneSnapshot before(root, {});
        ksTour(history).run();
        EXPECT_EQ(history.differenceCount(), 0) << out.str();
        EXPECT_EQ(ksCommandClasses::countIn(history), static_cast<int>(ksCommandClasses::all().size()));
        EXPECT_FALSE(ksSyncProbe::isSyncing());
        EXPECT_EQ(history.stack()->index(), 0);
        EXPECT_GT(history.stack()->count(), 20);
        EXPECT_TRUE(before.differences(ksSceneSnapshot(root, before), ksSceneSnapshot::Scope::Scene).empty());
    }

    void tourOneNode()
    {
        const osg::NodeRefPtr node(osg::Node::create());
        {
            CPEdit(node.get(), osg::Node::AttachmentsFieldMask);
            node->addAttachment(osg::ksNodeSettings::create());
        }
        tour(node);
    }

    /// The names of the containers' classes and fields that the lines of the transcript called \a wanted are
    /// about.
    std::set<std::string> fieldsAfter(const std::string &wanted) const
    {
        std::set<std::string> fields;
        std::istringstream lines(out.str());
        for (std::string line; std::getline(lines, line);) {
            std::istringstream words(line);
            std::string label;
            std::string type;
            words >> label >> type;
            const std::size_t colon = line.find(": ");
            if (label == wanted && colon != std::string::npos) {
                const std::size_t space = line.rfind(' ', colon - 1);
                fields.insert(type + '.' + line.substr(space + 1, colon - space - 1));
            }
        }
        return fields;
    }

    std::ostringstream out;
};

} // namespace

TEST_F(ksTourTest, EditsEveryKindOfContainerOfTheRoom)
{
    const osg::NodeRefPtr room(ksSceneImporter([](const QString &) {}).load(ksRoomFile()));
    tour(room);
    const std::set<std::string> fields = fieldsAfter("changed");
    for (const char *field : {"ksNodeSettings.layer",
                              "ksNodeSettings.lodBias",
                              "ksNodeSettings.renderOrder",
                              "ksNodeSettings.stencilReference",
                              "ksNodeSettings.pickId",
                              "ksNodeSettings.sortKey",
                              "ksNodeSettings.userFlags",
                              "ksNodeSettings.revision",
                              "ksNodeSettings.opacity",
                              "ksNodeSettings.timeOffset",
                              "ksNodeSettings.locked",
                              "Node.travMask",
                              "UberMaterial.sortKey",
                              "UBRDFMaterial.roughness",
                              "UberLight.intensity",
                              "UberLight.coneAngle",
                              "UberLight.attenuation",
                              "Image.resX",
                              "Transform3D.translation",
                              "Transform3D.rotation",
                              "Transform3D.eulerRotation",
                              "Transform3D.eulerRotationOrder",
                              "Transform3D.scale",
                              "Transform3D.shear",
                              "Transform3D.scalePivot",
                              "Transform3D.rotatePivot",
                              "Transform3D.scalePivotTranslation",
                              "Transform3D.rotatePivotTranslation",
                              "Transform3D.rotationOrientation",
                              "Transform3D.rotationDirection",
                              "Transform3D.matrix",
                              "TransformVariant.name",
                              "TransformVariant.applyFlags",
                              "TransformVariantsAttachment.variants",
                              "ksNodeSettings.comment",
                              "UberLight.diffuse",
                              "UberLight.glossy",
                              "UberLight.penumbraAngle",
                              "UberLight.visibilityReference",
                              "Node.externalFlags",
                              "LightLinkSet.lights",
                              "LightLinkSet.sceneNodes",
                              "ColorComponent.color",
                              "ColorComponent.weight",
                              "ColorComponent.enabled",
                              "ColorComponent.image",
                              "ColorComponentSettings.mappingRotation",
                              "ColorComponentSettings.planarProjection",
                              "ColorComponentSettings.projectionSize",
                              "UBRDFMaterial.environment",
                              "TagAttachment.systemTags",
                              "TagAttachment.userTags",
                              "TagAttachment.layerTags",
                              "TagAttachment.tagValues",
                              "AimConstraint.sources",
                              "AimConstraint.upVectorSources",
                              "AimConstraint.target"})
        EXPECT_EQ(fields.count(field), 1u) << field;
    // The layout of pixels and what the scene graph keeps itself are left alone.
    for (const char *field : {"Image.width", "Image.bpp", "Node.volume", "ksMesh.cornersPerFace"})
        EXPECT_EQ(fields.count(field), 0u) << field;
    // Only what is calculated through world space may come back other than bit for bit, and what commands do
    // not restore: a number that is edited as a flag, a flag that calls a method, the order of sources.
    EXPECT_THAT(fieldsAfter("expected"),
                testing::UnorderedElementsAre("ksNodeSettings.stencilReference", "ksNodeSettings.locked",
                                              "AimConstraint.sources", "Transform3D.matrix",
                                              "Transform3D.translation", "Transform3D.scalePivot",
                                              "Transform3D.rotatePivot"));
}

TEST_F(ksTourTest, WorksOnASingleNode)
{
    tourOneNode();
}

/// Wherever it is ended, what it has made is released, and the checks find nothing.
TEST_F(ksTourTest, LeavesNothingBehindWhenItIsEnded)
{
    // Before each of the first steps, and now and then on the way.
    constexpr int FirstSteps = 12;
    bool isOver = false;
    for (int last = 1; !isOver; last += last < FirstSteps ? 1 : last) {
        const std::ptrdiff_t before = ksLivingContainers();
        {
            const osg::NodeRefPtr node(osg::Node::create());
            {
                CPEdit(node.get(), osg::Node::AttachmentsFieldMask);
                node->addAttachment(osg::ksNodeSettings::create());
            }
            const ksOpenScene scene(node.get());
            ksRecord record(out, {ksRecordStyle::Quiet});
            ksTranscript transcript(record);
            ksCheckedHistory history(node, transcript);
            int calls = 0;
            const auto stopAtLast = [&calls, last] {
                if (++calls == last)
                    throw ksScriptError("ended");
            };
            try {
                ksTour(history, stopAtLast).run();
                isOver = true;
                EXPECT_EQ(calls, transcript.stepCount());
            } catch (const ksScriptError &) {
                EXPECT_EQ(calls, last);
                EXPECT_EQ(transcript.stepCount(), last - 1);
            }
            EXPECT_EQ(history.stack()->index(), 0);
            EXPECT_TRUE(history.check()) << last;
        }
        EXPECT_EQ(ksLivingContainers(), before) << last;
    }
    EXPECT_EQ(out.str(), "");
}

/// The root of the whole scene graph may not be linked to lights; where nobody says which node that is, it
/// is.
TEST_F(ksTourTest, NoticesThatTheApplicationDoesNotKnowTheScene)
{
    const osg::NodeRefPtr node(osg::Node::create());
    {
        CPEdit(node.get(), osg::Node::AttachmentsFieldMask);
        node->addAttachment(osg::ksNodeSettings::create());
    }
    ksRecord record(out, {ksRecordStyle::Verbose});
    ksTranscript transcript(record);
    ksCheckedHistory history(node, transcript);
    ksTour(history).run();
    EXPECT_GT(history.differenceCount(), 0);
    EXPECT_THAT(out.str(), testing::HasSubstr("FAILS    all but the root are listed\n"));
}
