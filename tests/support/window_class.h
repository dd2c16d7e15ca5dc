// Registers a window class while the object exists. Its windows must be destroyed before the
// object.
#pragma once

#include <quorvel/platform/platform.h>

#include <gtest/gtest.h>

using namespace quorvel::win32;

class TestWindowClass {
public:
    explicit TestWindowClass(const WCHAR* name, WNDPROC procedure = nullptr) : m_name(name) {
        WNDCLASSEXW windowClass = {};
        windowClass.cbSize = sizeof windowClass;
        windowClass.lpfnWndProc = procedure != nullptr ? procedure : DefWindowProcW;
        windowClass.lpszClassName = name;
        EXPECT_NE(RegisterClassExW(&windowClass), 0);
    }
    TestWindowClass(const TestWindowClass&) = delete;
    ~TestWindowClass() { EXPECT_TRUE(UnregisterClassW(m_name, nullptr)); }

    HWND Create(DWORD style = WS_POPUP, HWND parent = nullptr, INT_PTR id = 0) const {
        return CreateWindowExW(0, m_name, nullptr, style, 0, 0, 0, 0, parent,
                               reinterpret_cast<HMENU>(id), nullptr, nullptr);
    }

private:
    const WCHAR* const m_name;
};
