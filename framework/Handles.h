// UniqueHandle, UniqueFile, UniqueFind, UniqueKey, UniqueGlobal, GlobalLock,
// UniqueView, UniqueGdiObject, UniqueLocalMemory - owners for system handles.
//
// Each owner closes its handle when it goes out of scope, so no path of a
// function can leak one. They move but do not copy; release() gives the
// handle up, reset() closes the current one and takes another.
#pragma once

#include <windows.h>

#include <utility>

namespace tqm {

// Traits: Invalid() is the "no handle" value, Close() releases a valid one.
template <typename Traits>
class UniqueResource
{
public:
    using Handle = typename Traits::Handle;

    UniqueResource() noexcept : m_h(Traits::Invalid()) {}
    explicit UniqueResource(Handle h) noexcept : m_h(h) {}
    UniqueResource(UniqueResource&& other) noexcept : m_h(other.release()) {}
    UniqueResource& operator=(UniqueResource&& other) noexcept
    {
        if (this != &other)
            reset(other.release());
        return *this;
    }
    UniqueResource(const UniqueResource&) = delete;
    UniqueResource& operator=(const UniqueResource&) = delete;
    ~UniqueResource() { reset(); }

    Handle get() const noexcept { return m_h; }
    bool valid() const noexcept { return m_h != Traits::Invalid(); }
    explicit operator bool() const noexcept { return valid(); }

    Handle release() noexcept { return std::exchange(m_h, Traits::Invalid()); }
    void reset(Handle h = Traits::Invalid()) noexcept
    {
        Handle old = std::exchange(m_h, h);
        if (old != Traits::Invalid())
            Traits::Close(old);
    }
    // For functions that hand a handle back through a pointer.
    Handle* put() noexcept
    {
        reset();
        return &m_h;
    }

private:
    Handle m_h;
};

struct KernelHandleTraits  // events, mappings, processes, threads: NULL when absent
{
    using Handle = HANDLE;
    static Handle Invalid() noexcept { return nullptr; }
    static void Close(Handle h) noexcept { ::CloseHandle(h); }
};

struct FileHandleTraits  // CreateFile: INVALID_HANDLE_VALUE when absent
{
    using Handle = HANDLE;
    static Handle Invalid() noexcept { return INVALID_HANDLE_VALUE; }
    static void Close(Handle h) noexcept { ::CloseHandle(h); }
};

struct FindHandleTraits
{
    using Handle = HANDLE;
    static Handle Invalid() noexcept { return INVALID_HANDLE_VALUE; }
    static void Close(Handle h) noexcept { ::FindClose(h); }
};

struct RegKeyTraits
{
    using Handle = HKEY;
    static Handle Invalid() noexcept { return nullptr; }
    static void Close(Handle h) noexcept { ::RegCloseKey(h); }
};

struct GlobalMemoryTraits
{
    using Handle = HGLOBAL;
    static Handle Invalid() noexcept { return nullptr; }
    static void Close(Handle h) noexcept { ::GlobalFree(h); }
};

struct LocalMemoryTraits  // buffers the system allocates for us, such as FormatMessage's
{
    using Handle = HLOCAL;
    static Handle Invalid() noexcept { return nullptr; }
    static void Close(Handle h) noexcept { ::LocalFree(h); }
};

struct MappedViewTraits
{
    using Handle = void*;
    static Handle Invalid() noexcept { return nullptr; }
    static void Close(Handle h) noexcept { ::UnmapViewOfFile(h); }
};

struct GdiObjectTraits
{
    using Handle = HGDIOBJ;
    static Handle Invalid() noexcept { return nullptr; }
    static void Close(Handle h) noexcept { ::DeleteObject(h); }
};

struct LibraryTraits
{
    using Handle = HMODULE;
    static Handle Invalid() noexcept { return nullptr; }
    static void Close(Handle h) noexcept { ::FreeLibrary(h); }
};

using UniqueHandle = UniqueResource<KernelHandleTraits>;
using UniqueFile = UniqueResource<FileHandleTraits>;
using UniqueFind = UniqueResource<FindHandleTraits>;
using UniqueKey = UniqueResource<RegKeyTraits>;
using UniqueGlobal = UniqueResource<GlobalMemoryTraits>;
using UniqueLocalMemory = UniqueResource<LocalMemoryTraits>;
using UniqueView = UniqueResource<MappedViewTraits>;
using UniqueGdiObject = UniqueResource<GdiObjectTraits>;
using UniqueLibrary = UniqueResource<LibraryTraits>;

// Keeps a global memory block locked for the lifetime of the object.
class GlobalLock
{
public:
    explicit GlobalLock(HGLOBAL h) noexcept : m_h(h), m_p(h ? ::GlobalLock(h) : nullptr) {}
    GlobalLock(const GlobalLock&) = delete;
    GlobalLock& operator=(const GlobalLock&) = delete;
    ~GlobalLock()
    {
        if (m_p)
            ::GlobalUnlock(m_h);
    }
    void* get() const noexcept { return m_p; }
    template <typename T>
    T* as() const noexcept
    {
        return static_cast<T*>(m_p);
    }

private:
    HGLOBAL m_h;
    void* m_p;
};

}  // namespace tqm
