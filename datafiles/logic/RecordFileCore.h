// RecordFileCore - the logic of a record file over a store: the head and the
// descriptor, walking, seeking, reading and writing records with their
// checksums.
//
// CRecFile runs its file through one of these, and adds what belongs to the
// system: the file itself, the thread's last-error code and the exceptions.
// A record file in memory runs through one just the same.
//
// Every operation gives 0 or an error code (kRecErr..., or the store's own).
// After a failure the caller closes the store: the position is then lost.
#pragma once

#include "datafiles/logic/RecordHeader.h"
#include "datafiles/logic/RecordStore.h"

#include <stdint.h>

#include <memory>
#include <string>

namespace tqm {

struct RecordTime
{
    uint32_t year, month, day, hour, minute, second;
};

class RecordFileCore
{
public:
    enum Mode
    {
        kModeNone = 0,
        kModeRead = 1,
        kModeWrite = 2
    };
    enum RecState
    {
        kNoPosition = 0,
        kAtBoundary = 1,
        kHeaderDone = 2,    // header read or written, no data transferred yet
        kDataPartly = 3,
        kDataComplete = 4
    };
    static constexpr uint32_t kUnknown = 0xFFFFFFFF;
    static constexpr uint32_t kAnyType = 0xFFFFFFFF;
    // What FindNext and SeekToRecord give at the end of the file: no error.
    static constexpr uint32_t kEndOfRecords = 0xFFFFFFFF;

    // A core working on the store from offset 0; NULL without memory.
    static std::unique_ptr<RecordFileCore> Attach(RecordStore& store);

    // Writes the magic and the descriptor of a new file into the empty store.
    uint32_t Create(uint32_t fileType, uint32_t version, const RecordTime& created, const char* description);
    // Reads and checks the head and the descriptor of an existing file
    // (fileType kUnknown: any type); with write, records are then appended.
    uint32_t Open(uint32_t fileType, bool write);
    // Moves to an offset / to the end plus a distance, at a record boundary
    // (after Open for writing, the end is where records are appended).
    uint32_t Seek(uint32_t pos);
    uint32_t SeekFromEnd(int32_t distance);

    // Moves to the next record of the type (kAnyType: of any type).
    uint32_t FindNext(uint32_t recType);
    // Back to the descriptor record.
    uint32_t Rewind();
    // Moves to the record whose header is at pos and reads that header.
    uint32_t SeekToRecord(uint32_t pos);

    uint32_t ReadBegin();
    uint32_t ReadData(void* p, uint32_t n);
    uint32_t ReadEnd();

    uint32_t WriteBegin(uint32_t recType, uint32_t recParam);
    uint32_t WriteData(const void* p, uint32_t n);
    uint32_t WriteEnd();
    uint32_t WriteRecord(uint32_t recType, uint32_t recParam, const void* p, uint32_t n);
    // The offset at which the next record will be written.
    uint32_t RecFilePointer(uint32_t* pPos);

    // Forgets the current record: no position, no header.
    void ResetSeek();

    // The state, for CRecFile's members.
    int mode = kModeNone;
    int recState = kNoPosition;
    uint32_t firstRecPos = 0;   // offset of the descriptor record
    uint32_t nextRecPos = 0;    // offset of the record after the current one
    uint32_t fileSize = 0;
    RecordHeader header = {};   // of the current record
    uint32_t fileType = kUnknown;
    uint32_t version = kUnknown;
    RecordTime created = {};
    std::string description;
    uint32_t runningSum = 0;    // checksum of the current record's data so far
    uint32_t dataDone = 0;      // data bytes transferred in the current record
    uint32_t recStartPos = kUnknown;  // offset of the record being written

private:
    explicit RecordFileCore(std::unique_ptr<RecordBuffer> buffer);
    uint32_t readHead(uint32_t wantedType);
    bool reading() const { return mode == kModeRead; }
    bool writing() const { return mode == kModeWrite; }

    std::unique_ptr<RecordBuffer> m_buffer;
};

}  // namespace tqm
