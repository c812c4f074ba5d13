// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGMaterial.h>
#include <OpenSG/OSGStateChunk.h>

OSG_BEGIN_NAMESPACE

#define OSG_CHUNK_MATERIAL_FIELDS(SF, MF) \
    MF(MFStateChunkPtr, chunks, Chunks)   \
    MF(MFInt32, slots, Slots)

OSG_CONTAINER_POINTER(ChunkMaterial, MaterialPtr)
OSG_CONTAINER_BASE(ChunkMaterial, Material, OSG_CHUNK_MATERIAL_FIELDS)

/// Material put together from chunks, each with its slot. The edits of the two lists are up to the caller.
class ChunkMaterial : public ChunkMaterialBase
{
    OSG_CONTAINER_MEMBERS(ChunkMaterial)

public:
    static constexpr Int32 AutoSlot = -1;

    /// Adds a chunk at the end and takes a reference on it. Null does nothing.
    void addChunk(const StateChunkPtr &chunk, Int32 slot = AutoSlot);

    /// Removes the first such chunk and releases the reference. False if there is none.
    bool subChunk(const StateChunkPtr &chunk);
    void clearChunks(void);

protected:
    ChunkMaterial(void) = default;
    ChunkMaterial(const ChunkMaterial &source);
    ~ChunkMaterial(void) override;
};

OSG_END_NAMESPACE
