// The record file in memory, and the buffered access to a store.
#include "datafiles/logic/RecordStore.h"

#include <string.h>

#include <algorithm>
#include <new>

namespace tqm {
namespace {

constexpr uint64_t kMaxOffset = 0xFFFFFFFFull;

}  // namespace

// ---- MemoryRecordStore -----------------------------------------------------

MemoryRecordStore::MemoryRecordStore(const void* data, size_t size)
    : m_bytes(static_cast<const uint8_t*>(data), static_cast<const uint8_t*>(data) + size)
{
}

uint32_t MemoryRecordStore::ReadAt(uint64_t pos, void* p, uint32_t n, uint32_t* pDone)
{
    *pDone = 0;
    if (pos >= m_bytes.size())
        return 0;
    uint32_t count = static_cast<uint32_t>(std::min<uint64_t>(n, m_bytes.size() - pos));
    memcpy(p, m_bytes.data() + pos, count);
    *pDone = count;
    return 0;
}

uint32_t MemoryRecordStore::WriteAt(uint64_t pos, const void* p, uint32_t n)
{
    if (pos + n > kMaxOffset + 1)
        return kRecErrFileTooLarge;
    try {
        if (m_bytes.size() < pos + n)
            m_bytes.resize(static_cast<size_t>(pos + n));
    } catch (const std::bad_alloc&) {
        return kRecErrNotEnoughMemory;
    }
    if (n)
        memcpy(m_bytes.data() + pos, p, n);
    return 0;
}

uint32_t MemoryRecordStore::Size(uint64_t* pSize)
{
    *pSize = m_bytes.size();
    return 0;
}

// ---- RecordBuffer ----------------------------------------------------------

std::unique_ptr<RecordBuffer> RecordBuffer::Attach(RecordStore& store)
{
    std::unique_ptr<uint8_t[]> block(new (std::nothrow) uint8_t[kBlockSize]);
    if (!block)
        return nullptr;
    return std::unique_ptr<RecordBuffer>(new (std::nothrow) RecordBuffer(store, std::move(block)));
}

RecordBuffer::RecordBuffer(RecordStore& store, std::unique_ptr<uint8_t[]> block)
    : m_store(store), m_block(std::move(block))
{
}

bool RecordBuffer::inWindow(uint32_t pos) const
{
    return pos >= m_blockStart && uint64_t(pos) < uint64_t(m_blockStart) + m_blockLength;
}

uint32_t RecordBuffer::seek(uint32_t pos)
{
    m_pos = pos;
    return 0;
}

uint32_t RecordBuffer::seekFromEnd(int32_t distance)
{
    uint64_t size = 0;
    if (uint32_t error = m_store.Size(&size))
        return error;
    int64_t target = int64_t(size) + distance;
    if (target < 0)
        return kRecErrNegativeSeek;
    if (uint64_t(target) > kMaxOffset)
        return kRecErrSeek;
    m_pos = static_cast<uint32_t>(target);
    return 0;
}

uint32_t RecordBuffer::read(void* p, uint32_t n, uint32_t* pDone)
{
    *pDone = 0;
    auto* out = static_cast<uint8_t*>(p);
    uint32_t done = 0;
    uint32_t error = 0;
    while (done < n) {
        if (inWindow(m_pos)) {
            uint32_t offset = m_pos - m_blockStart;
            uint32_t count = std::min(n - done, m_blockLength - offset);
            memcpy(out + done, m_block.get() + offset, count);
            done += count;
            m_pos += count;
            continue;
        }
        uint32_t rest = n - done;
        uint32_t got = 0;
        if (rest >= kBlockSize) {
            // Too much for the window: straight into the caller's memory.
            error = m_store.ReadAt(m_pos, out + done, rest, &got);
            done += got;
            m_pos += got;
            break;
        }
        m_blockLength = 0;
        error = m_store.ReadAt(m_pos, m_block.get(), kBlockSize, &got);
        if (error || got == 0)  // a failure, or the end of the store
            break;
        m_blockStart = m_pos;
        m_blockLength = got;
    }
    *pDone = done;
    return error;
}

uint32_t RecordBuffer::write(const void* p, uint32_t n)
{
    if (uint64_t(m_pos) + n > kMaxOffset)
        return kRecErrFileTooLarge;
    // The window may hold the old bytes of the place written.
    m_blockLength = 0;
    if (uint32_t error = m_store.WriteAt(m_pos, p, n))
        return error;
    m_pos += n;
    return 0;
}

uint32_t RecordBuffer::writePair(const void* a, uint32_t na, const void* b, uint32_t nb)
{
    if (uint64_t(na) + nb > kBlockSize) {
        if (uint32_t error = write(a, na))
            return error;
        return write(b, nb);
    }
    m_blockLength = 0;
    memcpy(m_block.get(), a, na);
    if (nb)
        memcpy(m_block.get() + na, b, nb);
    return write(m_block.get(), na + nb);
}

}  // namespace tqm
