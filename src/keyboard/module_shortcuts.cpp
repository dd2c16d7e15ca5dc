#include <quorvel/keyboard/module_shortcuts.h>

#include "keyboard/resource_reader.h"
#include "platform/win32.h"

#include <utility>

using namespace quorvel;

namespace {

struct Resource {
    CString name;
    std::span<const BYTE> bytes;
};

struct Listing {
    std::vector<Resource> resources;
    bool hasFailed = false; // no memory; nothing may be thrown through the system
};

BOOL CALLBACK AddResource(HMODULE module, LPCWSTR type, LPWSTR name, LONG_PTR parameter) {
    Listing& listing = *reinterpret_cast<Listing*>(parameter);
    try {
        Resource resource;
        if (IS_INTRESOURCE(name))
            resource.name.Format(_T("%u"), static_cast<unsigned>(reinterpret_cast<UINT_PTR>(name)));
        else
            resource.name = name;
        if (const HRSRC found = FindResourceW(module, name, type)) {
            const auto* const bytes =
                static_cast<const BYTE*>(LockResource(LoadResource(module, found)));
            if (bytes != nullptr)
                resource.bytes = {bytes, SizeofResource(module, found)};
        }
        listing.resources.push_back(std::move(resource)); // without bytes it is damaged
        return TRUE;
    } catch (...) {
        listing.hasFailed = true;
        return FALSE;
    }
}

std::vector<Resource> ResourcesOf(HMODULE module, LPCWSTR type) {
    Listing listing;
    EnumResourceNamesW(module, type, AddResource, reinterpret_cast<LONG_PTR>(&listing));
    if (listing.hasFailed)
        throw std::bad_alloc();
    return std::move(listing.resources);
}

} // namespace

BOOL AfxGetModuleShortcuts(HMODULE module, std::vector<CKeyboardMappingScheme>& schemes,
                           int& damaged) {
    damaged = 0;
    schemes.clear();
    std::map<unsigned int, CString> labels;
    for (const Resource& menu : ResourcesOf(module, RT_MENU))
        damaged += !ReadMenuLabels(menu.bytes, labels);
    for (const Resource& table : ResourcesOf(module, RT_ACCELERATOR)) {
        std::vector<ACCEL> entries;
        if (!ReadAccelerators(table.bytes, entries)) {
            ++damaged;
            continue;
        }
        std::vector<CKeyboardShortcut> shortcuts;
        for (const ACCEL& entry : entries) {
            CKeyboardShortcut& shortcut = shortcuts.emplace_back(entry, FALSE);
            if (const auto label = labels.find(entry.cmd); label != labels.end())
                shortcut.SetCommandText(label->second);
        }
        schemes.emplace_back(table.name, nullptr).SetKeyboardShortcuts(shortcuts);
    }
    return !schemes.empty();
}
