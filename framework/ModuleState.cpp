// Module handle and resource source of the library.
#include "framework/ModuleState.h"

#include <atomic>

// The linker places this symbol at the start of the library's own image, so
// its address is the module handle without waiting for DllMain.
extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace {
// NULL stands for "the program's executable", resolved when asked.
std::atomic<HINSTANCE> g_hResource{nullptr};
}

HINSTANCE tqm::LibraryInstance() { return reinterpret_cast<HINSTANCE>(&__ImageBase); }

HINSTANCE AfxGetResourceHandle()
{
    HINSTANCE h = g_hResource.load();
    return h ? h : ::GetModuleHandleA(nullptr);
}

void AfxSetResourceHandle(HINSTANCE hResource) { g_hResource.store(hResource); }

tqm::LibraryResourceScope::LibraryResourceScope() : m_hSaved(g_hResource.load())
{
    g_hResource.store(LibraryInstance());
}

tqm::LibraryResourceScope::~LibraryResourceScope() { g_hResource.store(m_hSaved); }
