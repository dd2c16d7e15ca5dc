// The table behind HANDLE: slots with a generation, so that a closed or invented handle is told
// from a live one and nothing is ever dereferenced that a caller made up. Any thread.
#pragma once

#include <quorvel/platform/linux_api.h>

#include <memory>

namespace quorvel {

// What a handle stands for. It lives until its last handle is closed and the last operation on it
// has returned, so closing a handle that another thread is using is safe.
class HandleObject {
public:
    HandleObject() = default;
    HandleObject(const HandleObject&) = delete;
    HandleObject& operator=(const HandleObject&) = delete;
    virtual ~HandleObject() = default;
};

// A new handle to the object; null with the last error set when there is no memory for it.
HANDLE NewHandle(std::shared_ptr<HandleObject> object);

// The object of a handle; null and ERROR_INVALID_HANDLE when there is none or, in the second form,
// when it is of another kind.
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

// The calling process, as a pseudo handle that needs no closing.
HANDLE GetCurrentProcess();

// Another handle to the same object, so a file's position is shared. Both processes must be
// GetCurrentProcess(). The rights are always the source's: DUPLICATE_SAME_ACCESS is required.
BOOL DuplicateHandle(HANDLE sourceProcess, HANDLE source, HANDLE targetProcess, HANDLE* target,
                     DWORD access, BOOL inherit, DWORD options);

} // namespace quorvel::win32
