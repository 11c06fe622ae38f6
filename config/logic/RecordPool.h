// RecordPool - the memory of one INI document's records.
//
// A document of 10 MB holds some 200,000 small records. Taking each from the
// system heap costs more than reading its line (a heap call is dearer than
// the 50 bytes of text behind it), so the document carves them from chunks of
// its own instead. A freed record's block goes on a free list by size and is
// reused by the next record of about that size, so editing a document does
// not grow it. Release() gives all memory back at once; Reset() forgets
// every block but keeps the chunks, so that a document read again reuses
// memory it has already touched. Blocks are aligned
// for a pointer; blocks larger than kLargestPooled come from new[] on their
// own (and still go back with Release).
#pragma once

#include <stddef.h>

#include <vector>

namespace tqm {
namespace ini {

class RecordPool
{
public:
    RecordPool() = default;
    ~RecordPool() { Release(); }
    RecordPool(const RecordPool&) = delete;
    RecordPool& operator=(const RecordPool&) = delete;

    // A block of nBytes; throws std::bad_alloc when memory runs out.
    char* Allocate(size_t nBytes);
    // Returns a block of this pool; nBytes as it was allocated. Never throws.
    void Free(char* pBlock, size_t nBytes) noexcept;
    // Frees every block at once.
    void Release();
    // Forgets every block but keeps the chunks for the blocks to come.
    void Reset();

    // Bytes of the chunks taken from the system (for tests).
    size_t ChunkBytes() const { return m_nChunkBytes; }

    static const size_t kAlignment = 8;
    static const size_t kLargestPooled = 4096;

private:
    static size_t sizeClass(size_t nBytes) { return (nBytes + kAlignment - 1) / kAlignment; }

    struct Chunk
    {
        char* pStart;
        size_t nBytes;
    };

    void nextChunk(size_t nAtLeast);

    std::vector<Chunk> m_chunks;
    size_t m_nCurrent = 0;           // the chunk blocks are carved from
    std::vector<char*> m_large;      // blocks above kLargestPooled
    std::vector<char*> m_freeLists;  // by size class; each block holds the next one's address
    char* m_pNext = nullptr;         // free space in the newest chunk
    char* m_pEnd = nullptr;
    size_t m_nChunkBytes = 0;
};

}  // namespace ini
}  // namespace tqm
