// SPDX-License-Identifier: MIT
#include <editor/history/ksRecord.h>
#include <editor/history/ksRecordedHistory.h>
#include <editor/script/ksScriptEngine.h>
#include <editor/session/ksOpenScene.h>
#include <tests/editor/export/ksEverythingEdited.h>
#include <tests/editor/export/ksForeignReader.h>
#include <tests/editor/export/ksSavedScene.h>
#include <tests/editor/export/ksSceneText.h>

#include <OSGUBRDFMaterial.h>
#include <OpenSG/OSGTransform.h>
#include <ksTextureManager.h>

#include <QDir>
#include <QImage>
#include <assimp/scene.h>

#include <csignal>
#include <limits>
#include <optional>
#include <sstream>
#include <sys/resource.h>
#include <unistd.h>

namespace {

using testing::EndsWith;
using testing::IsEmpty;
using testing::StartsWith;

class ksSceneExporterTest : public ksSavedSceneFixture
{
protected:
    /// A mesh of one triangle, whose vertices are in an order of their own and are not all used.
    static osg::ksMeshPtr makeMesh()
    {
        const osg::ksMeshPtr mesh = osg::ksMesh::create();
        mesh->getPositions().getValues() = {{0, 1, 0}, {9, 9, 9}, {1, 0, 0}, {0, 0, 0}, {0, 0, 0}};
        mesh->getNormals().getValues() = {{0, 0, 0.3F}, {0, 0, 1}, {0, 0, 1}, {0, 0, 1}, {0, 0, 1}};
        mesh->getTexCoords().getValues() = {{0, 0.1F}, {0, 0}, {1, -0.3F}, {0.5F, 1}, {0, 7.7F}};
        mesh->getIndices().getValues() = {3, 2, 0};
        return mesh;
    }

    static osg::NodeRefPtr makeScene(const osg::NodeCorePtr &core)
    {
        return osg::NodeRefPtr(ksContainers::createNode("Root", core));
    }

    void expectEqualAgain(const osg::NodePtr &root)
    {
        for (const char *name : {"saved.gltf", "saved.glb"}) {
            const osg::NodeRefPtr again = reopened(root, name);
            EXPECT_EQ(ksDifference(ksSceneText::of(root), ksSceneText::of(again)), "") << name;
            EXPECT_THAT(warnings, IsEmpty()) << name;
        }
    }

    std::string contentOf(const char *name) const
    {
        QFile file(folder.path(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
        return file.readAll().toStdString();
    }

    std::string errorOfSaving(const QString &path) const
    {
        const osg::NodeRefPtr scene = makeScene(makeMesh());
        return ksErrorOf([&] { ksSceneExporter::save(scene, path); });
    }

    QStringList files() const { return QDir(folder.path("")).entryList(QDir::Files); }
};

/// The room as its script leaves it.
class ksSavedRoomTest : public ksSceneExporterTest
{
protected:
    ksSavedRoomTest() { ksScriptEngine(history, out).run(QStringLiteral(KS_ROOM_SCRIPT)); }

    /// What another program reads of it.
    const aiScene &read(const char *name)
    {
        ksSceneExporter::save(root, folder.path(name));
        reader.emplace(folder.path(name));
        return *reader->scene();
    }

    osg::NodeRefPtr root{open(ksRoomFile())};
    const ksOpenScene scene{root.get()};
    std::ostringstream out;
    ksRecord record{out};
    ksRecordedHistory history{root.get(), record};
    std::optional<ksForeignReader> reader;
};

/// Limits the size of files that are written.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
        : handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &before);
        rlimit limit = before;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
    }
    FileSizeLimit(const FileSizeLimit &) = delete;
    FileSizeLimit &operator=(const FileSizeLimit &) = delete;

private:
    rlimit before{};
    void (*handler)(int);
};

const aiMaterial *findMaterial(const aiScene &scene, const char *name)
{
    for (unsigned int i = 0; i < scene.mNumMaterials; ++i)
        if (std::string(scene.mMaterials[i]->GetName().C_Str()) == name)
            return scene.mMaterials[i];
    return nullptr;
}

