// SPDX-License-Identifier: MIT
#include <editor/scene/ksMesh.h>

OSG_BEGIN_NAMESPACE

OSG_DEFINE_CONTAINER(ksMesh, NodeCore, "", KS_MESH_FIELDS)

ksMesh::ksMesh(const ksMesh &source)
    : Inherited(source)
{
    addRefCP(_sfMaterial.getValue());
}

ksMesh::~ksMesh()
{
    subRefCP(_sfMaterial.getValue());
}

void ksMesh::setMaterial(const MaterialPtr &material)
{
    setRefdCP(_sfMaterial.getValue(), material);
}

OSG_END_NAMESPACE
