// SPDX-License-Identifier: MIT
#include <editor/import/ksModelFile.h>
#include <tests/editor/ksEditorFixture.h>

#include <QDir>
#include <assimp/scene.h>

#include <unistd.h>

namespace {

const char *const Triangle = "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n";

class ksModelFileTest : public testing::Test
{
protected:
    /// What the error says about the file \a name beyond its path.
    std::string reasonAgainst(const std::string &name) const
    {
        const std::string path = folder.path(name).toStdString();
        const std::string error = ksErrorOf([&] { ksModelFile file(folder.path(name)); });
        EXPECT_EQ(error.substr(0, path.size()), path);
        EXPECT_EQ(error.find('\n'), std::string::npos);
        return error.substr(std::min(error.size(), path.size()));
    }

    ksTestFolder folder;
};

} // namespace

TEST_F(ksModelFileTest, ReadsAModel)
{
    const ksModelFile file(folder.write("triangle.obj", Triangle));
    ASSERT_EQ(file.scene().mNumMeshes, 1u);
    EXPECT_EQ(file.scene().mMeshes[0]->mNumFaces, 1u);
    EXPECT_TRUE(file.scene().mMeshes[0]->HasNormals());
    EXPECT_EQ(file.format(), ksModelFormat::Other);
    EXPECT_EQ(file.folder(), QFileInfo(folder.path("triangle.obj")).absolutePath());
}

TEST_F(ksModelFileTest, KnowsTheFormatsWithOwnConventions)
{
    EXPECT_EQ(ksModelFile(ksRoomFile()).format(), ksModelFormat::Gltf);
    const char *const collada =
        "<COLLADA xmlns=\"http://www.collada.org/2005/11/COLLADASchema\" version=\"1.4.1\">"
        "<library_visual_scenes><visual_scene id=\"s\"><node id=\"n\" name=\"n\"/></visual_scene>"
        "</library_visual_scenes><scene><instance_visual_scene url=\"#s\"/></scene></COLLADA>";
    EXPECT_EQ(ksModelFile(folder.write("empty.dae", collada)).format(), ksModelFormat::Collada);
}

TEST_F(ksModelFileTest, TurnsFacesIntoTriangles)
{
    const ksModelFile file(folder.write("square.obj", "v 0 0 0\nv 1 0 0\nv 1 1 0\nv 0 1 0\nf 1 2 3 4\n"));
    EXPECT_EQ(file.scene().mMeshes[0]->mNumFaces, 2u);
}

TEST_F(ksModelFileTest, ReadsPointsWithoutFaces)
{
    const ksModelFile file(folder.write("points.ply", "ply\nformat ascii 1.0\nelement vertex 2\n"
                                                      "property float x\nproperty float y\nproperty float z\n"
                                                      "end_header\n0 0 0\n1 2 3\n"));
    EXPECT_EQ(file.scene().mMeshes[0]->mNumVertices, 2u);
}

TEST_F(ksModelFileTest, SaysWhatIsWrongWithAFile)
{
    EXPECT_EQ(reasonAgainst("missing.obj"), ": no such file");
    folder.write("empty.obj", "");
    EXPECT_EQ(reasonAgainst("empty.obj"), ": is empty");
    folder.write("notes.txt", "not a model");
    EXPECT_EQ(reasonAgainst("notes.txt"), ": no reader knows this format");
    folder.write("broken.obj", "v 0 0 0\nf 1 2 3\n");
    EXPECT_THAT(reasonAgainst("broken.obj"), testing::StartsWith(": cannot be read: "));
    EXPECT_EQ(reasonAgainst(""), ": is a folder, not a model file");
}

TEST_F(ksModelFileTest, RefusesFilesThatMayNotBeRead)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "root may read everything";
    const QString path = folder.write("secret.obj", Triangle);
    ASSERT_TRUE(QFile::setPermissions(path, QFileDevice::WriteOwner));
    EXPECT_EQ(reasonAgainst("secret.obj"), ": may not be read");
}

/// The readers let these through.
TEST_F(ksModelFileTest, RefusesScenesThatAreNotSound)
{
    folder.write("corners.off", "OFF\n4 2 0\n0 0 0\n1 0 0\n0 1 0\n1 1 0\n3 0 1 2\n");
    EXPECT_EQ(reasonAgainst("corners.off"), ": malformed: a mesh has a face with corners that do not exist");
    const std::string face = "0.5 0.5 0.5 0 0 0 0 1 0 1 0 0\n";
    folder.write("node.raw", "Rock\n" + face + "Moss\n" + face);
    EXPECT_EQ(reasonAgainst("node.raw"), ": malformed: a node is missing");
}

/// One of the readers writes to standard error by itself.
TEST_F(ksModelFileTest, KeepsReadersQuiet)
{
    folder.write("camera.ogex", "CameraObject {}\n");
    testing::internal::CaptureStderr();
    const std::string reason = reasonAgainst("camera.ogex");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_NE(reason, "");
}
