// CPtrArray, CStringArray, CStringList - the framework's collections.
//
// Element access by index is bounds-checked: an index outside 0..size-1
// throws CInvalidArgException, as the MFC arrays do. Callers that treat a
// negative index as their own error rely on that.
#pragma once

#include "framework/CString.h"
#include "framework/Exceptions.h"

#include <vector>

// An opaque iterator into a CStringList.
struct __POSITION
{
};
typedef __POSITION* POSITION;

// The array behind CPtrArray and CStringArray: index-checked, growing on demand.
template <typename T>
class CFrameworkArray
{
public:
    int GetSize() const { return static_cast<int>(m_items.size()); }
    int GetCount() const { return GetSize(); }
    int GetUpperBound() const { return GetSize() - 1; }
    bool IsEmpty() const { return m_items.empty(); }

    // nGrowBy > 0: when the array has to grow, it grows by at least that many
    // elements (here: room for that many more is made at once, and growth
    // doubles from there, so appending stays linear).
    void SetSize(int nNewSize, int nGrowBy = -1)
    {
        if (nNewSize < 0)
            AfxThrowInvalidArgException();
        m_items.resize(static_cast<size_t>(nNewSize));
        if (nGrowBy > 0)
            m_items.reserve(static_cast<size_t>(nNewSize) + static_cast<size_t>(nGrowBy));
    }
    void RemoveAll() { m_items.clear(); }

    const T& GetAt(int nIndex) const { return m_items[checked(nIndex)]; }
    T& ElementAt(int nIndex) { return m_items[checked(nIndex)]; }
    void SetAt(int nIndex, const T& value) { m_items[checked(nIndex)] = value; }
    const T& operator[](int nIndex) const { return GetAt(nIndex); }
    T& operator[](int nIndex) { return ElementAt(nIndex); }
    T* GetData() { return m_items.data(); }
    const T* GetData() const { return m_items.data(); }

    int Add(const T& value)
    {
        m_items.push_back(value);
        return GetUpperBound();
    }
    void SetAtGrow(int nIndex, const T& value)
    {
        if (nIndex < 0)
            AfxThrowInvalidArgException();
        if (nIndex >= GetSize())
            m_items.resize(static_cast<size_t>(nIndex) + 1);
        m_items[static_cast<size_t>(nIndex)] = value;
    }
    void InsertAt(int nIndex, const T& value, int nCount = 1)
    {
        if (nIndex < 0 || nCount < 0)
            AfxThrowInvalidArgException();
        if (nIndex > GetSize())
            m_items.resize(static_cast<size_t>(nIndex));
        m_items.insert(m_items.begin() + nIndex, static_cast<size_t>(nCount), value);
    }
    void RemoveAt(int nIndex, int nCount = 1)
    {
        if (nIndex < 0 || nCount < 0 || nIndex + nCount > GetSize())
            AfxThrowInvalidArgException();
        m_items.erase(m_items.begin() + nIndex, m_items.begin() + nIndex + nCount);
    }
    int Append(const CFrameworkArray& src)
    {
        int nOld = GetSize();
        m_items.insert(m_items.end(), src.m_items.begin(), src.m_items.end());
        return nOld;
    }
    void Copy(const CFrameworkArray& src)
    {
        if (this != &src)
            m_items = src.m_items;
    }

protected:
    size_t checked(int nIndex) const
    {
        if (nIndex < 0 || nIndex >= GetSize())
            AfxThrowInvalidArgException();
        return static_cast<size_t>(nIndex);
    }

    std::vector<T> m_items;
};

// An array of pointers, as MFC's CPtrArray.
class CPtrArray : public CFrameworkArray<void*>
{
};

// An array of strings, as MFC's CStringArray.
class CStringArray : public CFrameworkArray<CString>
{
public:
    int Add(const char* psz) { return CFrameworkArray<CString>::Add(CString(psz)); }
    using CFrameworkArray<CString>::Add;
};

// A doubly linked list of strings walked by POSITION, as MFC's CStringList.
class CStringList
{
public:
    CStringList() = default;
    CStringList(const CStringList& other);
    CStringList& operator=(const CStringList& other);
    ~CStringList() { RemoveAll(); }

    int GetCount() const { return m_nCount; }
    int GetSize() const { return m_nCount; }
    bool IsEmpty() const { return m_nCount == 0; }
    void RemoveAll();

    // Head and tail of an empty list throw CInvalidArgException.
    CString& GetHead() { return checked(m_pHead)->data; }
    const CString& GetHead() const { return checked(m_pHead)->data; }
    CString& GetTail() { return checked(m_pTail)->data; }
    const CString& GetTail() const { return checked(m_pTail)->data; }
    CString RemoveHead();
    CString RemoveTail();

    POSITION AddHead(const char* psz);
    POSITION AddTail(const char* psz);
    void AddTail(const CStringList& other);
    POSITION InsertBefore(POSITION pos, const char* psz);
    POSITION InsertAfter(POSITION pos, const char* psz);
    void RemoveAt(POSITION pos);

    // Walking: GetNext returns the element at pos and moves pos on; NULL ends.
    POSITION GetHeadPosition() const { return toPosition(m_pHead); }
    POSITION GetTailPosition() const { return toPosition(m_pTail); }
    CString& GetNext(POSITION& pos);
    const CString& GetNext(POSITION& pos) const { return const_cast<CStringList*>(this)->GetNext(pos); }
    CString& GetPrev(POSITION& pos);
    const CString& GetPrev(POSITION& pos) const { return const_cast<CStringList*>(this)->GetPrev(pos); }
    CString& GetAt(POSITION pos) { return checked(fromPosition(pos))->data; }
    const CString& GetAt(POSITION pos) const { return checked(fromPosition(pos))->data; }
    void SetAt(POSITION pos, const char* psz) { GetAt(pos) = psz; }

    // Searching: Find compares case-sensitively, like the MFC list.
    POSITION Find(const char* psz, POSITION startAfter = nullptr) const;
    POSITION FindIndex(int nIndex) const;

private:
    struct Node
    {
        Node* pNext;
        Node* pPrev;
        CString data;
    };

    static Node* checked(Node* pNode);
    static POSITION toPosition(Node* pNode) { return reinterpret_cast<POSITION>(pNode); }
    static Node* fromPosition(POSITION pos) { return reinterpret_cast<Node*>(pos); }
    Node* link(Node* pPrev, Node* pNext, const char* psz);
    void unlink(Node* pNode);

    Node* m_pHead = nullptr;
    Node* m_pTail = nullptr;
    int m_nCount = 0;
};
