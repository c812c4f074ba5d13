// SPDX-License-Identifier: MIT
#pragma once

#include <editor/export/ksMeshExporter.h>
#include <editor/scene/ksSoundNumbers.h>

#include <OSGUberMaterial.h>
#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGTransform.h>

#include <QImage>
#include <QString>
#include <assimp/Importer.hpp>
#include <assimp/postprocess.h>
#include <assimp/scene.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

/// Another program that reads a file which the editor has saved. Each of its checks is true of what is right
/// for such programs, whatever the editor finds in the file when it opens it again.
class ksForeignReader
{
public:
    /// Reads the file \a path, with which nothing is to be wrong.
    explicit ksForeignReader(const QString &path)
        : content(importer.ReadFile(path.toStdString(), aiProcess_ValidateDataStructure))
    {
        EXPECT_NE(content, nullptr) << importer.GetErrorString();
        EXPECT_TRUE(content == nullptr || (content->mFlags & AI_SCENE_FLAGS_VALIDATION_WARNING) == 0);
    }

    /// What it has read; null when that failed.
    const aiScene *scene() const { return content; }

    /// Calls \a visit with each node below \a node and what has been read of it.
    template <class Visit>
    static void visitPairs(const osg::NodePtr &node, const aiNode &read, const Visit &visit)
    {
        visit(node, read);
        ASSERT_EQ(node->getNChildren(), read.mNumChildren);
        for (osg::UInt32 i = 0; i < node->getNChildren(); ++i)
            visitPairs(node->getChild(i), *read.mChildren[i], visit);
    }

    /// That all nodes have the matrices and meshes of those below \a root; the number of these meshes.
    int expectNodes(const osg::NodePtr &root) const
    {
        int meshes = 0;
        visitPairs(root, *content->mRootNode, [&](const osg::NodePtr &node, const aiNode &read) {
            expectMatrix(node, read);
            const auto mesh = osg::ksMeshPtr::dcast(node->getCore());
            const bool isThere = mesh != osg::NullFC && ksMeshExporter::isExportable(mesh);
            ASSERT_EQ(read.mNumMeshes, isThere ? 1u : 0u) << read.mName.C_Str();
            meshes += isThere ? 1 : 0;
            if (isThere)
                expectMesh(mesh, *content->mMeshes[read.mMeshes[0]]);
        });
        return meshes;
    }

    /// That the surfaces show the images that the first layers of their materials have; their number.
    int expectImages(const osg::NodePtr &root) const
    {
        int images = 0;
        visitPairs(root, *content->mRootNode, [&](const osg::NodePtr &node, const aiNode &read) {
            const auto mesh = osg::ksMeshPtr::dcast(node->getCore());
            const auto material = mesh == osg::NullFC ? osg::UberMaterialPtr()
                                                      : osg::UberMaterialPtr::dcast(mesh->getMaterial());
            if (material == osg::NullFC || read.mNumMeshes == 0)
                return;
            const osg::ImagePtr image = material->getColorComponentData(0)->getImage();
            const aiMesh &surface = *content->mMeshes[read.mMeshes[0]];
            aiString path;
            content->mMaterials[surface.mMaterialIndex]->GetTexture(aiTextureType_BASE_COLOR, 0, &path);
            ASSERT_EQ(path.length > 0, image != osg::NullFC);
            images += image != osg::NullFC ? 1 : 0;
            if (image != osg::NullFC)
                expectImage(*image, *content->GetEmbeddedTexture(path.C_Str()));
        });
        return images;
    }

