#include "LibraryTree.h"

#include "framework/Handles.h"
#include "libcatalog/LibraryFiles.h"
#include "libcatalog/logic/ListBlock.h"
#include "paths/PathNames.h"
#include "support/FileUtil.h"

namespace cattest {

std::string LibraryTree::put(const std::string& relative, const std::string& content) const
{
    const std::string full = path(relative);
    TQMCreateDir(TQMGetParentDir(full.c_str()));
    tqmtest::WriteBytes(full, content);
    return full;
}

std::string LibraryTree::put(const std::string& relative, const std::vector<uint8_t>& bytes) const
{
    return put(relative, std::string(bytes.begin(), bytes.end()));
}

std::string LibraryTree::folder(const std::string& relative) const
{
    const std::string full = path(relative);
    TQMCreateDir(full.c_str());
    return full;
}

std::string LibraryTree::relative(const std::string& path) const
{
    const std::string& base = root();
    if (path.size() > base.size() && !_strnicmp(path.c_str(), base.c_str(), base.size()) && path[base.size()] == '\\')
        return path.substr(base.size() + 1);
    return path;
}

std::vector<std::string> TakeBlock(HGLOBAL block)
{
    tqm::UniqueGlobal owner(block);
    if (!owner)
        return {};
    tqm::GlobalLock lock(owner.get());
    return tqm::DecodeListBlock(lock.as<const char>(), GlobalSize(owner.get()));
}

FileSet FileSetOf(const LibraryTree& tree, const std::string& description)
{
    HGLOBAL messages = nullptr;
    HGLOBAL files = TQMGetLibraryFiles(tree.path(description).c_str(), &messages);
    FileSet set;
    set.nullFiles = files == nullptr;
    for (const std::string& file : TakeBlock(files))
        set.files.push_back(tree.relative(file));
    for (std::string message : TakeBlock(messages)) {
        for (size_t at; (at = message.find(tree.root())) != std::string::npos;)
            message.replace(at, tree.root().size(), "<>");
        set.messages.push_back(message);
    }
    return set;
}

}  // namespace cattest
