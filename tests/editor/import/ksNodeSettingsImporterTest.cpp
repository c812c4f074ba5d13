// SPDX-License-Identifier: MIT
#include <editor/import/ksNodeSettingsImporter.h>
#include <tests/editor/ksEditorFixture.h>

#include <assimp/scene.h>

#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ksNodeSettingsImporterTest : public testing::Test
{
protected:
    ksNodeSettingsImporterTest()
    {
        node.mName = "Table";
        node.mMetaData = new aiMetadata;
    }

    template <class T>
    void say(const char *key, const T &value)
    {
        node.mMetaData->Add(key, value);
    }

    osg::ksNodeSettingsRefPtr read()
    {
        return osg::ksNodeSettingsRefPtr(ksNodeSettingsImporter::create(
            node, [this](const QString &text) { warnings.push_back(text.toStdString()); }));
    }

    aiNode node;
    std::vector<std::string> warnings;
};

} // namespace

TEST_F(ksNodeSettingsImporterTest, ReadsSettingsOfEveryType)
{
    say("layer", uint64_t(255));
    say("lodBias", int32_t(-128));
    say("renderOrder", int32_t(-200));
    say("stencilReference", uint64_t(40000));
    say("pickId", uint64_t(4000000000));
    say("sortKey", int32_t(-70000));
    say("userFlags", uint64_t(18446744073709551615u));
    say("revision", uint64_t(9007199254740993));
    say("opacity", 0.25);
    say("timeOffset", 1.5F);
    say("locked", true);
    say("comment", aiString("oiled"));
    const osg::ksNodeSettingsRefPtr settings(read());
    EXPECT_EQ(settings->getLayer(), 255);
    EXPECT_EQ(settings->getLodBias(), -128);
    EXPECT_EQ(settings->getRenderOrder(), -200);
    EXPECT_EQ(settings->getStencilReference(), 40000);
    EXPECT_EQ(settings->getPickId(), 4000000000);
    EXPECT_EQ(settings->getSortKey(), -70000);
    EXPECT_EQ(settings->getUserFlags(), 18446744073709551615u);
    EXPECT_EQ(settings->getRevision(), 9007199254740993);
    EXPECT_EQ(settings->getOpacity(), 0.25F);
    EXPECT_EQ(settings->getTimeOffset(), 1.5);
    EXPECT_TRUE(settings->getLocked());
    EXPECT_EQ(settings->getComment(), "oiled");
    EXPECT_THAT(warnings, IsEmpty());
}

TEST_F(ksNodeSettingsImporterTest, LeavesOtherEntriesAlone)
{
    say("maker", aiString("unknown"));
    say("parents", int32_t(3));
    say("internal", true);
    EXPECT_FALSE(read()->getInternal().getValue());
    EXPECT_THAT(warnings, IsEmpty());
}

TEST_F(ksNodeSettingsImporterTest, WarnsOfValuesThatDoNotFit)
{
    say("layer", uint64_t(256));
    say("pickId", int32_t(-1));
    say("sortKey", 0.5);
    say("locked", int32_t(1));
    say("comment", 2.0);
    say("opacity", aiVector3D(1, 2, 3));
    say("renderOrder", int32_t(5));
    const osg::ksNodeSettingsRefPtr settings(read());
    EXPECT_EQ(settings->getLayer(), 0);
    EXPECT_EQ(settings->getOpacity(), 1);
    EXPECT_EQ(settings->getRenderOrder(), 5);
    EXPECT_THAT(warnings,
                ElementsAre("node 'Table': layer is no SFUInt8", "node 'Table': pickId is no SFUInt32",
                            "node 'Table': sortKey is no SFInt32", "node 'Table': locked is no SFBool",
                            "node 'Table': comment is no SFString", "node 'Table': opacity is no SFReal32"));
}

TEST_F(ksNodeSettingsImporterTest, GivesDefaultsWithoutMetadata)
{
    delete node.mMetaData;
    node.mMetaData = nullptr;
    EXPECT_EQ(read()->getOpacity(), 1);
}
