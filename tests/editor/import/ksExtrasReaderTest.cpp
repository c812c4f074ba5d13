// SPDX-License-Identifier: MIT
#include <editor/scene/ksReferenceCycles.h>
#include <tests/editor/export/ksEverythingEdited.h>
#include <tests/editor/export/ksSavedScene.h>
#include <tests/editor/export/ksSceneText.h>

#include <OSGTransform3D.h>
#include <OSGUBRDFMaterial.h>
#include <OSGUberLight.h>
#include <OSGUberMaterial.h>
#include <OpenSG/OSGTransform.h>
#include <ksTextureManager.h>

#include <QImage>

#include <functional>
#include <iterator>

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

/// One in so many values is damaged.
constexpr std::size_t Step = 7;

/// Files that other programs have edited, or that are damaged.
class ksExtrasReaderTest : public ksSavedSceneFixture
{
protected:
    int positionOf(const char *name, const char *list = "nodes") const
    {
        const QJsonArray nodes = document.value(QLatin1String(list)).toArray();
        for (int i = 0; i < nodes.size(); ++i)
            if (nodes.at(i)[QLatin1String("name")] == QLatin1String(name))
                return i;
        ADD_FAILURE() << name;
        return 0;
    }

    /// Has \a change change the element of \a list at \a position, or the one called \a name.
    void edit(const char *list, int position, const std::function<void(QJsonObject &)> &change)
    {
        QJsonArray all = document.value(QLatin1String(list)).toArray();
        QJsonObject element = all.at(position).toObject();
        change(element);
        all.replace(position, element);
        document.insert(QLatin1String(list), all);
    }

    void edit(const char *list, const char *name, const std::function<void(QJsonObject &)> &change)
    {
        edit(list, positionOf(name, list), change);
    }

    void editNode(const char *name, const std::function<void(QJsonObject &)> &change)
    {
        edit("nodes", name, change);
    }

    QString extrasOf(const char *name) const
    {
        return document
            .value(QLatin1String("nodes"))[positionOf(name)][QLatin1String("extras")][QLatin1String("ksundo")]
            .toString();
    }

    void setExtras(const char *name, const QJsonValue &extras)
    {
        editNode(name, [&extras](QJsonObject &node) {
            node.insert(QStringLiteral("extras"), QJsonObject{{QStringLiteral("ksundo"), extras}});
        });
    }

    void replaceInExtras(const char *name, const char *before, const char *after)
    {
        const QString text = extrasOf(name);
        ASSERT_TRUE(text.contains(QLatin1String(before))) << text.toStdString();
        setExtras(name, QString(text).replace(QLatin1String(before), QLatin1String(after)));
    }

    static osg::ksMeshPtr makeMesh()
    {
        const osg::ksMeshPtr mesh = osg::ksMesh::create();
        mesh->getPositions().getValues() = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
        mesh->getIndices().getValues() = {0, 1, 2};
        return mesh;
    }

    osg::NodeRefPtr open() { return ksSavedSceneFixture::open(document); }
    osg::NodeRefPtr open(const QString &path) { return ksSavedSceneFixture::open(path); }

    static osg::Matrix matrixOf(const osg::NodePtr &node)
    {
        return osg::TransformPtr::dcast(node->getCore())->getMatrix();
    }

    static osg::MaterialPtr materialOf(const osg::NodePtr &root, const char *name)
    {
        const osg::NodePtr node = ksFindNode(root, name);
        const auto own = osg::ksMeshPtr::dcast(node->getCore());
        return (own != osg::NullFC ? own : osg::ksMeshPtr::dcast(node->getChild(0)->getCore()))
            ->getMaterial();
    }

    static osg::ImagePtr imageOfFloor(const osg::NodePtr &root)
    {
        const auto planks = osg::UberMaterialPtr::dcast(materialOf(root, "FloorPlate"));
        return planks->getColorComponentData(0)->getImage();
    }

    osg::NodeRefPtr room{open(ksRoomFile())};
    QJsonObject document = saved(room);
};

} // namespace

