// The doctor's settings: the machine-wide "Global" section in the registry
// against its mirror file QM5Global.ini, and the user's options file.
//
// Programs read machine-wide values from the mirror file whenever it exists
// (numbers only from there); the registry is the copy every write keeps
// beside it. A value on one side only, or different on the two, means that
// a program which looks at the other side sees something else.
#include "tools/tqm/Doctor.h"
#include "tools/tqm/IniReport.h"
#include "tools/tqm/Printable.h"
#include "tools/tqm/SuiteRegistryValues.h"

#include "config/IniFile.h"
#include "paths/FileOperations.h"
#include "paths/InstallDirs.h"

#include <windows.h>

#include <string.h>

#include <vector>

namespace tqmtool {
namespace doctor {
namespace {

const char kSection[] = "Global";

struct Setting
{
    std::string name;
    std::string value;  // as a program would read it: text, or a number in decimal
};

std::string registryText(DWORD type, const std::vector<BYTE>& data, DWORD size)
{
    if (type == REG_DWORD && size == sizeof(DWORD)) {
        DWORD value = 0;
        memcpy(&value, data.data(), sizeof(value));
        return std::to_string(static_cast<int>(value));  // as the mirror stores numbers: "%d"
    }
    const char* text = reinterpret_cast<const char*>(data.data());
    return std::string(text, strnlen(text, size));
}

// The values of the machine-wide section in the registry (the 32-bit view the
// library uses), read without making the key. False when there is no key.
bool readRegistrySection(std::vector<Setting>& settings, Findings& findings)
{
    std::vector<RegistryValue> values;
    if (!ReadSuiteRegistryValues(HKEY_LOCAL_MACHINE, kSection, values))
        return false;
    for (const RegistryValue& value : values) {
        if (value.type != REG_SZ && value.type != REG_DWORD)
            findings.push_back({Severity::Warning, Group::Settings, std::string(kSection) + "\\" + value.name,
                                "is stored in the registry with type " + std::to_string(value.type) +
                                    ", which the library reads as neither text nor a number",
                                std::string()});
        settings.push_back({value.name, registryText(value.type, value.data, value.size)});
    }
    return true;
}

// The entries of the section in the mirror file, read as programs read them.
std::vector<Setting> readMirrorSection(const std::string& file)
{
    std::vector<char> names(32768);
    const DWORD length =
        GetPrivateProfileStringA(kSection, nullptr, "", names.data(), static_cast<DWORD>(names.size()), file.c_str());
    std::vector<Setting> settings;
    for (const char* name = names.data(); name < names.data() + length && *name; name += strlen(name) + 1) {
        char value[512] = "";  // the library's own buffer for these values
        GetPrivateProfileStringA(kSection, name, "", value, sizeof(value), file.c_str());
        settings.push_back({name, value});
    }
    return settings;
}

const Setting* find(const std::vector<Setting>& settings, const std::string& name)
{
    for (const Setting& setting : settings) {
        if (!_stricmp(setting.name.c_str(), name.c_str()))
            return &setting;
    }
    return nullptr;
}

void add(Findings& findings, Severity severity, const std::string& subject, const std::string& reason)
{
    findings.push_back({severity, Group::Settings, subject, reason, std::string()});
}

// Every value against its counterpart, the registry's order first.
void compareSettings(const std::vector<Setting>& registry, const std::vector<Setting>& mirror, const std::string& file,
                     Findings& findings)
{
    for (const Setting& value : registry) {
        const std::string subject = std::string(kSection) + "\\" + value.name;
        const Setting* other = find(mirror, value.name);
        if (!other)
            add(findings, Severity::Warning, subject,
                "is in the registry (\"" + value.value + "\") but not in the mirror file " + file +
                    ", where programs read it: they see no value");
        else if (other->value != value.value)
            add(findings, Severity::Warning, subject,
                "differs: the registry holds \"" + value.value + "\", the mirror file \"" + other->value +
                    "\" (programs read the mirror file)");
    }
    for (const Setting& value : mirror) {
        if (!find(registry, value.name))
            add(findings, Severity::Warning, std::string(kSection) + "\\" + value.name,
                "is in the mirror file (\"" + value.value +
                    "\") but not in the registry: it is lost when the mirror file is");
    }
}

void checkOptionsFile(Findings& findings)
{
    const std::string file = TQMGetVMXOptionsFilePath().GetString();
    if (!TQMFileExists(file.c_str()))
        return;  // every option has its default
    CTQMIniFile options;
    if (options.Read(file.c_str()))
        return;
    const IniReadFailure failure = DescribeReadFailure(file.c_str(), options);
    if (!failure.bOpened) {
        add(findings, Severity::Error, file, "the options file cannot be read");
        return;
    }
    add(findings, Severity::Error, file,
        "the options file does not parse: line " + std::to_string(failure.nLine) + ", " + failure.reason + ": " +
            Printable(failure.text.data(), failure.text.size(), 80) + " (the library's INI reader stops there)");
}

}  // namespace

void CheckSettings(Findings& findings)
{
    const std::string file = std::string(TQMGetLocalDir().GetString()) + "\\QM5Global.ini";
    std::vector<Setting> registry;
    const bool hasKey = readRegistrySection(registry, findings);
    if (!TQMFileExists(file.c_str())) {
        if (hasKey && !registry.empty())
            add(findings, Severity::Warning, file,
                "the machine-wide mirror file is missing: programs read text settings from the registry and "
                "numbers as their defaults");
    } else {
        compareSettings(registry, readMirrorSection(file), file, findings);
    }
    checkOptionsFile(findings);
}

}  // namespace doctor
}  // namespace tqmtool
