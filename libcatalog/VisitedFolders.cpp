// The folders a walk has entered, known by their identity.
#include "libcatalog/VisitedFolders.h"

#include "framework/Handles.h"

namespace tqm {

bool VisitedFolders::identityOf(const std::string& folder, Identity& identity)
{
    // Opened for its attributes only; a folder needs the backup flag to be
    // opened at all, and a link is followed to its folder.
    UniqueFile handle(CreateFileA(folder.c_str(), FILE_READ_ATTRIBUTES,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    BY_HANDLE_FILE_INFORMATION information;
    if (!handle || !GetFileInformationByHandle(handle.get(), &information))
        return false;
    identity = Identity(information.dwVolumeSerialNumber, information.nFileIndexHigh, information.nFileIndexLow);
    return true;
}

bool VisitedFolders::Enter(const std::string& folder, bool isLink)
{
    if (!isLink && !m_linksMet) {
        m_enteredBeforeLinks.push_back(folder);
        return true;
    }
    if (!m_linksMet) {
        m_linksMet = true;
        Identity identity;
        for (const std::string& entered : m_enteredBeforeLinks) {
            if (identityOf(entered, identity))
                m_identities.insert(identity);
        }
        m_enteredBeforeLinks.clear();
    }
    Identity identity;
    if (!identityOf(folder, identity))
        return !isLink;
    return m_identities.insert(identity).second;
}

}  // namespace tqm