TEST_F(ksExtrasReaderTest, LeavesOutExtrasThatAreDamaged)
{
    const QString sound = extrasOf("Book");
    const std::ptrdiff_t before = ksLivingContainers();
    for (const QJsonValue &extras :
         {QJsonValue(sound.left(20)), QJsonValue(QString()), QJsonValue(7), QJsonValue(QStringLiteral("[]")),
          QJsonValue(QStringLiteral("[[]]")), QJsonValue(QStringLiteral("[[9000,\"Name\",{}]]")),
          QJsonValue(QStringLiteral("[[9000,\"Nonsense\",{}]]")),
          QJsonValue(QStringLiteral("[[0,\"Node\",{}]]")), QJsonValue(QStringLiteral("[[9000,\"Node\",[]]]")),
          QJsonValue(QStringLiteral("[[9000,\"NodeCore\",{}]]")),
          QJsonValue(QStringLiteral("[[9000,\"Node\",{}],[9000,\"Name\",{}]]")),
          QJsonValue(extrasOf("Vase"))}) {
        setExtras("Book", extras);
        const osg::NodeRefPtr root = open();
        EXPECT_THAT(warnings, ElementsAre("node 'Book': its extras are damaged, or those of another node"))
            << extras.toVariant().toString().toStdString();
        const osg::NodePtr book = ksFindNode(root, "Book");
        ASSERT_NE(book, osg::NullFC);
        EXPECT_EQ(matrixOf(book), matrixOf(ksFindNode(room, "Book")));
        EXPECT_EQ(book->getNChildren(), 1u);
        EXPECT_EQ(ksSettingsOf(ksFindNode(root, "Table"))->getLodBias(), -3);
    }
    EXPECT_EQ(ksLivingContainers(), before);
}

TEST_F(ksExtrasReaderTest, LeavesOutValuesThatDoNotFit)
{
    const std::pair<const char *, const char *> cases[] = {
        {"\"lodBias\":\"-3\"", "\"lodBias\":\"many\""},
        {"\"lodBias\":\"-3\"", "\"lodBias\":\"-300\""},
        {"\"lodBias\":\"-3\"", "\"lodBias\":-3"},
        {"\"comment\":\"oiled walnut\"", "\"comment\":[]"},
        {"\"comment\":\"oiled walnut\"", "\"parents\":0"},
        {"\"comment\":\"oiled walnut\"", "\"noise\":\"1\""},
        {"\"translation\":\"0.2 0.01 0.3\"", "\"matrix\":\"1\""},
        {"\"translation\":\"0.2 0.01 0.3\"", "\"translation\":\"0.2 0.01\""}};
    const QJsonObject sound = document;
    for (const auto &[before, after] : cases) {
        document = sound;
        replaceInExtras("Table", before, after);
        const osg::NodeRefPtr root = open();
        EXPECT_THAT(warnings, ElementsAre(StartsWith("node 'Table': its extras are not sound in "))) << after;
        const osg::NodePtr table = ksFindNode(root, "Table");
        EXPECT_EQ(ksSettingsOf(table)->getSortKey(), -70000);
        // The matrix of the node still tells where the table is.
        EXPECT_TRUE(matrixOf(table).equals(matrixOf(ksFindNode(room, "Table")), 1e-6F)) << after;
    }
}

TEST_F(ksExtrasReaderTest, HasNoNullAmongTheParts)
{
    replaceInExtras("RugPlate", "\"colorComponentData\":[", "\"colorComponentData\":[0,");
    const osg::NodeRefPtr root = open();
    EXPECT_THAT(warnings,
                ElementsAre("node 'RugPlate': its extras are not sound in UberMaterial.colorComponentData"));
    for (const auto &component :
         osg::UberMaterialPtr::dcast(materialOf(root, "RugPlate"))->getColorComponentData())
        EXPECT_NE(component, osg::NullFC);
}

TEST_F(ksExtrasReaderTest, LeavesOutReferencesToNothing)
{
    replaceInExtras("TableTop", "\"core\":", "\"core\":9");
    const osg::NodeRefPtr root = open();
    EXPECT_THAT(warnings, Contains("node 'TableTop': its extras are not sound in Node.core"));
    EXPECT_EQ(ksFindNode(root, "Table")->getNChildren(), 4u);
}

