/*
 * msvc_client.c - a program of the suite as Microsoft's tools build it.
 *
 * Compiled by clang-cl in MSVC mode (Microsoft's calling conventions, name
 * decoration and object format) and linked by lld-link against Tqmlib52.lib
 * and a kernel32 import library made from kernel32.def: nothing made by
 * MinGW. Debian has no Microsoft C runtime, so the program has no C runtime
 * at all: its entry point calls kernel32 directly, it formats numbers itself,
 * and it keeps its stack frames small (no stack probe helper).
 *
 * It calls one or two functions of every family of plain exports, the
 * stdcall and the caller-pops ones and the one imported under its decorated
 * name, and checks what each returns. Prints one line per check and exits
 * with the number of failed checks.
 *
 * Tqmlib52.h is included through mingw-w64's Windows headers. Two settings
 * make those work in MSVC mode (see tests/msvc/CMakeLists.txt): the headers
 * define __attribute__ away when __GNUC__ is missing, which breaks the
 * compiler's own intrinsic headers that winnt.h pulls in, so the compiler
 * announces GNU C support (-fgnuc-version) while it keeps Microsoft's ABI;
 * and winnt.h takes the i386 CONTEXT only with _X86_, which MinGW's compiler
 * predefines and clang-cl does not.
 */
#include "Tqmlib52.h"

static HANDLE g_out;
static int g_failed;

static void say(const char* text)
{
    DWORD written;
    WriteFile(g_out, text, (DWORD)lstrlenA(text), &written, NULL);
}

/* The decimal text of value into buf (at least 12 characters). */
static const char* decimal(long value, char* buf)
{
    char digits[12];
    int n = 0, i = 0;
    unsigned long v = value < 0 ? 0ul - (unsigned long)value : (unsigned long)value;
    do {
        digits[n++] = (char)('0' + v % 10);
        v /= 10;
    } while (v != 0);
    if (value < 0)
        buf[i++] = '-';
    while (n > 0)
        buf[i++] = digits[--n];
    buf[i] = 0;
    return buf;
}

static void check(int ok, const char* family, const char* what)
{
    say(ok ? "ok      " : "FAILED  ");
    say(family);
    say(": ");
    say(what);
    say("\r\n");
    if (!ok)
        ++g_failed;
}

/* The same, with the value that was got. */
static void checkValue(int ok, const char* family, const char* what, long got)
{
    char buf[16];
    say(ok ? "ok      " : "FAILED  ");
    say(family);
    say(": ");
    say(what);
    say(" (got ");
    say(decimal(got, buf));
    say(")\r\n");
    if (!ok)
        ++g_failed;
}

/* TRUE when a begins with b, case ignored. */
static BOOL startsWith(const char* a, const char* b)
{
    int n = lstrlenA(b);
    char head[MAX_PATH];
    if (lstrlenA(a) < n || n >= MAX_PATH)
        return FALSE;
    lstrcpynA(head, a, n + 1);
    return lstrcmpiA(head, b) == 0;
}

static void checksums(void)
{
    static const char nine[] = "123456789";
    check(TQMCrc32(nine, 9) == 0xCBF43926u, "checksums", "TQMCrc32 of \"123456789\" is CBF43926");
    check((TQMCrc32Partial(TQMCrc32Partial(0xFFFFFFFFu, nine, 4), nine + 4, 5) ^ 0xFFFFFFFFu) == 0xCBF43926u,
          "checksums", "TQMCrc32Partial in two pieces, inverted at the end, gives the same");
    CrcInit();
    check(CrcCalc(0, (void*)nine, 9) == 0x31C3, "checksums", "CrcCalc (CRC-16/XMODEM) of \"123456789\" is 31C3");
}

static void strings(void)
{
    char text[16], inserted[16];
    /* copied by kernel32: an initialised array would call memcpy, which only a C runtime has */
    lstrcpyA(text, "  Motor10  ");
    lstrcpyA(inserted, "ab");
    check(TQMSymCmp("Motor10", "motor9") > 0, "strings", "TQMSymCmp compares embedded numbers by value");
    check(TQMSkipWhite(text) == text + 2, "strings", "TQMSkipWhite skips the leading blanks");
    checkValue(TQMTrimRight(text) == 9, "strings", "TQMTrimRight cuts the trailing blanks", TQMTrimRight(text));
    check(TQMToUpper('q') == 'Q', "strings", "TQMToUpper");
    /* caller-pops, as the header declares them */
    checkValue(TQMFindChar("a\"b,c\",d", ',', 0) == 6, "strings", "TQMFindChar skips a quoted comma",
               TQMFindChar("a\"b,c\",d", ',', 0));
    check(lstrcmpA(TQMInsertString(inserted, 1, "XY"), "aXYb") == 0, "strings", "TQMInsertString (__cdecl)");
}

