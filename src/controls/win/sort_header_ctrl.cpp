#include <quorvel/controls/win/sort_header_ctrl.h>

#include <shlwapi.h>

#include <algorithm>
#include <iterator>

IMPLEMENT_DYNAMIC(CSortHeaderCtrl, CHeaderCtrl)

BEGIN_MESSAGE_MAP(CSortHeaderCtrl, CHeaderCtrl)
ON_WM_PAINT()
END_MESSAGE_MAP()

namespace {

constexpr int kPlatformArrow = HDF_SORTUP | HDF_SORTDOWN;

// Common controls draw the arrow from version 6 on. The program's manifest determines the
// version.
bool HasPlatformArrow() {
    const HMODULE controls = ::GetModuleHandleW(L"comctl32.dll");
    const auto getVersion = controls != nullptr
                                ? reinterpret_cast<DLLGETVERSIONPROC>(reinterpret_cast<void*>(
                                      ::GetProcAddress(controls, "DllGetVersion")))
                                : nullptr;
    DLLVERSIONINFO version = {};
    version.cbSize = sizeof version;
    return getVersion != nullptr && SUCCEEDED(getVersion(&version)) && version.dwMajorVersion >= 6;
}

} // namespace

CSortHeaderCtrl::CSortHeaderCtrl() : m_hasOwnArrow(!HasPlatformArrow()) {}

CSortHeaderCtrl::~CSortHeaderCtrl() = default;

void CSortHeaderCtrl::SetSort(int insertedColumn, BOOL ascending, BOOL redraw) {
    m_column = insertedColumn;
    m_isAscending = ascending != FALSE;
    if (m_hWnd == nullptr)
        return;
    const int arrow = m_isAscending ? HDF_SORTUP : HDF_SORTDOWN;
    const int count = GetItemCount();
    for (int i = 0; i < count; ++i) {
        HDITEMW item = {};
        item.mask = HDI_FORMAT;
        if (!GetItem(i, &item))
            continue;
        const int wanted = i == m_column && !m_hasOwnArrow ? arrow : 0;
        if ((item.fmt & kPlatformArrow) == wanted)
            continue;
        item.fmt = (item.fmt & ~kPlatformArrow) | wanted;
        SetItem(i, &item);
    }
    if (redraw)
        Invalidate();
}

void CSortHeaderCtrl::SetOwnArrow(BOOL isOwn) {
    m_hasOwnArrow = isOwn != FALSE;
    SetSort(m_column, m_isAscending);
}

// Draws after the header itself, because its custom draw does not report when an item is finished.
void CSortHeaderCtrl::OnPaint() {
    Default();
    if (m_hasOwnArrow && m_column >= 0)
        DrawArrow();
}

// At the right edge; in a right-aligned column, whose text ends there, at the left edge.
void CSortHeaderCtrl::DrawArrow() {
    CRect rect;
    HDITEMW item = {};
    item.mask = HDI_FORMAT;
    if (!GetItemRect(m_column, rect) || !GetItem(m_column, &item))
        return;
    const int height = std::max<int>(3, rect.Height() / 5);
    const int width = 2 * height;
    if (rect.Width() < 2 * width)
        return;
    const bool isRight = (item.fmt & HDF_JUSTIFYMASK) == HDF_RIGHT;
    const int left = isRight ? rect.left + height : rect.right - height - width;
    const int top = rect.top + (rect.Height() - height) / 2;
    const int base = m_isAscending ? top + height : top;
    const int tip = m_isAscending ? top : top + height;
    const POINT corners[] = {{left, base}, {left + width, base}, {left + height, tip}};

    CClientDC dc(this);
    CBrush brush(::GetSysColor(COLOR_BTNTEXT));
    CPen pen(PS_SOLID, 1, ::GetSysColor(COLOR_BTNTEXT));
    const int saved = dc.SaveDC();
    dc.SelectObject(&brush);
    dc.SelectObject(&pen);
    dc.Polygon(corners, static_cast<int>(std::size(corners)));
    dc.RestoreDC(saved);
}
