// SPDX-License-Identifier: MIT
#include "ksEditorFixture.h"

#include <ksundo/core/ksUndoStack.h>

#include <ksCheckedHistory.h>
#include <ksSceneImporter.h>
#include <ksTour.h>
#include <ksTranscript.h>

#include <set>
#include <sstream>

namespace {

class ksTourTest : public testing::Test
{
protected:
    void tour(const osg::NodePtr &root)
    {
        ksTranscript transcript(out);
        ksCheckedHistory history(root, transcript);
        const ksSceneSnapshot before(root, {});
        ksTour(history).run();
        EXPECT_EQ(history.differenceCount(), 0) << out.str();
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

    /// The names of the containers' classes and fields that the tour changed.
    std::set<std::string> changedFields() const
    {
        std::set<std::string> fields;
        std::istringstream lines(out.str());
        for (std::string line; std::getline(lines, line);) {
            std::istringstream words(line);
            std::string label;
            std::string type;
            words >> label >> type;
            const std::size_t colon = line.find(": ");
            if (label == "changed" && colon != std::string::npos) {
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
    const osg::NodeRefPtr room = ksSceneImporter([](const QString &) {}).load(ksRoomFile());
    tour(room);
    const std::set<std::string> fields = changedFields();
    for (const char *field :
         {"ksNodeSettings.layer", "ksNodeSettings.lodBias", "ksNodeSettings.renderOrder",
          "ksNodeSettings.stencilReference", "ksNodeSettings.pickId", "ksNodeSettings.sortKey",
          "ksNodeSettings.userFlags", "ksNodeSettings.revision", "ksNodeSettings.opacity",
          "ksNodeSettings.timeOffset", "ksNodeSettings.locked", "Node.travMask",
          "SimpleTexturedMaterial.shininess", "SimpleTexturedMaterial.lit", "PointLight.on",
          "PointLight.constantAttenuation", "DirectionalLight.on", "Image.resX"})
        EXPECT_EQ(fields.count(field), 1u) << field;
    // The layout of pixels and what the scene graph keeps itself are left alone.
    for (const char *field : {"Image.width", "Image.bpp", "Node.volume", "ksMesh.cornersPerFace"})
        EXPECT_EQ(fields.count(field), 0u) << field;
}

TEST_F(ksTourTest, WorksOnASingleNode)
{
    tourOneNode();
}
