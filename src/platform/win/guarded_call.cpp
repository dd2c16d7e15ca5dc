#include "platform/win/guarded_call.h"

#include <quorvel/platform/platform.h>

// The compiler has no __try. On i686 the exception handlers are a list of frames on the stack, and
// the thread's block begins with its head, so a frame can easily be added. A 64-bit program has
// tables instead, which only the compiler can write.

namespace quorvel {

namespace {

bool CallCatching(const std::function<void()>& call) {
    try {
        call();
        return true;
    } catch (...) {
        return false;
    }
}

#if defined(__i386__)

struct Guard {
    EXCEPTION_REGISTRATION_RECORD record; // first: the handler gets its address
    void* resume[5];
};

EXCEPTION_REGISTRATION_RECORD* HeadOfFrames() {
    EXCEPTION_REGISTRATION_RECORD* head;
    __asm__ volatile("movl %%fs:0, %0" : "=r"(head) : : "memory");
    return head;
}
void SetHeadOfFrames(EXCEPTION_REGISTRATION_RECORD* head) {
    __asm__ volatile("movl %0, %%fs:0" : : "r"(head) : "memory");
}

EXCEPTION_DISPOSITION CDECL Resume(EXCEPTION_RECORD* exception, void* frame, CONTEXT*, void*) {
    constexpr DWORD kUnwinding = 0x2 | 0x4; // frames in front of another handler's frame
    if ((exception->ExceptionFlags & kUnwinding) != 0)
        return ExceptionContinueSearch;
    // Unwinding preserves only the two stack registers.
    Guard* volatile const guard = static_cast<Guard*>(frame);
    ::RtlUnwind(frame, nullptr, exception, nullptr);
    __builtin_longjmp(guard->resume, 1);
}

[[gnu::noinline]] bool CallWithGuard(const std::function<void()>& call) {
    Guard guard = {};
    guard.record.Next = HeadOfFrames();
    guard.record.Handler = reinterpret_cast<PEXCEPTION_ROUTINE>(&Resume);
    volatile bool isDone = false;
    if (__builtin_setjmp(guard.resume) == 0) {
        SetHeadOfFrames(&guard.record);
        isDone = CallCatching(call);
    }
    SetHeadOfFrames(guard.record.Next);
    return isDone;
}

#else

bool CallWithGuard(const std::function<void()>& call) {
    return CallCatching(call);
}

#endif

} // namespace

bool CallGuarded(const std::function<void()>& call) {
    return CallWithGuard(call);
}

} // namespace quorvel
