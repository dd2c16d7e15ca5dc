// CGdiObject and its kin: owners of drawing objects. Windows only.
//
// FromHandle gives a temporary object, which does not own the handle: used at once and not stored.
// It is null for a null handle. Each Create... and Load... member frees the former object first and
// is FALSE when there is then none.
#pragma once

#include <quorvel/framework/object.h>

class QUORVEL_API CGdiObject : public CObject {
    DECLARE_DYNAMIC(CGdiObject)
public:
    CGdiObject();
    ~CGdiObject() override; // deletes the object that it still has

    HGDIOBJ m_hObject; // null when there is none
    HGDIOBJ GetSafeHandle() const { return m_hObject; }

    // FALSE, and nothing changed, for a null handle and when there is an object already.
    BOOL Attach(HGDIOBJ object);
    HGDIOBJ Detach(); // the caller's from here on
    BOOL DeleteObject();
    int GetObject(int size, void* description) const {
        return ::GetObjectW(m_hObject, size, description);
    }

protected:
    BOOL Replace(HGDIOBJ object) {
        DeleteObject();
        return Attach(object);
    }
};

class QUORVEL_API CFont : public CGdiObject {
    DECLARE_DYNAMIC(CFont)
public:
    CFont();
    operator HFONT() const { return static_cast<HFONT>(m_hObject); }

    BOOL CreateFontIndirect(const LOGFONTW* description) {
        return Replace(::CreateFontIndirectW(description));
    }
    // `tenths` of a point high, as the screen shows it.
    BOOL CreatePointFont(int tenths, const WCHAR* faceName);
    BOOL GetLogFont(LOGFONTW* description) const; // FALSE when there is no font

    static CFont* FromHandle(HFONT font);
};

class QUORVEL_API CBrush : public CGdiObject {
    DECLARE_DYNAMIC(CBrush)
public:
    CBrush();
    explicit CBrush(COLORREF color); // without a handle when there is no memory
    operator HBRUSH() const { return static_cast<HBRUSH>(m_hObject); }

    BOOL CreateSolidBrush(COLORREF color) { return Replace(::CreateSolidBrush(color)); }
    BOOL CreateSysColorBrush(int index) { return Replace(::GetSysColorBrush(index)); }

    static CBrush* FromHandle(HBRUSH brush);
};

class QUORVEL_API CPen : public CGdiObject {
    DECLARE_DYNAMIC(CPen)
public:
    CPen();
    CPen(int style, int width, COLORREF color); // without a handle when there is no memory
    operator HPEN() const { return static_cast<HPEN>(m_hObject); }

    BOOL CreatePen(int style, int width, COLORREF color) {
        return Replace(::CreatePen(style, width, color));
    }

    static CPen* FromHandle(HPEN pen);
};

class QUORVEL_API CBitmap : public CGdiObject {
    DECLARE_DYNAMIC(CBitmap)
public:
    CBitmap();
    operator HBITMAP() const { return static_cast<HBITMAP>(m_hObject); }

    // The resource is found along the resource chain.
    BOOL LoadBitmap(const WCHAR* name);
    BOOL LoadBitmap(UINT id) { return LoadBitmap(MAKEINTRESOURCEW(id)); }
    // Of the kind that this device context draws to; a memory context has at first a black and
    // white one.
    BOOL CreateCompatibleBitmap(HDC dc, int width, int height) {
        return Replace(::CreateCompatibleBitmap(dc, width, height));
    }
    int GetBitmap(BITMAP* description) const { return GetObject(sizeof *description, description); }

    static CBitmap* FromHandle(HBITMAP bitmap);
};