static void profile(const char* folder)
{
    char file[MAX_PATH];
    lstrcpyA(file, folder);
    lstrcatA(file, "\\client.ini");
    WritePrivateProfileStringA("Section", "Number", "42", file);
    checkValue(TQMGetProfileInt("Section", "Number", 7, file) == 42, "profile", "TQMGetProfileInt reads a number",
               TQMGetProfileInt("Section", "Number", 7, file));
    check(TQMGetProfileInt("Section", "Missing", 7, file) == 7, "profile", "TQMGetProfileInt gives the default");
    check(TQMWritePrivateProfileInt("Section", "Other", -5, file) != 0, "profile", "TQMWritePrivateProfileInt");
    check(TQMGetProfileInt("Section", "Other", 0, file) == -5, "profile", "the number written reads back");
}

static void registry(void)
{
    char base[MAX_PATH], subKey[MAX_PATH], value[512];
    check(TQMSetQM5ProfileInt(HKEY_CURRENT_USER, "MsvcClient", "Count", 1234), "registry",
          "TQMSetQM5ProfileInt takes a number");
    checkValue(TQMGetQM5ProfileInt(HKEY_CURRENT_USER, "MsvcClient", "Count", 0) == 1234, "registry",
               "TQMGetQM5ProfileInt reads it back", (long)TQMGetQM5ProfileInt(HKEY_CURRENT_USER, "MsvcClient", "Count", 0));
    check(TQMSetQM5ProfileString(HKEY_CURRENT_USER, "MsvcClient", "Text", "hello"), "registry",
          "TQMSetQM5ProfileString takes a text");
    check(TQMGetQM5BaseRegistryKey(base) > 0 && startsWith(base, "Tarn-Holmvik\\QM5\\"), "registry",
          "TQMGetQM5BaseRegistryKey names the suite's key");
    lstrcpyA(subKey, "Software\\");
    lstrcatA(subKey, base);
    lstrcatA(subKey, "\\MsvcClient");
    check(TQMReadRegistryString(HKEY_CURRENT_USER, subKey, "Text", value) && lstrcmpA(value, "hello") == 0,
          "registry", "TQMReadRegistryString reads the text where the settings keep it");
    TQMSetQM5ProfileInt(HKEY_CURRENT_USER, "MsvcClient", NULL, 0); /* removes the section */
    check(TQMGetQM5ProfileInt(HKEY_CURRENT_USER, "MsvcClient", "Count", 77) == 77, "registry",
          "a removed section gives the default");
}

static void directories(char* projects)
{
    char withSlash[MAX_PATH + 2];
    int n = TQMGetProjectsDir(projects);
    check(n > 3 && n == lstrlenA(projects), "directories", "TQMGetProjectsDir gives a folder and its length");
    /* imported through its decorated name, _GetQM4ProjectsDir@4 on i686 */
    check(GetQM4ProjectsDir(withSlash) == withSlash && startsWith(withSlash, projects) &&
              lstrlenA(withSlash) == n + 1 && withSlash[n] == '\\',
          "directories", "GetQM4ProjectsDir gives the same folder with a trailing backslash");
    check(TQMGetLibsDir(withSlash) > 3, "directories", "TQMGetLibsDir");
}

static void tags(const char* projects)
{
    char path[MAX_PATH], tagged[MAX_PATH], back[MAX_PATH];
    lstrcpyA(path, projects);
    lstrcatA(path, "\\Plant\\Main.src");
    check(TQMSubstAppPathTags(path, tagged) > 0 && startsWith(tagged, "<$"), "tags",
          "TQMSubstAppPathTags puts a tag in place of the projects folder");
    check(TQMUnSubstAppPathTags(tagged, back) > 0 && lstrcmpiA(back, path) == 0, "tags",
          "TQMUnSubstAppPathTags gives the path back");
}

static void paths(void)
{
    check(TQMIsValidPathName("C:\\Plant\\Main.src", 0) != 0, "paths", "TQMIsValidPathName takes a full path");
    check(TQMIsValidPathName("C:\\Plant\\M*.src", 0) == 0, "paths", "and refuses a wildcard unless allowed");
    check(TQMIsValidFileName("Main.src", TRUE) && !TQMIsValidFileName("Main.src", FALSE), "paths",
          "TQMIsValidFileName and the extension flag");
    check(TQMWildcardCompare("*.SRC", "main.src") && !TQMWildcardCompare("?.src", "ab.src"), "paths",
          "TQMWildcardCompare");
    check(TQMHasDir(".\\a") && !TQMHasDir("a.src"), "paths", "TQMHasDir");
}

static void versions(void)
{
    checkValue(TQMGetAppVersionInt() == -1, "versions", "TQMGetAppVersionInt: this program has no version",
               TQMGetAppVersionInt());
    checkValue(TQMGetWindowsVersion() == 4, "versions", "TQMGetWindowsVersion: the NT family",
               TQMGetWindowsVersion());
}

