#include "platform/linux/net/posix_sockets.h"

#include "platform/linux/net/host_lookup.h"

#include <quorvel/platform/linux_api.h>

#include "platform/linux/net/socket.h"
#include "platform/linux/net/socket_calls.h"

#include <atomic>
#include <cstring>
#include <limits.h>
#include <map>
#include <memory>
#include <mutex>
#include <system_error>
#include <thread>

namespace quorvel {

namespace {

struct Request {
    HWND window;
    UINT message;
    std::string name;
    char* buffer;
    int length;
    HostResolver resolver;
};

struct Requests {
    std::mutex mutex;
    std::map<DWORD, std::shared_ptr<const Request>> pending;
    DWORD last = 0;
    HostResolver resolver;
};

// Never destroyed: the thread of an abandoned look-up may outlive static objects.
Requests& All() {
    static Requests& requests = *new Requests;
    return requests;
}

int LookupError(int error) {
    switch (error) {
    case EAI_AGAIN:
        return WSATRY_AGAIN;
    case EAI_FAIL:
        return WSANO_RECOVERY;
    case EAI_MEMORY:
    case EAI_SYSTEM:
        return WSAENOBUFS;
    default:
        return WSAHOST_NOT_FOUND;
    }
}

int ResolveBySystem(const std::string& name, std::vector<ULONG>& addresses) {
    addrinfo hints = {};
    hints.ai_family = AF_INET;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    char thisHost[HOST_NAME_MAX + 1] = {};
    if (name.empty())
        gethostname(thisHost, sizeof thisHost - 1);
    const int error = getaddrinfo(name.empty() ? thisHost : name.c_str(), nullptr, &hints, &found);
    if (error != 0)
        return LookupError(error);
    for (const addrinfo* each = found; each != nullptr; each = each->ai_next)
        addresses.push_back(reinterpret_cast<const sockaddr_in*>(each->ai_addr)->sin_addr.s_addr);
    freeaddrinfo(found);
    return 0;
}

// Writes the hostent and all data that it points to, and sets the length. Returns false and writes
// nothing if there is no room.
bool WriteHost(const Request& request, const std::vector<ULONG>& addresses, std::size_t& length) {
    const std::size_t pointers = addresses.size() + 2; // each list has a null at its end
    const std::size_t fixed = sizeof(hostent) + pointers * sizeof(char*);
    length = fixed + addresses.size() * sizeof(ULONG) + request.name.size() + 1;
    if (length > static_cast<std::size_t>(request.length))
        return false;
    std::memset(request.buffer, 0, length);
    char** const list = reinterpret_cast<char**>(request.buffer + sizeof(hostent));
    char* address = request.buffer + fixed;
    for (std::size_t i = 0; i < addresses.size(); ++i, address += sizeof(ULONG)) {
        std::memcpy(address, &addresses[i], sizeof(ULONG));
        list[i] = address;
    }
    std::memcpy(address, request.name.c_str(), request.name.size() + 1);
    const hostent host = {address, list + addresses.size() + 1, AF_INET, sizeof(ULONG), list};
    std::memcpy(request.buffer, &host, sizeof host);
    return true;
}

void Answer(DWORD id, const std::shared_ptr<const Request>& request) {
    std::vector<ULONG> addresses;
    int error = request->resolver(request->name, addresses);
    if (error == 0 && addresses.empty())
        error = WSANO_DATA;
    std::size_t length = 0;
    Requests& all = All();
    // Locked: when a cancellation has returned, the buffer is no longer ours.
    const std::lock_guard lock(all.mutex);
    if (all.pending.erase(id) == 0)
        return;
    if (error == 0 && !WriteHost(*request, addresses, length))
        error = WSAENOBUFS;
    win32::PostMessageW(request->window, request->message, id,
                        MAKELPARAM(static_cast<WORD>(length), static_cast<WORD>(error)));
}

HANDLE Refuse(int error) {
    win32::SetLastError(static_cast<DWORD>(error));
    return nullptr;
}

} // namespace

void SetHostResolver(HostResolver resolver) {
    Requests& all = All();
    const std::lock_guard lock(all.mutex);
    all.resolver = std::move(resolver);
}

} // namespace quorvel

namespace quorvel::win32 {

HANDLE WSAAsyncGetHostByName(HWND window, UINT message, const char* name, char* buffer,
                             int length) {
    if (!IsWinsockStarted())
        return Refuse(WSANOTINITIALISED);
    if (!IsWindow(window) || name == nullptr || buffer == nullptr || length < 0)
        return Refuse(WSAEINVAL);
    Requests& all = All();
    const std::lock_guard lock(all.mutex);
    const auto request = std::make_shared<const Request>(
        Request{window, message, name, buffer, length,
                all.resolver ? all.resolver : HostResolver(ResolveBySystem)});
    do
        ++all.last;
    while (all.last == 0 || all.pending.contains(all.last));
    const DWORD id = all.last;
    all.pending.emplace(id, request);
    try {
        std::thread([id, request] { Answer(id, request); }).detach();
    } catch (const std::system_error&) {
        all.pending.erase(id);
        return Refuse(WSAENOBUFS);
    }
    return reinterpret_cast<HANDLE>(UINT_PTR{id});
}

int WSACancelAsyncRequest(HANDLE request) {
    const UINT_PTR id = reinterpret_cast<UINT_PTR>(request);
    Requests& all = All();
    const std::lock_guard lock(all.mutex);
    if (id <= all.last && all.pending.erase(static_cast<DWORD>(id)) != 0)
        return 0;
    SetLastError(id != 0 && id <= all.last ? WSAEALREADY : WSAEINVAL);
    return SOCKET_ERROR;
}

} // namespace quorvel::win32