const aiLight *findLight(const aiScene &scene, const char *name)
{
    for (unsigned int i = 0; i < scene.mNumLights; ++i)
        if (std::string(scene.mLights[i]->mName.C_Str()) == name)
            return scene.mLights[i];
    return nullptr;
}

} // namespace

TEST_F(ksSavedRoomTest, IsEqualWhenItIsOpenedAgain)
{
    expectEqualAgain(root);
}

TEST_F(ksSavedRoomTest, IsEqualWithEverythingInItEdited)
{
    const ksEverythingEdited edited(root.get());
    expectEqualAgain(root);
    const std::string first = contentOf("saved.glb");
    reopened(open(folder.path("saved.glb")).get(), "saved.glb");
    EXPECT_EQ(contentOf("saved.glb"), first);
}

TEST_F(ksSavedRoomTest, GivesOtherProgramsItsNodesAndImages)
{
    for (const char *name : {"saved.gltf", "saved.glb"}) {
        const aiScene &scene = read(name);
        EXPECT_GT(reader->expectNodes(root), 20);
        EXPECT_GT(reader->expectImages(root), 4);
        ksForeignReader::visitPairs(root, *scene.mRootNode, [](const osg::NodePtr &node, const aiNode &read) {
            EXPECT_STREQ(read.mName.C_Str(), osg::getName(node));
        });
    }
}

TEST_F(ksSavedRoomTest, GivesOtherProgramsItsMaterials)
{
    for (const char *name : {"saved.gltf", "saved.glb"}) {
        const aiScene &scene = read(name);
        const aiMaterial *walnut = findMaterial(scene, "Walnut");
        ASSERT_NE(walnut, nullptr);
        aiColor4D colour;
        EXPECT_EQ(walnut->Get(AI_MATKEY_BASE_COLOR, colour), aiReturn_SUCCESS);
        EXPECT_EQ(colour, aiColor4D(0.32F, 0.19F, 0.1F, 1));
        float number = 0;
        EXPECT_EQ(walnut->Get(AI_MATKEY_ROUGHNESS_FACTOR, number), aiReturn_SUCCESS);
        EXPECT_EQ(number, 0.25F);
        EXPECT_EQ(walnut->Get(AI_MATKEY_METALLIC_FACTOR, number), aiReturn_SUCCESS);
        EXPECT_EQ(number, 0);

        const aiMaterial *glass = findMaterial(scene, "Glass");
        ASSERT_NE(glass, nullptr);
        EXPECT_EQ(glass->Get(AI_MATKEY_OPACITY, number), aiReturn_SUCCESS);
        EXPECT_EQ(number, 0.25F);
        aiColor3D glow;
        const aiMaterial *shade = findMaterial(scene, "Shade");
        ASSERT_NE(shade, nullptr);
        EXPECT_EQ(shade->Get(AI_MATKEY_COLOR_EMISSIVE, glow), aiReturn_SUCCESS);
        EXPECT_EQ(glow, aiColor3D(0.6F, 0.5F, 0.25F));
    }
}

/// Assimp folds intensities into colours, and gives halves of angles.
TEST_F(ksSavedRoomTest, GivesOtherProgramsItsLights)
{
    const aiScene &scene = read("saved.gltf");
    const aiLight *bulb = findLight(scene, "LampBulb light");
    ASSERT_NE(bulb, nullptr);
    const auto core = osg::UberLightPtr::dcast(ksFindNode(root, "LampBulb light")->getCore());
    EXPECT_EQ(bulb->mType, aiLightSource_POINT);
    for (unsigned int i = 0; i < 3; ++i)
        EXPECT_FLOAT_EQ(bulb->mColorDiffuse[i], core->getDiffuse()[i] * core->getIntensity());

    const aiLight *spot = findLight(scene, "CeilingSpot light");
    ASSERT_NE(spot, nullptr);
    const auto spotCore = osg::UberLightPtr::dcast(ksFindNode(root, "CeilingSpot light")->getCore());
    EXPECT_EQ(spot->mType, aiLightSource_SPOT);
    constexpr float HalvesToDegrees = 2 * 57.29577951F;
    EXPECT_FLOAT_EQ(spot->mAngleInnerCone * HalvesToDegrees, spotCore->getConeAngle());
    EXPECT_FLOAT_EQ(spot->mAngleOuterCone * HalvesToDegrees,
                    spotCore->getConeAngle() + spotCore->getPenumbraAngle());

    const aiLight *sun = findLight(scene, "Sun light");
    ASSERT_NE(sun, nullptr);
    EXPECT_EQ(sun->mType, aiLightSource_DIRECTIONAL);
}

