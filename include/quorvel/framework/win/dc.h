// CDC and derived classes: device contexts. Use each on the thread that got it. Windows only.
//
// CDC owns a context that it created or attached: its destructor deletes it. CClientDC, CWindowDC
// and CPaintDC get theirs from a window and release it; their constructors throw CResourceException
// on failure. FromHandle, SelectObject and CWnd::GetDC return temporary objects: use them at once,
// do not store or delete them.
#pragma once

#include <quorvel/framework/geometry.h>
#include <quorvel/framework/string.h>
#include <quorvel/framework/win/gdi.h>

class CWnd;

class QUORVEL_API CDC : public CObject { // a place to draw on
    DECLARE_DYNAMIC(CDC)
public:
    CDC();
    ~CDC() override;

    HDC m_hDC; // null without a context
    // The context, or null.
    HDC GetSafeHdc() const { return m_hDC; }
    operator HDC() const { return m_hDC; }
    static CDC* FromHandle(HDC dc); // null for a null handle

    // Returns FALSE and changes nothing for a null handle and when there already is a context.
    BOOL Attach(HDC dc);
    HDC Detach();    // the caller then owns it
    BOOL DeleteDC(); // FALSE without a context
    // Creates a memory context compatible with `dc`; null means the screen.
    BOOL CreateCompatibleDC(CDC* dc) {
        return Attach(m_hDC == nullptr ? ::CreateCompatibleDC(HandleOf(dc)) : nullptr);
    }

    // Returns the object that was selected before, or null when the new one cannot be selected.
    // Select the old object again before you delete the new one.
    CPen* SelectObject(CPen* pen) { return CPen::FromHandle(Select<HPEN>(pen)); }
    CBrush* SelectObject(CBrush* brush) { return CBrush::FromHandle(Select<HBRUSH>(brush)); }
    CFont* SelectObject(CFont* font) { return CFont::FromHandle(Select<HFONT>(font)); }
    CBitmap* SelectObject(CBitmap* bitmap) { return CBitmap::FromHandle(Select<HBITMAP>(bitmap)); }
    HGDIOBJ SelectStockObject(int index) { return ::SelectObject(m_hDC, ::GetStockObject(index)); }

    // Each of the following members calls the platform's function of the same name.
    int SaveDC() { return ::SaveDC(m_hDC); }
    BOOL RestoreDC(int saved) { return ::RestoreDC(m_hDC, saved); }
    int GetDeviceCaps(int index) const { return ::GetDeviceCaps(m_hDC, index); }

    // Colours and text alignment, by the platform's functions. Setters return the old value.
    COLORREF SetTextColor(COLORREF color) { return ::SetTextColor(m_hDC, color); }
    COLORREF GetTextColor() const { return ::GetTextColor(m_hDC); }
    COLORREF SetBkColor(COLORREF color) { return ::SetBkColor(m_hDC, color); }
    COLORREF GetBkColor() const { return ::GetBkColor(m_hDC); }
    int SetBkMode(int mode) { return ::SetBkMode(m_hDC, mode); }
    UINT SetTextAlign(UINT flags) { return ::SetTextAlign(m_hDC, flags); }

    // The clip region, by the platform's functions. The result is the kind of region, or ERROR.
    int GetClipBox(RECT* rect) const { return ::GetClipBox(m_hDC, rect); }
    int IntersectClipRect(const RECT* rect) {
        return ::IntersectClipRect(m_hDC, rect->left, rect->top, rect->right, rect->bottom);
    }
    int ExcludeClipRect(const RECT* rect) {
        return ::ExcludeClipRect(m_hDC, rect->left, rect->top, rect->right, rect->bottom);
    }

