// tqm settings get|set|delete [--machine|--user] [--int] SECTION [ENTRY [VALUE]]
#include "tools/tqm/Command.h"
#include "tools/tqm/SuiteRegistryValues.h"

#include "config/QM5Profile.h"
#include "paths/InstallDirs.h"

#include <ctype.h>
#include <errno.h>
#include <stdio.h>
#include <stdint.h>
#include <stdlib.h>
#include <string.h>

#include <string>
#include <vector>

namespace tqmtool {
namespace {

struct Options
{
    HKEY hive = HKEY_LOCAL_MACHINE;
    bool number = false;
    Args rest;  // SECTION [ENTRY [VALUE]]
};

// Parses the options; false after a usage error (already printed).
bool parseOptions(const Args& args, Options& options, int& rc)
{
    bool optionsDone = false;
    for (const std::string& arg : args) {
        if (!optionsDone && arg == "--") {
            optionsDone = true;
        } else if (!optionsDone && arg == "--machine") {
            options.hive = HKEY_LOCAL_MACHINE;
        } else if (!optionsDone && arg == "--user") {
            options.hive = HKEY_CURRENT_USER;
        } else if (!optionsDone && arg == "--int") {
            options.number = true;
        } else if (!optionsDone && arg.size() > 1 && arg[0] == '-' && !isdigit((unsigned char)arg[1])) {
            rc = UsageError("settings", "unknown option %s", arg.c_str());
            return false;
        } else {
            options.rest.push_back(arg);
        }
    }
    return true;
}

const char* hiveName(HKEY hive) { return hive == HKEY_LOCAL_MACHINE ? "machine-wide" : "user"; }

std::string mirrorFile() { return std::string(TQMGetLocalDir().GetString()) + "\\QM5Global.ini"; }

bool fileExists(const std::string& path)
{
    const DWORD attributes = GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

// The entries of the section in the machine-wide mirror file.
void listMirrorSection(const std::string& section, const std::string& file)
{
    std::vector<char> buffer(32768);
    const DWORD length = GetPrivateProfileSectionA(section.c_str(), buffer.data(), (DWORD)buffer.size(), file.c_str());
    for (const char* line = buffer.data(); line < buffer.data() + length && *line; line += strlen(line) + 1)
        printf("%s\n", line);
}

std::string describeValue(DWORD type, const std::vector<BYTE>& data, DWORD size)
{
    if ((type == REG_SZ || type == REG_EXPAND_SZ) && size > 0)
        return std::string(reinterpret_cast<const char*>(data.data()), strnlen((const char*)data.data(), size));
    if (type == REG_SZ || type == REG_EXPAND_SZ)
        return std::string();
    if (type == REG_DWORD && size == 4) {
        DWORD value = 0;
        memcpy(&value, data.data(), 4);
        return std::to_string(static_cast<int>(value)) + "  (number)";
    }
    return "(registry type " + std::to_string(type) + ", " + std::to_string(size) + " bytes)";
}

// The values of the section's key in the hive, read without making anything.
int listRegistrySection(HKEY hive, const std::string& section)
{
    std::vector<RegistryValue> values;
    if (!ReadSuiteRegistryValues(hive, section, values))
        return Fail("no section %s in the %s settings", section.c_str(), hiveName(hive));
    for (const RegistryValue& value : values)
        printf("%s=%s\n", value.name.c_str(), describeValue(value.type, value.data, value.size).c_str());
    return kExitOk;
}

int runGet(const Options& o)
{
    if (o.rest.empty() || o.rest.size() > 2)
        return UsageError("settings", "get needs SECTION and optionally ENTRY");
    const std::string& section = o.rest[0];
    if (o.rest.size() == 1) {
        // Machine-wide values are read from the mirror file where there is one.
        const std::string file = mirrorFile();
        if (o.hive == HKEY_LOCAL_MACHINE && fileExists(file)) {
            listMirrorSection(section, file);
            return kExitOk;
        }
        return listRegistrySection(o.hive, section);
    }
    const std::string& entry = o.rest[1];
    if (o.number) {
        // A value is there when two different defaults give the same answer.
        const UINT a = TQMGetQM5ProfileInt(o.hive, section.c_str(), entry.c_str(), 0);
        const UINT b = TQMGetQM5ProfileInt(o.hive, section.c_str(), entry.c_str(), 1);
        if (a != b)
            return Fail("%s/%s is not set in the %s settings", section.c_str(), entry.c_str(), hiveName(o.hive));
        printf("%d\n", static_cast<int>(a));
        return kExitOk;
    }
    const char* missing = "\x01(missing)";
    const CString value = TQMGetQM5ProfileString(o.hive, section.c_str(), entry.c_str(), missing);
    if (value == missing)
        return Fail("%s/%s is not set in the %s settings", section.c_str(), entry.c_str(), hiveName(o.hive));
    printf("%s\n", value.GetString());
    return kExitOk;
}

int runSet(const Options& o)
{
    if (o.rest.size() != 3)
        return UsageError("settings", "set needs SECTION, ENTRY and VALUE");
    const std::string& section = o.rest[0];
    const std::string& entry = o.rest[1];
    const std::string& value = o.rest[2];
    BOOL written;
    if (o.number) {
        errno = 0;
        char* end = nullptr;
        const long long number = strtoll(value.c_str(), &end, 10);
        if (value.empty() || *end || errno || number < INT32_MIN || number > UINT32_MAX)
            return UsageError("settings", "%s is not a 32-bit number", value.c_str());
        written = TQMSetQM5ProfileInt(o.hive, section.c_str(), entry.c_str(), static_cast<UINT>(number));
    } else {
        written = TQMSetQM5ProfileString(o.hive, section.c_str(), entry.c_str(), value.c_str());
    }
    if (!written)
        return Fail("cannot write %s/%s to the %s settings", section.c_str(), entry.c_str(), hiveName(o.hive));
    return kExitOk;
}

int runDelete(const Options& o)
{
    if (o.rest.empty() || o.rest.size() > 2)
        return UsageError("settings", "delete needs SECTION and optionally ENTRY");
    const std::string& section = o.rest[0];
    const char* entry = o.rest.size() == 2 ? o.rest[1].c_str() : nullptr;
    if (!TQMSetQM5ProfileString(o.hive, section.c_str(), entry, nullptr)) {
        if (entry)
            return Fail("%s/%s is not in the %s settings", section.c_str(), entry, hiveName(o.hive));
        return Fail("section %s is not in the %s settings", section.c_str(), hiveName(o.hive));
    }
    return kExitOk;
}

int runSettings(const Args& args)
{
    if (args.empty())
        return UsageError("settings", "get, set or delete is needed");
    Options options;
    int rc = kExitOk;
    if (!parseOptions(Args(args.begin() + 1, args.end()), options, rc))
        return rc;
    if (options.number && args[0] == "delete")
        return UsageError("settings", "--int does not go with delete");
    if (args[0] == "get")
        return runGet(options);
    if (args[0] == "set")
        return runSet(options);
    if (args[0] == "delete")
        return runDelete(options);
    return UsageError("settings", "unknown subcommand %s", args[0].c_str());
}

}  // namespace

TQM_REGISTER_COMMAND({"settings", "read and write the suite's settings",
                      "usage: tqm settings get [--machine|--user] [--int] SECTION [ENTRY]\n"
                      "       tqm settings set [--machine|--user] [--int] SECTION ENTRY VALUE\n"
                      "       tqm settings delete [--machine|--user] SECTION [ENTRY]\n\n"
                      "The suite's settings, below Software\\Tarn-Holmvik\\QM5\\<version> in the\n"
                      "machine's registry hive (--machine, the default) or the user's (--user).\n"
                      "Machine-wide settings are mirrored in QM5Global.ini in the local\n"
                      "directory, which is where they are read from when it exists.\n\n"
                      "get     prints the entry's text (with --int: its number); exit status 1\n"
                      "        when it is not set. Without ENTRY, lists the section: ENTRY=VALUE.\n"
                      "set     writes text, or with --int a number (REG_DWORD).\n"
                      "delete  removes the entry, or without ENTRY the whole section; exit\n"
                      "        status 1 when there was nothing to remove.\n",
                      runSettings});

}  // namespace tqmtool