/// Else containers would go too early, or never.
TEST_F(ksSceneExporterTest, GivesContainersTheSameReferences)
{
    // Images of other scenes are not to be shared.
    ksTextureManager::the()->clear();
    const osg::NodeRefPtr root = open(ksRoomFile());
    const ksEverythingEdited edited(root.get());
    const osg::NodeRefPtr again = reopened(root);
    EXPECT_EQ(ksDifference(ksSceneText::countsOf(root), ksSceneText::countsOf(again)), "");
}

TEST_F(ksSceneExporterTest, KeepsGeometryAsItIs)
{
    const osg::NodeRefPtr root = makeScene(makeMesh());
    expectEqualAgain(root);
    for (const osg::UInt8 corners : {1, 2}) {
        const osg::ksMeshPtr mesh = makeMesh();
        mesh->setCornersPerFace(corners);
        mesh->getIndices().getValues() = {4, 0, 2, 2};
        mesh->getNormals().clear();
        expectEqualAgain(makeScene(mesh));
    }
}

/// The exporter would make them 1 long. Of such numbers the file knows no more the least and the greatest.
TEST_F(ksSceneExporterTest, KeepsNormalsOfAnyLength)
{
    const osg::NodeRefPtr root = makeScene(makeMesh());
    const QJsonObject document = saved(root);
    const QJsonValue attributes =
        document[QLatin1String("meshes")][0][QLatin1String("primitives")][0][QLatin1String("attributes")];
    const QJsonValue accessors = document[QLatin1String("accessors")];
    const QJsonObject positions = accessors[attributes[QLatin1String("POSITION")].toInt(-1)].toObject();
    const QJsonObject normals = accessors[attributes[QLatin1String("NORMAL")].toInt(-1)].toObject();
    EXPECT_EQ(positions.value(QLatin1String("max")), QJsonValue(QJsonArray({9, 9, 9})));
    EXPECT_EQ(normals.value(QLatin1String("count")), QJsonValue(5));
    EXPECT_FALSE(normals.contains(QLatin1String("min")) || normals.contains(QLatin1String("max")));
    ksForeignReader(folder.path("saved.gltf")).expectNodes(root);
}

TEST_F(ksSceneExporterTest, KeepsGeometryThatGltfDoesNotHold)
{
    const std::function<void(osg::ksMesh &)> spoilers[] = {
        [](osg::ksMesh &mesh) { mesh.getPositions()[0][1] = std::numeric_limits<float>::quiet_NaN(); },
        [](osg::ksMesh &mesh) { mesh.getIndices()[1] = 5; },
        [](osg::ksMesh &mesh) { mesh.getIndices().push_back(0); },
        [](osg::ksMesh &mesh) { mesh.getIndices().clear(); },
        [](osg::ksMesh &mesh) {
            mesh.getNormals().push_back({0, 0, 1});
        },
        [](osg::ksMesh &mesh) { mesh.setCornersPerFace(4); },
        [](osg::ksMesh &mesh) {
            mesh.getPositions().clear();
            mesh.getNormals().clear();
            mesh.getTexCoords().clear();
        }};
    for (const auto &spoil : spoilers) {
        const osg::ksMeshPtr mesh = makeMesh();
        spoil(*mesh);
        const osg::NodeRefPtr root = makeScene(mesh);
        expectEqualAgain(root);
        EXPECT_FALSE(saved(root).contains(QLatin1String("meshes")));
    }
}