/// Two nodes outside of the scene, each the child of the other, and a node of the scene as the child of one.
TEST_F(ksExtrasReaderTest, LeavesOutChildrenThatCannotBe)
{
    replaceInExtras("Book", "[[",
                    "[[9001,\"Node\",{\"children\":[9002]}],[9002,\"Node\",{\"children\":[9001,9002,1]}],[");
    const std::ptrdiff_t before = ksLivingContainers();
    open();
    EXPECT_THAT(warnings, Contains(StartsWith("node 'Book': its extras")));
    EXPECT_EQ(ksLivingContainers(), before);
}

/// Going down them, or letting go of them, would take all the room there is to return.
TEST_F(ksExtrasReaderTest, TakesNodesApartThatAreNestedTooDeeply)
{
    const std::ptrdiff_t before = ksLivingContainers();
    const QString sound = extrasOf("Book");
    for (const bool isLeafFirst : {false, true}) {
        QString chain;
        for (int i = 0; i < 3000; ++i)
            chain += QStringLiteral(",[%1,\"Node\",{\"children\":[%2]}]")
                         .arg(9001 + i)
                         .arg(9001 + i + (isLeafFirst ? -1 : 1));
        setExtras("Book", QJsonValue(sound.left(sound.size() - 1) + chain + QLatin1Char(']')));
        const osg::NodeRefPtr root = open();
        EXPECT_FALSE(warnings.empty());
        EXPECT_EQ(ksSettingsOf(ksFindNode(root, "Book"))->getLodBias(),
                  ksSettingsOf(ksFindNode(room, "Book"))->getLodBias());
    }
    EXPECT_THAT(warnings, Contains("nodes outside of the scene are nested too deeply, and taken apart"));
    EXPECT_EQ(ksLivingContainers(), before);
}

TEST_F(ksExtrasReaderTest, LeavesOutImagesThatAreDamaged)
{
    edit("images", 0, [](QJsonObject &image) { image.insert(QStringLiteral("bufferView"), 0); });
    const osg::NodeRefPtr root = open();
    EXPECT_THAT(warnings, Contains(StartsWith("texture ")));
    EXPECT_TRUE(imageOfFloor(root)->getPixel().empty());
}

TEST_F(ksExtrasReaderTest, TakesOverImagesThatOtherProgramsReplaced)
{
    QImage(5, 4, QImage::Format_RGB32).save(folder.path("new.png"));
    edit("images", 0, [](QJsonObject &image) {
        image.remove(QStringLiteral("bufferView"));
        image.insert(QStringLiteral("uri"), QStringLiteral("new.png"));
    });
    const osg::NodeRefPtr root = open();
    EXPECT_THAT(warnings, IsEmpty());
    EXPECT_EQ(imageOfFloor(root)->getWidth(), 5);
    EXPECT_EQ(imageOfFloor(root)->getPixel().size(), imageOfFloor(root)->getSize());
}

/// Whatever somebody has written there, the file opens, and nothing stays behind.
TEST_F(ksExtrasReaderTest, OpensAFileWithAnyValueInTheExtras)
{
    const osg::NodeRefPtr scene(ksContainers::createNode("Root", osg::Group::create()));
    const ksEverythingEdited edited(scene.get());
    document = saved(scene);
    const QJsonObject sound = document;
    QJsonArray deep;
    for (int i = 0; i < 3000; ++i)
        deep = QJsonArray{deep};
    const QJsonValue values[] = {QJsonValue(),
                                 true,
                                 -1,
                                 1,
                                 2e9,
                                 1e300,
                                 QStringLiteral("1e999"),
                                 QString(5000, QLatin1Char('9')),
                                 QJsonArray{1, 1, 1, -7, 1e18, QStringLiteral("x")},
                                 QJsonArray{QJsonArray{1, 70000}, QJsonArray{}},
                                 QJsonObject{{QStringLiteral("base64"), QStringLiteral("AAAA")}},
                                 deep};
    const std::ptrdiff_t before = ksLivingContainers();
    std::size_t next = 0;
    int complaints = 0;
    const QJsonArray nodes = document.value(QLatin1String("nodes")).toArray();
    for (int node = 0; node < nodes.size(); ++node) {
        const QString text = nodes.at(node)[QLatin1String("extras")][QLatin1String("ksundo")].toString();
        QJsonArray containers = QJsonDocument::fromJson(text.toUtf8()).array();
        for (int i = 0; i < containers.size(); ++i)
            for (const QString &field : containers.at(i)[2].toObject().keys()) {
                if (++next % Step != 0)
                    continue;
                QJsonArray container = containers.at(i).toArray();
                QJsonObject fields = container.at(2).toObject();
                fields.insert(field, values[next / Step % std::size(values)]);
                container.replace(2, fields);
                QJsonArray damaged = containers;
                damaged.replace(i, container);
                document = sound;
                edit("nodes", node, [&damaged](QJsonObject &object) {
                    const QString extras =
                        QString::fromUtf8(QJsonDocument(damaged).toJson(QJsonDocument::Compact));
                    object.insert(QStringLiteral("extras"), QJsonObject{{QStringLiteral("ksundo"), extras}});
                });
                const osg::NodeRefPtr root = open();
                complaints += warnings.empty() ? 0 : 1;
                ksReferenceCycles::release(root);
                ksTextureManager::the()->clear();
            }
    }
    EXPECT_EQ(ksLivingContainers(), before);
    EXPECT_GT(complaints, 50);
}

