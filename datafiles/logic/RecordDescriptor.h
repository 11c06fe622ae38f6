// FormatRecordDescriptor, ParseRecordDescriptor - the text of a record file's
// descriptor record.
//
// The descriptor holds, one per line: the file type, the format version, the
// local creation time as "DD/MM/YYYY hh:mm:ss", and the caller's description.
// It is stored with its terminating zero byte.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <string>

namespace tqm {

// Limits of the descriptor record's data length when a file is read, and of
// a description when one is written. A description of full length makes a
// descriptor longer than a reader accepts: deliberate, files rely on the
// reader's limit and writers never came near it.
constexpr uint32_t kMinDescriptorLength = 16;
constexpr uint32_t kMaxDescriptorLength = 1024;
constexpr size_t kMaxDescriptionLength = 1024;

struct RecordDescriptor
{
    uint32_t fileType = 0;
    uint32_t version = 0;
    uint32_t day = 0;
    uint32_t month = 0;
    uint32_t year = 0;
    uint32_t hour = 0;
    uint32_t minute = 0;
    uint32_t second = 0;
    std::string description;
};

// The descriptor text, without its terminating zero byte.
std::string FormatRecordDescriptor(const RecordDescriptor& descriptor);

// Reads the descriptor from the first length bytes of text (it ends earlier
// at a zero byte). False when one of the eight numbers is missing.
bool ParseRecordDescriptor(const char* text, size_t length, RecordDescriptor& descriptor);

}  // namespace tqm
