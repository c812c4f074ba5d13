// SPDX-License-Identifier: MIT
#include <OpenSG/OSGChunkMaterial.h>

OSG_BEGIN_NAMESPACE

OSG_DEFINE_CONTAINER(ChunkMaterial, Material, "", OSG_CHUNK_MATERIAL_FIELDS)

ChunkMaterial::~ChunkMaterial(void)
{
    clearChunks();
}

void ChunkMaterial::onCreate(const FieldContainer *source)
{
    Inherited::onCreate(source);
    for (const StateChunkPtr &chunk : _mfChunks) {
        addRefCP(chunk);
    }
}

void ChunkMaterial::onCreateAspect(const FieldContainer *created, const FieldContainer *source)
{
    Inherited::onCreateAspect(created, source);
    if (created != this) {
        for (const StateChunkPtr &chunk : _mfChunks) {
            addRefOfCopy(chunk);
        }
    }
}

bool ChunkMaterial::addChunk(const StateChunkPtr &chunk, Int32 slot)
{
    if (chunk == NullFC) {
        return false;
    }
    addRefCP(chunk);
    _mfChunks.push_back(chunk);
    if (slot != AutoSlot) {
        _mfSlots.resize(_mfChunks.size(), AutoSlot);
        _mfSlots.back() = slot;
    }
    return true;
}

bool ChunkMaterial::subChunk(const StateChunkPtr &chunk)
{
    const Int32 index = find(chunk);
    if (index < 0) {
        return true;
    }
    StateChunkPtr leaving = _mfChunks[static_cast<UInt32>(index)];
    if (static_cast<UInt32>(index) < _mfSlots.size()) {
        _mfSlots.erase(_mfSlots.begin() + index);
    }
    _mfChunks.erase(_mfChunks.begin() + index);
    subRefCP(leaving);
    return false;
}

Int32 ChunkMaterial::find(const StateChunkPtr &chunk) const
{
    const auto found = _mfChunks.find(chunk);
    return found != _mfChunks.end() ? static_cast<Int32>(found - _mfChunks.begin()) : -1;
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