/// Nothing would ever release them.
TEST_F(ksExtrasReaderTest, LeavesOutMaterialsThatReferToThemselves)
{
    const osg::NodeRefPtr scene(ksContainers::createNode("Root", makeMesh()));
    const osg::UBRDFMaterialPtr inner = osg::UBRDFMaterial::create();
    const osg::UBRDFMaterialPtr outer = osg::UBRDFMaterial::create();
    outer->setEnvironment(inner);
    osg::ksMeshPtr::dcast(scene->getCore())->setMaterial(outer);
    document = saved(scene);
    const QString last = QString(extrasOf("Root")).section(QLatin1Char('['), -1);
    const QString id = last.section(QLatin1Char(','), 0, 0);
    ASSERT_TRUE(last.contains(QLatin1String("\"UBRDFMaterial\",{}"))) << last.toStdString();
    replaceInExtras("Root", "\"UBRDFMaterial\",{}",
                    ("\"UBRDFMaterial\",{\"environment\":" + id.toStdString() + "}").c_str());
    const std::ptrdiff_t before = ksLivingContainers();
    open();
    EXPECT_THAT(warnings, ElementsAre("node 'Root': its extras are not sound in UBRDFMaterial.environment"));
    EXPECT_EQ(ksLivingContainers(), before);
}

/// As any other program would.
TEST_F(ksExtrasReaderTest, OpensAFileWithoutExtras)
{
    const auto layingOf = [](const osg::NodePtr &root) {
        return osg::UberMaterialPtr::dcast(materialOf(root, "RugPlate"))->getComponentSettings();
    };
    QJsonArray nodes = document.value(QLatin1String("nodes")).toArray();
    for (int i = 0; i < nodes.size(); ++i) {
        QJsonObject node = nodes.at(i).toObject();
        node.remove(QStringLiteral("extras"));
        nodes.replace(i, node);
    }
    document.insert(QStringLiteral("nodes"), nodes);
    const osg::NodeRefPtr root = open();
    EXPECT_THAT(warnings, IsEmpty());
    EXPECT_TRUE(matrixOf(ksFindNode(root, "Chair")).equals(matrixOf(ksFindNode(room, "Chair")), 1e-6F));
    EXPECT_NE(ksFindNode(root, "LampBulb light light"), osg::NullFC);
    constexpr float Tolerance = 1e-5F;
    for (osg::UInt32 i = 0; i < 2; ++i) {
        EXPECT_NEAR(layingOf(root)->getMappingScale()[i], layingOf(room)->getMappingScale()[i], Tolerance);
        EXPECT_NEAR(layingOf(root)->getMappingOffset()[i], layingOf(room)->getMappingOffset()[i], Tolerance);
    }
}

