// Faults of the file system, made real: a small disk that fills up (a tmpfs
// of a few hundred KB that scripts/stress.sh mounts and maps to a drive
// letter, named in TQM_SMALL_DISK), and read-only files.
#include "stress/Stress.h"

#include "support/SuiteSettingsGuard.h"

#include "config/IniFile.h"
#include "config/QM5Profile.h"
#include "datafiles/RecFile.h"
#include "framework/Exceptions.h"

#include <gtest/gtest.h>

#include <stdlib.h>
#include <string.h>

namespace tqmstress {
namespace {

// The small disk's root ("T:"); empty, with the reason in *pWhy, when the
// test runs without one.
std::string smallDisk(std::string* pWhy)
{
    const char* disk = getenv("TQM_SMALL_DISK");
    if (disk && *disk)
        return disk;
    const char* why = getenv("TQM_SMALL_DISK_SKIPPED");
    *pWhy = why && *why ? why : "no small disk: run through scripts/stress.sh, which mounts one";
    return std::string();
}

#define REQUIRE_SMALL_DISK(disk)                                                                                       \
    std::string why;                                                                                                   \
    const std::string disk = smallDisk(&why);                                                                          \
    if (disk.empty())                                                                                                  \
    GTEST_SKIP() << why

// Fills the disk with one file until not one more byte fits; the file goes
// when the object does. The system's code for the write that did not fit.
class DiskFiller
{
public:
    explicit DiskFiller(const std::string& disk) : m_path(disk + "\\filler.bin") {}
    ~DiskFiller() { DeleteFileA(m_path.c_str()); }

