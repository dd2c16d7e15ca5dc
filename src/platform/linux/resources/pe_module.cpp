#include "platform/linux/resources/pe_module.h"

#include "platform/case_fold.h"
#include "platform/linux/files/path.h"
#include "platform/linux/locale/locale.h"
#include "platform/linux/resources/pe_file.h"
#include "platform/linux/system/system_error.h"

#include <dlfcn.h>
#include <limits.h>
#include <link.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <mutex>
#include <new>
#include <shared_mutex>
#include <utility>
#include <vector>

extern "C" const BYTE quorvel_resource_image[];
extern "C" const BYTE quorvel_resource_image_end[];

namespace quorvel {

namespace {

// The PE file that is compiled into the library.
std::span<const BYTE> OwnImage() {
    return {quorvel_resource_image, quorvel_resource_image_end};
}

class Module {
public:
    // For an image in memory, which may be empty.
    Module(std::u16string path, std::span<const BYTE> image) : m_path(std::move(path)) {
        const auto head = ReadPeHead(image);
        if (head)
            m_resources = PeResources(
                image.subspan(head->resources.fileOffset, head->resources.size), head->resources);
    }
    Module(std::u16string path, PeFile file, bool isDataFile)
        : m_path(std::move(path)), m_isDataFile(isDataFile), m_file(std::move(file)),
          m_resources(m_file.section, m_file.head.resources) {}

    // As on Windows, the lowest bit of the handle marks a file that was loaded as data.
    HMODULE Handle() const {
        return reinterpret_cast<HMODULE>(reinterpret_cast<UINT_PTR>(this) + (m_isDataFile ? 1 : 0));
    }
    const std::u16string& Path() const { return m_path; }
    bool IsDataFile() const { return m_isDataFile; }
    const PeResources& Resources() const { return m_resources; }
    const PeStringTable& Strings() const {
        std::call_once(m_indexed,
                       [this] { m_strings = PeStringTable(m_resources, DefaultLanguages()); });
        return m_strings;
    }

    int references = 1; // guarded by the list's lock

private:
    const std::u16string m_path; // canonical
    const bool m_isDataFile = false;
    const PeFile m_file;
    PeResources m_resources;
    mutable std::once_flag m_indexed;
    mutable PeStringTable m_strings;
};

std::string ProgramPath() {
    char path[PATH_MAX];
    const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
    return std::string(path, length > 0 ? static_cast<std::size_t>(length) : 0);
}

// The file that this code was loaded from; empty when it is part of the program.
std::string LibraryPath() {
    Dl_info info;
    void* map = nullptr;
    if (dladdr1(quorvel_resource_image, &info, &map, RTLD_DL_LINKMAP) == 0 || map == nullptr)
        return {};
    const char* name = static_cast<link_map*>(map)->l_name; // empty for the program itself
    const std::string path = CanonicalPath(name);
    return path.empty() ? name : path; // a replaced file is still not the program
}

// All modules of the process. Two always exist; the lock guards the loaded ones.
class ModuleList {
public:
    ModuleList() {
        const std::u16string program = FromSystemPath(ProgramPath());
        const std::u16string library = FromSystemPath(LibraryPath());
        const bool isOneFile = library.empty();
        m_program = std::make_unique<Module>(program, isOneFile ? OwnImage() : std::span<BYTE>());
        if (!isOneFile)
            m_library = std::make_unique<Module>(library, OwnImage());
    }

    const Module& Program() const { return *m_program; }
    const Module& Own() const { return m_library != nullptr ? *m_library : *m_program; }

    // Calls the operation with the module, which stays loaded. False for an unknown handle.
    template <class Operation>
    bool Use(HMODULE handle, Operation operation) const {
        if (const Module* fixed = FindFixed(handle)) {
            operation(*fixed);
            return true;
        }
        const std::shared_lock lock(m_mutex);
        for (const auto& module : m_loaded)
            if (module->Handle() == handle) {
                operation(*module);
                return true;
            }
        return false;
    }

    // Adds a reference to the module of a file that is already loaded. A file loaded as a module is
    // also used for requests of its data.
    HMODULE Share(const std::u16string& path, bool isDataFile) {
        const std::unique_lock lock(m_mutex);
        return ShareLocked(path, isDataFile);
    }