TEST_F(ksExtrasReaderTest, TakesOverWhatOtherProgramsMoved)
{
    const QJsonArray moved{2, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 5, 6, 7, 1};
    const auto move = [&moved](QJsonObject &node) { node.insert(QStringLiteral("matrix"), moved); };
    editNode("Chair", move);
    editNode("TableTop", move);
    const osg::NodeRefPtr root = open();
    EXPECT_THAT(warnings, IsEmpty());
    const osg::Matrix wanted(2, 0, 0, 5, 0, 1, 0, 6, 0, 0, 1, 7, 0, 0, 0, 1);
    const osg::NodePtr chair = ksFindNode(root, "Chair");
    EXPECT_EQ(matrixOf(chair), wanted);
    EXPECT_EQ(osg::Transform3DPtr::dcast(chair->getCore())->getScale(), osg::Vec3f(2, 1, 1));
    EXPECT_EQ(ksSettingsOf(chair)->getLodBias(), 1);
    // A mesh has no place of its own.
    const osg::NodePtr top = ksFindNode(root, "TableTop");
    const osg::NodePtr place = ksFindNode(root, "TableTop place");
    ASSERT_NE(place, osg::NullFC);
    EXPECT_EQ(top->getParent(), place);
    EXPECT_EQ(place->getParent(), ksFindNode(root, "Table"));
    EXPECT_EQ(matrixOf(place), wanted);
}

TEST_F(ksExtrasReaderTest, TakesOverNamesAndTheTree)
{
    editNode("Book", [](QJsonObject &node) { node.insert(QStringLiteral("name"), QStringLiteral("Novel")); });
    // The vase stands on the chair now, the flower is gone, and somebody has left a hat.
    const int vase = positionOf("Vase");
    editNode("Table", [vase](QJsonObject &node) {
        QJsonArray children = node.value(QLatin1String("children")).toArray();
        for (int i = children.size() - 1; i >= 0; --i)
            if (children.at(i) == QJsonValue(vase))
                children.removeAt(i);
        node.insert(QStringLiteral("children"), children);
    });
    QJsonArray nodes = document.value(QLatin1String("nodes")).toArray();
    nodes.append(QJsonObject{{QStringLiteral("name"), QStringLiteral("Hat")}});
    document.insert(QStringLiteral("nodes"), nodes);
    editNode("Chair", [&nodes, vase](QJsonObject &node) {
        QJsonArray children = node.value(QLatin1String("children")).toArray();
        children.append(vase);
        children.append(nodes.size() - 1);
        node.insert(QStringLiteral("children"), children);
    });
    const int body = positionOf("VaseBody");
    editNode("Vase",
             [body](QJsonObject &node) { node.insert(QStringLiteral("children"), QJsonArray{body}); });

    const osg::NodeRefPtr root = open();
    EXPECT_THAT(warnings, IsEmpty());
    EXPECT_EQ(ksFindNode(root, "Vase")->getParent(), ksFindNode(root, "Chair"));
    EXPECT_EQ(ksFindNode(root, "Hat")->getParent(), ksFindNode(root, "Chair"));
    EXPECT_EQ(ksFindNode(root, "Flower"), osg::NullFC);
    EXPECT_EQ(ksFindNode(root, "Novel")->getParent(), ksFindNode(root, "Table"));
    EXPECT_EQ(ksSettingsOf(ksFindNode(root, "Vase"))->getPickId(), 4000000000u);
}

TEST_F(ksExtrasReaderTest, TakesOverWhatOtherProgramsPainted)
{
    edit("materials", "Walnut", [](QJsonObject &material) {
        const QJsonArray green{0.1, 0.9, 0.2, 0.5};
        material.insert(QStringLiteral("pbrMetallicRoughness"),
                        QJsonObject{{QStringLiteral("baseColorFactor"), green},
                                    {QStringLiteral("metallicFactor"), 0.25},
                                    {QStringLiteral("roughnessFactor"), 0.75}});
        material.insert(QStringLiteral("alphaMode"), QStringLiteral("BLEND"));
    });
    // The vase is of brass now.
    const QJsonValue vase =
        document.value(QLatin1String("nodes"))[positionOf("VaseBody")][QLatin1String("mesh")];
    const int brass = positionOf("Brass", "materials");
    edit("meshes", vase.toInt(), [brass](QJsonObject &mesh) {
        QJsonObject primitive = mesh.value(QLatin1String("primitives"))[0].toObject();
        primitive.insert(QStringLiteral("material"), brass);
        mesh.insert(QStringLiteral("primitives"), QJsonArray{primitive});
    });
    const osg::NodeRefPtr root = open();
    EXPECT_THAT(warnings, IsEmpty());
    const auto walnut = osg::UBRDFMaterialPtr::dcast(materialOf(root, "TableTop"));
    EXPECT_EQ(walnut->getBaseColor(), osg::Vec3f(0.1F, 0.9F, 0.2F));
    EXPECT_EQ(walnut->getMetalness(), 0.25F);
    EXPECT_EQ(walnut->getRoughness(), 0.75F);
    EXPECT_EQ(materialOf(root, "BackPlate"), walnut);
    EXPECT_EQ(ksSettingsOf(ksFindNode(root, "TableTop"))->getOpacity(), 0.5F);
    EXPECT_STREQ(osg::getName(materialOf(root, "VaseBody")), "Brass");
    EXPECT_EQ(materialOf(root, "VaseBody"), materialOf(root, "PoleRod"));
}

