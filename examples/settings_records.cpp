// settings_records - an INI document with CTQMIniFile and a record file with
// CRecFile, as a program of the suite keeps its own files.
//
//     settings_records FOLDER
//
// Writes FOLDER\example.ini and FOLDER\example.rec, reads both back and
// prints what it found; exit code 0 when everything read back as written.
#include <stdio.h>
#include <string.h>

#include "config/IniFile.h"
#include "datafiles/RecFile.h"
#include "diag/MessageBoxHook.h"

namespace {

const DWORD kFileType = 0x4558;  // this program's record file type
const DWORD kVersion = 1;
const DWORD kMeasurement = 7;    // a record type of its own

int CALLBACK AnswerBox(HWND, const char* pszText, const char* pszCaption, UINT uType, void*)
{
    fprintf(stderr, "box \"%s\": %s\n", pszCaption, pszText);
    return TqmNonInteractiveAnswer(uType);
}

bool Settings(const CString& strPath)
{
    CTQMIniFile doc;
    doc.SetFileComment("; written by the settings_records example\n");
    doc.SetEntryValue("Library", "Name", "Motion");
    doc.SetEntryValue("Library", "Version", "2.1.0");
    doc.SetEntryValue("Paths", "Help", "<$LibsDir>\\Std\\Motion.chm");
    if (!doc.Write(strPath)) {
        fprintf(stderr, "cannot write %s\n", strPath.GetString());
        return false;
    }

    CTQMIniFile back;
    if (!back.Read(strPath)) {
        fprintf(stderr, "%s: line %d is malformed\n", strPath.GetString(), back.GetErrLine() + 1);
        return false;
    }
    for (int i = 0; i < back.GetNumSections(); ++i) {
        printf("[%s]\n", back.GetSectionName(i));
        for (int j = 0; j < back.GetNumEntries(i); ++j)
            printf("  %s = %s\n", back.GetEntryName(i, j), back.GetEntryValue(i, j));
    }
    return strcmp(back.GetEntryValue("library", "version"), "2.1.0") == 0;
}

bool Records(const CString& strPath)
{
    const double samples[] = {0.5, 1.25, 2.0};
    try {
        CRecFile file;
        file.Create(strPath, kFileType, kVersion, "Measurements of the settings_records example");
        for (DWORD i = 0; i < 3; ++i)
            file.WriteRec(kMeasurement, i, sizeof samples[i], &samples[i]);
        file.Close();

        file.Open(strPath, kFileType);
        int count = 0;
        double sum = 0;
        while (file.FindNextRec(kMeasurement)) {
            double value = 0;
            file.ReadRec(&value, sizeof value);
            sum += value;
            ++count;
        }
        file.Close();
        printf("%d records, sum %.2f\n", count, sum);
        return count == 3 && sum == 3.75;
    } catch (CFileException* e) {
        fprintf(stderr, "%s: record file error %ld\n", strPath.GetString(), e->m_lOsError);
        e->Delete();
        return false;
    }
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        fprintf(stderr, "usage: settings_records FOLDER\n");
        return 2;
    }
    TQMSetMessageBoxHook(AnswerBox, nullptr);
    CString strFolder(argv[1]);
    bool ok = Settings(strFolder + "\\example.ini");
    ok = Records(strFolder + "\\example.rec") && ok;
    return ok ? 0 : 1;
}
