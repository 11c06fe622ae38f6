// The link target.
#include "ui/Hyperlink.h"

#include <shellapi.h>

CHyperlink::CHyperlink(const char* pszTarget) : m_strTarget(pszTarget) {}

CHyperlink::CHyperlink(const CHyperlink& other) = default;

CHyperlink& CHyperlink::operator=(const CHyperlink& other) = default;

const CHyperlink& CHyperlink::operator=(const char* pszTarget)
{
    m_strTarget = pszTarget;
    return *this;
}

CHyperlink::~CHyperlink() = default;

HINSTANCE CHyperlink::Navigate()
{
    if (m_strTarget.IsEmpty())
        return nullptr;
    return ::ShellExecuteA(nullptr, "open", m_strTarget, nullptr, nullptr, SW_SHOWNORMAL);
}
