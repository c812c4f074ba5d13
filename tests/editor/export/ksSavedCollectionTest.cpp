// SPDX-License-Identifier: MIT
#include <tests/editor/export/ksEverythingEdited.h>
#include <tests/editor/export/ksSavedScene.h>
#include <tests/editor/export/ksSceneText.h>
#include <tests/editor/ksModelCollection.h>

#include <assimp/Importer.hpp>
#include <assimp/postprocess.h>
#include <assimp/scene.h>

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

    /// That Assimp finds nothing wrong with the file.
    static void expectSound(const QString &path)
    {
        Assimp::Importer importer;
        const aiScene *scene = importer.ReadFile(path.toStdString(), aiProcess_ValidateDataStructure);
        ASSERT_NE(scene, nullptr) << importer.GetErrorString();
        EXPECT_EQ(scene->mFlags & AI_SCENE_FLAGS_VALIDATION_WARNING, 0u);
    }
};

} // namespace

/// As it is, and with everything in it edited, half of them in each form.
TEST_F(ksSavedCollectionTest, EveryModelIsEqualWhenItIsOpenedAgain)
{
    QStringList files;
    for (const std::string &folderName : ksModelCollection::formatFolders())
        files += ksModelCollection::sampleOf(ksModelCollection::filesOf(folderName));
    if (files.isEmpty())
        GTEST_SKIP() << ksModelCollection::Missing;

    int count = 0;
    for (const QString &file : files) {
        SCOPED_TRACE(file.toStdString());
        const osg::NodeRefPtr root = tryToOpen(file);
        if (root == osg::NullFC)
            continue;
        const char *name = ++count % 2 == 0 ? "saved.gltf" : "saved.glb";
        for (const bool isEdited : {false, true}) {
            if (isEdited)
                const ksEverythingEdited edited(root.get());
            const osg::NodeRefPtr again = reopened(root, name);
            EXPECT_EQ(ksDifference(ksSceneText::of(root), ksSceneText::of(again)), "");
            EXPECT_THAT(warnings, IsEmpty());
            expectSound(folder.path(name));
        }
    }
    std::cout << count << " of " << files.size() << " models could be opened\n";
    EXPECT_GT(count, files.size() / 3);
}
