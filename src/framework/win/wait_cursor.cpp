#include <quorvel/framework/win/wait_cursor.h>

#include <utility>

namespace {

constinit int s_waits = 0;
constinit HCURSOR s_former = nullptr;

void ShowHourGlass() {
    ::SetCursor(::LoadCursorW(nullptr, IDC_WAIT));
}

void BeginWait() {
    if (s_waits++ == 0)
        s_former = ::GetCursor();
    ShowHourGlass();
}

void EndWait() {
    if (s_waits > 0 && --s_waits == 0)
        ::SetCursor(std::exchange(s_former, nullptr));
}

void RestoreWait() {
    if (s_waits > 0)
        ShowHourGlass();
}

} // namespace

void CCmdTarget::BeginWaitCursor() {
    BeginWait();
}
void CCmdTarget::EndWaitCursor() {
    EndWait();
}
void CCmdTarget::RestoreWaitCursor() {
    RestoreWait();
}

CWaitCursor::CWaitCursor() {
    BeginWait();
}
CWaitCursor::~CWaitCursor() {
    EndWait();
}
void CWaitCursor::Restore() {
    RestoreWait();
}
