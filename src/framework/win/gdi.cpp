#include <quorvel/framework/win/gdi.h>

#include <quorvel/framework/extension_module.h>

#include "framework/handle_map.h"

#include <utility>

IMPLEMENT_DYNAMIC(CGdiObject, CObject)
IMPLEMENT_DYNAMIC(CFont, CGdiObject)

IMPLEMENT_DYNAMIC(CBrush, CGdiObject)
IMPLEMENT_DYNAMIC(CPen, CGdiObject)
IMPLEMENT_DYNAMIC(CBitmap, CGdiObject)

namespace {

template <class Class, class HandleType, DWORD first, DWORD second = first>
struct GdiTraits {
    typedef Class Object;
    typedef HandleType Handle;
    static Class* Make(Handle handle) {
        Class* const object = new Class;
        object->m_hObject = handle;
        return object;
    }
    static void Release(Class* object) { object->m_hObject = nullptr; }
    static bool IsAlive(Handle handle) {
        const DWORD type = ::GetObjectType(handle);
        return type == first || type == second;
    }
};

template <class Traits>
typename Traits::Object* Temporary(typename Traits::Handle handle) {
    return handle != nullptr ? quorvel::ThreadState<quorvel::HandleMap<Traits>>().FindOrMake(handle)
                             : nullptr;
}

} // namespace

CGdiObject::CGdiObject() : m_hObject(nullptr) {}

CGdiObject::~CGdiObject() {
    DeleteObject();
}

BOOL CGdiObject::Attach(HGDIOBJ object) {
    if (object == nullptr || m_hObject != nullptr)
        return FALSE;
    m_hObject = object;
    return TRUE;
}

HGDIOBJ CGdiObject::Detach() {
    return std::exchange(m_hObject, nullptr);
}

BOOL CGdiObject::DeleteObject() {
    const HGDIOBJ object = Detach();
    return object != nullptr && ::DeleteObject(object);
}

CFont::CFont() = default;

BOOL CFont::CreatePointFont(int tenths, const WCHAR* faceName) {
    const HDC screen = ::GetDC(nullptr);
    LOGFONTW description = {};
    description.lfHeight = -::MulDiv(tenths, ::GetDeviceCaps(screen, LOGPIXELSY), 720);
    description.lfCharSet = DEFAULT_CHARSET;
    ::lstrcpynW(description.lfFaceName, faceName, LF_FACESIZE);
    ::ReleaseDC(nullptr, screen);
    return CreateFontIndirect(&description);
}

BOOL CFont::GetLogFont(LOGFONTW* description) const {
    return GetObject(sizeof *description, description) != 0;
}

CFont* CFont::FromHandle(HFONT font) {
    return Temporary<GdiTraits<CFont, HFONT, OBJ_FONT>>(font);
}

CBrush::CBrush() = default;
CBrush::CBrush(COLORREF color) {
    CreateSolidBrush(color);
}

CBrush* CBrush::FromHandle(HBRUSH brush) {
    return Temporary<GdiTraits<CBrush, HBRUSH, OBJ_BRUSH>>(brush);
}

CPen::CPen() = default;
CPen::CPen(int style, int width, COLORREF color) {
    CreatePen(style, width, color);
}

CPen* CPen::FromHandle(HPEN pen) {
    return Temporary<GdiTraits<CPen, HPEN, OBJ_PEN, OBJ_EXTPEN>>(pen);
}

CBitmap::CBitmap() = default;

BOOL CBitmap::LoadBitmap(const WCHAR* name) {
    return Replace(::LoadBitmapW(AfxFindResourceHandle(name, RT_BITMAP), name));
}

CBitmap* CBitmap::FromHandle(HBITMAP bitmap) {
    return Temporary<GdiTraits<CBitmap, HBITMAP, OBJ_BITMAP>>(bitmap);
}
