// The library's version: the one place it is set.
//
// The product version also names the suite's registry key
// (Software\Tarn-Holmvik\QM5\<product version>), which the library reads back
// from its own version resource at run time. Changing it moves every setting
// to a new key, so it changes only with a new generation of the suite.
#pragma once

#define TQM_VERSION_MAJOR 2
#define TQM_VERSION_MINOR 0
#define TQM_VERSION_BUILD 1
#define TQM_VERSION_REVISION 0

#define TQM_FILE_VERSION_TEXT "2.0.1.0"
#define TQM_PRODUCT_VERSION_TEXT "2.0"
