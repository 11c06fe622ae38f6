// Identifiers of the library's string table (res/Tqmlib52.rc).
#pragma once

#define IDS_BROWSE_FOR_MISSING 134     // "'%s' could not be found. Do you want to browse for it?"
#define IDS_OUT_OF_MEMORY 135          // "Out of memory."
#define IDS_CANNOT_OPEN_FILE 136       // "Cannot open file '%s'."
#define IDS_CANNOT_READ_FILE 137       // "Cannot read file '%s'."
#define IDS_INVALID_FILE 138           // "Invalid file '%s'."
#define IDS_INVALID_DIB_FILE 140       // "Invalid DIB file '%s'."
#define IDS_FILE_NOT_FOUND_INVALID 141 // "File %s not found or invalid."
#define IDS_READ_ERROR 142             // "Read error on file: %s."
#define IDS_WRITE_ERROR 143            // "Write error on file: %s."
#define IDS_SYSTEM_ERROR_CAPTION 1000  // "System Error"
#define IDS_DLL_ERROR_FRAME 1001       // "Error %d: %s"
#define IDS_SYSTEM_INFO_CAPTION 1002   // "System Info"
