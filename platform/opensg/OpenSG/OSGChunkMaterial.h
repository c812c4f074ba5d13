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

/// Material put together from chunks. The list of slots may be shorter than that of the chunks; chunks
/// without a slot find theirs when they are drawn. The edits of the two lists are up to the caller.
class ChunkMaterial : public ChunkMaterialBase
{
    OSG_CONTAINER_MEMBERS(ChunkMaterial)

public:
    static constexpr Int32 AutoSlot = -1;

    /// Adds a chunk at the end and takes a reference on it. False, and no change, for null.
    bool addChunk(const StateChunkPtr &chunk, Int32 slot = AutoSlot);

    /// Removes the first such chunk and releases the reference. True if there was none.
    bool subChunk(const StateChunkPtr &chunk);
    void clearChunks(void);

    /// Position of the first such chunk; -1 if there is none.
    Int32 find(const StateChunkPtr &chunk) const;

    /// A copy has the same chunks.
    void onCreate(const FieldContainer *source = nullptr) override;
    void onCreateAspect(const FieldContainer *created, const FieldContainer *source = nullptr) override;

protected:
    ChunkMaterial(void) = default;
    ChunkMaterial(const ChunkMaterial &) = default;
    ~ChunkMaterial(void) override;
};

OSG_END_NAMESPACE
