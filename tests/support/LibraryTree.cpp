#include "support/LibraryTree.h"

#include "config/QM5Profile.h"
#include "framework/Handles.h"
#include "libcatalog/LibraryFiles.h"
#include "libcatalog/logic/ListBlock.h"
#include "paths/InstallDirs.h"
#include "paths/PathNames.h"
#include "support/FileUtil.h"

namespace tqmtest {

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

namespace {

// Every occurrence of the tree's folder replaced by "<>".
std::string shortened(std::string text, const std::string& root)
{
    for (size_t at; (at = text.find(root)) != std::string::npos;)
        text.replace(at, root.size(), "<>");
    return text;
}

}  // namespace

FileSet FileSetOf(const LibraryTree& tree, const std::string& description)
{
    HGLOBAL messages = nullptr;
    HGLOBAL files = TQMGetLibraryFiles(tree.path(description).c_str(), &messages);
    FileSet set;
    set.nullFiles = files == nullptr;
    for (const std::string& file : TakeBlock(files))
        set.files.push_back(tree.relative(file));
    for (const std::string& message : TakeBlock(messages))
        set.messages.push_back(shortened(message, tree.root()));
    return set;
}

InstallationTest::InstallationTest()
{
    TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "LibsDir", tree.folder("Libs").c_str());
    TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "ProjectsDir", tree.folder("Projects").c_str());
}

InstallationTest::~InstallationTest()
{
    if (!m_optionsSaved)
        return;
    const std::string options = TQMGetVMXOptionsFilePath().GetString();
    if (m_optionsExisted)
        tqmtest::WriteBytes(options, m_options);
    else
        DeleteFileA(options.c_str());
}

void InstallationTest::setLanguages(const char* libLanguage, const char* appLanguage)
{
    const CString options = TQMGetVMXOptionsFilePath();
    if (!m_optionsSaved) {
        m_optionsSaved = true;
        m_optionsExisted = tqmtest::PathExists(options.GetString());
        m_options = tqmtest::ReadBytes(options.GetString());
    }
    TQMCreateDir(TQMGetParentDir(options));
    std::string content = "[VMX]\n";
    if (libLanguage)
        content += std::string("LibLanguage=") + libLanguage + "\n";
    if (appLanguage)
        content += std::string("AppLanguage=") + appLanguage + "\n";
    tqmtest::WriteBytes(options.GetString(), content);
}

std::vector<std::string> InstallationTest::inTree(HGLOBAL block) const
{
    std::vector<std::string> items;
    for (const std::string& item : TakeBlock(block))
        items.push_back(shortened(item, tree.root()));
    return items;
}

}  // namespace tqmtest