    // Shapes, icons and pixels, by the platform's functions. A brush must not be null.
    void FillRect(const RECT* rect, CBrush* brush) { ::FillRect(m_hDC, rect, *brush); }
    void FrameRect(const RECT* rect, CBrush* brush) { ::FrameRect(m_hDC, rect, *brush); }
    void InvertRect(const RECT* rect) { ::InvertRect(m_hDC, rect); }
    void FillSolidRect(const RECT* rect, COLORREF color); // changes the background colour
    void DrawFocusRect(const RECT* rect) { ::DrawFocusRect(m_hDC, rect); }
    BOOL DrawEdge(RECT* rect, UINT edge, UINT flags) {
        return ::DrawEdge(m_hDC, rect, edge, flags);
    }
    BOOL DrawFrameControl(RECT* rect, UINT type, UINT state) {
        return ::DrawFrameControl(m_hDC, rect, type, state);
    }
    BOOL DrawIcon(int x, int y, HICON icon) { return ::DrawIcon(m_hDC, x, y, icon); }
    BOOL MoveTo(int x, int y) { return ::MoveToEx(m_hDC, x, y, nullptr); }
    BOOL LineTo(int x, int y) { return ::LineTo(m_hDC, x, y); }
    BOOL Rectangle(const RECT* rect) {
        return ::Rectangle(m_hDC, rect->left, rect->top, rect->right, rect->bottom);
    }
    BOOL Polygon(const POINT* points, int count) { return ::Polygon(m_hDC, points, count); }
    COLORREF GetPixel(int x, int y) const { return ::GetPixel(m_hDC, x, y); }
    COLORREF SetPixel(int x, int y, COLORREF color) { return ::SetPixel(m_hDC, x, y, color); }

    // Text, by the platform's functions; a CString is drawn to its end. GetTextExtent measures in
    // logical units.
    int DrawText(const WCHAR* text, int length, RECT* rect, UINT format) {
        return ::DrawTextW(m_hDC, text, length, rect, format);
    }
    int DrawText(const CString& text, RECT* rect, UINT format) {
        return DrawText(text.GetString(), text.GetLength(), rect, format);
    }
    BOOL TextOut(int x, int y, const CString& text) {
        return ::TextOutW(m_hDC, x, y, text.GetString(), text.GetLength());
    }
    BOOL ExtTextOut(int x, int y, UINT options, const RECT* rect, const CString& text,
                    const int* widths = nullptr) {
        return ::ExtTextOutW(m_hDC, x, y, options, rect, text.GetString(),
                             static_cast<UINT>(text.GetLength()), widths);
    }
    CSize GetTextExtent(const CString& text) const;
    BOOL GetTextMetrics(TEXTMETRICW* metrics) const { return ::GetTextMetricsW(m_hDC, metrics); }

    // Bit blocks, by the platform's functions. Operations without a source accept null.
    BOOL BitBlt(int x, int y, int width, int height, CDC* source, int fromX, int fromY,
                DWORD operation) {
        return ::BitBlt(m_hDC, x, y, width, height, HandleOf(source), fromX, fromY, operation);
    }
    BOOL StretchBlt(int x, int y, int width, int height, CDC* source, int fromX, int fromY,
                    int fromWidth, int fromHeight, DWORD operation) {
        return ::StretchBlt(m_hDC, x, y, width, height, HandleOf(source), fromX, fromY, fromWidth,
                            fromHeight, operation);
    }
    BOOL PatBlt(int x, int y, int width, int height, DWORD operation) {
        return ::PatBlt(m_hDC, x, y, width, height, operation);
    }

private:
    static HDC HandleOf(const CDC* dc) { return dc != nullptr ? dc->m_hDC : nullptr; }
    template <class Handle>
    Handle Select(const CGdiObject* object) {
        return static_cast<Handle>(
            ::SelectObject(m_hDC, object != nullptr ? object->m_hObject : nullptr));
    }
};

// The client area of a window; null: the screen.
class QUORVEL_API CClientDC : public CDC {
    DECLARE_DYNAMIC(CClientDC)
public:
    explicit CClientDC(CWnd* wnd); // throws CResourceException
    ~CClientDC() override;

private:
    const HWND m_window;
};

// A whole window with its frame; null: the screen.
class QUORVEL_API CWindowDC : public CDC {
    DECLARE_DYNAMIC(CWindowDC)
public:
    explicit CWindowDC(CWnd* wnd); // throws CResourceException
    ~CWindowDC() override;

private:
    const HWND m_window;
};

// The area to be painted. Only for the handler of WM_PAINT.
class QUORVEL_API CPaintDC : public CDC {
    DECLARE_DYNAMIC(CPaintDC)
public:
    explicit CPaintDC(CWnd* wnd); // throws CResourceException
    ~CPaintDC() override;

    PAINTSTRUCT m_ps; // filled in by BeginPaint

private:
    const HWND m_window;
};
