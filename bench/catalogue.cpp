// Catalogue benchmark: the installed libraries with duplicates removed, over
// 2,000 descriptions of which 20% are second copies, and the file set of a
// library of 500 files with nested inclusions and object files.
//
// Each figure is a ratio to a baseline measured in the same run: walking the
// same tree with FindFirstFile and reading every file once, whole - the least
// any listing of these files can do. Targets: the installed list at most 3x
// its baseline and under a second; the file set at most 3x its baseline.
//
// Duplicate removal compares each library with the first other copy of its
// ID. Read as written, every comparison reads the descriptions again; the
// library reads each description's [Library] entries once per call into a
// table. The run prints both counts of description reads per call.
#include "bench/BenchClock.h"
#include "bench/CatalogueInstallation.h"
#include "config/QM5Profile.h"
#include "framework/Handles.h"
#include "libcatalog/LibraryFiles.h"
#include "libcatalog/LibraryLists.h"
#include "libcatalog/logic/DuplicateLibraries.h"
#include "libcatalog/logic/LibraryVersion.h"
#include "libcatalog/logic/ListBlock.h"
#include "libcatalog/logic/ObjectFileWriter.h"
#include "paths/FileOperations.h"
#include "paths/PathNames.h"

#include <windows.h>

#include <stdio.h>

#include <string>
#include <vector>

using namespace tqmbench;

