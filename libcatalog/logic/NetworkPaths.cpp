// Names resolved against network folders.
#include "libcatalog/logic/NetworkPaths.h"

namespace tqm {
namespace {

bool startsWith(const std::string& text, size_t at, const char* prefix)
{
    return text.compare(at, std::char_traits<char>::length(prefix), prefix) == 0;
}

}  // namespace

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

    size_t at = 0;
    for (;;) {
        if (startsWith(name, at, ".\\")) {
            at += 2;
        } else if (startsWith(name, at, "..\\")) {
            at += 3;
            if (base.size() > root.size())
                base.erase(base.rfind('\\'));
        } else {
            break;
        }
    }
    return at == name.size() ? base : base + "\\" + name.substr(at);
}

}  // namespace tqm
