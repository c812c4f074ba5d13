// SPDX-License-Identifier: MIT
#include <editor/viewport/ksGpuMesh.h>

#include <algorithm>
#include <vector>

ksGpuMesh::ksGpuMesh(const osg::ksMesh &mesh)
    : cornersPerFace(std::clamp(int(mesh.getCornersPerFace()), 1, 3))
{
    const osg::MFPnt3f &positions = mesh.getPositions();
    const osg::MFVec3f &normals = mesh.getNormals();
    const osg::MFVec2f &coordinates = mesh.getTexCoords();
    hasNormals = cornersPerFace == 3 && normals.size() == positions.size();
    const bool hasCoordinates = coordinates.size() == positions.size();

    std::vector<float> data;
    data.reserve(positions.size() * 8);
    for (std::size_t i = 0; i < positions.size(); ++i) {
        data.insert(data.end(), positions[i].getValues(), positions[i].getValues() + 3);
        const osg::Vec3f normal = hasNormals ? normals[i] : osg::Vec3f(0, 0, 0);
        data.insert(data.end(), normal.getValues(), normal.getValues() + 3);
        const osg::Vec2f coordinate = hasCoordinates ? coordinates[i] : osg::Vec2f(0, 0);
        data.insert(data.end(), coordinate.getValues(), coordinate.getValues() + 2);
    }
    std::vector<osg::UInt32> corners;
    const osg::MFUInt32 &given = mesh.getIndices();
    corners.reserve(given.size());
    const auto perFace = std::size_t(cornersPerFace);
    for (std::size_t face = 0; face + perFace <= given.size(); face += perFace)
        if (*std::max_element(given.begin() + std::ptrdiff_t(face),
                              given.begin() + std::ptrdiff_t(face + perFace)) < positions.size())
            corners.insert(corners.end(), given.begin() + std::ptrdiff_t(face),
                           given.begin() + std::ptrdiff_t(face + perFace));
    count = int(corners.size());

    vertices.create();
    vertices.bind();
    vertices.allocate(data.data(), int(data.size() * sizeof(float)));
    indices.create();
    indices.bind();
    indices.allocate(corners.data(), int(corners.size() * sizeof(osg::UInt32)));
}
