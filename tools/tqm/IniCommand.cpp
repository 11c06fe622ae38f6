// tqm ini check|get|set|dump - INI documents and profile lookups.
#include "tools/tqm/Command.h"
#include "tools/tqm/IniReport.h"
#include "tools/tqm/StreamInput.h"
#include "tools/tqm/SystemMessageText.h"

#include "config/IniFile.h"
#include "config/Profile.h"
#include "config/logic/IniLineGrammar.h"
#include "framework/Handles.h"
#include "framework/StdioFile.h"

#include <windows.h>

#include <stdio.h>
#include <string.h>

#include <string>

namespace tqmtool {
namespace {

const char kUsage[] =
    "usage: tqm ini check FILE\n"
    "       tqm ini get FILE SECTION KEY\n"
    "       tqm ini set FILE SECTION KEY VALUE\n"
    "       tqm ini dump FILE\n"
    "\n"
    "INI documents as the library reads and writes them.\n"
    "\n"
    "  check  reads FILE as a document; for a malformed file prints the file, the\n"
    "         line number (from 1) and the offending line, and exits 1\n"
    "  get    prints the value of KEY in the first [SECTION] of FILE, as the\n"
    "         library's profile lookup finds it; exits 1 when it is missing\n"
    "  set    sets KEY in SECTION to VALUE and writes FILE back (made when it does\n"
    "         not exist); comments other than the head comment are not kept\n"
    "  dump   prints FILE as the library writes the document back\n"
    "\n"
    "FILE may be - for standard input (not for set). Section and key names\n"
    "compare without regard to case.\n";

// The file a subcommand reads: FILE itself, or standard input copied to a
// temporary file (the document and the lookup read files by name).
class InputFile
{
public:
    explicit InputFile(const std::string& arg) : m_name(arg == "-" ? "<stdin>" : arg), m_path(arg)
    {
        if (arg == "-") {
            m_bOk = m_copy.make(&m_dwError);
            m_path = m_copy.path();
        }
    }

