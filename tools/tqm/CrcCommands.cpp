// tqm crc32 [FILE...], tqm crc16 [--head] [FILE...]
#include "datafiles/Crc.h"
#include "tools/tqm/Command.h"
#include "tools/tqm/StreamInput.h"
#include "tools/tqm/SystemMessageText.h"

#include <stdio.h>

namespace tqmtool {
namespace {

// The names to checksum: the arguments, or standard input when there are none.
bool fileArguments(const char* command, const Args& args, Args& files, bool* pHead)
{
    for (const std::string& arg : args) {
        if (pHead && arg == "--head")
            *pHead = true;
        else if (arg.size() > 1 && arg[0] == '-') {
            UsageError(command, "unknown option %s", arg.c_str());
            return false;
        } else {
            files.push_back(arg);
        }
    }
    if (files.empty())
        files.push_back("-");
    return true;
}

int runCrc32(const Args& args)
{
    Args files;
    if (!fileArguments("crc32", args, files, nullptr))
        return kExitUsage;
    int rc = kExitOk;
    for (const std::string& name : files) {
        DWORD crc = 0xFFFFFFFF;
        DWORD dwError = 0;
        if (!ReadInPieces(name, [&](const BYTE* p, DWORD n) { crc = TQMCrc32Partial(crc, p, n); }, &dwError)) {
            rc = Fail("crc32: %s: %s", name.c_str(), SystemMessage(dwError).c_str());
            continue;
        }
        printf("%08lx  %s\n", static_cast<unsigned long>(~crc), name.c_str());
    }
    return rc;
}

int runCrc16(const Args& args)
{
    Args files;
    bool bHead = false;
    if (!fileArguments("crc16", args, files, &bHead))
        return kExitUsage;
    int rc = kExitOk;
    for (const std::string& name : files) {
        if (bHead) {
            if (name == "-")
                return UsageError("crc16", "--head needs a file name");
            // The library shows its own box (on stderr here) when it cannot
            // open the file; 0 is also a checksum, so ask the file system.
            WORD crc = CrcFileCalc(nullptr, name.c_str());
            if (crc == 0 && ::GetFileAttributesA(name.c_str()) == INVALID_FILE_ATTRIBUTES) {
                rc = kExitNegative;
                continue;
            }
            printf("%04x  %s\n", crc, name.c_str());
            continue;
        }
        WORD crc = 0;
        DWORD dwError = 0;
        auto update = [&](const BYTE* p, DWORD n) { crc = CrcCalc(crc, const_cast<BYTE*>(p), n); };
        if (!ReadInPieces(name, update, &dwError)) {
            rc = Fail("crc16: %s: %s", name.c_str(), SystemMessage(dwError).c_str());
            continue;
        }
        printf("%04x  %s\n", crc, name.c_str());
    }
    return rc;
}

TQM_REGISTER_COMMAND({"crc32", "CRC-32 (zlib, PKZIP) of files",
                      "usage: tqm crc32 [FILE...]\n\n"
                      "Prints the CRC-32 of each FILE (ISO-HDLC, as zlib and PKZIP compute it) in\n"
                      "hexadecimal, then the name. FILE \"-\" or none reads standard input. Files are\n"
                      "read in pieces, so their size does not matter. Exit 1 when a file cannot be read.\n",
                      runCrc32});

TQM_REGISTER_COMMAND({"crc16", "CRC-16 (CCITT, XMODEM) of files",
                      "usage: tqm crc16 [--head] [FILE...]\n\n"
                      "Prints the CRC-16 of each FILE (CCITT polynomial, not reflected, from 0: the\n"
                      "CRC-16/XMODEM) in hexadecimal, then the name. FILE \"-\" or none reads standard\n"
                      "input.\n\n"
                      "  --head  checksum only a text file's head, as the suite's programs do: the\n"
                      "          bytes before the first zero byte within the first 1024.\n",
                      runCrc16});

}  // namespace
}  // namespace tqmtool
