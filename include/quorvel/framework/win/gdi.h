// CGdiObject and derived classes: owners of drawing objects. Windows only, one thread at a time.
//
// FromHandle returns a temporary object, which does not own the handle: use it at once, do not
// store it. It returns null for a null handle. Each Create... and Load... member first frees the
// old object and returns FALSE when the new one cannot be created.
#pragma once

#include <quorvel/framework/object.h>

class QUORVEL_API CGdiObject : public CObject { // the base: owns its handle
    DECLARE_DYNAMIC(CGdiObject)
public:
    CGdiObject();
    ~CGdiObject() override; // deletes its object, if any

    HGDIOBJ m_hObject;                                  // null without an object
    HGDIOBJ GetSafeHandle() const { return m_hObject; } // null without an object

    // Returns FALSE and changes nothing for a null handle and when there already is an object.
    BOOL Attach(HGDIOBJ object);
    HGDIOBJ Detach();    // the caller then owns it
    BOOL DeleteObject(); // FALSE without an object
    // Copies the description of the object and returns its size in bytes, or 0.
    int GetObject(int size, void* description) const {
        return ::GetObjectW(m_hObject, size, description);
    }

protected:
    // Deletes the old object, then attaches the new one. FALSE when that is null.
    BOOL Replace(HGDIOBJ object) {
        DeleteObject();
        return Attach(object);
    }
};

class QUORVEL_API CFont : public CGdiObject { // a font
    DECLARE_DYNAMIC(CFont)
public:
    CFont();
    operator HFONT() const { return static_cast<HFONT>(m_hObject); } // null without a font

    // The system selects the closest font that is installed.
    BOOL CreateFontIndirect(const LOGFONTW* description) {
        return Replace(::CreateFontIndirectW(description));
    }
    // The height in tenths of a point on the screen.
    BOOL CreatePointFont(int tenths, const WCHAR* faceName);
    BOOL GetLogFont(LOGFONTW* description) const; // FALSE without a font

    static CFont* FromHandle(HFONT font); // a temporary object
};

class QUORVEL_API CBrush : public CGdiObject { // a brush, to fill with
    DECLARE_DYNAMIC(CBrush)
public:
    CBrush();
    explicit CBrush(COLORREF color); // without a handle if the allocation fails
    operator HBRUSH() const { return static_cast<HBRUSH>(m_hObject); } // null without a brush

    // A brush of one colour, or of a system colour by its index (COLOR_WINDOW).
    BOOL CreateSolidBrush(COLORREF color) { return Replace(::CreateSolidBrush(color)); }
    BOOL CreateSysColorBrush(int index) { return Replace(::GetSysColorBrush(index)); }

    static CBrush* FromHandle(HBRUSH brush); // a temporary object
};

class QUORVEL_API CPen : public CGdiObject { // a pen, to draw lines with
    DECLARE_DYNAMIC(CPen)
public:
    CPen();
    CPen(int style, int width, COLORREF color); // without a handle if the allocation fails
    operator HPEN() const { return static_cast<HPEN>(m_hObject); } // null without a pen

    // The style is PS_SOLID and so on; a pen of width 0 is one pixel wide.
    BOOL CreatePen(int style, int width, COLORREF color) {
        return Replace(::CreatePen(style, width, color));
    }

    static CPen* FromHandle(HPEN pen); // a temporary object
};

class QUORVEL_API CBitmap : public CGdiObject { // a picture
    DECLARE_DYNAMIC(CBitmap)
public:
    CBitmap();
    operator HBITMAP() const { return static_cast<HBITMAP>(m_hObject); } // null without a bitmap

    // Searches the resource along the resource chain.
    BOOL LoadBitmap(const WCHAR* name);
    BOOL LoadBitmap(UINT id) { return LoadBitmap(MAKEINTRESOURCEW(id)); }
    // A bitmap of the kind that this device context draws to. A new memory context has a black and
    // white one.
    BOOL CreateCompatibleBitmap(HDC dc, int width, int height) {
        return Replace(::CreateCompatibleBitmap(dc, width, height));
    }
    // Fills in the record and returns its size in bytes, or 0.
    int GetBitmap(BITMAP* description) const { return GetObject(sizeof *description, description); }

    static CBitmap* FromHandle(HBITMAP bitmap); // a temporary object
};
