#include "script.h"

#include <quorvel/keyboard/shortcut_key_text.h>
#include <quorvel/util/text/utf8.h>

#include "gallery/picture.h"
#include "support/win/list_cell.h"
#include "support/window_driver.h"
#include "workbench/resource.h"

#include <commctrl.h>

#include <algorithm>
#include <cstdio>
#include <map>

namespace {

constexpr int kPatience = 3000; // ticks
constexpr int kMostRows = 6;
constexpr int kLongest = 100; // characters of a text that is shown

Script* s_script = nullptr;

CString ClassOf(HWND window) {
    WCHAR name[40];
    ::GetClassNameW(window, name, 40);
    return name;
}

CString Shown(CString text) {
    text.Replace(_T("\r\n"), _T("\\n"));
    text.Replace(_T("\n"), _T("\\n"));
    text.Replace(_T("\t"), _T(" -> "));
    return text.GetLength() > kLongest ? text.Left(kLongest) + _T("...") : text;
}

void Send(std::vector<INPUT> inputs) {
    ::SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

INPUT KeyInput(WORD key, DWORD flags) {
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(::MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = flags;
    return input;
}

// Where a user would click: the middle of a rectangle of the screen.
void ClickAt(const CRect& rect) {
    ::SetCursorPos((rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2);
    INPUT press = {}, release = {};
    press.type = release.type = INPUT_MOUSE;
    press.mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
    release.mi.dwFlags = MOUSEEVENTF_LEFTUP;
    Send({press, release});
}

CRect OnScreen(HWND window, CRect rect) {
    ::MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

// What the window of each title showed last: a line is printed when it was not there then.
std::map<CString, std::vector<CString>> s_shown;
std::vector<CString> s_lines;

void Line(const CString& text) {
    s_lines.push_back(text);
}

void PrintNews(const CString& title) {
    std::vector<CString>& former = s_shown[title];
    for (const CString& line : s_lines)
        if (std::find(former.begin(), former.end(), line) == former.end())
            Say(line);
    former.swap(s_lines);
    s_lines.clear();
}

void ShowList(HWND list) {
    const auto header = reinterpret_cast<HWND>(::SendMessageW(list, LVM_GETHEADER, 0, 0));
    const int columns = static_cast<int>(::SendMessageW(header, HDM_GETITEMCOUNT, 0, 0));
    CString line, all;
    for (int column = 0; column < columns; ++column) {
        WCHAR text[100] = {};
        HDITEMW item = {};
        item.mask = HDI_TEXT | HDI_FORMAT;
        item.pszText = text;
        item.cchTextMax = 100;
        ::SendMessageW(header, HDM_GETITEMW, static_cast<WPARAM>(column),
                       reinterpret_cast<LPARAM>(&item));
        line += CString(column > 0 ? _T(" | ") : _T("")) + text;
        if ((item.fmt & (HDF_SORTUP | HDF_SORTDOWN)) != 0)
            line += (item.fmt & HDF_SORTUP) != 0 ? _T(" (up)") : _T(" (down)");
    }
    all = _T("    ") + line;
    const int count = static_cast<int>(::SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
    const int selected = static_cast<int>(
        ::SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
    const int first = std::clamp(selected - kMostRows / 2, 0, std::max(count - kMostRows, 0));
    for (int row = first; row < std::min(count, first + kMostRows); ++row) {
        line = row == selected ? _T("  * ") : _T("    ");
        for (int column = 0; column < columns; ++column)
            line += CString(column > 0 ? _T(" | ") : _T("")) + Shown(CellOf(list, row, column));
        all += _T("\n") + line;
    }
    line.Format(_T("\n    (%d rows)"), count);
    Line(all + line);
}

void ShowControl(HWND control) {
    const CString name = ClassOf(control), text = Shown(TextOf(control));
    const CString state(!::IsWindowEnabled(control) ? _T(" (grey)")
                        : ::GetFocus() == control   ? _T(" (active)")
                                                    : _T(""));
    const LONG kind = ::GetWindowLongW(control, GWL_STYLE) & BS_TYPEMASK;
    if (name == WC_LISTVIEWW)
        ShowList(control);
    else if (name.CompareNoCase(WC_EDITW) == 0)
        Line(_T("    field: ") + text + state);
    else if (name.CompareNoCase(WC_COMBOBOXW) == 0)
        Line(_T("    choice: ") + text + state);
    else if (name.CompareNoCase(WC_BUTTONW) == 0 && kind == BS_AUTOCHECKBOX)
        Line((::SendMessageW(control, BM_GETCHECK, 0, 0) != 0 ? _T("    [x] ") : _T("    [ ] ")) +
             text + state);
    else if (name.CompareNoCase(WC_BUTTONW) == 0)
        Line(_T("    [") + text + _T("]") + state);
    else if (name.CompareNoCase(WC_STATICW) == 0 && !text.IsEmpty())
        Line(_T("    ") + text);
}

void ShowControls(HWND window) {
    for (const HWND control : ChildrenOf(window)) {
        if (!::IsWindowVisible(control))
            continue;
        if (ClassOf(control) == _T("#32770")) // a page
            ShowControls(control);
        else
            ShowControl(control);
    }
}

// The balloons of the thread, which have no title bar.
BOOL CALLBACK ShowBalloon(HWND window, LPARAM) {
    if (ClassOf(window) == TOOLTIPS_CLASSW && ::IsWindowVisible(window) &&
        !TextOf(window).IsEmpty())
        Line(_T("    balloon: ") + Shown(TextOf(window)));
    return TRUE;
}

bool IsWorking(HWND box) {
    const HWND stop = ::GetDlgItem(box, CONTROL_STOP);
    return stop != nullptr && ::IsWindowVisible(stop);
}

} // namespace

void Say(const CString& text) {
    CStringA bytes;
    AfxWideCharToUTF8(text, bytes);
    std::printf("%s\n", bytes.GetString());
    std::fflush(stdout);
}

Script::Script(CString pictureFolder, CString set)
    : m_pictureFolder(std::move(pictureFolder)), m_set(std::move(set)) {
    s_script = this;
    m_timer = ::SetTimer(nullptr, 0, USER_TIMER_MINIMUM, Tick);
}

Script::~Script() {
    ::KillTimer(nullptr, m_timer);
    s_script = nullptr;
}

void CALLBACK Script::Tick(HWND, UINT, UINT_PTR, DWORD) {
    s_script->PlayNext();
}

void Script::PlayNext() {
    const HWND box = FindVisibleBox();
    if (IsDone() || box == nullptr || IsWorking(box)) {
        if (++m_waited > kPatience) {
            std::printf("The script waits in vain.\n");
            std::fflush(stdout);
            ::ExitProcess(1); // a dialog that nobody ends
        }
        return;
    }
    m_waited = 0;
    m_steps[m_next++](box);
}

void Script::Heading(const char* text) {
    Add([text](HWND) { Say(_T("\n== ") + CString(text)); });
}

void Script::Keys(const char* keys) {
    const CString name(keys);
    Add([name](HWND) {
        Say(_T("> ") + name);
        CShortcutKey key;
        if (!AfxParseShortcutKeyText(name, key))
            return Say(_T("no key"));
        const std::pair<bool, WORD> held[] = {{key.UsesControlKeyModifier(), VK_CONTROL},
                                              {key.UsesShiftKeyModifier(), VK_SHIFT},
                                              {key.UsesAltKeyModifier(), VK_MENU}};
        const DWORD flags = key.IsExtendedKey() ? KEYEVENTF_EXTENDEDKEY : 0;
        std::vector<INPUT> inputs;
        for (const auto& [isHeld, modifier] : held)
            if (isHeld)
                inputs.push_back(KeyInput(modifier, 0));
        inputs.push_back(KeyInput(key.GetVirtualKeyCode(), flags));
        inputs.push_back(KeyInput(key.GetVirtualKeyCode(), flags | KEYEVENTF_KEYUP));
        for (const auto& [isHeld, modifier] : held)
            if (isHeld)
                inputs.push_back(KeyInput(modifier, KEYEVENTF_KEYUP));
        Send(inputs);
    });
}

void Script::Type(const WCHAR* text) {
    const CString typed(text);
    Add([typed](HWND) {
        Say(_T("> \"") + typed + _T("\""));
        std::vector<INPUT> inputs;
        for (int i = 0; i < typed.GetLength(); ++i) {
            INPUT input = {};
            input.type = INPUT_KEYBOARD;
            input.ki.wScan = typed[i];
            input.ki.dwFlags = KEYEVENTF_UNICODE;
            inputs.push_back(input);
            input.ki.dwFlags |= KEYEVENTF_KEYUP;
            inputs.push_back(input);
        }
        Send(inputs);
    });
}

void Script::Click(int controlId) {
    Add([controlId](HWND box) {
        const HWND control = ::GetDlgItem(box, controlId);
        Say(_T("> click on ") + TextOf(control));
        CRect rect;
        ::GetWindowRect(control, rect);
        ClickAt(rect);
    });
}

void Script::ClickRow(int listId, int row) {
    Add([listId, row](HWND box) {
        const HWND list = ::GetDlgItem(box, listId);
        CRect rect(LVIR_LABEL, 0, 0, 0);
        ::SendMessageW(list, LVM_GETITEMRECT, static_cast<WPARAM>(row),
                       reinterpret_cast<LPARAM>(&rect));
        Say(_T("> click on ") + CellOf(list, row, 0));
        ClickAt(OnScreen(list, rect));
    });
}

void Script::ClickHeading(int listId, int column) {
    Add([listId, column](HWND box) {
        const HWND list = ::GetDlgItem(box, listId);
        const auto header = reinterpret_cast<HWND>(::SendMessageW(list, LVM_GETHEADER, 0, 0));
        CRect rect;
        ::SendMessageW(header, HDM_GETITEMRECT, static_cast<WPARAM>(column),
                       reinterpret_cast<LPARAM>(&rect));
        Say(_T("> click on the heading"));
        ClickAt(OnScreen(header, rect));
    });
}

void Script::Show() {
    Add([](HWND) {}); // until what the last step posted was handled
    Add([](HWND box) {
        Say(_T("  ") + TextOf(box));
        ShowControls(box);
        ::EnumThreadWindows(::GetCurrentThreadId(), ShowBalloon, 0);
        PrintNews(ClassOf(box) + (::GetMenu(box) != nullptr ? CString() : TextOf(box)));
    });
}

void Script::ShowMenu(int position) {
    Add([position](HWND box) {
        const HMENU menu = ::GetSubMenu(::GetMenu(box), position);
        for (int i = 0; i < ::GetMenuItemCount(menu); ++i) {
            WCHAR text[100] = {};
            ::GetMenuStringW(menu, static_cast<UINT>(i), text, 100, MF_BYPOSITION);
            if (*text != 0)
                Say(_T("    ") + Shown(text));
        }
    });
}

void Script::Picture(const char* name, bool isInEverySet) {
    if (m_pictureFolder.IsEmpty() || !(m_set.IsEmpty() || isInEverySet))
        return;
    Add([](HWND) { ::SetCursorPos(0, 0); });
    Add([this, name](HWND box) {
        const CString path = m_pictureFolder + _T("/") + CString(name) + m_set + _T(".bmp");
        if (!SavePicture(box, CStringA(path)))
            Say(_T("no picture: ") + path);
    });
}
