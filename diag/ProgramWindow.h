// The calling program as the library's boxes and trace messages name it: its
// main window and its title.
#pragma once

#include <windows.h>

namespace tqm {

// The program's main window: the first visible top-level window without an
// owner that belongs to this process (topmost first), or NULL.
HWND ProgramMainWindow();

// The program's title: its executable's name without folder and extension.
void ProgramTitle(char* out, size_t size);

// A box in the framework's manner: owned by the program's main window, under
// the program's title, through the message-box hook. Returns the button.
int ShowProgramMessageBox(const char* text, UINT type);

}  // namespace tqm
