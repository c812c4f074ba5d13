// SPDX-License-Identifier: MIT
#include <OpenSG/OSGChunkMaterial.h>

OSG_BEGIN_NAMESPACE

OSG_DEFINE_CONTAINER(ChunkMaterial, Material, "", OSG_CHUNK_MATERIAL_FIELDS)

ChunkMaterial::ChunkMaterial(const ChunkMaterial &source)
    : Inherited(source)
{
    _mfChunks.clear();
    _mfSlots.clear();
}

ChunkMaterial::~ChunkMaterial(void)
{
    clearChunks();
}

void ChunkMaterial::addChunk(const StateChunkPtr &chunk, Int32 slot)
{
    if (chunk != NullFC) {
        addRefCP(chunk);
        _mfChunks.push_back(chunk);
        _mfSlots.push_back(slot);
    }
}

bool ChunkMaterial::subChunk(const StateChunkPtr &chunk)
{
    const auto found = _mfChunks.find(chunk);
    if (found == _mfChunks.end()) {
        return false;
    }
    StateChunkPtr leaving = *found;
    _mfSlots.erase(_mfSlots.begin() + (found - _mfChunks.begin()));
    _mfChunks.erase(found);
    subRefCP(leaving);
    return true;
}

void ChunkMaterial::clearChunks(void)
{
    MFStateChunkPtr leaving;
    leaving.swap(_mfChunks);
    _mfSlots.clear();
    for (const StateChunkPtr &chunk : leaving) {
        subRefCP(chunk);
    }
}

OSG_END_NAMESPACE