    // False, with the reason on stderr, when standard input could not be copied.
    bool ready() const
    {
        if (!m_bOk)
            Fail("cannot read standard input: %s", SystemMessage(m_dwError).c_str());
        return m_bOk;
    }
    const char* path() const { return m_path.c_str(); }
    const std::string& name() const { return m_name; }

private:
    StdinCopy m_copy;
    std::string m_name;
    std::string m_path;
    DWORD m_dwError = 0;
    bool m_bOk = true;
};

// Reads the document; on failure says why on stderr.
bool readDocument(const InputFile& input, CTQMIniFile& ini)
{
    if (!input.ready())
        return false;
    if (ini.Read(input.path()))
        return true;
    IniReadFailure failure = DescribeReadFailure(input.path(), ini);
    std::string message = FormatReadFailure(input.name(), failure);
    if (!failure.bOpened) {
        // Why it could not be opened, in the system's words.
        tqm::UniqueFile probe(CreateFileA(input.path(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                          OPEN_EXISTING, 0, nullptr));
        if (!probe)
            message += ": " + SystemMessage(GetLastError());
    }
    Fail("%s", message.c_str());
    return false;
}

int countEntries(CTQMIniFile& ini)
{
    int n = 0;
    for (int s = 0; s < ini.GetNumSections(); ++s)
        n += ini.GetNumEntries(s);
    return n;
}

int runCheck(const Args& args)
{
    if (args.size() != 2)
        return UsageError("ini", "check takes one FILE");
    InputFile input(args[1]);
    CTQMIniFile ini;
    if (!readDocument(input, ini))
        return kExitNegative;
    printf("%s: %d sections, %d entries, %d lines\n", input.name().c_str(), ini.GetNumSections(),
           countEntries(ini), ini.GetErrLine() + 1);
    return kExitOk;
}

int runGet(const Args& args)
{
    if (args.size() != 4)
        return UsageError("ini", "get takes FILE SECTION KEY");
    InputFile input(args[1]);
    if (!input.ready())
        return kExitNegative;
    if (GetFileAttributesA(input.path()) == INVALID_FILE_ATTRIBUTES)
        return Fail("cannot read %s: %s", input.name().c_str(), SystemMessage(GetLastError()).c_str());
    // A line feed never ends a value the lookup returns: the default tells a
    // missing key from an empty value.
    const char kMissing[] = "\n";
    CString value = TQMGetProfileString(args[2].c_str(), args[3].c_str(), kMissing, input.path());
    if (value == kMissing)
        return Fail("no %s in [%s] of %s", args[3].c_str(), args[2].c_str(), input.name().c_str());
    printf("%s\n", value.GetString());
    return kExitOk;
}

int runSet(const Args& args)
{
    if (args.size() != 5)
        return UsageError("ini", "set takes FILE SECTION KEY VALUE");
    const std::string& file = args[1];
    const std::string& section = args[2];
    const std::string& key = args[3];
    const std::string& value = args[4];
    if (file == "-")
        return UsageError("ini", "set writes FILE, which cannot be standard input");
    if (section.find_first_of("=[]\r\n") != std::string::npos)
        return UsageError("ini", "a section name cannot hold =, [, ] or a line break: %s", section.c_str());
    if (key.find_first_of("=\r\n") != std::string::npos)
        return UsageError("ini", "a key cannot hold = or a line break: %s", key.c_str());
    if (value.find_first_of("\r\n") != std::string::npos)
        return UsageError("ini", "a value cannot hold a line break");
    if (key.size() + value.size() > static_cast<size_t>(tqm::ini::kMaxEntryText))
        return UsageError("ini", "KEY and VALUE together are longer than %d characters", tqm::ini::kMaxEntryText);

    CTQMIniFile ini;
    InputFile input(file);
    bool bExists = GetFileAttributesA(file.c_str()) != INVALID_FILE_ATTRIBUTES;
    if (bExists && !readDocument(input, ini))
        return kExitNegative;
    ini.SetEntryValue(section.c_str(), key.c_str(), value.c_str());
    if (!ini.Write(file.c_str()))
        return Fail("cannot write %s", file.c_str());
    return kExitOk;
}

int runDump(const Args& args)
{
    if (args.size() != 2)
        return UsageError("ini", "dump takes one FILE");
    InputFile input(args[1]);
    CTQMIniFile ini;
    if (!readDocument(input, ini))
        return kExitNegative;

    // Written to a temporary file by the document itself, then shown.
    char folder[MAX_PATH];
    char temp[MAX_PATH];
    if (!GetTempPathA(MAX_PATH, folder) || !GetTempFileNameA(folder, "tqm", 0, temp))
        return Fail("cannot make a temporary file");
    int rc = kExitOk;
    if (!ini.Write(temp)) {
        rc = Fail("cannot write the document");
    } else {
        CStdioFile written;
        if (written.Open(temp, CStdioFile::modeRead | CStdioFile::typeText)) {
            char line[4096];
            while (written.ReadString(line, sizeof(line)))
                fputs(line, stdout);
            written.Close();
        }
    }
    DeleteFileA(temp);
    return rc;
}

int runIni(const Args& args)
{
    if (args.empty())
        return UsageError("ini", "which subcommand? check, get, set or dump");
    if (WantsHelp(args)) {
        fputs(kUsage, stdout);
        return kExitOk;
    }
    const std::string& sub = args[0];
    if (sub == "check")
        return runCheck(args);
    if (sub == "get")
        return runGet(args);
    if (sub == "set")
        return runSet(args);
    if (sub == "dump")
        return runDump(args);
    return UsageError("ini", "unknown subcommand \"%s\"", sub.c_str());
}

}  // namespace

TQM_REGISTER_COMMAND({"ini", "read, query, edit and rewrite INI documents", kUsage, runIni});

}  // namespace tqmtool
