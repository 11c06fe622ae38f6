// RecordStore, MemoryRecordStore, RecordBuffer - where a record file's bytes
// live, and the buffered access to them.
//
// The record file's logic (RecordFileCore) reads and writes through a store:
// CRecFile gives it the file (datafiles/RecFileStore.h), and a record file
// held in memory is a MemoryRecordStore. Every call gives 0 or the error
// code of its failure (the system's, for a file).
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <memory>
#include <vector>

namespace tqm {

// Error codes of record files, as the system numbers them.
constexpr uint32_t kRecErrInvalidFunction = 1;   // a call in the wrong mode or state
constexpr uint32_t kRecErrNotEnoughMemory = 8;
constexpr uint32_t kRecErrBadFormat = 11;        // not a record file, or an inconsistent one
constexpr uint32_t kRecErrCrc = 23;              // a data checksum does not match
constexpr uint32_t kRecErrSeek = 25;             // a bad record header, a record past the end
constexpr uint32_t kRecErrWriteFault = 29;
constexpr uint32_t kRecErrHandleEof = 38;
constexpr uint32_t kRecErrNegativeSeek = 131;
constexpr uint32_t kRecErrFileTooLarge = 223;    // offsets of a record file are 32 bits wide

class RecordStore
{
public:
    virtual ~RecordStore() = default;
    // Reads up to n bytes from pos; *pDone is below n only at the end.
    virtual uint32_t ReadAt(uint64_t pos, void* p, uint32_t n, uint32_t* pDone) = 0;
    // Writes n bytes at pos, growing the store as needed.
    virtual uint32_t WriteAt(uint64_t pos, const void* p, uint32_t n) = 0;
    virtual uint32_t Size(uint64_t* pSize) = 0;
};

// A record file in memory: the bytes to read, and what was written.
class MemoryRecordStore : public RecordStore
{
public:
    MemoryRecordStore() = default;
    MemoryRecordStore(const void* data, size_t size);

    uint32_t ReadAt(uint64_t pos, void* p, uint32_t n, uint32_t* pDone) override;
    uint32_t WriteAt(uint64_t pos, const void* p, uint32_t n) override;
    uint32_t Size(uint64_t* pSize) override;

    const std::vector<uint8_t>& Bytes() const { return m_bytes; }

private:
    std::vector<uint8_t> m_bytes;
};

// Record files are read in small pieces (20-byte headers, data of a few
// dozen bytes); a call to the store each would dominate the work. So the
// buffer keeps one block as a window of the store for reading: stepping from
// record to record costs no call until the window is used up.
// Writing goes straight to the store: when write returns, its bytes are in
// the store, so a writer that stops without closing (a crash, a kill) leaves
// every record it finished, and a failing write is reported by the call that
// wrote. writePair gathers two pieces into one store call.
// Positions are offsets below 4 GiB, as record files use them.
class RecordBuffer
{
public:
    static constexpr uint32_t kBlockSize = 64 * 1024;

    // Starts at offset 0; the store stays the caller's. NULL when there is no
    // memory for the block.
    static std::unique_ptr<RecordBuffer> Attach(RecordStore& store);
    RecordBuffer(const RecordBuffer&) = delete;
    RecordBuffer& operator=(const RecordBuffer&) = delete;

    RecordStore& store() { return m_store; }
    // The offset of the next read or write.
    uint32_t position() const { return m_pos; }
    // Moves the position.
    uint32_t seek(uint32_t pos);
    // Moves the position to the end of the store plus the (signed) distance.
    uint32_t seekFromEnd(int32_t distance);

    // Reads up to n bytes; *pDone tells how many arrived (fewer only at the end).
    uint32_t read(void* p, uint32_t n, uint32_t* pDone);
    // Writes n bytes at the position, into the store.
    uint32_t write(const void* p, uint32_t n);
    // Writes a then b at the position, in one call to the store when both fit
    // into the block.
    uint32_t writePair(const void* a, uint32_t na, const void* b, uint32_t nb);

private:
    RecordBuffer(RecordStore& store, std::unique_ptr<uint8_t[]> block);
    bool inWindow(uint32_t pos) const;

    RecordStore& m_store;
    std::unique_ptr<uint8_t[]> m_block;
    uint32_t m_pos = 0;          // the position for the next read or write
    uint32_t m_blockStart = 0;   // offset of m_block[0]
    uint32_t m_blockLength = 0;  // bytes in the read window
};

}  // namespace tqm
