// The record file's logic over a store.
#include "datafiles/logic/RecordFileCore.h"

#include "datafiles/logic/RecordChecksum.h"
#include "datafiles/logic/RecordDescriptor.h"

#include <string.h>

#include <new>

namespace tqm {

std::unique_ptr<RecordFileCore> RecordFileCore::Attach(RecordStore& store)
{
    std::unique_ptr<RecordBuffer> buffer = RecordBuffer::Attach(store);
    if (!buffer)
        return nullptr;
    return std::unique_ptr<RecordFileCore>(new (std::nothrow) RecordFileCore(std::move(buffer)));
}

RecordFileCore::RecordFileCore(std::unique_ptr<RecordBuffer> buffer) : m_buffer(std::move(buffer))
{
    ResetSeek();
}

void RecordFileCore::ResetSeek()
{
    header = {};
    recState = kNoPosition;
    nextRecPos = 0;
    dataDone = 0;
    runningSum = RecordChecksumStart(fileType);
    recStartPos = kUnknown;
}

uint32_t RecordFileCore::Seek(uint32_t pos)
{
    if (pos == kUnknown)
        return kRecErrInvalidFunction;
    ResetSeek();
    if (uint32_t error = m_buffer->seek(pos))
        return error;
    recState = kAtBoundary;
    return 0;
}

// ---- creating and opening ----------------------------------------------------

uint32_t RecordFileCore::Create(uint32_t type, uint32_t ver, const RecordTime& time, const char* desc)
{
    mode = kModeWrite;
    fileType = type;
    version = ver;
    created = time;
    description = desc ? desc : "";
    ResetSeek();
    if (uint32_t error = m_buffer->write(kFileMagic, kFileMagicSize))
        return error;
    recState = kAtBoundary;
    RecordDescriptor d;
    d.fileType = fileType;
    d.version = version;
    d.day = created.day;
    d.month = created.month;
    d.year = created.year;
    d.hour = created.hour;
    d.minute = created.minute;
    d.second = created.second;
    d.description = description;
    std::string text = FormatRecordDescriptor(d);
    // The text goes with its terminating zero byte.
    return WriteRecord(0, 1, text.c_str(), static_cast<uint32_t>(text.size() + 1));
}

uint32_t RecordFileCore::Open(uint32_t wantedType, bool write)
{
    mode = write ? kModeWrite : kModeRead;
    if (uint32_t error = readHead(wantedType))
        return error;
    recState = kAtBoundary;
    return 0;
}

uint32_t RecordFileCore::SeekFromEnd(int32_t distance)
{
    ResetSeek();
    if (uint32_t error = m_buffer->seekFromEnd(distance))
        return error;
    recState = kAtBoundary;
    return 0;
}

// Reads and checks the magic (or the old text line) and the descriptor;
// leaves the position behind the descriptor.
uint32_t RecordFileCore::readHead(uint32_t wantedType)
{
    uint8_t magic[kFileMagicSize];
    uint32_t done = 0;
    if (uint32_t error = m_buffer->read(magic, sizeof(magic), &done))
        return error;
    if (done != sizeof(magic) || memcmp(magic, kFileMagic, sizeof(magic)) != 0) {
        uint8_t head[kLegacyHeadSize] = {};
        if (uint32_t error = m_buffer->seek(0))
            return error;
        if (uint32_t error = m_buffer->read(head, sizeof(head), &done))
            return error;
        if (head[sizeof(head) - 1] == kLegacyEofMark) {
            // The end-of-file mark is followed by one byte of any value.
            head[sizeof(head) - 1] = 0;
            uint8_t extra;
            if (uint32_t error = m_buffer->read(&extra, 1, &done))
                return error;
        }
        if (!IsLegacyFileHead(head))
            return kRecErrBadFormat;
    }
    firstRecPos = m_buffer->position();

    uint64_t size = 0;
    if (uint32_t error = m_buffer->store().Size(&size))
        return error;
    if (size > 0xFFFFFFFFull)  // offsets are 32 bits wide
        return kRecErrBadFormat;
    fileSize = static_cast<uint32_t>(size);

    // The descriptor header's magic and type are not checked: files of some
    // writers carry other values there.
    uint8_t raw[kRecordHeaderSize];
    if (uint32_t error = m_buffer->read(raw, sizeof(raw), &done))
        return error;
    if (done != sizeof(raw))
        return kRecErrBadFormat;
    RecordHeader head = DecodeRecordHeader(raw);
    if (head.length < kMinDescriptorLength || head.length > kMaxDescriptorLength)
        return kRecErrBadFormat;
    char text[kMaxDescriptorLength];
    if (uint32_t error = m_buffer->read(text, head.length, &done))
        return error;
    if (done != head.length)
        return kRecErrBadFormat;

    RecordDescriptor d;
    if (!ParseRecordDescriptor(text, head.length, d))
        return kRecErrBadFormat;
    if (RecordChecksum(d.fileType, text, head.length) != head.checksum)
        return kRecErrBadFormat;
    if (wantedType != kUnknown && wantedType != d.fileType)
        return kRecErrBadFormat;
    fileType = d.fileType;
    version = d.version;
    created = {d.year, d.month, d.day, d.hour, d.minute, d.second};
    description = d.description;
    return 0;
}

// ---- finding records -----------------------------------------------------------

uint32_t RecordFileCore::FindNext(uint32_t recType)
{
    if (!reading())
        return kRecErrInvalidFunction;
    for (;;) {
        // Anywhere but at a record boundary, the next record is where the
        // current one ends. With no position at all that is offset 0, whose
        // bytes are no record header: after the end of the file only Rewind
        // or SeekToRecord go on.
        if (recState != kAtBoundary) {
            if (uint32_t error = Seek(nextRecPos))
                return error;
        }
        uint32_t headerPos = m_buffer->position();
        uint8_t raw[kRecordHeaderSize];
        uint32_t done = 0;
        if (uint32_t error = m_buffer->read(raw, sizeof(raw), &done))
            return error;
        if (done != sizeof(raw)) {
            ResetSeek();
            return kEndOfRecords;
        }
        header = DecodeRecordHeader(raw);
        uint64_t end = uint64_t(headerPos) + sizeof(raw) + header.length;
        if (header.magic != kRecordMagic || end > fileSize)
            return kRecErrSeek;
        runningSum = RecordChecksumStart(fileType);
        dataDone = 0;
        nextRecPos = static_cast<uint32_t>(end);
        recState = kHeaderDone;
        if (recType == kAnyType || recType == header.type)
            return 0;
    }
}

// In any mode: while writing, the next record would then overwrite the
// descriptor, as the caller asked.
uint32_t RecordFileCore::Rewind()
{
    return Seek(firstRecPos);
}

uint32_t RecordFileCore::SeekToRecord(uint32_t pos)
{
    if (!reading())
        return kRecErrInvalidFunction;
    if (uint32_t error = Seek(pos))
        return error;
    return FindNext(kAnyType);
}

// ---- reading data --------------------------------------------------------------

uint32_t RecordFileCore::ReadBegin()
{
    if (!reading() || recState != kHeaderDone)
        return kRecErrInvalidFunction;
    dataDone = 0;
    return 0;
}

uint32_t RecordFileCore::ReadData(void* p, uint32_t n)
{
    if (!reading() || (recState != kHeaderDone && recState != kDataPartly) ||
        uint64_t(dataDone) + n > header.length || (!p && n))
        return kRecErrInvalidFunction;
    uint32_t done = 0;
    if (uint32_t error = m_buffer->read(p, n, &done))
        return error;
    // The record lay within the file when its header was read, and nobody
    // else can write to the file.
    if (done != n)
        return kRecErrHandleEof;
    runningSum = RecordChecksumUpdate(fileType, runningSum, p, n);
    dataDone += n;
    recState = dataDone == header.length ? kDataComplete : kDataPartly;
    return 0;
}

uint32_t RecordFileCore::ReadEnd()
{
    if (!reading() || recState != kDataComplete)
        return kRecErrInvalidFunction;
    if (RecordChecksumFinish(fileType, runningSum) != header.checksum)
        return kRecErrCrc;
    recState = kAtBoundary;
    return 0;
}

// ---- writing records -----------------------------------------------------------

uint32_t RecordFileCore::WriteBegin(uint32_t recType, uint32_t recParam)
{
    if (!writing() || recState != kAtBoundary)
        return kRecErrInvalidFunction;
    recStartPos = m_buffer->position();
    // Length and checksum stay 0 until the record is finished.
    header = {kRecordMagic, recType, recParam, 0, 0};
    uint8_t raw[kRecordHeaderSize];
    EncodeRecordHeader(header, raw);
    if (uint32_t error = m_buffer->write(raw, sizeof(raw)))
        return error;
    runningSum = RecordChecksumStart(fileType);
    dataDone = 0;
    recState = kHeaderDone;
    return 0;
}

uint32_t RecordFileCore::WriteData(const void* p, uint32_t n)
{
    if (!writing() || recState != kHeaderDone || (!p && n))
        return kRecErrInvalidFunction;
    if (uint32_t error = m_buffer->write(p, n))
        return error;
    runningSum = RecordChecksumUpdate(fileType, runningSum, p, n);
    dataDone += n;
    return 0;
}

// Fills in the record's length and checksum: its header went to the store
// with WriteBegin, so it is read back and checked for magic, type and
// parameter before the two fields are written in place.
uint32_t RecordFileCore::WriteEnd()
{
    if (!writing() || recState != kHeaderDone)
        return kRecErrInvalidFunction;
    header.length = dataDone;
    header.checksum = RecordChecksumFinish(fileType, runningSum);
    uint8_t raw[kRecordHeaderSize];
    EncodeRecordHeader(header, raw);

    uint8_t stored[kRecordHeaderIdentitySize];
    uint32_t done = 0;
    if (uint32_t error = m_buffer->seek(recStartPos))
        return error;
    if (uint32_t error = m_buffer->read(stored, sizeof(stored), &done))
        return error;
    if (done != sizeof(stored) || memcmp(stored, raw, sizeof(stored)) != 0)
        return kRecErrSeek;
    if (uint32_t error = m_buffer->write(raw + kRecordHeaderLengthOffset,
                                         kRecordHeaderSize - kRecordHeaderLengthOffset))
        return error;
    if (uint32_t error = m_buffer->seekFromEnd(0))
        return error;
    recStartPos = kUnknown;
    recState = kAtBoundary;
    return 0;
}

// The whole record is known, so its header goes out complete, together with
// the data: one write, and nothing to read back.
uint32_t RecordFileCore::WriteRecord(uint32_t recType, uint32_t recParam, const void* p, uint32_t n)
{
    if (!writing() || recState != kAtBoundary || (!p && n))
        return kRecErrInvalidFunction;
    uint32_t sum = RecordChecksumUpdate(fileType, RecordChecksumStart(fileType), p, n);
    header = {kRecordMagic, recType, recParam, n, RecordChecksumFinish(fileType, sum)};
    uint8_t raw[kRecordHeaderSize];
    EncodeRecordHeader(header, raw);
    recStartPos = m_buffer->position();
    if (uint32_t error = m_buffer->writePair(raw, sizeof(raw), p, n))
        return error;
    runningSum = sum;
    dataDone = n;
    recStartPos = kUnknown;
    recState = kAtBoundary;
    return 0;
}

uint32_t RecordFileCore::RecFilePointer(uint32_t* pPos)
{
    *pPos = kUnknown;
    if (!writing() || recState != kAtBoundary)
        return kRecErrInvalidFunction;
    *pPos = m_buffer->position();
    return 0;
}

}  // namespace tqm