    DWORD Fill()
    {
        tqm::UniqueFile file(CreateFileA(m_path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS, 0, nullptr));
        if (!file)
            return GetLastError();
        SetFilePointer(file.get(), 0, nullptr, FILE_END);
        std::string block(65536, 'f');
        DWORD error = 0;
        for (DWORD size = static_cast<DWORD>(block.size()); size > 0;) {
            DWORD written = 0;
            if (WriteFile(file.get(), block.data(), size, &written, nullptr) && written == size)
                continue;
            error = GetLastError();
            size /= 2;
        }
        return error;
    }

private:
    std::string m_path;
};

TEST(FullDisk, IniWriteLeavesTheOldDocumentAndNoTemporaryFile)
{
    REQUIRE_SMALL_DISK(disk);
    const std::string doc = disk + "\\Full.ini";
    CTQMIniFile ini;
    for (int i = 0; i < 20; ++i)
        ini.SetEntryValue("Old", ("Key" + std::to_string(i)).c_str(), "the old value");
    ASSERT_EQ(1, ini.Write(doc.c_str()));
    const std::string before = ReadWhole(doc);
    DiskFiller filler(disk);
    EXPECT_EQ(static_cast<DWORD>(ERROR_DISK_FULL), filler.Fill());
    for (int i = 0; i < 2000; ++i)
        ini.SetEntryValue("New", ("Key" + std::to_string(i)).c_str(), "a new value that does not fit");
    EXPECT_EQ(0, ini.Write(doc.c_str()));
    EXPECT_EQ(before, ReadWhole(doc));
    EXPECT_TRUE(TempFiles(disk).empty()) << TempFiles(disk)[0];
    DeleteFileA(doc.c_str());
}

// The bytes of record n, of a size that varies.
std::string recordBytes(DWORD n)
{
    std::string bytes(100 + (n * 2654435761u) % 5000, '\0');
    for (size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(n * 31 + i);
    return bytes;
}

// Writes records until one does not fit; how many returned TRUE, and the
// system's code of the one that failed (from its exception, with the throw
// flag).
DWORD writeUntilFull(CRecFile& file, bool bThrows, DWORD* pError)
{
    for (DWORD n = 0; n < 100000; ++n) {
        const std::string bytes = recordBytes(n);
        try {
            if (!file.WriteRec(7, n, static_cast<DWORD>(bytes.size()), bytes.data())) {
                *pError = GetLastError();
                return n;
            }
        } catch (CFileException* e) {
            *pError = bThrows ? static_cast<DWORD>(e->m_lOsError) : 0xFFFFFFFF;
            e->Delete();
            return n;
        }
    }
    *pError = 0;
    return 100000;
}

// Every one of the first count records reads back whole.
void expectRecordsBack(const std::string& path, DWORD count)
{
    CRecFile file(FALSE);
    ASSERT_TRUE(file.Open(path.c_str(), 0xFFFFFFFF)) << "error " << GetLastError();
    for (DWORD n = 0; n < count; ++n) {
        ASSERT_TRUE(file.FindNextRec(7)) << "record " << n << " of " << count << ": error " << GetLastError();
        const std::string expected = recordBytes(n);
        std::string got(expected.size(), '\0');
        ASSERT_EQ(expected.size(), file.GetRecHdr()->dwDataLength) << "record " << n;
        ASSERT_TRUE(file.ReadRec(&got[0], static_cast<DWORD>(got.size()))) << "record " << n;
        ASSERT_EQ(expected, got) << "record " << n;
    }
    file.Close();
}

TEST(FullDisk, RecordFileWritesUntilFullAndKeepsWhatWasWritten)
{
    REQUIRE_SMALL_DISK(disk);
    for (bool bThrows : {false, true}) {
        SCOPED_TRACE(bThrows ? "with the throw flag" : "without the throw flag");
        const std::string path = disk + "\\Records.dat";
        DWORD written = 0, error = 0;
        {
            CRecFile file(bThrows ? TRUE : FALSE);
            ASSERT_TRUE(file.Create(path.c_str(), 0x51, 1, "full disk"));
            written = writeUntilFull(file, bThrows, &error);
        }
        Figure("full disk: %s: %lu records written before the disk was full; the next one failed with code %lu",
               bThrows ? "throwing" : "not throwing", written, error);
        EXPECT_EQ(static_cast<DWORD>(ERROR_DISK_FULL), error);
        EXPECT_GT(written, 10u);
        expectRecordsBack(path, written);
        DeleteFileA(path.c_str());
    }
}

TEST(FullDisk, RecordFileCreateDeletesItsFile)
{
    REQUIRE_SMALL_DISK(disk);
    DiskFiller filler(disk);
    filler.Fill();
    const std::string path = disk + "\\Created.dat";
    CRecFile file(FALSE);
    EXPECT_FALSE(file.Create(path.c_str(), 0x51, 1, std::string(200, 'd').c_str()));
    EXPECT_EQ(static_cast<DWORD>(ERROR_DISK_FULL), GetLastError());
    EXPECT_EQ(INVALID_FILE_ATTRIBUTES, GetFileAttributesA(path.c_str()));
}

// The common documents folder, and with it the machine-wide mirror file,
// moved to a folder of the test's disks for one test, through the shell's
// folder settings.
class CommonDocumentsMoved
{
public:
    explicit CommonDocumentsMoved(const std::string& docs)
    {
        RegCreateKeyExA(HKEY_LOCAL_MACHINE, kShellFolders, 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr, &m_key, nullptr);
        char old[MAX_PATH] = "";
        DWORD size = sizeof(old), type = 0;
        m_hadOld = RegQueryValueExA(m_key, "Common Documents", nullptr, &type, reinterpret_cast<BYTE*>(old), &size) ==
                   ERROR_SUCCESS;
        m_old.assign(old);
        m_oldType = type;
        RegSetValueExA(m_key, "Common Documents", 0, REG_EXPAND_SZ, reinterpret_cast<const BYTE*>(docs.c_str()),
                       static_cast<DWORD>(docs.size() + 1));
    }
    ~CommonDocumentsMoved()
    {
        if (m_hadOld)
            RegSetValueExA(m_key, "Common Documents", 0, m_oldType, reinterpret_cast<const BYTE*>(m_old.c_str()),
                           static_cast<DWORD>(m_old.size() + 1));
        else
            RegDeleteValueA(m_key, "Common Documents");
        RegCloseKey(m_key);
    }

private:
    static constexpr const char* kShellFolders = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders";
    HKEY m_key = nullptr;
    bool m_hadOld = false;
    std::string m_old;
    DWORD m_oldType = REG_EXPAND_SZ;
};

// A setting written while the mirror cannot take it: the mirror keeps every
// byte it had; the registry takes the value (the result is the registry's),
// and the mirror's reason is the thread's last error.
void expectMirrorKept(const char* what, const std::string& mirror)
{
    const std::string before = ReadWhole(mirror);
    ASSERT_FALSE(before.empty()) << what;
    SetLastError(0);
    const BOOL stringResult = TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "New", std::string(3000, 'n').c_str());
    const DWORD stringError = GetLastError();
    SetLastError(0);
    const BOOL intResult = TQMSetQM5ProfileInt(HKEY_LOCAL_MACHINE, "Global", "Number", 42);
    const DWORD intError = GetLastError();
    Figure("settings, %s: TQMSetQM5ProfileString gave %d (last error %lu), TQMSetQM5ProfileInt %d (last error %lu)",
           what, stringResult, stringError, intResult, intError);
    EXPECT_EQ(before, ReadWhole(mirror)) << what;
    EXPECT_TRUE(stringResult) << what;
    EXPECT_TRUE(intResult) << what;
    EXPECT_NE(0u, stringError) << what;
    EXPECT_NE(0u, intError) << what;
    const std::string folder = mirror.substr(0, mirror.rfind('\\'));
    EXPECT_TRUE(TempFiles(folder).empty()) << what;
}

TEST(FullDisk, SettingsKeepWhatWasStoredWhenTheMirrorCannotBeWritten)
{
    REQUIRE_SMALL_DISK(disk);
    tqmtest::SuiteSettingsGuard settings;
    const std::string docs = disk + "\\Documents";
    CreateDirectoryA(docs.c_str(), nullptr);
    CommonDocumentsMoved place(docs);
    const std::string mirror = tqmtest::MirrorFile();
    // The suite's folders go beside the documents folder, not into it.
    ASSERT_EQ(disk + "\\Tarn-Holmvik", mirror.substr(0, disk.size() + 13)) << "the shell did not move the folder";
    for (int i = 0; i < 30; ++i)
        ASSERT_TRUE(TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", ("Kept" + std::to_string(i)).c_str(),
                                           "a value stored before the disk was full"));
    DiskFiller filler(disk);
    filler.Fill();
    expectMirrorKept("full disk", mirror);
}

TEST(ReadOnlyDisk, SettingsAndDocumentsStayAsTheyWere)
{
    const char* disk = getenv("TQM_READONLY_DISK");
    if (!disk || !*disk)
        GTEST_SKIP() << "no read-only disk: run through scripts/stress.sh, which mounts one";
    tqmtest::SuiteSettingsGuard settings;
    const std::string docs = std::string(disk) + "\\Documents";
    {
        CommonDocumentsMoved place(docs);
        ASSERT_EQ(std::string(disk) + "\\Tarn-Holmvik", tqmtest::MirrorFile().substr(0, strlen(disk) + 13))
            << "the shell did not move the folder";
        expectMirrorKept("read-only mirror", tqmtest::MirrorFile());
    }
    const std::string doc = docs + "\\ReadOnly.ini";
    const std::string before = ReadWhole(doc);
    CTQMIniFile ini;
    ASSERT_EQ(1, ini.Read(doc.c_str()));
    ini.SetEntryValue("Old", "Key", "a new value");
    EXPECT_EQ(0, ini.Write(doc.c_str()));
    EXPECT_EQ(before, ReadWhole(doc));
}

}  // namespace
}  // namespace tqmstress
