// Real boxes: their content and layout, and the result of a user's clicks.
#include <quorvel/frame/vask_message_box.h>

#include "support/test.h"
#include "support/win/dialog_driver.h"

namespace {

constexpr int kHeadingId = 23000;
constexpr int kCheckBoxId = 23001;

const WCHAR* const kShort = _T("Text.");
const WCHAR* const kLong =
    _T("A text of several lines, since it goes on and on until the box cannot be wider and the ")
    _T("system breaks it.\r\n\r\nThird,\r\nfourth\r\nand fifth line,\r\nhigher than the icon.");
const WCHAR* const kWide = _T("A heading that is a good deal wider than the message beneath it, ")
                           _T("so that the box must grow");

// A control of the box: text, font weight and style bits. A null text: no such control.
void ExpectPart(HWND box, int id, const WCHAR* text, LONG weight, LONG mask, LONG style) {
    const HWND control = ::GetDlgItem(box, id);
    EXPECT_EQ(control != nullptr, text != nullptr);
    if (control == nullptr)
        return;
    EXPECT_EQ(TextOf(control), text);
    EXPECT_EQ(FontOf(control).lfWeight, weight);
    EXPECT_EQ(::GetWindowLongPtrW(control, GWL_STYLE) & mask, style);
}

void ExpectApartAndInside(HWND box) {
    CRect client;
    ::GetClientRect(box, client);
    const std::vector<HWND> children = ChildrenOf(box);
    for (const HWND child : children) {
        const CRect place = PlaceOf(child);
        SCOPED_TRACE(::GetDlgCtrlID(child));
        EXPECT_FALSE(place.IsRectEmpty());
        EXPECT_TRUE(place.left >= 0 && place.top >= 0 && place.right <= client.right &&
                    place.bottom <= client.bottom);
        for (const HWND other : children) {
            CRect common;
            EXPECT_TRUE(child == other || !::IntersectRect(common, place, PlaceOf(other)))
                << "overlaps " << ::GetDlgCtrlID(other);
        }
    }
}

TEST(VaskWindow, HasItsPartsInTheirPlaces) {
    // Heading, text and check box; null: none.
    const std::tuple<const char*, const WCHAR*, const WCHAR*, const WCHAR*, UINT> rows[] = {
        {"heading", _T("Save & leave?"), kShort, nullptr, MB_YESNOCANCEL | MB_ICONWARNING},
        {"wide check box", nullptr, kShort, kWide, MB_OKCANCEL | MB_ICONERROR},
        {"both", kWide, kLong, _T("&Again"), MB_ABORTRETRYIGNORE | MB_ICONERROR | MB_HELP},
    };
    const HWND owner = ::CreateWindowExW(0, _T("Static"), nullptr, WS_POPUP | WS_VISIBLE, 100, 80,
                                         700, 500, nullptr, nullptr, nullptr, nullptr);
    for (const auto& [label, heading, text, check, type] : rows) {
        SCOPED_TRACE(label);
        ::SetActiveWindow(owner);
        const DialogDriver driver({[&](HWND box) {
            ExpectApartAndInside(box);
            const CRect outer = ScreenPlaceOf(owner), inner = ScreenPlaceOf(box);
            EXPECT_NEAR(inner.left + inner.right, outer.left + outer.right, 1);
            EXPECT_NEAR(inner.top + inner.bottom, outer.top + outer.bottom, 1);
            ExpectPart(box, kHeadingId, heading, FW_BOLD, SS_NOPREFIX, SS_NOPREFIX);
            ExpectPart(box, kCheckBoxId, check, FW_NORMAL, BS_TYPEMASK, BS_CHECKBOX);
            ::EndDialog(box, IDOK);
        }});
        int state = 0;
        if (check == nullptr)
            AfxVaskMessageBox(heading, text, type, nullptr);
        else if (heading == nullptr)
            AfxVaskMessageBox(text, check, state, type, nullptr);
        else
            AfxVaskMessageBox(heading, text, check, state, type, nullptr);
        EXPECT_TRUE(driver.HasRun());
    }
    ::DestroyWindow(owner);
}

TEST(VaskWindow, ClicksToggleTheCheckBoxAndComeBack) {
    const std::tuple<int, int, int> rows[] = {{0, 2, 0}, {1, 0, 1}, {7, 1, 1}};
    for (const auto& [before, clicks, after] : rows) {
        SCOPED_TRACE(testing::Message() << before << " clicked " << clicks);
        const DialogDriver driver({[&](HWND box) {
            const HWND checkBox = ::GetDlgItem(box, kCheckBoxId);
            EXPECT_EQ(::SendMessageW(checkBox, BM_GETCHECK, 0, 0), before == 1);
            for (int i = 0; i < clicks; ++i)
                Click(box, kCheckBoxId);
            EXPECT_EQ(::SendMessageW(checkBox, BM_GETCHECK, 0, 0), after);
            Click(box, IDCANCEL);
        }});
        int checkState = before;
        EXPECT_EQ(AfxVaskMessageBox(kShort, _T("&Again"), checkState, MB_OKCANCEL, nullptr),
                  IDCANCEL);
        EXPECT_EQ(checkState, after);
    }
}

} // namespace
