// SPDX-License-Identifier: MIT
#include <editor/import/ksModelFile.h>
#include <tests/editor/export/ksEverythingEdited.h>
#include <tests/editor/export/ksForeignReader.h>
#include <tests/editor/export/ksSavedScene.h>
#include <tests/editor/export/ksSceneText.h>
#include <tests/editor/ksModelCollection.h>

#include <algorithm>
#include <iostream>

namespace {

using testing::IsEmpty;

class ksSavedCollectionTest : public ksSavedSceneFixture
{
protected:
    /// Null when nothing can read it.
    osg::NodeRefPtr tryToOpen(const QString &path)
    {
        try {
            return open(path);
        } catch (const ksEditorError &) {
            return osg::NullFC;
        }
    }

    /// Whether the scene shows all that the file has.
    bool hasOpenedAll() const
    {
        return std::none_of(warnings.begin(), warnings.end(), [](const std::string &text) {
            return text.find("is not one of a transform") != std::string::npos ||
                   text.find("has no place") != std::string::npos;
        });
    }
};

} // namespace

/// As it is, and with everything in it edited, half of them in each form. Other programs find in the file
/// what they find in the model.
TEST_F(ksSavedCollectionTest, EveryModelIsEqualWhenItIsOpenedAgain)
{
    QStringList files;
    for (const std::string &folderName : ksModelCollection::formatFolders())
        files += ksModelCollection::sampleOf(ksModelCollection::filesOf(folderName));
    if (files.isEmpty())
        GTEST_SKIP() << ksModelCollection::Missing;

    int count = 0;
    int meshes = 0;
    int images = 0;
    for (const QString &file : files) {
        SCOPED_TRACE(file.toStdString());
        const osg::NodeRefPtr root = tryToOpen(file);
        if (root == osg::NullFC)
            continue;
        const char *name = ++count % 2 == 0 ? "saved.gltf" : "saved.glb";
        const bool isWhole = hasOpenedAll();
        for (const bool isEdited : {false, true}) {
            if (isEdited)
                const ksEverythingEdited edited(root.get());
            const osg::NodeRefPtr again = reopened(root, name);
            EXPECT_EQ(ksDifference(ksSceneText::of(root), ksSceneText::of(again)), "");
            EXPECT_THAT(warnings, IsEmpty());
            const ksForeignReader reader(folder.path(name));
            ASSERT_NE(reader.scene(), nullptr);
            meshes += reader.expectNodes(root);
            images += isEdited ? 0 : reader.expectImages(root);
            if (isWhole && !isEdited)
                reader.expectWorldOf(ksModelFile(file).scene());
        }
    }
    std::cout << count << " of " << files.size() << " models could be opened\n";
    EXPECT_GT(count, files.size() / 3);
    EXPECT_GT(meshes, count);
    EXPECT_GT(images, 0);
}
