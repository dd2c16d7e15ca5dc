// CImageList: a list of pictures of the same size. Windows only, one thread at a time.
//
// An object owns a list that it created or attached. FromHandle, and members of controls that
// return a list, return temporary objects: use them at once, do not store them. A control does not
// own its image list: the list must outlive it, or the control must have the style that shares it.
#pragma once

#include <quorvel/framework/geometry.h>
#include <quorvel/framework/win/gdi.h>

class CDC;

class QUORVEL_API CImageList : public CObject {
    DECLARE_DYNAMIC(CImageList)
public:
    CImageList();
    ~CImageList() override; // destroys its list, if any

    HIMAGELIST m_hImageList;                                  // null without a list
    HIMAGELIST GetSafeHandle() const { return m_hImageList; } // null without a list
    static CImageList* FromHandle(HIMAGELIST list);           // null for a null handle

    // Returns FALSE and changes nothing for a null handle and when there already is a list.
    BOOL Attach(HIMAGELIST list);
    HIMAGELIST Detach();    // the caller then owns it
    BOOL DeleteImageList(); // FALSE without a list
    BOOL Create(int width, int height, UINT flags, int count, int grow);
    // Creates it from a bitmap that is searched along the resource chain: pictures of that width
    // side by side. `mask` is the transparent colour.
    BOOL Create(UINT bitmapId, int width, int grow, COLORREF mask);

    // Each of the following members calls the platform's function of its name; -1 means failure.
    int GetImageCount() const;
    int Add(CBitmap* bitmap, CBitmap* mask); // a null mask: no mask
    int Add(CBitmap* bitmap, COLORREF mask);
    int Add(HICON icon);
    int Replace(int image, HICON icon);
    BOOL Remove(int image);
    COLORREF SetBkColor(COLORREF color);
    BOOL GetImageInfo(int image, IMAGEINFO* info) const;
    BOOL Draw(CDC* dc, int image, POINT place, UINT style);
};