static void catalogue(const char* folder)
{
    DWORD value = 1;
    char project[MAX_PATH], expected[MAX_PATH];
    HGLOBAL block;
    check(TQMParseLibraryVersion("V2.1.30", &value) && value == 2001030, "catalogue",
          "TQMParseLibraryVersion(\"V2.1.30\") is 2001030");
    check(!TQMParseLibraryVersion("2001030", &value) && value == 0, "catalogue",
          "seven digits without a dot are refused");

    lstrcpyA(project, folder);
    lstrcatA(project, "\\Plant.tarn5pj");
    WritePrivateProfileStringA("LibraryFiles", "NumberOfLibs", "1", project);
    WritePrivateProfileStringA("LibraryFiles", "Lib0", ".\\Libs\\Valves.tarnlin;a;b;c;d", project);
    lstrcpyA(expected, folder);
    lstrcatA(expected, "\\Libs\\Valves.tarnlin");
    block = TQMGetProjectLibraries(project);
    if (block == NULL) {
        check(FALSE, "catalogue", "TQMGetProjectLibraries gives a block");
        return;
    }
    {
        const char* list = (const char*)GlobalLock(block);
        check(list && lstrcmpiA(list, expected) == 0 && list[lstrlenA(list) + 1] == 0 &&
                  GlobalSize(block) >= (SIZE_T)lstrlenA(expected) + 2,
              "catalogue", "TQMGetProjectLibraries: the project's one library as a full path, then the end");
        GlobalUnlock(block);
    }
    GlobalFree(block);
}

static void molecules(void)
{
    char text[600], back[700];
    ATOM atom;
    int i;
    for (i = 0; i < 599; ++i)
        text[i] = (char)('a' + i % 26);
    text[599] = 0;
    atom = GlobalAddMolecule(text);
    check(atom != 0, "molecules", "GlobalAddMolecule takes a text longer than an atom");
    checkValue(GlobalGetMoleculeName(atom, back, sizeof back) == 599 && lstrcmpA(back, text) == 0, "molecules",
               "GlobalGetMoleculeName gives it back whole", GlobalGetMoleculeName(atom, back, sizeof back));
    check(GlobalDeleteMolecule(atom) == 0, "molecules", "GlobalDeleteMolecule");
}

struct BoxSeen {
    int count;
    char text[256];
};

static int CALLBACK boxHook(HWND owner, const char* text, const char* caption, UINT type, void* context)
{
    struct BoxSeen* seen = (struct BoxSeen*)context;
    (void)owner;
    (void)caption;
    (void)type;
    ++seen->count;
    lstrcpynA(seen->text, text, sizeof seen->text);
    return IDOK;
}

static void diagnostics(void)
{
    struct BoxSeen seen;
    seen.count = 0;
    seen.text[0] = 0;
    TQMSetMessageBoxHook(boxHook, &seen);
    TarnMessageBox("pump %d of %s", 3, "line A"); /* caller-pops, with a variable argument list */
    check(seen.count == 1 && lstrcmpA(seen.text, "pump 3 of line A") == 0, "diagnostics",
          "TarnMessageBox formats its arguments and the box reaches the hook");
    TQMSetMessageBoxHook(NULL, NULL);
    TQMTRACE("msvc client: a trace line nobody receives");
    check(TRUE, "diagnostics", "TQMTRACE without a viewer returns");
}

/* The scratch folder: the temporary folder + "TqmMsvcClient". */
static BOOL makeFolder(char* folder)
{
    DWORD n = GetTempPathA(MAX_PATH - 20, folder);
    if (n == 0 || n >= MAX_PATH - 20)
        return FALSE;
    lstrcatA(folder, "TqmMsvcClient");
    CreateDirectoryA(folder, NULL);
    return GetFileAttributesA(folder) != INVALID_FILE_ATTRIBUTES;
}

void __stdcall clientMain(void)
{
    char folder[MAX_PATH], projects[MAX_PATH], buf[16];
    g_out = GetStdHandle(STD_OUTPUT_HANDLE);
    say(sizeof(void*) == 4 ? "msvc client (i686)\r\n" : "msvc client (x86_64)\r\n");
    if (!makeFolder(folder)) {
        say("FAILED  no scratch folder\r\n");
        ExitProcess(100);
    }
    checksums();
    strings();
    profile(folder);
    registry();
    directories(projects);
    tags(projects);
    paths();
    versions();
    catalogue(folder);
    molecules();
    diagnostics();
    say(g_failed ? "msvc client: " : "msvc client: all checks passed, ");
    say(decimal(g_failed, buf));
    say(" failed\r\n");
    ExitProcess((UINT)g_failed);
}
