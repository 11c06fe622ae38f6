// RecordPool - chunks carved into blocks, with free lists by size.
#include "config/logic/RecordPool.h"

#include <string.h>

#include <algorithm>

namespace tqm {
namespace ini {
namespace {

// Chunks grow from small (most documents are a few lines) to this size.
const size_t kFirstChunk = 2048;
const size_t kLargestChunk = 64 * 1024;

}  // namespace

char* RecordPool::Allocate(size_t nBytes)
{
    if (nBytes > kLargestPooled) {
        m_large.reserve(m_large.size() + 1);
        char* pBlock = new char[nBytes];
        m_large.push_back(pBlock);
        return pBlock;
    }
    if (m_freeLists.empty())
        m_freeLists.assign(sizeClass(kLargestPooled) + 1, nullptr);  // Free never has to grow it
    size_t nClass = sizeClass(nBytes ? nBytes : 1);
    if (m_freeLists[nClass]) {
        char* pBlock = m_freeLists[nClass];
        memcpy(&m_freeLists[nClass], pBlock, sizeof(char*));
        return pBlock;
    }
    size_t nRounded = nClass * kAlignment;
    while (static_cast<size_t>(m_pEnd - m_pNext) < nRounded)
        nextChunk(nRounded);
    char* pBlock = m_pNext;
    m_pNext += nRounded;
    return pBlock;
}

void RecordPool::nextChunk(size_t nAtLeast)
{
    // After a Reset the chunks kept are used again first.
    if (m_nCurrent + 1 < m_chunks.size()) {
        const Chunk& chunk = m_chunks[++m_nCurrent];
        m_pNext = chunk.pStart;
        m_pEnd = chunk.pStart + chunk.nBytes;
        return;
    }
    size_t nChunk = m_chunks.empty() ? kFirstChunk : m_nChunkBytes;  // doubles the total each time
    if (nChunk > kLargestChunk)
        nChunk = kLargestChunk;
    if (nChunk < nAtLeast)
        nChunk = nAtLeast;
    m_chunks.reserve(m_chunks.size() + 1);
    char* pStart = new char[nChunk];  // aligned for any type
    m_chunks.push_back(Chunk{pStart, nChunk});
    m_nChunkBytes += nChunk;
    m_nCurrent = m_chunks.size() - 1;
    m_pNext = pStart;
    m_pEnd = pStart + nChunk;
}

void RecordPool::Free(char* pBlock, size_t nBytes) noexcept
{
    if (!pBlock)
        return;
    if (nBytes > kLargestPooled) {
        for (size_t i = 0; i < m_large.size(); ++i) {
            if (m_large[i] == pBlock) {
                m_large[i] = m_large.back();
                m_large.pop_back();
                break;
            }
        }
        delete[] pBlock;
        return;
    }
    size_t nClass = sizeClass(nBytes ? nBytes : 1);
    memcpy(pBlock, &m_freeLists[nClass], sizeof(char*));
    m_freeLists[nClass] = pBlock;
}

void RecordPool::Reset()
{
    for (char* pBlock : m_large)
        delete[] pBlock;
    m_large.clear();
    std::fill(m_freeLists.begin(), m_freeLists.end(), nullptr);
    m_nCurrent = 0;
    m_pNext = m_chunks.empty() ? nullptr : m_chunks[0].pStart;
    m_pEnd = m_chunks.empty() ? nullptr : m_chunks[0].pStart + m_chunks[0].nBytes;
}

void RecordPool::Release()
{
    for (const Chunk& chunk : m_chunks)
        delete[] chunk.pStart;
    m_chunks.clear();
    Reset();
    m_freeLists.clear();
    m_nChunkBytes = 0;
}

}  // namespace ini
}  // namespace tqm