    HMODULE Add(std::u16string path, PeFile file, bool isDataFile) {
        auto module = std::make_unique<Module>(path, std::move(file), isDataFile);
        const std::unique_lock lock(m_mutex);
        if (const HMODULE other = ShareLocked(path, isDataFile))
            return other; // another thread was faster
        m_loaded.push_back(std::move(module));
        return m_loaded.back()->Handle();
    }

    bool Release(HMODULE handle) {
        std::unique_ptr<Module> last; // destroyed after the lock is released
        const std::unique_lock lock(m_mutex);
        const auto module =
            std::find_if(m_loaded.begin(), m_loaded.end(),
                         [handle](const auto& each) { return each->Handle() == handle; });
        if (module == m_loaded.end())
            return false;
        if (--(*module)->references == 0) {
            last = std::move(*module);
            m_loaded.erase(module);
        }
        return true;
    }

    // Finds a module (not a data file) by a test of its path; null if there is none.
    template <class Test>
    HMODULE FindModule(Test test) const {
        for (const Module* fixed : {m_program.get(), m_library.get()})
            if (fixed != nullptr && test(fixed->Path()))
                return fixed->Handle();
        const std::shared_lock lock(m_mutex);
        for (const auto& module : m_loaded)
            if (!module->IsDataFile() && test(module->Path()))
                return module->Handle();
        return nullptr;
    }

private:
    const Module* FindFixed(HMODULE handle) const {
        if (handle == nullptr || handle == m_program->Handle())
            return m_program.get();
        return m_library != nullptr && handle == m_library->Handle() ? m_library.get() : nullptr;
    }

    HMODULE ShareLocked(const std::u16string& path, bool isDataFile) {
        for (const auto& module : m_loaded)
            if (module->Path() == path && (isDataFile || !module->IsDataFile())) {
                ++module->references;
                return module->Handle();
            }
        return nullptr;
    }

    std::unique_ptr<const Module> m_program;
    std::unique_ptr<const Module> m_library; // null when it is part of the program
    mutable std::shared_mutex m_mutex;
    std::vector<std::unique_ptr<Module>> m_loaded; // in the order of loading
};

ModuleList& Modules() { // never destroyed: texts may be needed until the end
    static ModuleList& list = *new ModuleList;
    return list;
}

bool HasFolder(std::u16string_view name) {
    return name.find_first_of(u"/\\") != std::u16string_view::npos;
}

std::u16string_view FilePart(std::u16string_view path) {
    return path.substr(path.find_last_of(u"/\\") + 1);
}

// As on Windows: a name without an extension gets ".dll"; a final dot prevents that and is removed.
std::u16string WithExtension(std::u16string name) {
    const std::u16string_view file = FilePart(name);
    if (!file.empty() && file.back() == u'.')
        name.pop_back();
    else if (file.find(u'.') == std::u16string_view::npos)
        name += u".dll";
    return name;
}

// The canonical path of an existing file. A name without a folder is searched in the program's
// folder and then in the current one.
std::u16string FindFile(const std::u16string& name) {
    std::vector<std::u16string> candidates;
    if (!HasFolder(name)) {
        const std::u16string& program = Modules().Program().Path();
        candidates.push_back(program.substr(0, program.rfind(u'/') + 1) + name);
    }
    candidates.push_back(name);
    for (const std::u16string& candidate : candidates) {
        std::string path;
        if (ToSystemPath(candidate.c_str(), path))
            path = CanonicalPath(path);
        if (!path.empty())
            return FromSystemPath(path);
    }
    return {};
}

HMODULE Load(const WCHAR* name, bool isDataFile) {
    const std::u16string path = FindFile(WithExtension(name));
    DWORD error = isDataFile ? ERROR_FILE_NOT_FOUND : ERROR_MOD_NOT_FOUND;
    if (!path.empty()) {
        if (const HMODULE module = Modules().Share(path, isDataFile))
            return module;
        PeFile file;
        error = ReadPeFile(path.c_str(), file);
        if (error == ERROR_SUCCESS && file.head.hasCode && !isDataFile)
            error = ERROR_BAD_EXE_FORMAT; // it contains code, which cannot run here
        if (error == ERROR_SUCCESS)
            return Modules().Add(path, std::move(file), isDataFile);
        if (error == ERROR_ACCESS_DENIED && !isDataFile)
            error = ERROR_MOD_NOT_FOUND; // a folder
    }
    win32::SetLastError(error);
    return nullptr;
}

// Reads a resource name, which is a number or a text in one argument. Returns false for "#" with a
// number that is too large.
bool ParseResourceName(const WCHAR* argument, ResourceName& name) {
    if (IS_INTRESOURCE(argument)) {
        name.number = static_cast<WORD>(reinterpret_cast<UINT_PTR>(argument));
        return true;
    }
    if (argument[0] != u'#') {
        name.text = argument;
        return true;
    }
    DWORD number = 0;
    for (const WCHAR* digit = argument + 1; *digit >= u'0' && *digit <= u'9'; ++digit) {
        number = number * 10 + static_cast<DWORD>(*digit - u'0');
        if (number > 0xffff)
            return false;
    }
    name.number = static_cast<WORD>(number);
    return true;
}

} // namespace

HMODULE OwnModule() {
    return Modules().Own().Handle();
}

const PeResources* FindOwnResources(const WCHAR* path) {
    std::string bytes;
    const Module& own = Modules().Own();
    const bool isOwn =
        ToSystemPath(path, bytes) && FromSystemPath(CanonicalPath(bytes)) == own.Path();
    return isOwn ? &own.Resources() : nullptr;
}

LanguageChoice DefaultLanguages() {
    constexpr WORD kEnglishUnitedStates = 0x0409;
    static const WORD user = win32::GetUserDefaultLangID();
    static const WORD languages[] = {LANG_NEUTRAL, user, PRIMARYLANGID(user), kEnglishUnitedStates};
    return {languages, true};
}

} // namespace quorvel

