// SPDX-License-Identifier: MIT
#include <editor/import/ksModelFile.h>
#include <editor/import/ksSceneImporter.h>
#include <editor/import/ksTransformImporter.h>
#include <tests/editor/ksEditorFixture.h>
#include <tests/editor/ksModelCollection.h>

#include <ksundo/transform/ksTransformValueUndoCommands.h>

#include <assimp/scene.h>

#include <cmath>
#include <limits>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr float Tolerance = 1e-5F;

osg::Transform3DPtr transformOf(const osg::NodePtr &node)
{
    return osg::Transform3DPtr::dcast(node->getCore());
}

/// The elements of \a source in the order of osg::Matrix.
std::vector<float> elementsOf(const aiMatrix4x4 &source)
{
    std::vector<float> elements;
    for (unsigned int column = 0; column < 4; ++column)
        for (unsigned int row = 0; row < 4; ++row)
            elements.push_back(source[row][column]);
    return elements;
}

std::vector<float> elementsOf(const osg::Matrix &matrix)
{
    return std::vector<float>(matrix.getValues(), matrix.getValues() + osg::Matrix::Size);
}

/// Relative to the largest element.
void expectNear(const std::vector<float> &actual, const std::vector<float> &wanted)
{
    float largest = 0;
    for (const float element : wanted)
        largest = std::max(largest, std::abs(element));
    for (std::size_t i = 0; i < wanted.size(); ++i)
        EXPECT_NEAR(actual[i], wanted[i], largest * Tolerance) << "element " << i;
}

/// What the components give is what the matrix field has, and a turn leaves no trace when it is undone.
void expectConsistent(const osg::NodePtr &node)
{
    const osg::Transform3DPtr transform = transformOf(node);
    const osg::Matrix matrix = transform->getMatrix();
    const osg::Quaternion rotation = transform->getRotation();
    const osg::Vec3f angles = transform->getEulerRotation();

    ksRotationUndoCommand turn(node, {10, 20, 30});
    turn.redo();
    EXPECT_EQ(transform->getEulerRotation(), osg::Vec3f(10, 20, 30));
    EXPECT_NE(transform->getRotation(), rotation);
    turn.undo();
    EXPECT_EQ(transform->getRotation(), rotation);
    EXPECT_EQ(transform->getEulerRotation(), angles);
    EXPECT_EQ(transform->getMatrix(), matrix);
}

/// \a imported has the transforms of \a source, node by node.
void expectTransforms(const osg::NodePtr &imported, const aiNode &source)
{
    SCOPED_TRACE(source.mName.C_Str());
    ASSERT_NE(transformOf(imported), osg::NullFC);
    expectNear(elementsOf(transformOf(imported)->getMatrix()), elementsOf(source.mTransformation));
    expectConsistent(imported);
    ASSERT_GE(imported->getNChildren(), source.mNumChildren);
    for (unsigned int i = 0; i < source.mNumChildren; ++i)
        expectTransforms(imported->getChild(i), *source.mChildren[i]);
}

void expectTransformsOfFile(const QString &path)
{
    std::vector<std::string> warnings;
    const ksSceneImporter importer([&warnings](const QString &warning) {
        if (warning.startsWith(QStringLiteral("the matrix")))
            warnings.push_back(warning.toStdString());
    });
    osg::NodeRefPtr root;
    if (ksErrorOf([&] { root = importer.load(path); }).empty()) {
        expectTransforms(root, *ksModelFile(path).scene().mRootNode);
        EXPECT_THAT(warnings, IsEmpty());
    }
}

/// The transform of a node with a matrix.
class ksTransformImporterTest : public testing::Test
{
protected:
    osg::Transform3DPtr import(const aiMatrix4x4 &matrix)
    {
        aiNode source;
        source.mName = "Odd";
        source.mTransformation = matrix;
        const osg::Transform3DPtr transform = ksTransformImporter::create(
            source, [this](const QString &warning) { warnings.push_back(warning.toStdString()); });
        node = osg::NodeRefPtr(osg::Node::create());
        CPEdit(node.get(), osg::Node::CoreFieldMask);
        node->setCore(transform);
        return transform;
    }

