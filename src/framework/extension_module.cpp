#include <quorvel/framework/extension_module.h>

#include "framework/message_map_cache.h"
#include "framework/string_resources.h"
#include "platform/win32.h"

#include <mutex>

IMPLEMENT_DYNAMIC(CDynLinkLibrary, CCmdTarget)

namespace {

constinit CDynLinkLibrary* s_chain = nullptr; // newest first; guarded by ChainMutex
constinit HINSTANCE s_resources = nullptr;    // null: the program itself

// Never destroyed: modules attach and detach before and after the life of static objects.
std::mutex& ChainMutex() {
    static std::mutex& s_mutex = *new std::mutex;
    return s_mutex;
}

// The resource module with this index in the search; null after the last. Skips entries without a
// module, because null means the program itself.
HINSTANCE ChainResources(int index, BOOL system) {
    const std::lock_guard lock(ChainMutex());
    for (const CDynLinkLibrary* each = s_chain; each != nullptr; each = each->m_pNextDLL)
        if (each->m_hResource != nullptr && (each->m_bSystem != FALSE) == (system != FALSE) &&
            index-- == 0)
            return each->m_hResource;
    return nullptr;
}

// Searches a module without holding the lock. The loader has its own lock, and it holds that during
// the attach and detach calls, which change the chain.
template <class HasResource>
HINSTANCE FindModule(HasResource has) {
    if (HINSTANCE program = AfxGetResourceHandle(); has(program))
        return program;
    for (const BOOL system : {FALSE, TRUE}) {
        HINSTANCE module;
        for (int index = 0; (module = ChainResources(index, system)) != nullptr; ++index)
            if (has(module))
                return module;
    }
    return nullptr;
}

} // namespace

BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE module) {
    if (module == nullptr)
        return FALSE;
    if (!state.bInitialized)
        state = {TRUE, module, module};
    return TRUE;
}

void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL all) {
    if (!state.bInitialized)
        return;
    const auto next = [&]() -> CDynLinkLibrary* {
        const std::lock_guard lock(ChainMutex());
        CDynLinkLibrary* each = s_chain;
        while (each != nullptr && !all && each->m_hModule != state.hModule)
            each = each->m_pNextDLL;
        return each;
    };
    while (const CDynLinkLibrary* entry = next())
        delete entry;
    ++quorvel::g_detachedModules;
    state = {};
}

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL system)
    : m_hModule(state.hModule), m_hResource(state.hResource), m_bSystem(system) {
    const std::lock_guard lock(ChainMutex());
    m_pNextDLL = s_chain;
    s_chain = this;
}

CDynLinkLibrary::~CDynLinkLibrary() {
    const std::lock_guard lock(ChainMutex());
    CDynLinkLibrary** link = &s_chain;
    while (*link != nullptr && *link != this)
        link = &(*link)->m_pNextDLL;
    if (*link != nullptr)
        *link = m_pNextDLL;
}

HINSTANCE AfxGetResourceHandle() {
    return s_resources != nullptr ? s_resources : GetModuleHandleW(nullptr);
}

void AfxSetResourceHandle(HINSTANCE resources) {
    s_resources = resources;
}

HINSTANCE AfxFindResourceHandle(const WCHAR* name, const WCHAR* type) {
    HINSTANCE found =
        FindModule([&](HINSTANCE module) { return FindResourceW(module, name, type) != nullptr; });
    return found != nullptr ? found : AfxGetResourceHandle();
}

HINSTANCE AfxFindStringResourceHandle(UINT id) {
    // A string table has 16 texts, so its presence does not mean that this text exists.
    return FindModule([&](HINSTANCE module) { return !quorvel::FindString(module, id).empty(); });
}

namespace quorvel {

std::basic_string_view<WCHAR> FindString(HINSTANCE module, UINT id) {
    LPCWSTR text = nullptr; // size 0 returns a pointer to the text
    const int length = LoadStringW(module, id, reinterpret_cast<LPWSTR>(&text), 0);
    return length > 0 ? std::basic_string_view<WCHAR>(text, static_cast<std::size_t>(length))
                      : std::basic_string_view<WCHAR>();
}

std::basic_string_view<WCHAR> FindString(UINT id) {
    std::basic_string_view<WCHAR> text;
    FindModule([&](HINSTANCE module) {
        text = FindString(module, id);
        return !text.empty();
    });
    return text;
}

} // namespace quorvel
