// IsNetworkPath, NetworkShareRoot, ResolveInNetworkFolder - names in a
// library's files made full paths against a folder on a network path
// ("\\server\share\Libs\Motion").
//
// The path functions of the suite leave a name alone on a base without a
// drive letter; the catalogue lists full paths whatever disk a library lies
// on, so it resolves names against network folders by these rules:
//   a name with a drive letter ("D:\x") or a network prefix ("\\s\d\x") is full already;
//   a name that begins with one backslash starts at the share's root;
//   leading ".\" are dropped and each leading "..\" goes one folder up, never
//   above the share's root; what is left is appended to the folder.
//
// Pure code over text: nothing here touches the file system.
#pragma once

#include <string>

namespace tqm {

// True when path begins with two backslashes.
bool IsNetworkPath(const char* path);

// "\\server\share" of a network path; the whole path when it names no share.
std::string NetworkShareRoot(const std::string& path);

// name made full against folder, a network path, by the rules above.
std::string ResolveInNetworkFolder(const std::string& folder, const std::string& name);

}  // namespace tqm