TEST_F(ksExtrasReaderTest, TakesOverHowOtherProgramsLaidTextures)
{
    const auto setTexture = [this](const char *material, const QJsonObject &texture) {
        edit("materials", material, [&texture](QJsonObject &surface) {
            const QString name = QStringLiteral("pbrMetallicRoughness");
            QJsonObject values = surface.value(name).toObject();
            values.insert(QStringLiteral("baseColorTexture"), texture);
            surface.insert(name, values);
        });
    };
    const auto textureOf = [this](const char *material) {
        const QJsonValue surface =
            document.value(QLatin1String("materials"))[positionOf(material, "materials")];
        return surface[QLatin1String("pbrMetallicRoughness")][QLatin1String("baseColorTexture")].toObject();
    };
    const auto layersOf = [](const osg::NodePtr &root, const char *name) {
        return osg::UberMaterialPtr::dcast(materialOf(root, name));
    };
    // The floor shows what the seat is covered with, which lies there in another way.
    QJsonObject fabric = textureOf("Fabric");
    setTexture("Planks", {{QStringLiteral("index"), fabric.value(QLatin1String("index"))}});
    const QJsonObject transform{{QStringLiteral("scale"), QJsonArray{4, 4}}};
    fabric.insert(QStringLiteral("extensions"),
                  QJsonObject{{QStringLiteral("KHR_texture_transform"), transform}});
    setTexture("Fabric", fabric);
    const osg::NodeRefPtr root = open();
    EXPECT_THAT(warnings, IsEmpty());
    const osg::ImagePtr covering = layersOf(root, "Seat")->getColorComponentData(0)->getImage();
    EXPECT_NE(imageOfFloor(room), layersOf(room, "Seat")->getColorComponentData(0)->getImage());
    EXPECT_EQ(imageOfFloor(root)->getPixel(), covering->getPixel());
    EXPECT_EQ(layersOf(room, "Seat")->getComponentSettings()->getMappingScale(), osg::Vec2f(2, 3));
    EXPECT_EQ(layersOf(root, "Seat")->getComponentSettings()->getMappingScale(), osg::Vec2f(4, 4));
}

/// Other programs leave out what goes without saying.
TEST_F(ksExtrasReaderTest, KeepsLightsOfWhichDefaultsAreLeftOut)
{
    const osg::UberLightPtr light = osg::UberLight::create();
    // Setting the mode scales the intensity.
    light->setAttenuation(osg::UberLight::Linear);
    light->setIntensity(120);
    const osg::NodeRefPtr scene(ksContainers::createNode("Bulb", light));
    document = saved(scene);
    QJsonArray lights =
        document
            .value(QLatin1String("extensions"))[QLatin1String("KHR_lights_punctual")][QLatin1String("lights")]
            .toArray();
    ASSERT_EQ(lights.size(), 1);
    QJsonObject bulb = lights.at(0).toObject();
    EXPECT_EQ(bulb.take(QLatin1String("color")), (QJsonArray{1, 1, 1}));
    lights.replace(0, bulb);
    document.insert(QStringLiteral("extensions"),
                    QJsonObject{{QStringLiteral("KHR_lights_punctual"),
                                 QJsonObject{{QStringLiteral("lights"), lights}}}});
    const osg::NodeRefPtr root = open();
    const auto again = osg::UberLightPtr::dcast(ksFindNode(root, "Bulb")->getCore());
    ASSERT_NE(again, osg::NullFC);
    EXPECT_EQ(again->getAttenuation(), osg::UberLight::Linear);
    EXPECT_EQ(again->getIntensity(), 120);
}

