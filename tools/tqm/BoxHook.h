// How tqm answers the library's message boxes: nobody is there to click, so
// the box's text goes to stderr and the box gets the answer that lets the
// program go on without deciding anything (OK, Ignore, No or Cancel).
#pragma once

namespace tqmtool {

// Installs tqm's own hook (main() does this first thing); a command that
// installed a hook of its own puts tqm's back with it.
void InstallToolBoxHook();

// The answer tqm gives a box of this style (MB_OK, MB_YESNO, ...).
int NonInteractiveBoxAnswer(unsigned type);

}  // namespace tqmtool
