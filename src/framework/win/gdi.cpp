#include <quorvel/framework/win/gdi.h>

#include "framework/handle_map.h"

#include <utility>

IMPLEMENT_DYNAMIC(CGdiObject, CObject)
IMPLEMENT_DYNAMIC(CFont, CGdiObject)

namespace {

struct FontTraits {
    typedef CFont Object;
    typedef HFONT Handle;
    static CFont* Make(HFONT handle) {
        CFont* const font = new CFont;
        font->m_hObject = handle;
        return font;
    }
    static void LetGo(CFont* font) { font->m_hObject = nullptr; }
    static bool IsAlive(HFONT font) { return ::GetObjectType(font) == OBJ_FONT; }
};

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

BOOL CFont::CreateFontIndirect(const LOGFONTW* description) {
    DeleteObject();
    return Attach(::CreateFontIndirectW(description));
}

BOOL CFont::GetLogFont(LOGFONTW* description) const {
    return ::GetObjectW(m_hObject, sizeof *description, description) != 0;
}

CFont* CFont::FromHandle(HFONT font) {
    if (font == nullptr)
        return nullptr;
    return quorvel::ThreadState<quorvel::HandleMap<FontTraits>>().FindOrMake(font);
}
