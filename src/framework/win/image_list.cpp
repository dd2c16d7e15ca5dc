#include <quorvel/framework/win/image_list.h>

#include <quorvel/framework/extension_module.h>
#include <quorvel/framework/win/dc.h>

#include "framework/handle_map.h"

#include <utility>

IMPLEMENT_DYNAMIC(CImageList, CObject)

namespace {

struct ImageListTraits {
    typedef CImageList Object;
    typedef HIMAGELIST Handle;
    static CImageList* Make(HIMAGELIST handle) {
        CImageList* const list = new CImageList;
        list->m_hImageList = handle;
        return list;
    }
    static void Release(CImageList* list) { list->m_hImageList = nullptr; }
    // No safe test exists. A temporary object is used at once, so old ones can be dropped.
    static bool IsAlive(HIMAGELIST) { return false; }
};

} // namespace

CImageList::CImageList() : m_hImageList(nullptr) {}

CImageList::~CImageList() {
    DeleteImageList();
}

CImageList* CImageList::FromHandle(HIMAGELIST list) {
    return list != nullptr
               ? quorvel::ThreadState<quorvel::HandleMap<ImageListTraits>>().FindOrMake(list)
               : nullptr;
}

BOOL CImageList::Attach(HIMAGELIST list) {
    if (list == nullptr || m_hImageList != nullptr)
        return FALSE;
    m_hImageList = list;
    return TRUE;
}

HIMAGELIST CImageList::Detach() {
    return std::exchange(m_hImageList, nullptr);
}

BOOL CImageList::DeleteImageList() {
    const HIMAGELIST list = Detach();
    return list != nullptr && ::ImageList_Destroy(list);
}

BOOL CImageList::Create(int width, int height, UINT flags, int count, int grow) {
    return m_hImageList == nullptr && Attach(::ImageList_Create(width, height, flags, count, grow));
}

BOOL CImageList::Create(UINT bitmapId, int width, int grow, COLORREF mask) {
    const WCHAR* const name = MAKEINTRESOURCEW(bitmapId);
    return m_hImageList == nullptr &&
           Attach(::ImageList_LoadImageW(AfxFindResourceHandle(name, RT_BITMAP), name, width, grow,
                                         mask, IMAGE_BITMAP, LR_CREATEDIBSECTION));
}

// Not inline, so that a host need not link the common controls.
int CImageList::GetImageCount() const {
    return ::ImageList_GetImageCount(m_hImageList);
}
int CImageList::Add(CBitmap* bitmap, CBitmap* mask) {
    return ::ImageList_Add(m_hImageList, *bitmap,
                           mask != nullptr ? static_cast<HBITMAP>(*mask) : nullptr);
}
int CImageList::Add(CBitmap* bitmap, COLORREF mask) {
    return ::ImageList_AddMasked(m_hImageList, *bitmap, mask);
}
int CImageList::Add(HICON icon) {
    return ::ImageList_ReplaceIcon(m_hImageList, -1, icon);
}
int CImageList::Replace(int image, HICON icon) {
    return ::ImageList_ReplaceIcon(m_hImageList, image, icon);
}
BOOL CImageList::Remove(int image) {
    return ::ImageList_Remove(m_hImageList, image);
}
COLORREF CImageList::SetBkColor(COLORREF color) {
    return ::ImageList_SetBkColor(m_hImageList, color);
}
BOOL CImageList::GetImageInfo(int image, IMAGEINFO* info) const {
    return ::ImageList_GetImageInfo(m_hImageList, image, info);
}
BOOL CImageList::Draw(CDC* dc, int image, POINT place, UINT style) {
    return ::ImageList_Draw(m_hImageList, image, dc->m_hDC, place.x, place.y, style);
}
