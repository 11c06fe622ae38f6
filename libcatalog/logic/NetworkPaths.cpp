// Names resolved against network folders.
#include "libcatalog/logic/NetworkPaths.h"

#include "paths/logic/PathText.h"

namespace tqm {

bool IsNetworkPath(const char* path) { return path && path[0] == '\\' && path[1] == '\\'; }

std::string NetworkShareRoot(const std::string& path)
{
    const size_t serverEnd = path.find('\\', 2);
    if (serverEnd == std::string::npos)
        return path;
    const size_t shareEnd = path.find('\\', serverEnd + 1);
    return shareEnd == std::string::npos ? path : path.substr(0, shareEnd);
}

std::string ResolveInNetworkFolder(const std::string& folder, const std::string& name)
{
    if ((name.size() >= 2 && name[1] == ':') || IsNetworkPath(name.c_str()))
        return name;
    std::string base = folder;
    while (base.size() > 2 && base.back() == '\\')
        base.pop_back();
    const std::string root = NetworkShareRoot(base);
    if (!name.empty() && name[0] == '\\')
        return root + name;

    int levelsUp = 0;
    const char* rest = SkipLeadingDots(name.c_str(), &levelsUp);
    for (; levelsUp > 0 && base.size() > root.size(); --levelsUp)
        base.erase(base.rfind('\\'));
    return *rest ? base + "\\" + rest : base;
}

}  // namespace tqm