namespace {

const int kSources = 150;            // each includes one file, which includes another
const int kObjectFiles = 25;         // each records one data file

std::string codeLines(int count, const char* what)
{
    std::string text;
    char line[128];
    for (int i = 0; i < count; ++i) {
        snprintf(line, sizeof(line), "    %s_%03d := %s_%03d + 1; (* step %d *)\r\n", what, i, what, i, i);
        text += line;
    }
    return text;
}

// One library of 501 files: the description, 150 sources that each include
// one file that includes another, and 25 object files that each record one
// data file.
bool writeLibrary(const std::string& folder)
{
    std::string files = "[Library]\r\nType=Hpak\r\nID=BENCH.BIG\r\nVersion=1.0.0\r\n[Files]\r\nCount=" +
                        std::to_string(kSources + kObjectFiles) + "\r\n";
    bool ok = true;
    char name[64];
    for (int i = 0; i < kSources && ok; ++i) {
        snprintf(name, sizeof(name), "S%03d.src", i);
        files += "File" + std::to_string(i) + "=" + name + "\r\n";
        ok = writeIn(folder, name, "(* source *)\r\n$INCLUDE I" + std::to_string(i) + ".inc\r\n" + codeLines(40, "x"));
        ok = ok && writeIn(folder, "I" + std::to_string(i) + ".inc",
                           "$INCLUDE \"J" + std::to_string(i) + ".inc\"\r\n" + codeLines(15, "y"));
        ok = ok && writeIn(folder, "J" + std::to_string(i) + ".inc", codeLines(15, "z"));
    }
    for (int i = 0; i < kObjectFiles && ok; ++i) {
        snprintf(name, sizeof(name), "O%02d.obj", i);
        files += "File" + std::to_string(kSources + i) + "=" + name + "\r\n";
        tqm::ObjectFileLayout layout;
        layout.dependencies = {"D" + std::to_string(i) + ".dat"};
        const std::vector<uint8_t> bytes = tqm::WriteObjectFile(layout);
        ok = writeIn(folder, name, std::string(bytes.begin(), bytes.end()));
        ok = ok && writeIn(folder, "D" + std::to_string(i) + ".dat", codeLines(20, "d"));
    }
    return ok && writeIn(folder, "Big.tarnlin", files);
}

// The baseline: every file below folder found and read once, whole.
size_t walkAndRead(const std::string& folder, std::vector<char>& buffer)
{
    size_t files = 0;
    WIN32_FIND_DATAA data;
    tqm::UniqueFind search(FindFirstFileA((folder + "\\*").c_str(), &data));
    if (!search)
        return 0;
    do {
        const std::string name = data.cFileName;
        if (name == "." || name == "..")
            continue;
        const std::string path = folder + "\\" + name;
        if (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) {
            files += walkAndRead(path, buffer);
            continue;
        }
        tqm::UniqueFile file(CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
        DWORD got = 0;
        while (file && ReadFile(file.get(), buffer.data(), static_cast<DWORD>(buffer.size()), &got, nullptr) && got)
            ;
        ++files;
    } while (FindNextFileA(search.get(), &data));
    return files;
}

size_t listLength(HGLOBAL block)
{
    tqm::UniqueGlobal owner(block);
    tqm::GlobalLock lock(owner.get());
    return owner ? tqm::DecodeListBlock(lock.as<const char>(), GlobalSize(owner.get())).size() : 0;
}

// The description reads of duplicate removal as the walk is written, with
// every comparison reading the descriptions again: A's ID, the IDs met while
// searching for B, both versions, and on equal versions both install folders.
unsigned long long readsAsWritten(const std::vector<tqm::InstalledLibrary>& libraries)
{
    std::vector<size_t> list(libraries.size());
    for (size_t i = 0; i < list.size(); ++i)
        list[i] = i;
    const tqm::ini::NameFold fold;
    unsigned long long reads = 0;
    for (size_t cursor = 0; cursor < list.size();) {
        const size_t a = list[cursor++];
        ++reads;
        size_t b = SIZE_MAX;
        for (size_t j = 0; j < list.size() && b == SIZE_MAX; ++j) {
            if (list[j] == a)
                continue;
            ++reads;
            if (fold.Equal(libraries[list[j]].id.c_str(), libraries[a].id.c_str()))
                b = j;
        }
        if (b == SIZE_MAX)
            continue;
        reads += 2;
        if (libraries[a].version == libraries[list[b]].version)
            reads += 2;
        // The list's own choice of the copy that goes.
        const std::vector<size_t> kept = tqm::ResolveDuplicateLibraries({libraries[a], libraries[list[b]]}, fold);
        const size_t loser = kept[0] == 0 ? b : cursor - 1;
        if (loser < cursor)
            --cursor;
        list.erase(list.begin() + static_cast<std::ptrdiff_t>(loser));
    }
    return reads;
}

// The installation as duplicate removal sees it, in the order it was written.
std::vector<tqm::InstalledLibrary> tableOf(const std::string& libs)
{
    std::vector<tqm::InstalledLibrary> table;
    auto add = [&](int library, uint32_t version, const std::string& installDir) {
        char id[32];
        snprintf(id, sizeof(id), "BENCH.LIB%04d", library);
        const std::string folder = libs + "\\" + installDir;
        table.push_back({folder + "\\Lib.tarnlin", id, version, folder});
    };
    for (int i = 0; i < kLibraries; ++i)
        add(i, 2001000, "Group" + std::to_string(i / kLibrariesPerGroup) + "\\Lib" + std::to_string(i));
    for (int i = 0; i < kSecondCopies; ++i)
        add(i * (kLibraries / kSecondCopies), 1009004, "Old\\Lib" + std::to_string(i * (kLibraries / kSecondCopies)));
    return table;
}

}  // namespace

int main()
{
    char temp[MAX_PATH];
    GetTempPathA(MAX_PATH, temp);
    const std::string dir = std::string(temp) + "tqm-bench-catalogue-" + std::to_string(GetCurrentProcessId());
    const std::string libs = dir + "\\Libs";
    const std::string library = dir + "\\Big";
    if (!writeInstallation(libs) || !writeLibrary(library)) {
        fprintf(stderr, "cannot write the benchmark files in %s\n", dir.c_str());
        return 1;
    }

    // The libraries directory points at the benchmark's for the run.
    const CString savedLibsDir = TQMGetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "LibsDir", "");
    TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "LibsDir", libs.c_str());

    std::vector<char> buffer(64 * 1024);
    walkAndRead(libs, buffer);  // warm the file cache
    size_t seen = 0;
    const double baseInstalled = BestOf(5, [&] { seen = walkAndRead(libs, buffer); });
    size_t all = 0;
    size_t kept = 0;
    const double listAll = BestOf(5, [&] { all = listLength(TQMGetInstalledLibraries(FALSE)); });
    const double listKept = BestOf(5, [&] { kept = listLength(TQMGetInstalledLibraries(TRUE)); });

    TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "LibsDir", savedLibsDir);

    const std::string big = library + "\\Big.tarnlin";
    walkAndRead(library, buffer);
    size_t libraryFiles = 0;
    const double baseSet = BestOf(5, [&] { libraryFiles = walkAndRead(library, buffer); });
    size_t setSize = 0;
    const double fileSet = BestOf(5, [&] { setSize = listLength(TQMGetLibraryFiles(big.c_str(), nullptr)); });

    bool ok = seen == static_cast<size_t>(kLibraries + kSecondCopies) && all == seen &&
              kept == static_cast<size_t>(kLibraries) && setSize == libraryFiles;
    printf("installation: %zu descriptions, %d of them second copies; library: %zu files\n", seen, kSecondCopies,
           libraryFiles);

    printf("\nbaseline: the installation walked with FindFirstFile, each description read once, %.1f ms = 1.00\n",
           baseInstalled * 1e3);
    printf("  TQMGetInstalledLibraries(FALSE)          %6.2f x baseline\n", listAll / baseInstalled);
    printf("  TQMGetInstalledLibraries(TRUE)           %6.2f x baseline   (target <= 3)   %.0f ms (target < 1000)\n",
           listKept / baseInstalled, listKept * 1e3);
    printf("  description reads per call: %zu (one per description, into a call-local table);\n"
           "  the walk as written, reading anew for each comparison, would make about %llu\n",
           seen, readsAsWritten(tableOf(libs)));

    printf("\nbaseline: the library's folder walked, each of its %zu files read once, %.1f ms = 1.00\n", libraryFiles,
           baseSet * 1e3);
    printf("  TQMGetLibraryFiles                       %6.2f x baseline   (target <= 3)\n", fileSet / baseSet);

    if (!ok)
        fprintf(stderr, "unexpected counts: %zu listed of %zu, %zu kept, %zu in the file set of %zu\n", all, seen,
                kept, setSize, libraryFiles);
    TQMDelete(dir.c_str(), FALSE);
    return ok ? 0 : 1;
}
