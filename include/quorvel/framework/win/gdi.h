// CGdiObject and CFont: owners of drawing objects. Windows only.
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
};

class QUORVEL_API CFont : public CGdiObject {
    DECLARE_DYNAMIC(CFont)
public:
    CFont();
    operator HFONT() const { return static_cast<HFONT>(m_hObject); }

    BOOL CreateFontIndirect(const LOGFONTW* description);
    BOOL GetLogFont(LOGFONTW* description) const; // FALSE when there is no font

    // A temporary object that does not own the font, to be used at once and not stored. Null for a
    // null handle.
    static CFont* FromHandle(HFONT font);
};
