// tqm rec create|add|list|dump|verify - record files.
#include "datafiles/RecFile.h"
#include "tools/tqm/Command.h"
#include "tools/tqm/RecFileWalk.h"
#include "tools/tqm/StreamInput.h"
#include "tools/tqm/SystemMessageText.h"

#include <ctype.h>
#include <errno.h>
#include <stdio.h>
#include <stdlib.h>

#include <string>
#include <vector>

namespace tqmtool {
namespace {

constexpr DWORD kAnyType = 0xFFFFFFFF;

// A 32-bit number in decimal or, with 0x, hexadecimal.
bool parseNumber(const std::string& text, DWORD& value)
{
    if (text.empty() || text[0] == '-' || text[0] == '+' || isspace(static_cast<unsigned char>(text[0])))
        return false;
    char* end = nullptr;
    errno = 0;
    unsigned long long v = strtoull(text.c_str(), &end, 0);
    if (errno || *end || v > 0xFFFFFFFFull)
        return false;
    value = static_cast<DWORD>(v);
    return true;
}

// Hexadecimal bytes, blanks between them allowed ("01 a2ff").
bool parseHex(const std::string& text, std::string& bytes)
{
    std::string digits;
    for (char c : text) {
        if (isxdigit(static_cast<unsigned char>(c)))
            digits += c;
        else if (!isspace(static_cast<unsigned char>(c)))
            return false;
    }
    if (digits.size() % 2)
        return false;
    for (size_t i = 0; i < digits.size(); i += 2)
        bytes += static_cast<char>(strtoul(digits.substr(i, 2).c_str(), nullptr, 16));
    return true;
}

// A file argument: the name itself, or a copy of standard input for "-".
bool resolveInput(const std::string& name, StdinCopy& copy, std::string& path)
{
    if (name != "-") {
        path = name;
        return true;
    }
    DWORD dwError = 0;
    if (!copy.make(&dwError)) {
        Fail("rec: cannot read standard input: %s", SystemMessage(dwError).c_str());
        return false;
    }
    path = copy.path();
    return true;
}

int failWithLastError(const char* what, const std::string& file)
{
    DWORD dwError = ::GetLastError();
    return Fail("rec %s: %s: %s", what, file.c_str(), RecFileFailureText(dwError).c_str());
}

// ---- writing ------------------------------------------------------------

int runCreate(const Args& args)
{
    DWORD type = 0, version = 0;
    if (args.size() != 4)
        return UsageError("rec", "create needs FILE TYPE VERSION DESC");
    if (!parseNumber(args[1], type) || !parseNumber(args[2], version))
        return UsageError("rec", "TYPE and VERSION are numbers from 0 to 4294967295");
    CRecFile file(FALSE);
    if (!file.Create(args[0].c_str(), type, version, args[3].c_str()))
        return failWithLastError("create", args[0]);
    if (!file.Close())
        return failWithLastError("create", args[0]);
    printf("created %s: type %lu, version %lu\n", args[0].c_str(), static_cast<unsigned long>(type),
           static_cast<unsigned long>(version));
    return kExitOk;
}

int runAdd(const Args& args)
{
    DWORD type = 0, param = 0;
    if (args.size() != 5)
        return UsageError("rec", "add needs FILE TYPE PARAM and one of --hex HEX, --text TEXT, --file PATH");
    if (!parseNumber(args[1], type) || !parseNumber(args[2], param))
        return UsageError("rec", "TYPE and PARAM are numbers from 0 to 4294967295");
    const std::string& option = args[3];
    std::string data;
    if (option == "--hex") {
        if (!parseHex(args[4], data))
            return UsageError("rec", "--hex takes pairs of hexadecimal digits");
    } else if (option == "--text") {
        data = args[4];
    } else if (option != "--file") {
        return UsageError("rec", "unknown option %s", option.c_str());
    }

    // Whatever can go wrong with the data's source goes wrong before the
    // record is begun, so that no unfinished record is left behind.
    StdinCopy copy;
    std::string source;
    if (option == "--file") {
        if (!resolveInput(args[4], copy, source))
            return kExitNegative;
        HANDLE hSource = ::CreateFileA(source.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                       OPEN_EXISTING, 0, nullptr);
        if (hSource == INVALID_HANDLE_VALUE)
            return Fail("rec add: %s: %s", args[4].c_str(), SystemMessage(::GetLastError()).c_str());
        ::CloseHandle(hSource);
    }

    const std::string& name = args[0];
    CRecFile file(FALSE);
    if (!file.Open(name.c_str(), kAnyType, TRUE))
        return failWithLastError("add", name);
    DWORD offset = file.GetRecFilePointer();
    DWORD length = 0;
    if (option == "--file") {
        // Streamed: the record may be larger than memory would like.
        DWORD dwError = 0;
        bool bWritten = file.WriteRecBegin(type, param) != FALSE;
        bool bRead = bWritten && ReadInPieces(source, [&](const BYTE* p, DWORD n) {
            bWritten = bWritten && file.WriteRecData(p, n);
            length += n;
        }, &dwError);
        if (!bRead && bWritten) {
            file.Close();
            return Fail("rec add: %s: %s; %s now ends in an unfinished record", args[4].c_str(),
                        SystemMessage(dwError).c_str(), name.c_str());
        }
        if (!bWritten || !file.WriteRecEnd())
            return failWithLastError("add", name);
    } else {
        length = static_cast<DWORD>(data.size());
        if (!file.WriteRec(type, param, length, data.data()))
            return failWithLastError("add", name);
    }
    if (!file.Close())
        return failWithLastError("add", name);
    printf("added record at offset %lu: type %lu, param %lu, %lu bytes\n", static_cast<unsigned long>(offset),
           static_cast<unsigned long>(type), static_cast<unsigned long>(param), static_cast<unsigned long>(length));
    return kExitOk;
}

// ---- reading ------------------------------------------------------------

void printDescriptor(RecFileReader& file, const std::string& name)
{
    DWORD type = 0, version = 0;
    CString created;
    file.GetFileType(type);
    file.GetVersion(version);
    file.GetCreationTime(created);
    printf("file:        %s\n", name.c_str());
    printf("type:        %lu\n", static_cast<unsigned long>(type));
    printf("version:     %lu\n", static_cast<unsigned long>(version));
    printf("created:     %s\n", created.GetString());
    printf("description: %s\n", file.GetDesc());
    DWORD first = file.firstRecordOffset();
    if (first != 4)
        printf("head:        old text line, records from offset %lu\n", static_cast<unsigned long>(first));
    printf("checksums:   %s\n", type == 1 ? "rotate and exclusive-or (type 1)" : "CRC-32");
}

// Reports how the walk ended; the exit code.
int conclude(const WalkResult& result, const std::string& name)
{
    if (!result.found)
        return Fail("rec: cannot open %s: %s", name.c_str(), result.reason.c_str());
    if (result.ok)
        return kExitOk;
    fprintf(stderr, "tqm: rec: %s: damaged at offset %lu: %s\n", name.c_str(),
            static_cast<unsigned long>(result.failOffset), result.reason.c_str());
    return kExitNegative;
}

int runList(const std::string& name, const std::string& path)
{
    RecFileVisitor visitor;
    visitor.onOpen = [&](RecFileReader& file) {
        printDescriptor(file, name);
        printf("\n%10s %10s %10s %10s  %s\n", "offset", "type", "param", "length", "checksum");
    };
    visitor.onEnd = [](const RecordInfo& info, bool bOk) {
        const CRecFile::tagRECHDR& h = info.header;
        printf("%10lu %10lu %10lu %10lu  %s%s\n", static_cast<unsigned long>(info.offset),
               static_cast<unsigned long>(h.dwRecType), static_cast<unsigned long>(h.dwRecParam),
               static_cast<unsigned long>(h.dwDataLength), bOk ? "ok" : "BAD",
               info.descriptor ? "  (descriptor)" : "");
    };
    return conclude(WalkRecordFile(path, visitor), name);
}

int runDump(const std::string& name, const std::string& path)
{
    RecFileVisitor visitor;
    visitor.onOpen = [&](RecFileReader& file) { printDescriptor(file, name); };
    visitor.onRecord = [](const RecordInfo& info) {
        printf("\nrecord at offset %lu: type %lu, param %lu, %lu bytes\n", static_cast<unsigned long>(info.offset),
               static_cast<unsigned long>(info.header.dwRecType), static_cast<unsigned long>(info.header.dwRecParam),
               static_cast<unsigned long>(info.header.dwDataLength));
    };
    // Pieces come in multiples of 16 bytes, so each starts a line.
    visitor.onData = [](const BYTE* p, DWORD n, DWORD at) {
        for (DWORD line = 0; line < n; line += 16) {
            std::string hex, text;
            for (DWORD i = line; i < line + 16; ++i) {
                char cell[4] = "   ";
                if (i < n) {
                    snprintf(cell, sizeof(cell), "%02x ", p[i]);
                    text += (p[i] >= 32 && p[i] < 127) ? static_cast<char>(p[i]) : '.';
                }
                hex += cell;
                if (i == line + 7)
                    hex += ' ';
            }
            printf("  %08lx  %s |%s|\n", static_cast<unsigned long>(at + line), hex.c_str(), text.c_str());
        }
    };
    visitor.onEnd = [](const RecordInfo&, bool bOk) {
        if (!bOk)
            printf("  checksum BAD\n");
    };
    return conclude(WalkRecordFile(path, visitor), name);
}

int runVerify(const std::string& name, const std::string& path)
{
    WalkResult result = WalkRecordFile(path, RecFileVisitor());
    if (!result.found)
        return conclude(result, name);
    printf("%s\n", DescribeWalk(name, result).c_str());
    return result.ok ? kExitOk : kExitNegative;
}

int runRec(const Args& args)
{
    if (args.empty())
        return UsageError("rec", "which operation: create, add, list, dump or verify?");
    const std::string& op = args[0];
    Args rest(args.begin() + 1, args.end());
    if (op == "create")
        return runCreate(rest);
    if (op == "add")
        return runAdd(rest);
    if (op != "list" && op != "dump" && op != "verify")
        return UsageError("rec", "unknown operation \"%s\"", op.c_str());
    if (rest.size() != 1)
        return UsageError("rec", "%s needs one FILE", op.c_str());
    StdinCopy copy;
    std::string path;
    if (!resolveInput(rest[0], copy, path))
        return kExitNegative;
    if (op == "list")
        return runList(rest[0], path);
    if (op == "dump")
        return runDump(rest[0], path);
    return runVerify(rest[0], path);
}

TQM_REGISTER_COMMAND(
    {"rec", "record files: create, add, list, dump, verify",
     "usage: tqm rec create FILE TYPE VERSION DESC\n"
     "       tqm rec add FILE TYPE PARAM (--hex HEX | --text TEXT | --file PATH)\n"
     "       tqm rec list FILE\n"
     "       tqm rec dump FILE\n"
     "       tqm rec verify FILE\n\n"
     "Record files hold a descriptor (file type, version, creation time, description)\n"
     "and checksummed records, each with a type and a parameter.\n\n"
     "  create  makes a new file (an existing one is replaced).\n"
     "  add     appends a record; its data are the bytes given in hexadecimal, the\n"
     "          text, or the contents of PATH (\"-\": standard input).\n"
     "  list    shows the descriptor, then each record: offset, type, parameter,\n"
     "          data length and whether its checksum is correct.\n"
     "  dump    shows each record's data as a hex dump.\n"
     "  verify  reads every record and checks its checksum.\n\n"
     "Numbers are decimal or 0x hexadecimal. The files are read as the suite's\n"
     "programs read them, old files without the \"TARN\" magic included. FILE \"-\"\n"
     "reads standard input. list, dump and verify exit 1 at the first damage and\n"
     "name its offset and what is wrong.\n",
     runRec});

}  // namespace
}  // namespace tqmtool
