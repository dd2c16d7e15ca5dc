// CImageList: a list of pictures of one size. Windows only.
//
// An object that created or attached a list owns it. FromHandle, and the members of controls that
// return a list, give temporary objects: used at once and not stored. A control does not own its
// image list: it outlives the control, or the control has the style that shares it.
#pragma once

#include <quorvel/framework/geometry.h>
#include <quorvel/framework/win/gdi.h>

class CDC;

class QUORVEL_API CImageList : public CObject {
    DECLARE_DYNAMIC(CImageList)
public:
    CImageList();
    ~CImageList() override; // destroys the list that it still has

    HIMAGELIST m_hImageList; // null when there is none
    HIMAGELIST GetSafeHandle() const { return m_hImageList; }
    static CImageList* FromHandle(HIMAGELIST list); // null for a null handle

    // FALSE, and nothing changed, for a null handle and when there is a list already.
    BOOL Attach(HIMAGELIST list);
    HIMAGELIST Detach(); // the caller's from here on
    BOOL DeleteImageList();
    BOOL Create(int width, int height, UINT flags, int count, int grow);
    // From a bitmap that is found along the resource chain: pictures of that width side by side,
    // where `mask` is the colour that is not drawn.
    BOOL Create(UINT bitmapId, int width, int grow, COLORREF mask);

    // Each of the rest forwards to the platform's function of its name; -1 is a failure.
    int GetImageCount() const;
    int Add(CBitmap* bitmap, CBitmap* mask); // null: without one
    int Add(CBitmap* bitmap, COLORREF mask);
    int Add(HICON icon);
    int Replace(int image, HICON icon);
    BOOL Remove(int image);
    COLORREF SetBkColor(COLORREF color);
    BOOL GetImageInfo(int image, IMAGEINFO* info) const;
    BOOL Draw(CDC* dc, int image, POINT place, UINT style);
};
