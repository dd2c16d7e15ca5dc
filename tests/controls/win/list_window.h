// A window for the lists of a test, and the state of a list seen from outside: by messages to its
// windows and in its picture. Windows only.
#pragma once

#include <quorvel/controls/win/vask_list_ctrl.h>

#include "support/test.h"

#include <string>
#include <vector>

inline void PumpMessages() {
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

inline const CRect kListPlace(0, 0, 400, 200);

class ListParent : public CWnd {
public:
    ListParent() {
        CreateEx(0, _T("Static"), nullptr, WS_POPUP | WS_VISIBLE, 0, 0, 500, 300, nullptr, nullptr);
    }

    std::function<void(const NMHDR&)> m_onNotify;
    std::function<void(UINT message, WPARAM wParam)> m_onMessage;
    std::function<void()> m_onExchange;
    UINT m_keptCode = 0; // a notification that its list does not get

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (m_onMessage)
            m_onMessage(message, wParam);
        return CWnd::WindowProc(message, wParam, lParam);
    }
    void DoDataExchange(CDataExchange*) override { m_onExchange(); }
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override {
        if (m_keptCode != 0 && reinterpret_cast<const NMHDR*>(lParam)->code == m_keptCode)
            return TRUE;
        const BOOL isHandled = CWnd::OnNotify(wParam, lParam, result);
        if (m_onNotify)
            m_onNotify(*reinterpret_cast<const NMHDR*>(lParam));
        return isHandled;
    }
};

inline CSortHeaderCtrl& HeaderOf(const CListCtrl& list) {
    return static_cast<CSortHeaderCtrl&>(*list.GetHeaderCtrl());
}

// The shown columns from left to right as true column, width and arrow, then the hidden columns:
// "0:50 2:70^ | 1:60".
inline std::string ColumnsOf(CVaskListCtrl& list) {
    std::string text;
    const auto add = [&text](int trueColumn, int width, int format) {
        text += text.empty() ? "" : " ";
        text += std::to_string(trueColumn) + ":" + std::to_string(width);
        text += (format & HDF_SORTUP) != 0 ? "^" : (format & HDF_SORTDOWN) != 0 ? "v" : "";
    };
    const CHeaderCtrl& header = HeaderOf(list);
    std::vector<int> order(static_cast<std::size_t>(header.GetItemCount()));
    header.GetOrderArray(order.data(), static_cast<int>(order.size()));
    for (const int inserted : order) {
        HDITEMW item = {};
        item.mask = HDI_FORMAT | HDI_WIDTH;
        header.GetItem(inserted, &item);
        add(list.GetTrueColumn(inserted), item.cxy, item.fmt);
    }
    std::string shown = std::move(text);
    text.clear();
    for (int trueColumn = 0; trueColumn < 10; ++trueColumn) {
        if (list.DoesTrueColumnExist(trueColumn) && !list.IsVaskColumnVisible(trueColumn))
            add(trueColumn, list.GetVaskColumnWidth(trueColumn), 0);
    }
    return text.empty() ? shown : shown + " | " + text;
}

// The first texts of the rows in the list-view; a star marks selected rows, an exclamation mark the
// focused row: "a *b c!".
inline std::string RowsOf(const CListCtrl& list) {
    std::string text;
    const int count = static_cast<int>(list.SendMessage(LVM_GETITEMCOUNT));
    for (int i = 0; i < count; ++i) {
        const UINT state = list.GetItemState(i, LVIS_SELECTED | LVIS_FOCUSED);
        text += i > 0 ? " " : "";
        text += (state & LVIS_SELECTED) != 0 ? "*" : "";
        text += list.GetItemText(i, 0).ToUTF8();
        text += (state & LVIS_FOCUSED) != 0 ? "!" : "";
    }
    return text;
}

// The picture of a window's client area.
class Picture {
public:
    explicit Picture(const CWnd& wnd) {
        ::UpdateWindow(wnd.m_hWnd);
        wnd.GetClientRect(m_rect);
        const HDC dc = ::GetDC(wnd.m_hWnd);
        m_bitmap = ::CreateCompatibleBitmap(dc, m_rect.right, m_rect.bottom);
        ::SelectObject(m_memory, m_bitmap);
        ::BitBlt(m_memory, 0, 0, m_rect.right, m_rect.bottom, dc, 0, 0, SRCCOPY);
        ::ReleaseDC(wnd.m_hWnd, dc);
    }
    Picture(const Picture&) = delete;
    ~Picture() {
        ::DeleteDC(m_memory);
        ::DeleteObject(m_bitmap);
    }

    COLORREF At(int x, int y) const { return ::GetPixel(m_memory, x, y); }
    // The bounding rectangle of the pixels that pass `test`; empty without such pixels.
    template <class Test>
    CRect Bounds(Test test) const {
        CRect bounds;
        for (int y = 0; y < m_rect.bottom; ++y) {
            for (int x = 0; x < m_rect.right; ++x) {
                if (test(x, y))
                    ::UnionRect(bounds, bounds, CRect(x, y, x + 1, y + 1));
            }
        }
        return bounds;
    }
    CRect BoundsOf(COLORREF color) const {
        return Bounds([&](int x, int y) { return At(x, y) == color; });
    }

private:
    CRect m_rect;
    const HDC m_memory = ::CreateCompatibleDC(nullptr);
    HBITMAP m_bitmap;
};
