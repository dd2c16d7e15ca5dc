// The table behind HANDLE. Its slots have a generation, so that a closed or invented handle is
// detected and an invalid pointer is never used. Any thread.
#pragma once

#include <quorvel/platform/linux_api.h>

#include <memory>

namespace quorvel {

// The object behind a handle. It lives until its last handle is closed and the last operation on it
// has returned. So a handle may be closed while another thread uses it.
class HandleObject {
public:
    HandleObject() = default;
    HandleObject(const HandleObject&) = delete;
    HandleObject& operator=(const HandleObject&) = delete;
    virtual ~HandleObject() = default;
};

// Creates a handle to the object; null with the last error set when there is no memory.
HANDLE NewHandle(std::shared_ptr<HandleObject> object);

// The object of a handle. Null with ERROR_INVALID_HANDLE for an unknown handle or, in the second
// form, for an object of another kind.
std::shared_ptr<HandleObject> FindHandle(HANDLE handle);
template <class Kind>
std::shared_ptr<Kind> FindHandle(HANDLE handle) {
    auto object = std::dynamic_pointer_cast<Kind>(FindHandle(handle));
    if (object == nullptr)
        win32::SetLastError(ERROR_INVALID_HANDLE);
    return object;
}

} // namespace quorvel

namespace quorvel::win32 {

// A pseudo handle for the calling process; it needs no closing.
HANDLE GetCurrentProcess();

// Creates another handle to the same object, so a file's position is shared. Both processes must be
// GetCurrentProcess(). The rights do not change: DUPLICATE_SAME_ACCESS is required.
BOOL DuplicateHandle(HANDLE sourceProcess, HANDLE source, HANDLE targetProcess, HANDLE* target,
                     DWORD access, BOOL inherit, DWORD options);

} // namespace quorvel::win32