    void expectKept(const aiMatrix4x4 &matrix)
    {
        expectNear(elementsOf(import(matrix)->getMatrix()), elementsOf(matrix));
        expectConsistent(node);
        EXPECT_THAT(warnings, IsEmpty());
    }

    void expectLeftOut(const aiMatrix4x4 &matrix)
    {
        warnings.clear();
        EXPECT_EQ(import(matrix)->getMatrix(), osg::Matrix());
        expectConsistent(node);
        EXPECT_THAT(warnings, ElementsAre("the matrix of node 'Odd' is not one of a transform"));
    }

    osg::NodeRefPtr node;
    std::vector<std::string> warnings;
};

using ksModelCollectionTransforms = ksModelCollection;

} // namespace

TEST_F(ksTransformImporterTest, KeepsTheMatricesOfTheRoom)
{
    expectTransformsOfFile(ksRoomFile());
}

TEST_F(ksTransformImporterTest, TakesMatricesApart)
{
    const osg::Transform3DPtr transform = import({2, 0, 0, 5, 0, 0, -3, 6, 0, 4, 0, 7, 0, 0, 0, 1});
    EXPECT_EQ(transform->getTranslation(), osg::Vec3f(5, 6, 7));
    EXPECT_TRUE(transform->getScale().equals(osg::Vec3f(2, 4, 3), Tolerance));
    EXPECT_TRUE(transform->getEulerRotation().equals(osg::Vec3f(90, 0, 0), Tolerance));
    EXPECT_TRUE(transform->getShear().equals(osg::Vec3f(0, 0, 0), Tolerance));
}

TEST_F(ksTransformImporterTest, KeepsMirroredShearedAndFlatMatrices)
{
    expectKept({-1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1});
    expectKept({0, 1, 0, 1000, 1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1});
    expectKept({1, 0.5F, -0.25F, 3, 0.125F, 1, 2, 0, 0, 0.75F, 0.5F, 0, 0, 0, 0, 1});
    expectKept({0, 0, 1, 1, 0, 1, 0, 2, -1, 0, 0, 3, 0, 0, 0, 1});
    expectKept({1, 0, 0, 1, 0, 0, 0, 2, 0, 0, 1, 3, 0, 0, 0, 1});
}

TEST_F(ksTransformImporterTest, LeavesOutWhatNoTransformGives)
{
    const float nan = std::numeric_limits<float>::quiet_NaN();
    expectLeftOut({1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0.5F, 1});
    expectLeftOut({1, 1, 0, 4, 1, 1, 0, 5, 0, 0, 1, 6, 0, 0, 0, 1});
    expectLeftOut({1, 0, 0, nan, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1});
}

/// What cannot be read is no matter here.
TEST_P(ksModelCollectionTransforms, AreKept)
{
    for (const QString &file : files()) {
        SCOPED_TRACE(file.toStdString());
        expectTransformsOfFile(file);
    }
}

INSTANTIATE_TEST_SUITE_P(Formats, ksModelCollectionTransforms,
                         testing::ValuesIn(ksModelCollection::formatFolders()), ksModelCollection::testName);

TEST(ksTransformImporterPlace, TurnsTheNegativeZAxis)
{
    for (const osg::Vec3f &direction : {osg::Vec3f(0, 0, -1), osg::Vec3f(0, 0, 1), osg::Vec3f(0, -1, 0),
                                        osg::Vec3f(0.6F, 0, 0.8F), osg::Vec3f(-0.48F, 0.64F, -0.6F)}) {
        const osg::NodeRefPtr node(osg::Node::create());
        CPEdit(node.get(), osg::Node::CoreFieldMask);
        node->setCore(ksTransformImporter::create(osg::Vec3f(1, -2, 3), direction));
        const osg::Matrix &matrix = transformOf(node)->getMatrix();
        EXPECT_EQ(osg::Vec3f(matrix[3][0], matrix[3][1], matrix[3][2]), osg::Vec3f(1, -2, 3));
        EXPECT_TRUE(osg::Vec3f(-matrix[2][0], -matrix[2][1], -matrix[2][2]).equals(direction, 1e-6F));
        expectConsistent(node);
    }
}