TEST_F(ksExtrasReaderTest, TakesOverLights)
{
    QJsonArray lights =
        document
            .value(QLatin1String("extensions"))[QLatin1String("KHR_lights_punctual")][QLatin1String("lights")]
            .toArray();
    ASSERT_EQ(lights.size(), 3);
    QJsonObject bulb = lights.at(0).toObject();
    bulb.insert(QStringLiteral("color"), QJsonArray{0, 1, 0});
    bulb.insert(QStringLiteral("intensity"), 7);
    lights.replace(0, bulb);
    QJsonObject spot = lights.at(1).toObject();
    spot.insert(QStringLiteral("spot"),
                QJsonObject{{QStringLiteral("innerConeAngle"), 0}, {QStringLiteral("outerConeAngle"), 1}});
    lights.replace(1, spot);
    lights.replace(2, QJsonObject{{QStringLiteral("type"), QStringLiteral("directional")}});
    document.insert(QStringLiteral("extensions"),
                    QJsonObject{{QStringLiteral("KHR_lights_punctual"),
                                 QJsonObject{{QStringLiteral("lights"), lights}}}});
    const osg::NodeRefPtr root = open();
    EXPECT_THAT(warnings, IsEmpty());
    const auto lightOf = [&root](const char *name) {
        return osg::UberLightPtr::dcast(ksFindNode(root, name)->getCore());
    };
    EXPECT_EQ(lightOf("LampBulb light")->getDiffuse(), osg::Vec3f(0, 1, 0));
    EXPECT_EQ(lightOf("LampBulb light")->getIntensity(), 7);
    EXPECT_EQ(lightOf("LampBulb light")->getAttenuation(), osg::UberLight::Quadratic);
    EXPECT_EQ(lightOf("LampBulb light")->getConeAngle(), 360);
    EXPECT_NEAR(lightOf("CeilingSpot light")->getConeAngle(), 0.1F, 1e-4F);
    EXPECT_NEAR(lightOf("CeilingSpot light")->getPenumbraAngle(), 114.49F, 1e-2F);
    EXPECT_EQ(lightOf("Sun light")->getDiffuse(), osg::Vec3f(1, 1, 1));
    EXPECT_EQ(lightOf("Sun light")->getConeAngle(), 180);
    EXPECT_EQ(lightOf("Sun light")->getAttenuation(), osg::UberLight::None);
}

/// A program that copies a node copies its extras as well.
TEST_F(ksExtrasReaderTest, TakesACopiedNodeAsANewOne)
{
    QJsonArray nodes = document.value(QLatin1String("nodes")).toArray();
    nodes.append(nodes.at(positionOf("Book")));
    document.insert(QStringLiteral("nodes"), nodes);
    editNode("Chair", [&nodes](QJsonObject &node) {
        QJsonArray children = node.value(QLatin1String("children")).toArray();
        children.append(nodes.size() - 1);
        node.insert(QStringLiteral("children"), children);
    });
    const osg::NodeRefPtr root = open();
    EXPECT_THAT(warnings, Contains(StartsWith("node 'Book': its extras are damaged, or those of another")));
    const osg::NodePtr chair = ksFindNode(root, "Chair");
    const osg::NodePtr copy = chair->getChild(chair->getNChildren() - 1);
    EXPECT_STREQ(osg::getName(copy), "Book");
    EXPECT_EQ(matrixOf(copy), matrixOf(ksFindNode(room, "Book")));
}

/// Without the program's name the meshes are somebody else's, and are joined again, which changes nothing
/// here.
TEST_F(ksExtrasReaderTest, OpensWhatAnotherProgramSaved)
{
    document.insert(QStringLiteral("asset"),
                    QJsonObject{{QStringLiteral("version"), QStringLiteral("2.0")},
                                {QStringLiteral("generator"), QStringLiteral("other")}});
    const osg::NodeRefPtr root = open();
    EXPECT_THAT(warnings, IsEmpty());
    EXPECT_EQ(ksDifference(ksSceneText::of(room), ksSceneText::of(root)), "");
}
