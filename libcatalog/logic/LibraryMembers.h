// ClassifyLibraryMember - what the completion of a library's file set does
// with each of its files, by the file's extension.
//
// The extension is what follows the last "." of the path, compared without
// regard to case:
//
//   .dff                      FamilyFile    taken out of the set (its families are read already)
//   a "\" after the last "."  DottedFolder  skipped: the dot belongs to a folder
//   .obj .obl                 ObjectFile    read for the names it records
//   .bak                      Backup        skipped
//   .hlp .chm .cnt .pdf .doc .rtf .htm .html .txt .bmp .ico .gif .jpg .png
//   .wav .zip .dll .exe .lmi  HelpOrData    skipped: help, documents, pictures and binaries
//   .srx .inx                 Enciphered    an enciphered source or include file
//   anything else, or none    Source        scanned for directives
//
// These are the rules of the walk over the set. A file that a source
// includes is scanned at once whatever its kind, an object file's aside.
#pragma once

namespace tqm {

enum class LibraryMemberKind
{
    FamilyFile,
    DottedFolder,
    ObjectFile,
    Backup,
    HelpOrData,
    Enciphered,
    Source
};

LibraryMemberKind ClassifyLibraryMember(const char* path);

// True when path's extension (from its last ".") is ext, without regard to case.
bool HasExtension(const char* path, const char* ext);

}  // namespace tqm
