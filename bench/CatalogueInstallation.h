// The catalogue benchmark's installation: 2,000 library descriptions below a
// libraries folder, of which 20% are older second copies of a library with
// the same ID elsewhere. The catalogue and doctor benchmarks both build it.
#pragma once

#include "framework/Handles.h"
#include "paths/PathNames.h"

#include <windows.h>

#include <stdio.h>

#include <string>

namespace tqmbench {

const int kLibraries = 1600;         // distinct IDs
const int kSecondCopies = 400;       // 20% of the 2,000 descriptions
const int kLibrariesPerGroup = 50;

inline bool writeFile(const std::string& path, const std::string& bytes)
{
    tqm::UniqueFile file(CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    DWORD written = 0;
    return file && WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
           written == bytes.size();
}

// Writes folder\name, making the folder first.
inline bool writeIn(const std::string& folder, const std::string& name, const std::string& bytes)
{
    TQMCreateDir(folder.c_str());
    return writeFile(folder + "\\" + name, bytes);
}

// The description of benchmark library number library.
inline std::string description(int library, const char* version, const std::string& installDir)
{
    char text[512];
    snprintf(text, sizeof(text),
             "; Benchmark library %d\r\n[Library]\r\nType=Hpak\r\nID=BENCH.LIB%04d\r\nVersion=%s\r\nInstallDir=%s\r\n"
             "\r\n[Distributor]\r\nName=Tarn-Holmvik\r\n\r\n[Languages]\r\nCount=1\r\nLang0=en\r\n\r\n[Files]\r\n"
             "Count=1\r\nFile0=Lib%04d.src\r\n\r\n[en]\r\nName=Benchmark library %d\r\nHelpFile=Lib%04d.chm\r\n",
             library, library, version, installDir.c_str(), library, library, library);
    return text;
}

// 1,600 libraries in groups of 50, and 400 older copies elsewhere.
inline bool writeInstallation(const std::string& libs)
{
    bool ok = true;
    for (int i = 0; i < kLibraries && ok; ++i) {
        const std::string installDir =
            "Group" + std::to_string(i / kLibrariesPerGroup) + "\\Lib" + std::to_string(i);
        char name[32];
        snprintf(name, sizeof(name), "Lib%04d.tarnlin", i);
        ok = writeIn(libs + "\\" + installDir, name, description(i, "2.1.0", installDir));
    }
    for (int i = 0; i < kSecondCopies && ok; ++i) {
        const int library = i * (kLibraries / kSecondCopies);
        const std::string installDir = "Old\\Lib" + std::to_string(library);
        char name[32];
        snprintf(name, sizeof(name), "Lib%04d.tarnlin", library);
        ok = writeIn(libs + "\\" + installDir, name, description(library, "1.9.4", installDir));
    }
    return ok;
}

}  // namespace tqmbench
