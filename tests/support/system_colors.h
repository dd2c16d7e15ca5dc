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
inline const SystemColors::Colors kHighContrast = [] {
    const std::pair<COLORREF, std::vector<INT>> groups[] = {
        {RGB(0, 0, 0),
         {COLOR_SCROLLBAR, COLOR_MENU, COLOR_MENUBAR, COLOR_WINDOW, COLOR_BTNFACE, COLOR_INFOBK}},
        {RGB(128, 0, 128),
         {COLOR_ACTIVECAPTION, COLOR_GRADIENTACTIVECAPTION, COLOR_MENUHILIGHT, COLOR_HIGHLIGHT}},
        {RGB(255, 255, 255),
         {COLOR_CAPTIONTEXT, COLOR_INACTIVECAPTIONTEXT, COLOR_MENUTEXT, COLOR_WINDOWTEXT,
          COLOR_WINDOWFRAME, COLOR_HIGHLIGHTTEXT, COLOR_BTNTEXT, COLOR_3DDKSHADOW, COLOR_3DLIGHT}},
        {RGB(0, 128, 0), {COLOR_INACTIVECAPTION, COLOR_GRADIENTINACTIVECAPTION}},
        {RGB(255, 255, 0), {COLOR_ACTIVEBORDER, COLOR_INFOTEXT}},
        {RGB(0, 255, 0), {COLOR_GRAYTEXT}},
        {RGB(128, 128, 128), {COLOR_BTNSHADOW}},
        {RGB(192, 192, 192), {COLOR_BTNHIGHLIGHT}},
        {RGB(128, 128, 255), {COLOR_HOTLIGHT}},
    };
    SystemColors::Colors colors;
    for (const auto& [color, indices] : groups)
        for (const INT index : indices)
            colors.emplace_back(index, color);
    return colors;
}();
