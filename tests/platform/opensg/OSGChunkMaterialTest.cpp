// SPDX-License-Identifier: MIT
#include "support/ksRecords.h"

#include <OpenSG/OSGChunkMaterial.h>

#include <gtest/gtest.h>

#include <vector>

OSG_BEGIN_NAMESPACE

#define OSG_FOG_CHUNK_FIELDS(SF, MF)

OSG_CONTAINER_POINTER(FogChunk, StateChunkPtr)
OSG_CONTAINER_BASE(FogChunk, StateChunk, OSG_FOG_CHUNK_FIELDS)

/// A chunk that can be made.
class FogChunk : public FogChunkBase
{
    OSG_CONTAINER(FogChunk)
};

OSG_DEFINE_CONTAINER(FogChunk, StateChunk, "", OSG_FOG_CHUNK_FIELDS)

OSG_END_NAMESPACE

namespace {

using namespace osg;

class OSGChunkMaterialTest : public testing::Test
{
protected:
    OSGChunkMaterialTest()
    {
        material->addChunk(a);
        material->addChunk(b, 4);
        material->addChunk(NullFC);
    }

    ChunkMaterialRefPtr material{ChunkMaterial::create()};
    const FogChunkRefPtr a{FogChunk::create()};
    const FogChunkRefPtr b{FogChunk::create()};
};

TEST_F(OSGChunkMaterialTest, HoldsChunksWithTheirSlots)
{
    EXPECT_EQ(material->getChunks().getValues(), (std::vector<StateChunkPtr>{a, b}));
    EXPECT_EQ(material->getSlots().getValues(), (std::vector<Int32>{ChunkMaterial::AutoSlot, 4}));
    EXPECT_EQ(a.get().getRefCount(), 2);
    EXPECT_EQ(material->find(b), 1);
    EXPECT_EQ(material->find(NullFC), -1);
}

TEST_F(OSGChunkMaterialTest, ChunksAddNoSlotUnlessTheyHaveOne)
{
    EXPECT_TRUE(material->addChunk(a));
    EXPECT_FALSE(material->addChunk(NullFC));
    EXPECT_EQ(material->getChunks().size(), 3u);
    EXPECT_EQ(material->getSlots().size(), 2u);
    EXPECT_FALSE(material->subChunk(a));
    EXPECT_FALSE(material->subChunk(a));
    EXPECT_EQ(material->getSlots().getValues(), (std::vector<Int32>{4}));
}

TEST_F(OSGChunkMaterialTest, GivesChunksBack)
{
    EXPECT_FALSE(material->subChunk(a));
    EXPECT_TRUE(material->subChunk(a)) << "there was none";
    EXPECT_EQ(material->getChunks().getValues(), (std::vector<StateChunkPtr>{b}));
    EXPECT_EQ(material->getSlots().getValues(), (std::vector<Int32>{4}));
    EXPECT_EQ(a.get().getRefCount(), 1);

    material->clearChunks();
    EXPECT_TRUE(material->getChunks().empty());
    EXPECT_TRUE(material->getSlots().empty());
    EXPECT_EQ(b.get().getRefCount(), 1);
}

TEST_F(OSGChunkMaterialTest, ReleasesChunksAtItsEnd)
{
    // One reference for each aspect's copy of the new material.
    ChunkMaterialRefPtr copy(ChunkMaterialPtr::dcast(material->shallowCopy()));
    EXPECT_EQ(copy->getChunks().getValues(), (std::vector<StateChunkPtr>{a, b}));
    EXPECT_EQ(copy->getSlots().getValues(), material->getSlots().getValues());
    EXPECT_EQ(a.get().getRefCount(), 4);
    material = NullFC;
    EXPECT_EQ(a.get().getRefCount(), 3);
    copy = NullFC;
    EXPECT_EQ(a.get().getRefCount(), 1);
    EXPECT_EQ(b.get().getRefCount(), 1);
}

TEST_F(OSGChunkMaterialTest, CopyRecordsAReferenceOnEveryChunk)
{
    ksRecorder recorder;
    const ChunkMaterialRefPtr copy(ChunkMaterialPtr::dcast(material->shallowCopy()));
    EXPECT_EQ(recorder.take(),
              ksRecords().create(1).addRef(recorder.idOf(a.get())).addRef(recorder.idOf(b.get())).addRef(1));
}

TEST_F(OSGChunkMaterialTest, ChunksAreNotIgnoredAtFirst)
{
    static_assert(StateChunk::IgnoreFieldId == 3 && FogChunk::NextFieldId == 4);
    EXPECT_FALSE(a->getIgnore());
}

} // namespace