namespace quorvel::win32 {

HMODULE LoadLibraryExW(LPCWSTR name, HANDLE reserved, DWORD flags) {
    constexpr DWORD kAsData = LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE;
    if (name == nullptr || reserved != nullptr || (flags & ~kAsData) != 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    try {
        return Load(name, flags != 0);
    } catch (const std::bad_alloc&) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
}

HMODULE LoadLibraryW(LPCWSTR name) {
    return LoadLibraryExW(name, nullptr, 0);
}

BOOL FreeLibrary(HMODULE module) {
    if (module == nullptr)
        return FailWith(ERROR_INVALID_HANDLE);
    if (module == Modules().Program().Handle())
        return TRUE; // as on Windows, no effect
    if (module == Modules().Own().Handle())
        return FailWith(ERROR_ACCESS_DENIED);
    if (Modules().Release(module))
        return TRUE;
    const bool isMarked = (reinterpret_cast<UINT_PTR>(module) & 3) != 0;
    return FailWith(isMarked ? ERROR_BAD_EXE_FORMAT : ERROR_MOD_NOT_FOUND);
}

HMODULE GetModuleHandleW(LPCWSTR name) {
    if (name == nullptr)
        return Modules().Program().Handle();
    HMODULE module = nullptr;
    try {
        const std::u16string file = WithExtension(name);
        const std::u16string path = HasFolder(file) ? FindFile(file) : std::u16string();
        module = Modules().FindModule([&](const std::u16string& each) {
            return path.empty() ? EqualIgnoringCase(FilePart(each), file) : each == path;
        });
    } catch (const std::bad_alloc&) {
    }
    if (module == nullptr)
        SetLastError(ERROR_MOD_NOT_FOUND);
    return module;
}

DWORD GetModuleFileNameW(HMODULE module, LPWSTR buffer, DWORD size) {
    DWORD result = 0;
    DWORD error = ERROR_MOD_NOT_FOUND;
    Modules().Use(module, [&](const Module& found) {
        if (found.IsDataFile())
            return;
        const std::u16string& path = found.Path();
        const bool fits = path.size() < size;
        error = fits ? ERROR_SUCCESS : ERROR_INSUFFICIENT_BUFFER;
        if (size == 0)
            return;
        const std::size_t copied = path.copy(buffer, fits ? path.size() : size - 1);
        buffer[copied] = 0;
        result = fits ? static_cast<DWORD>(path.size()) : size;
    });
    SetLastError(error);
    return result;
}

HRSRC FindResourceW(HMODULE module, LPCWSTR name, LPCWSTR type) {
    ResourceName typeName;
    ResourceName resourceName;
    if (!ParseResourceName(type, typeName) || !ParseResourceName(name, resourceName)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    HRSRC result = nullptr;
    DWORD error = ERROR_RESOURCE_DATA_NOT_FOUND;
    Modules().Use(module, [&](const Module& found) {
        if (const auto entry =
                found.Resources().Find(typeName, resourceName, DefaultLanguages(), error))
            result = reinterpret_cast<HRSRC>(const_cast<BYTE*>(found.Resources().Address(*entry)));
    });
    if (result == nullptr)
        SetLastError(error);
    return result;
}

namespace {

// The bytes of a resource of the module; empty with the last error set when it does not exist.
std::span<const BYTE> DataOf(HMODULE module, HRSRC resource) {
    if (resource == nullptr)
        return {}; // as on Windows, no error
    std::optional<std::span<const BYTE>> data;
    Modules().Use(module, [&](const Module& found) {
        if (const auto place = found.Resources().Place(resource))
            data = found.Resources().Data(*place);
    });
    if (!data)
        SetLastError(ERROR_RESOURCE_DATA_NOT_FOUND);
    return data.value_or(std::span<const BYTE>());
}

} // namespace

HGLOBAL LoadResource(HMODULE module, HRSRC resource) {
    return const_cast<BYTE*>(DataOf(module, resource).data());
}

DWORD SizeofResource(HMODULE module, HRSRC resource) {
    return static_cast<DWORD>(DataOf(module, resource).size());
}

BOOL EnumResourceNamesW(HMODULE module, LPCWSTR type, ENUMRESNAMEPROCW procedure,
                        LONG_PTR parameter) {
    ResourceName typeName;
    if (procedure == nullptr || !ParseResourceName(type, typeName))
        return FailWith(ERROR_INVALID_PARAMETER);
    std::vector<PeResources::Name> names;
    DWORD error = ERROR_RESOURCE_DATA_NOT_FOUND;
    try { // No lock is held during the call, because the procedure may use the module.
        Modules().Use(
            module, [&](const Module& found) { names = found.Resources().Names(typeName, error); });
    } catch (const std::bad_alloc&) {
        return FailWith(ERROR_NOT_ENOUGH_MEMORY);
    }
    if (names.empty())
        return FailWith(error);
    for (PeResources::Name& name : names) {
        LPWSTR const argument =
            name.text.empty() ? MAKEINTRESOURCEW(name.number) : name.text.data();
        if (!procedure(module, type, argument, parameter))
            return FailWith(ERROR_RESOURCE_ENUM_USER_STOP);
    }
    return TRUE;
}

LPVOID LockResource(HGLOBAL resource) {
    return resource;
}

int LoadStringW(HINSTANCE module, UINT id, LPWSTR buffer, int size) try {
    if (buffer == nullptr || size < 0)
        return 0;
    int result = 0;
    DWORD error = ERROR_RESOURCE_DATA_NOT_FOUND;
    Modules().Use(module, [&](const Module& found) {
        const auto text = found.Strings().Find(static_cast<WORD>(id), error);
        if (!text)
            return;
        error = ERROR_SUCCESS;
        if (size == 0) { // Deliberate: the buffer then receives the text's address.
            const WCHAR* place = text->data();
            std::memcpy(buffer, &place, sizeof place);
            result = static_cast<int>(text->size());
            return;
        }
        const std::size_t copied = text->copy(buffer, static_cast<std::size_t>(size) - 1);
        buffer[copied] = 0;
        result = static_cast<int>(copied);
    });
    if (error != ERROR_SUCCESS)
        SetLastError(error);
    return result;
} catch (const std::bad_alloc&) {
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return 0;
}

} // namespace quorvel::win32
