#include <quorvel/framework/win/dc.h>

#include <quorvel/framework/exceptions.h>
#include <quorvel/framework/wnd.h>

#include "framework/handle_map.h"

#include <utility>

IMPLEMENT_DYNAMIC(CDC, CObject)
IMPLEMENT_DYNAMIC(CClientDC, CDC)
IMPLEMENT_DYNAMIC(CWindowDC, CDC)
IMPLEMENT_DYNAMIC(CPaintDC, CDC)

namespace {

struct DcTraits {
    typedef CDC Object;
    typedef HDC Handle;
    static CDC* Make(HDC handle) {
        CDC* const dc = new CDC;
        dc->m_hDC = handle;
        return dc;
    }
    static void Release(CDC* dc) { dc->m_hDC = nullptr; }
    static bool IsAlive(HDC dc) { return ::GetObjectType(dc) != 0; }
};

HWND WindowOf(const CWnd* wnd) {
    return wnd != nullptr ? wnd->m_hWnd : nullptr;
}

void AttachOrThrow(CDC& dc, HDC handle) {
    if (!dc.Attach(handle))
        AfxThrowResourceException();
}

} // namespace

CDC::CDC() : m_hDC(nullptr) {}

CDC::~CDC() {
    DeleteDC();
}

CDC* CDC::FromHandle(HDC dc) {
    return dc != nullptr ? quorvel::ThreadState<quorvel::HandleMap<DcTraits>>().FindOrMake(dc)
                         : nullptr;
}

BOOL CDC::Attach(HDC dc) {
    if (dc == nullptr || m_hDC != nullptr)
        return FALSE;
    m_hDC = dc;
    return TRUE;
}

HDC CDC::Detach() {
    return std::exchange(m_hDC, nullptr);
}

BOOL CDC::DeleteDC() {
    const HDC dc = Detach();
    return dc != nullptr && ::DeleteDC(dc);
}

void CDC::FillSolidRect(const RECT* rect, COLORREF color) {
    ::SetBkColor(m_hDC, color);
    ::ExtTextOutW(m_hDC, 0, 0, ETO_OPAQUE, rect, nullptr, 0, nullptr);
}

CSize CDC::GetTextExtent(const CString& text) const {
    CSize size;
    ::GetTextExtentPoint32W(m_hDC, text.GetString(), text.GetLength(), &size);
    return size;
}

CClientDC::CClientDC(CWnd* wnd) : m_window(WindowOf(wnd)) {
    AttachOrThrow(*this, ::GetDC(m_window));
}

CClientDC::~CClientDC() {
    ::ReleaseDC(m_window, Detach());
}

CWindowDC::CWindowDC(CWnd* wnd) : m_window(WindowOf(wnd)) {
    AttachOrThrow(*this, ::GetWindowDC(m_window));
}

CWindowDC::~CWindowDC() {
    ::ReleaseDC(m_window, Detach());
}

CPaintDC::CPaintDC(CWnd* wnd) : m_window(WindowOf(wnd)) {
    AttachOrThrow(*this, ::BeginPaint(m_window, &m_ps));
}

CPaintDC::~CPaintDC() {
    Detach();
    ::EndPaint(m_window, &m_ps);
}
