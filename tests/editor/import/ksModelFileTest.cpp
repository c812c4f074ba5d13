// SPDX-License-Identifier: MIT
#include <editor/import/ksModelFile.h>
#include <editor/session/ksMemory.h>
#include <tests/editor/ksEditorFixture.h>

#include <QDir>
#include <assimp/Exporter.hpp>
#include <assimp/Importer.hpp>
#include <assimp/postprocess.h>
#include <assimp/scene.h>

#include <cmath>
#include <memory>
#include <unistd.h>
#include <vector>

namespace {

using testing::ElementsAre;

const char *const Triangle = "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n";

class ksModelFileTest : public testing::Test
{
protected:
    /// What the error says about the file \a name beyond its path.
    std::string reasonAgainst(const std::string &name) const
    {
        const std::string path = folder.path(name).toStdString();
        const std::string error = ksErrorOf([&] {
            const ksModelFile file(folder.path(name), [](const QString &warning) {
                ADD_FAILURE() << "a file that is refused gives one line: " << warning.toStdString();
            });
        });
        EXPECT_EQ(error.substr(0, path.size()), path);
        EXPECT_EQ(error.find('\n'), std::string::npos);
        return error.substr(std::min(error.size(), path.size()));
    }

    ksTestFolder folder;
    std::vector<std::string> warnings;
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
    EXPECT_THAT(reasonAgainst("broken.obj"), testing::StartsWith(": is damaged: "));
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

TEST_F(ksModelFileTest, SaysWhereADamagedFileIsDamaged)
{
    folder.write("object.gltf", "{\"asset\": {\"version\": \"2.0\"},\n \"nodes\": [ {\"name\": \"x\" ]\n}");
    EXPECT_EQ(reasonAgainst("object.gltf"), ": is damaged, line 2, column 27: unterminated object");
    folder.write("tags.dae", "<COLLADA xmlns=\"http://www.collada.org/2005/11/COLLADASchema\">\n</wrong>");
    EXPECT_THAT(reasonAgainst("tags.dae"), testing::StartsWith(": is damaged, line 2, column "));
    folder.write("short.glb", "glTF");
    EXPECT_THAT(reasonAgainst("short.glb"), testing::StartsWith(": is damaged: "));
    const std::string chunk = R"({"asset":{"version":"2.0"},})";
    const auto length = [](std::size_t size) { return std::string{static_cast<char>(size), 0, 0, 0}; };
    const std::string head("glTF\2\0\0\0", 8);
    folder.write("chunk.glb", head + length(20 + chunk.size()) + length(chunk.size()) + "JSON" + chunk);
    EXPECT_EQ(reasonAgainst("chunk.glb"), ": is damaged, byte 48: object is missing after a comma");
    folder.write("text.glb", "something else");
    EXPECT_EQ(reasonAgainst("text.glb"), ": is damaged: it does not begin like a file of its format, .glb");
}

/// The readers let this through.
TEST_F(ksModelFileTest, RefusesScenesThatAreNotSound)
{
    folder.write("corners.off", "OFF\n4 2 0\n0 0 0\n1 0 0\n0 1 0\n1 1 0\n3 0 1 2\n");
    EXPECT_EQ(reasonAgainst("corners.off"), ": is damaged: a mesh has a face with corners that do not exist");
}

/// Readers would go down with them until there is no more room to return.
TEST_F(ksModelFileTest, RefusesNodesThatAreNestedTooDeeply)
{
    const auto chainOf = [](int levels) {
        std::string nodes;
        for (int i = 1; i < levels; ++i)
            nodes += "{\"children\": [" + std::to_string(i) + "]},";
        return R"({"asset": {"version": "2.0"}, "scenes": [{"nodes": [0]}], "nodes": [)" + nodes + "{}]}";
    };
    EXPECT_EQ(ksErrorOf([&] { const ksModelFile file(folder.write("chain.gltf", chainOf(1000))); }), "");
    const std::string reason = ": is damaged: it is nested too deeply";
    folder.write("chain.gltf", chainOf(1001));
    EXPECT_EQ(reasonAgainst("chain.gltf"), reason);
    folder.write("chain.gltf", "{\"extras\": " + std::string(100000, '[') + std::string(100000, ']') + "}");
    EXPECT_EQ(reasonAgainst("chain.gltf"), reason);
    const auto nested = [](const char *begin, const char *open, const char *close) {
        std::string text = begin;
        for (int i = 0; i < 20000; ++i)
            text += open;
        for (int i = 0; i < 20000; ++i)
            text += close;
        return text;
    };
    folder.write("chain.dae", nested("", "<node>", "</node>"));
    EXPECT_EQ(reasonAgainst("chain.dae"), reason);
    folder.write("chain.x", nested("xof 0303txt 0032\n", "Frame f {\n", "}\n"));
    EXPECT_EQ(reasonAgainst("chain.x"), reason);
    folder.write("chain.fbx", nested("; FBX 7.5.0 project file\n", "Objects: {\n", "}\n"));
    EXPECT_EQ(reasonAgainst("chain.fbx"), reason);
    std::string joints;
    for (int i = 0; i < 1001; ++i)
        joints += "JOINT j\n{\nOFFSET 0 0 0\nCHANNELS 0\n";
    joints.replace(0, 5, "ROOT");
    folder.write("chain.bvh", "HIERARCHY\n" + joints + "End Site\n{\nOFFSET 0 0 0\n}\n" +
                                  std::string(1001, '}') + "\nMOTION\nFrames: 1\nFrame Time: 0.1\n\n");
    EXPECT_EQ(reasonAgainst("chain.bvh"), reason);
}

/// The reader of this format loses all nodes but the last.
TEST_F(ksModelFileTest, KeepsWhatMissingNodesShow)
{
    const std::string face = "0.5 0.5 0.5 0 0 0 0 1 0 1 0 0\n";
    const ksModelFile file(folder.write("nodes.raw", "Rock\n" + face + "Moss\n" + face),
                           [this](const QString &text) { warnings.push_back(text.toStdString()); });
    EXPECT_THAT(warnings, ElementsAre("the reader has lost 1 of the nodes; what they show is at the root"));
    EXPECT_EQ(file.scene().mNumMeshes, 2u);
    EXPECT_EQ(file.scene().mRootNode->mNumMeshes, 1u);
    ASSERT_EQ(file.scene().mRootNode->mNumChildren, 1u);
    ASSERT_NE(file.scene().mRootNode->mChildren[0], nullptr);
    EXPECT_NE(file.scene().mRootNode->mMeshes[0], file.scene().mRootNode->mChildren[0]->mMeshes[0]);
}

TEST_F(ksModelFileTest, NamesNumbersThatAreNotFinite)
{
    folder.write("m.mtl", "newmtl glass\nKd 0.5 inf 0\n");
    const ksModelFile file(folder.write("nan.obj", "mtllib m.mtl\no Pane\nv nan 0 0\nv 1 inf 0\nv 0 1 0\n"
                                                   "usemtl glass\nf 1 2 3\n"),
                           [this](const QString &text) { warnings.push_back(text.toStdString()); });
    EXPECT_THAT(
        warnings,
        ElementsAre("mesh 'Pane': numbers that are not finite count as 0, in 2 positions",
                    "material 'glass': $clr.diffuse has numbers that are not finite, and is left out"));
    const aiMesh &mesh = *file.scene().mMeshes[0];
    for (unsigned int i = 0; i < mesh.mNumVertices; ++i)
        EXPECT_TRUE(std::isfinite(mesh.mVertices[i].x) && std::isfinite(mesh.mVertices[i].y));
}

/// Its vertices are shared between faces, so that normals could not be made.
TEST_F(ksModelFileTest, ReadsAModelWithoutNormalsWhoseVerticesAreShared)
{
    Assimp::Importer importer;
    const std::string square =
        folder.write("square.obj", "v 0 0 0\nv 1 0 0\nv 1 1 0\nf 1 2 3\nf 1 3 2\n").toStdString();
    const aiScene *scene = importer.ReadFile(square, aiProcess_JoinIdenticalVertices);
    ASSERT_NE(scene, nullptr);
    const QString path = folder.path("square.assbin");
    ASSERT_EQ(Assimp::Exporter().Export(scene, "assbin", path.toStdString()), aiReturn_SUCCESS);
    const ksModelFile file(path);
    EXPECT_EQ(file.scene().mMeshes[0]->mNumVertices, 3u);
    EXPECT_EQ(file.scene().mMeshes[0]->mNumFaces, 2u);
}

/// What prepares meshes would say that none remain.
TEST_F(ksModelFileTest, ReadsAModelWhoseMeshesHaveNoFaces)
{
    Assimp::Importer importer;
    importer.ReadFile(folder.write("triangle.obj", Triangle).toStdString(), 0);
    const std::unique_ptr<aiScene> scene(importer.GetOrphanedScene());
    ASSERT_NE(scene, nullptr);
    scene->mMeshes[0]->mNumFaces = 0;
    scene->mMeshes[0]->mPrimitiveTypes = 0;
    const QString path = folder.path("points.assbin");
    ASSERT_EQ(Assimp::Exporter().Export(scene.get(), "assbin", path.toStdString()), aiReturn_SUCCESS);
    scene->mMeshes[0]->mNumFaces = 1;
    const ksModelFile file(path);
    ASSERT_EQ(file.scene().mNumMeshes, 1u);
    EXPECT_EQ(file.scene().mMeshes[0]->mNumVertices, 3u);
    EXPECT_EQ(file.scene().mMeshes[0]->mNumFaces, 0u);
}

/// It announces four thousand million corners.
TEST_F(ksModelFileTest, RefusesWhatTakesTooMuchMemory)
{
    if (!ksMemoryGuard::isEffective())
        GTEST_SKIP() << "the sanitizers reserve more memory than there is";
    folder.write("bomb.gltf", R"({"asset": {"version": "2.0"}, "scene": 0, "scenes": [{"nodes": [0]}],
        "nodes": [{"mesh": 0}], "meshes": [{"primitives": [{"attributes": {"POSITION": 0}}]}],
        "accessors": [{"componentType": 5126, "count": 4000000000, "type": "VEC3"}]})");
    const ksMemoryGuard guard(ksMemory::used() + 200 * 1024 * 1024);
    EXPECT_THAT(reasonAgainst("bomb.gltf"), testing::StartsWith(": "));
}

TEST_F(ksModelFileTest, ShowsWhatTheReaderComplainsAbout)
{
    const ksModelFile file(folder.write("odd.obj", std::string("mtllib missing.mtl\n") + Triangle),
                           [this](const QString &text) { warnings.push_back(text.toStdString()); });
    EXPECT_THAT(warnings, testing::Contains("OBJ: Unable to locate material file missing.mtl"));
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