TEST_F(ksSceneExporterTest, KeepsMatricesThatGltfDoesNotHold)
{
    const osg::TransformPtr transform = osg::Transform::create();
    transform->getMatrix()[3][0] = std::numeric_limits<float>::infinity();
    expectEqualAgain(makeScene(transform));
}

/// Nodes without core, without name, without settings.
TEST_F(ksSceneExporterTest, KeepsBareNodes)
{
    const osg::NodeRefPtr root(osg::Node::create());
    root->addChild(osg::Node::create());
    expectEqualAgain(root);
    EXPECT_FALSE(saved(root).contains(QLatin1String("materials")));
}

TEST_F(ksSceneExporterTest, KeepsLongNames)
{
    const std::string name(3000, 'n');
    const osg::ksMeshPtr mesh = makeMesh();
    mesh->setMaterial(osg::UBRDFMaterial::create());
    osg::setName(mesh->getMaterial(), name);
    expectEqualAgain(osg::NodeRefPtr(ksContainers::createNode(name, mesh)));
}

/// Assimp takes a move by less than a hundredth for none.
TEST_F(ksSceneExporterTest, KeepsSmallMoves)
{
    const osg::Transform3DPtr transform = osg::Transform3D::create();
    {
        CPEdit(transform, osg::Transform3D::TranslationFieldMask);
        transform->setTranslation(osg::Vec3f(0, 0, 0.005F));
    }
    const osg::NodeRefPtr root = makeScene(transform);
    const QJsonValue matrix = saved(root).value(QLatin1String("nodes"))[0][QLatin1String("matrix")];
    EXPECT_FLOAT_EQ(float(matrix[14].toDouble()), 0.005F);
    expectEqualAgain(root);
}

/// Opacity belongs to nodes here, and to materials there.
TEST_F(ksSceneExporterTest, MakesAMaterialForEachOpacity)
{
    const osg::ksMeshPtr mesh = makeMesh();
    mesh->setMaterial(osg::UBRDFMaterial::create());
    const osg::NodeRefPtr root = makeScene(mesh);
    root->addChild(ksContainers::createNode("Same", mesh));
    root->addChild(ksContainers::createNode("Faint", mesh));
    ksSettingsOf(root->getChild(1))->setOpacity(0.5F);
    const QJsonObject document = saved(root);
    const QJsonArray materials = document.value(QLatin1String("materials")).toArray();
    ASSERT_EQ(materials.size(), 2);
    EXPECT_EQ(document.value(QLatin1String("meshes")).toArray().size(), 2);
    EXPECT_TRUE(materials.at(0)[QLatin1String("alphaMode")].isUndefined());
    EXPECT_EQ(materials.at(1)[QLatin1String("alphaMode")].toString(), QStringLiteral("BLEND"));
    expectEqualAgain(root);
}

TEST_F(ksSceneExporterTest, WritesOneFile)
{
    const osg::NodeRefPtr root = open(ksRoomFile());
    ksSceneExporter::save(root, folder.path("room.gltf"));
    ksSceneExporter::save(root, folder.path("room.GLB"));
    EXPECT_EQ(files(), (QStringList{QStringLiteral("room.GLB"), QStringLiteral("room.gltf")}));
    EXPECT_THAT(contentOf("room.GLB"), StartsWith("glTF"));
}

