// SPDX-License-Identifier: MIT
#include <tests/editor/script/ksScriptFixture.h>

#include <OSGTagAttachment.h>

namespace {

using ksScriptTagsTest = ksScriptFixture<ksEditorFixture>;

} // namespace

TEST_F(ksScriptTagsTest, AddAndRemove)
{
    EXPECT_EQ(
        printed("var tags = scene.find('Child').tags; print(tags.user.length);"
                "tags.add('wood'); tags.add('old'); tags.addLayer('roof'); print(tags.user, tags.layers);"
                "tags.remove('wood'); tags.removeLayer('roof'); print(tags.user, tags.layers.length);"
                "history.undo(); history.undo(); print(tags.user, tags.layers);"),
        "0\nwood,old roof\nold 0\nwood,old roof\n");
    EXPECT_EQ(stack.count(), 5);
    const auto tags = osg::TagAttachmentPtr::dcast(child->findAttachment(osg::TagAttachment::getClassType()));
    ASSERT_NE(tags, osg::NullFC);
    EXPECT_EQ(tags->getTagValues().size(), 3u);
    run("while (history.index > 0) history.undo();");
    EXPECT_EQ(child->findAttachment(osg::TagAttachment::getClassType()), osg::NullFC);
    EXPECT_EQ(stack.redoText(), QStringLiteral("Add tag 'wood'"));
    run("while (history.index < history.count) history.redo();");
}

TEST_F(ksScriptTagsTest, SayWhatIsWrong)
{
    const std::string label = ksContainers::label(child).toStdString();
    EXPECT_EQ(errorOf("\nscene.find('Child').tags.remove('wood');"),
              ":2: Error: " + label + " has no tag 'wood'");
    EXPECT_EQ(stack.count(), 0);
    run("scene.find('Child').tags.add('wood');");
    EXPECT_EQ(errorOf("\n\nscene.find('Child').tags.add('wood');"),
              ":3: Error: " + label + " has the tag 'wood' already");
    EXPECT_EQ(errorOf("scene.find('Child').tags.removeLayer('wood');"),
              ":1: Error: " + label + " has no tag 'wood'");
}
