// The record file: any bytes opened as one, every record walked, read with
// its checksum and found again by seeking to its offset; and records written
// from the input read back as they were written.
#include "FuzzSupport.h"
#include "datafiles/logic/RecordFileCore.h"

#include <string.h>

#include <memory>
#include <vector>

namespace {

using tqm::MemoryRecordStore;
using tqm::RecordFileCore;

struct Found
{
    uint32_t offset;
    tqm::RecordHeader header;
};

// Opens the bytes and walks them; the records whose data checked out.
std::vector<Found> walk(MemoryRecordStore& store)
{
    std::vector<Found> found;
    std::unique_ptr<RecordFileCore> file = RecordFileCore::Attach(store);
    if (!file || file->Open(RecordFileCore::kUnknown, false) != 0)
        return found;
    TQM_FUZZ_CHECK(file->firstRecPos == 4 || file->firstRecPos == 42 || file->firstRecPos == 43);
    // From the descriptor on: opening leaves the position behind it.
    TQM_FUZZ_CHECK(file->Rewind() == 0);
    uint32_t offset = file->firstRecPos;
    std::vector<uint8_t> data;
    while (file->FindNext(RecordFileCore::kAnyType) == 0) {
        TQM_FUZZ_CHECK(file->nextRecPos <= file->fileSize);
        data.resize(file->header.length);
        // In two pieces, as a caller that reads a record bit by bit (an
        // empty record takes one empty piece).
        uint32_t half = file->header.length / 2;
        uint32_t rest = file->header.length - half;
        if (file->ReadBegin() != 0 || file->ReadData(data.data(), half) != 0 ||
            (rest && file->ReadData(data.data() + half, rest) != 0) || file->ReadEnd() != 0)
            break;
        found.push_back({offset, file->header});
        offset = file->nextRecPos;
    }
    for (const Found& f : found) {
        TQM_FUZZ_CHECK(file->SeekToRecord(f.offset) == 0);
        TQM_FUZZ_CHECK(memcmp(&file->header, &f.header, sizeof(f.header)) == 0);
    }
    if (file->Rewind() == 0 && file->FindNext(RecordFileCore::kAnyType) == 0 && !found.empty())
        TQM_FUZZ_CHECK(file->header.type == found.front().header.type);
    return found;
}

// Records cut from the input, written to a new file and read back.
void writeAndReadBack(const uint8_t* data, size_t size)
{
    MemoryRecordStore store;
    std::unique_ptr<RecordFileCore> writer = RecordFileCore::Attach(store);
    TQM_FUZZ_CHECK(writer != nullptr);
    uint32_t fileType = size > 0 && data[0] % 3 == 0 ? 1 : 7;  // the old checksum, or CRC-32
    TQM_FUZZ_CHECK(writer->Create(fileType, 3, {2024, 5, 6, 7, 8, 9}, "fuzz") == 0);
    std::vector<std::pair<uint32_t, size_t>> records;  // offset and length
    size_t pos = 0;
    while (pos < size) {
        size_t length = std::min<size_t>(data[pos] * 67u, size - pos - 1);
        uint32_t offset = 0;
        TQM_FUZZ_CHECK(writer->RecFilePointer(&offset) == 0);
        TQM_FUZZ_CHECK(writer->WriteRecord(data[pos], uint32_t(pos), data + pos + 1, uint32_t(length)) == 0);
        // Every record is in the store as soon as it is written.
        TQM_FUZZ_CHECK(store.Bytes().size() == offset + tqm::kRecordHeaderSize + length);
        records.push_back({offset, length});
        pos += 1 + length;
    }

    MemoryRecordStore copy(store.Bytes().data(), store.Bytes().size());
    std::vector<Found> found = walk(copy);
    TQM_FUZZ_CHECK(found.size() == records.size() + 1);  // the descriptor first
    for (size_t i = 0; i < records.size(); ++i) {
        TQM_FUZZ_CHECK(found[i + 1].offset == records[i].first);
        TQM_FUZZ_CHECK(found[i + 1].header.length == records[i].second);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    MemoryRecordStore store(data, size);
    walk(store);
    writeAndReadBack(data, size);
    return 0;
}

void TqmFuzzSeeds(tqmfuzz::Seeds& seeds)
{
    for (uint32_t fileType : {1u, 2u}) {
        MemoryRecordStore store;
        std::unique_ptr<RecordFileCore> file = RecordFileCore::Attach(store);
        file->Create(fileType, 1, {2024, 1, 2, 3, 4, 5}, "A seed file");
        file->WriteRecord(1, 0, "first record", 12);
        file->WriteRecord(2, 7, "", 0);
        file->WriteRecord(1, 1, std::string(300, 'x').data(), 300);
        seeds.Add("type" + std::to_string(fileType) + ".rec",
                  std::string(store.Bytes().begin(), store.Bytes().end()));
        // The same records behind the old head line.
        std::string legacy = "Tarn-Holmvik Leitwerk AG, CH-9000 Lorvik\n";
        legacy += std::string("\x1A\x01", 2);
        legacy.append(store.Bytes().begin() + 4, store.Bytes().end());
        seeds.Add("legacy" + std::to_string(fileType) + ".rec", legacy);
    }
}
