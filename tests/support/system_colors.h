// Sets other system colours while the object exists. Windows only. All windows of the session are
// notified by WM_SYSCOLORCHANGE, then and at the end.
#pragma once

#include <quorvel/framework/geometry.h>

#include <utility>
#include <vector>

class SystemColors {
public:
    typedef std::vector<std::pair<INT, COLORREF>> Colors;

    explicit SystemColors(const Colors& colors) {
        std::vector<COLORREF> values;
        for (const auto& [index, color] : colors) {
            m_indices.push_back(index);
            m_former.push_back(::GetSysColor(index));
            values.push_back(color);
        }
        Set(values);
    }
    SystemColors(const SystemColors&) = delete;
    ~SystemColors() { Set(m_former); }

private:
    void Set(const std::vector<COLORREF>& values) const {
        ::SetSysColors(static_cast<int>(values.size()), m_indices.data(), values.data());
    }
    std::vector<INT> m_indices;
    std::vector<COLORREF> m_former;
};

// Like the system's own scheme with light text on black.
inline const SystemColors::Colors kHighContrast = {
    {COLOR_SCROLLBAR, RGB(0, 0, 0)},
    {COLOR_ACTIVECAPTION, RGB(128, 0, 128)},
    {COLOR_GRADIENTACTIVECAPTION, RGB(128, 0, 128)},
    {COLOR_CAPTIONTEXT, RGB(255, 255, 255)},
    {COLOR_INACTIVECAPTION, RGB(0, 128, 0)},
    {COLOR_GRADIENTINACTIVECAPTION, RGB(0, 128, 0)},
    {COLOR_INACTIVECAPTIONTEXT, RGB(255, 255, 255)},
    {COLOR_MENU, RGB(0, 0, 0)},
    {COLOR_MENUTEXT, RGB(255, 255, 255)},
    {COLOR_MENUBAR, RGB(0, 0, 0)},
    {COLOR_MENUHILIGHT, RGB(128, 0, 128)},
    {COLOR_WINDOW, RGB(0, 0, 0)},
    {COLOR_WINDOWTEXT, RGB(255, 255, 255)},
    {COLOR_WINDOWFRAME, RGB(255, 255, 255)},
    {COLOR_ACTIVEBORDER, RGB(255, 255, 0)},
    {COLOR_HIGHLIGHT, RGB(128, 0, 128)},
    {COLOR_HIGHLIGHTTEXT, RGB(255, 255, 255)},
    {COLOR_BTNFACE, RGB(0, 0, 0)},
    {COLOR_BTNSHADOW, RGB(128, 128, 128)},
    {COLOR_GRAYTEXT, RGB(0, 255, 0)},
    {COLOR_BTNTEXT, RGB(255, 255, 255)},
    {COLOR_BTNHIGHLIGHT, RGB(192, 192, 192)},
    {COLOR_3DDKSHADOW, RGB(255, 255, 255)},
    {COLOR_3DLIGHT, RGB(255, 255, 255)},
    {COLOR_INFOTEXT, RGB(255, 255, 0)},
    {COLOR_INFOBK, RGB(0, 0, 0)},
    {COLOR_HOTLIGHT, RGB(128, 128, 255)},
};
