// CStringList - implementation: a doubly linked list whose POSITION is the
// node itself, so walking, inserting and removing at a position are constant
// time as callers of the MFC list expect.
#include "framework/Collections.h"

#include <string.h>

CStringList::CStringList(const CStringList& other) { AddTail(other); }

CStringList& CStringList::operator=(const CStringList& other)
{
    if (this != &other) {
        RemoveAll();
        AddTail(other);
    }
    return *this;
}

void CStringList::RemoveAll()
{
    while (m_pHead)
        unlink(m_pHead);
}

CStringList::Node* CStringList::checked(Node* pNode)
{
    if (!pNode)
        AfxThrowInvalidArgException();
    return pNode;
}

CStringList::Node* CStringList::link(Node* pPrev, Node* pNext, const char* psz)
{
    Node* pNode = new Node{pNext, pPrev, CString(psz)};
    (pPrev ? pPrev->pNext : m_pHead) = pNode;
    (pNext ? pNext->pPrev : m_pTail) = pNode;
    ++m_nCount;
    return pNode;
}

void CStringList::unlink(Node* pNode)
{
    (pNode->pPrev ? pNode->pPrev->pNext : m_pHead) = pNode->pNext;
    (pNode->pNext ? pNode->pNext->pPrev : m_pTail) = pNode->pPrev;
    --m_nCount;
    delete pNode;
}

CString CStringList::RemoveHead()
{
    CString s = static_cast<CString&&>(checked(m_pHead)->data);
    unlink(m_pHead);
    return s;
}

CString CStringList::RemoveTail()
{
    CString s = static_cast<CString&&>(checked(m_pTail)->data);
    unlink(m_pTail);
    return s;
}

POSITION CStringList::AddHead(const char* psz) { return toPosition(link(nullptr, m_pHead, psz)); }

POSITION CStringList::AddTail(const char* psz) { return toPosition(link(m_pTail, nullptr, psz)); }

void CStringList::AddTail(const CStringList& other)
{
    // Counting first lets a list be appended to itself.
    int nCount = other.m_nCount;
    Node* pNode = other.m_pHead;
    for (int i = 0; i < nCount; ++i, pNode = pNode->pNext)
        AddTail(pNode->data);
}

POSITION CStringList::InsertBefore(POSITION pos, const char* psz)
{
    if (!pos)
        return AddHead(psz);
    Node* pAt = fromPosition(pos);
    return toPosition(link(pAt->pPrev, pAt, psz));
}

POSITION CStringList::InsertAfter(POSITION pos, const char* psz)
{
    if (!pos)
        return AddTail(psz);
    Node* pAt = fromPosition(pos);
    return toPosition(link(pAt, pAt->pNext, psz));
}

void CStringList::RemoveAt(POSITION pos) { unlink(checked(fromPosition(pos))); }

CString& CStringList::GetNext(POSITION& pos)
{
    Node* pNode = checked(fromPosition(pos));
    pos = toPosition(pNode->pNext);
    return pNode->data;
}

CString& CStringList::GetPrev(POSITION& pos)
{
    Node* pNode = checked(fromPosition(pos));
    pos = toPosition(pNode->pPrev);
    return pNode->data;
}

POSITION CStringList::Find(const char* psz, POSITION startAfter) const
{
    Node* pNode = startAfter ? fromPosition(startAfter)->pNext : m_pHead;
    for (; pNode; pNode = pNode->pNext) {
        if (strcmp(pNode->data.GetString(), psz ? psz : "") == 0)
            return toPosition(pNode);
    }
    return nullptr;
}

POSITION CStringList::FindIndex(int nIndex) const
{
    if (nIndex < 0 || nIndex >= m_nCount)
        return nullptr;
    Node* pNode = m_pHead;
    while (nIndex-- > 0)
        pNode = pNode->pNext;
    return toPosition(pNode);
}