    /// That there is in the world what \a original has there: meshes with their colours, and lights.
    void expectWorldOf(const aiScene &original) const
    {
        const std::vector<Surface> expected = surfacesOf(original);
        const std::vector<Surface> actual = surfacesOf(*content);
        ASSERT_EQ(actual.size(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i) {
            SCOPED_TRACE("surface " + std::to_string(i));
            expectGeometry(actual[i], expected[i]);
            expectMaterial(*actual[i].material, *expected[i].material);
        }
        ASSERT_EQ(content->mNumLights, original.mNumLights);
        const std::vector<Light> lights = lightsOf(*content);
        for (const Light &light : lightsOf(original))
            EXPECT_TRUE(std::any_of(lights.begin(), lights.end(), [&light](const Light &other) {
                return areAlike(light, other);
            })) << light.source->mName.C_Str();
    }

private:
    struct Surface
    {
        aiMatrix4x4 world;
        const aiMesh *mesh;
        const aiMaterial *material;
    };

    struct Light
    {
        aiMatrix4x4 world;
        const aiLight *source;
    };

    static void expectMatrix(const osg::NodePtr &node, const aiNode &read)
    {
        const auto transform = osg::TransformPtr::dcast(node->getCore());
        const bool isThere = transform != osg::NullFC &&
                             ksSoundNumbers::areFinite(transform->getMatrix().getValues(), osg::Matrix::Size);
        const osg::Matrix matrix = isThere ? transform->getMatrix() : osg::Matrix();
        for (unsigned int row = 0; row < 4; ++row)
            for (unsigned int column = 0; column < 4; ++column)
                EXPECT_EQ(read.mTransformation[row][column], matrix[column][row]) << read.mName.C_Str();
    }

    static osg::Vec3f toVector(const aiVector3D &vector) { return {vector.x, vector.y, vector.z}; }

    static void expectMesh(const osg::ksMeshPtr &mesh, const aiMesh &read)
    {
        const unsigned int corners = mesh->getCornersPerFace();
        ASSERT_EQ(read.mNumVertices, mesh->getPositions().size());
        ASSERT_EQ(read.mNumFaces * corners, mesh->getIndices().size());
        ASSERT_EQ(read.HasNormals(), !mesh->getNormals().empty());
        ASSERT_EQ(read.HasTextureCoords(0), !mesh->getTexCoords().empty());
        bool areEqual = true;
        for (unsigned int i = 0; i < read.mNumVertices; ++i) {
            areEqual = areEqual && toVector(read.mVertices[i]) == mesh->getPositions(i).subZero() &&
                       (!read.HasNormals() || toVector(read.mNormals[i]) == mesh->getNormals(i));
            if (read.HasTextureCoords(0))
                areEqual = areEqual && isClose(read.mTextureCoords[0][i].x, mesh->getTexCoords(i)[0]) &&
                           isClose(read.mTextureCoords[0][i].y, mesh->getTexCoords(i)[1]);
        }
        for (unsigned int i = 0; i < mesh->getIndices().size(); ++i)
            areEqual = areEqual && read.mFaces[i / corners].mIndices[i % corners] == mesh->getIndices(i);
        EXPECT_TRUE(areEqual) << read.mName.C_Str();
    }

    static void expectImage(const osg::Image &image, const aiTexture &texture)
    {
        const QImage read = QImage::fromData(reinterpret_cast<const uchar *>(texture.pcData),
                                             static_cast<int>(texture.mWidth))
                                .convertToFormat(QImage::Format_RGBA8888);
        ASSERT_EQ(read.width(), image.getWidth());
        ASSERT_EQ(read.height(), image.getHeight());
        const osg::UInt32 channels =
            image.getPixel().size() / static_cast<osg::UInt32>(read.width() * read.height());
        bool areEqual = true;
        for (int y = 0; y < read.height(); ++y)
            for (int x = 0; x < read.width(); ++x) {
                // Images of the scene start below.
                const uchar *pixel =
                    read.constScanLine(read.height() - 1 - y) + 4 * static_cast<std::ptrdiff_t>(x);
                const osg::UInt8 *wanted = image.getPixel().getValues().data() +
                                           static_cast<std::size_t>(y * read.width() + x) * channels;
                areEqual = areEqual && std::memcmp(pixel, wanted, channels) == 0;
            }
        EXPECT_TRUE(areEqual) << image.getName();
    }

    static bool isClose(float a, float b, float size = 0)
    {
        constexpr float Rounding = 1e-4F;
        return std::abs(a - b) <= Rounding * std::max({std::abs(a), std::abs(b), size, 1e-3F});
    }

    static bool isClose(const aiVector3D &a, const aiVector3D &b, float size)
    {
        return isClose(a.x, b.x, size) && isClose(a.y, b.y, size) && isClose(a.z, b.z, size);
    }

    /// Calls \a visit with all nodes, children first, and their places in the world.
    static void visitNodes(const aiNode &node, const aiMatrix4x4 &above,
                           const std::function<void(const aiNode &, const aiMatrix4x4 &)> &visit)
    {
        const aiMatrix4x4 world = above * node.mTransformation;
        for (unsigned int i = 0; i < node.mNumChildren; ++i)
            visitNodes(*node.mChildren[i], world, visit);
        visit(node, world);
    }

    static std::vector<Surface> surfacesOf(const aiScene &scene)
    {
        std::vector<Surface> surfaces;
        visitNodes(*scene.mRootNode, {}, [&](const aiNode &node, const aiMatrix4x4 &world) {
            for (unsigned int i = 0; i < node.mNumMeshes; ++i) {
                const aiMesh *mesh = scene.mMeshes[node.mMeshes[i]];
                // Files do not hold meshes without faces.
                if (mesh->mNumFaces > 0)
                    surfaces.push_back({world, mesh, scene.mMaterials[mesh->mMaterialIndex]});
            }
        });
        return surfaces;
    }

    static std::vector<Light> lightsOf(const aiScene &scene)
    {
        std::vector<Light> lights;
        for (unsigned int i = 0; i < scene.mNumLights; ++i)
            visitNodes(*scene.mRootNode, {}, [&](const aiNode &node, const aiMatrix4x4 &world) {
                if (node.mName == scene.mLights[i]->mName)
                    lights.push_back({world, scene.mLights[i]});
            });
        return lights;
    }

    static void expectGeometry(const Surface &actual, const Surface &expected)
    {
        const aiMesh &mesh = *expected.mesh;
        ASSERT_EQ(actual.mesh->mNumVertices, mesh.mNumVertices);
        ASSERT_EQ(actual.mesh->mNumFaces, mesh.mNumFaces);
        float size = 0;
        for (unsigned int i = 0; i < mesh.mNumVertices; ++i)
            size = std::max(size, (expected.world * mesh.mVertices[i]).Length());
        bool areClose = true;
        for (unsigned int i = 0; i < mesh.mNumVertices; ++i)
            areClose = areClose && isClose(actual.world * actual.mesh->mVertices[i],
                                           expected.world * mesh.mVertices[i], size);
        EXPECT_TRUE(areClose) << mesh.mName.C_Str();
    }

    static aiColor3D colourOf(const aiMaterial &material)
    {
        aiColor3D colour;
        if (material.Get(AI_MATKEY_BASE_COLOR, colour) != aiReturn_SUCCESS &&
            material.Get(AI_MATKEY_COLOR_DIFFUSE, colour) != aiReturn_SUCCESS)
            colour = aiColor3D(0.8F, 0.8F, 0.8F);
        return colour;
    }

    static float opacityOf(const aiMaterial &material)
    {
        float opacity = 1;
        material.Get(AI_MATKEY_OPACITY, opacity);
        return ksSoundNumbers::share(opacity);
    }

    static void expectMaterial(const aiMaterial &actual, const aiMaterial &expected)
    {
        for (unsigned int i = 0; i < 3; ++i)
            EXPECT_FLOAT_EQ(colourOf(actual)[i], ksSoundNumbers::share(colourOf(expected)[i]));
        EXPECT_FLOAT_EQ(opacityOf(actual), opacityOf(expected));
    }

    /// Whether two lights are of one kind and colour, at one place, and shine the same way.
    static bool areAlike(const Light &original, const Light &saved)
    {
        const aiLight &wanted = *original.source;
        const aiLight &read = *saved.source;
        const bool hasKind = wanted.mType == aiLightSource_DIRECTIONAL || wanted.mType == aiLightSource_SPOT;
        if (read.mType != (hasKind ? wanted.mType : aiLightSource_POINT))
            return false;
        const auto peak = [](const aiColor3D &colour) {
            return std::max({colour.r, colour.g, colour.b, 1e-6F});
        };
        for (unsigned int i = 0; i < 3; ++i)
            if (!isClose(wanted.mColorDiffuse[i] / peak(wanted.mColorDiffuse),
                         read.mColorDiffuse[i] / peak(read.mColorDiffuse)))
                return false;
        const aiVector3D place = original.world * wanted.mPosition;
        const aiVector3D direction = (aiMatrix3x3(original.world) * wanted.mDirection).NormalizeSafe();
        const aiVector3D there = (aiMatrix3x3(saved.world) * aiVector3D(0, 0, -1)).NormalizeSafe();
        return (wanted.mType == aiLightSource_DIRECTIONAL ||
                isClose(saved.world * aiVector3D(), place, place.Length())) &&
               (!hasKind || direction.SquareLength() == 0 || isClose(there, direction, 1));
    }

    Assimp::Importer importer;
    const aiScene *content;
};