/// No file whose nodes are nested deeper can be opened.
TEST_F(ksSceneExporterTest, RefusesNodesThatAreNestedTooDeeply)
{
    const osg::NodeRefPtr root = makeScene(osg::Group::create());
    osg::NodePtr last = root;
    const auto addLevel = [&last] {
        const osg::NodePtr child = ksContainers::createNode("Child", osg::Group::create());
        last->addChild(child);
        last = child;
    };
    for (int level = 1; level < 1000; ++level)
        addLevel();
    expectEqualAgain(root);
    addLevel();
    const QString path = folder.path("deep.gltf");
    EXPECT_EQ(ksErrorOf([&] { ksSceneExporter::save(root, path); }),
              path.toStdString() + ": cannot be saved: its nodes are nested too deeply");
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(ksSceneExporterTest, TakesPathsFromTheWorkingFolder)
{
    const QString before = QDir::currentPath();
    QDir::setCurrent(folder.path(""));
    const std::string error = errorOfSaving(QStringLiteral("scene.gltf"));
    QDir::setCurrent(before);
    EXPECT_EQ(error, "");
    EXPECT_EQ(files(), QStringList(QStringLiteral("scene.gltf")));
}

TEST_F(ksSceneExporterTest, WritesWhereALinkLeads)
{
    QDir(folder.path("")).mkdir(QStringLiteral("other"));
    const QString target = folder.write("other/target.glb", "what was there");
    ASSERT_TRUE(QFile::link(target, folder.path("scene.glb")));
    EXPECT_EQ(errorOfSaving(folder.path("scene.glb")), "");
    EXPECT_TRUE(QFileInfo(folder.path("scene.glb")).isSymLink());
    EXPECT_THAT(contentOf("other/target.glb"), StartsWith("glTF"));
}

TEST_F(ksSceneExporterTest, RefusesPathsThatCannotBe)
{
    folder.write("file", "");
    QDir(folder.path("")).mkdir(QStringLiteral("folder.gltf"));
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/full"), folder.path("device.glb")));
    const std::pair<const char *, std::string> cases[] = {
        {"scene.obj", ": scenes are saved as .gltf or .glb"},
        {"scene", ": scenes are saved as .gltf or .glb"},
        {"missing/scene.gltf", ": there is no such folder"},
        {"file/scene.gltf", ": there is no such folder"},
        {"folder.gltf", ": is no file"},
        {"device.glb", ": is no file"}};
    for (const auto &[name, reason] : cases) {
        const QString path = folder.path(name);
        EXPECT_EQ(errorOfSaving(path), path.toStdString() + reason);
        EXPECT_EQ(ksErrorOf([&] { ksSceneExporter::checkPath(path); }), path.toStdString() + reason);
    }
    EXPECT_EQ(files(), (QStringList{QStringLiteral("device.glb"), QStringLiteral("file")}));
}

TEST_F(ksSceneExporterTest, RefusesFoldersThatMayNotBeWrittenTo)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "root may write everywhere";
    folder.write("scene.gltf", "what was there");
    ASSERT_TRUE(QFile::setPermissions(folder.path(""), QFileDevice::ReadOwner | QFileDevice::ExeOwner));
    const std::string error = errorOfSaving(folder.path("scene.gltf"));
    QFile::setPermissions(folder.path(""),
                          QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    EXPECT_EQ(error, folder.path("scene.gltf").toStdString() + ": cannot be saved: Permission denied");
    EXPECT_EQ(contentOf("scene.gltf"), "what was there");
}

/// In this folder nobody makes files, whatever rights they have.
TEST_F(ksSceneExporterTest, SaysWhyAFileCannotBeMade)
{
    EXPECT_THAT(errorOfSaving(QStringLiteral("/proc/scene.gltf")),
                StartsWith("/proc/scene.gltf: cannot be saved: "));
}

TEST_F(ksSceneExporterTest, LeavesTheFileThatIsThereWhenItCannotWrite)
{
    const QString path = folder.write("scene.gltf", "what was there");
    std::string error;
    {
        const FileSizeLimit limit(1000);
        error = errorOfSaving(path);
    }
    EXPECT_EQ(error, path.toStdString() + ": cannot be saved: File too large");
    EXPECT_EQ(contentOf("scene.gltf"), "what was there");
    EXPECT_EQ(files(), QStringList(QStringLiteral("scene.gltf")));
    EXPECT_EQ(errorOfSaving(path), "");
    EXPECT_THAT(contentOf("scene.gltf"), EndsWith("}\n"));
}
