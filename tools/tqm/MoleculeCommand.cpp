// tqm molecule add TEXT | get ATOM | delete ATOM
//
// Global molecules by hand: the handles stay in the system's atom table
// after tqm ends, so one process adds and another reads or deletes.
#include "tools/tqm/Command.h"

#include "ipc/Molecules.h"

#include <windows.h>

#include <stdio.h>

#include <string>

namespace tqmtool {
namespace {

const char kUsage[] =
    "usage: tqm molecule add TEXT\n"
    "       tqm molecule get ATOM\n"
    "       tqm molecule delete ATOM\n\n"
    "add     adds TEXT (at most 6629 characters) as a global molecule and prints its\n"
    "        handle (hexadecimal) and the name of its head atom: TEXT itself when it\n"
    "        has 255 characters or fewer, else the head listing the pieces\n"
    "get     prints the whole string of the molecule ATOM\n"
    "delete  deletes the molecule ATOM with its pieces\n\n"
    "ATOM is the handle as add printed it (hexadecimal), or 0x... or #decimal.\n"
    "Exit 1 when the text is too long or the atom table refuses it, or ATOM does\n"
    "not exist.\n";

bool parseAtom(const std::string& text, ATOM& atom)
{
    long long value = 0;
    std::string number = text.compare(0, 2, "0x") == 0 || text.compare(0, 2, "0X") == 0 ? text
                         : text[0] == '#'                                          ? text.substr(1)
                                                                                    : "0x" + text;
    if (!ParseInteger(number, 1, 0xFFFF, value))
        return false;
    atom = static_cast<ATOM>(value);
    return true;
}

bool atomExists(ATOM atom)
{
    char name[256];
    return GlobalGetAtomNameA(atom, name, sizeof(name)) != 0;
}

int add(const std::string& text)
{
    if (text.size() > TQM_MOLECULE_MAX_LENGTH)
        return Fail("the text has %lu characters; a molecule holds at most %d",
                    static_cast<unsigned long>(text.size()), TQM_MOLECULE_MAX_LENGTH);
    ATOM atom = GlobalAddMolecule(text.c_str());
    if (!atom)
        return Fail("the atom table refused the text (error %lu)", GetLastError());
    char head[256] = "";
    GlobalGetAtomNameA(atom, head, sizeof(head));
    printf("%04X %s\n", atom, head);
    return kExitOk;
}

int runMolecule(const Args& args)
{
    if (args.size() != 2)
        return UsageError("molecule", args.size() < 2 ? "an action and its argument are needed" : "too many arguments");
    const std::string& action = args[0];
    if (action == "add")
        return add(args[1]);
    if (action != "get" && action != "delete")
        return UsageError("molecule", "unknown action %s", action.c_str());
    ATOM atom = 0;
    if (!parseAtom(args[1], atom))
        return UsageError("molecule", "not an atom: %s", args[1].c_str());
    if (!atomExists(atom))
        return Fail("no atom %04X", atom);
    if (action == "get") {
        CString text = GlobalGetMoleculeName(atom);
        printf("%s\n", text.GetString());
        return kExitOk;
    }
    if (GlobalDeleteMolecule(atom) != 0)
        return Fail("atom %04X could not be deleted", atom);
    return kExitOk;
}

}  // namespace

TQM_REGISTER_COMMAND({"molecule", "add, read or delete a global molecule (a long string in the atom table)",
                      kUsage, runMolecule});

}  // namespace tqmtool
