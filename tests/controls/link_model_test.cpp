// The actions and the display of a link, depending on flags, texts and states.
#include "controls/link_model.h"

#include "support/test.h"

namespace {

typedef quorvel::LinkModel Link;
typedef Link::Action Action;

TEST(Link, ActivationFollowsFlagsTextAndCtrl) {
    const struct {
        DWORD flags;
        bool hasText, isCtrlDown;
        Action action;
    } rows[] = {
        {0x1F, true, false, Action::Open},         {0x1F, true, true, Action::Edit},
        {0x1F, false, false, Action::Edit},        {0x1B, true, false, Action::Edit}, // cannot open
        {0x17, true, true, Action::None},                                             // cannot edit
        {0x17, false, false, Action::None},        {0x13, true, false, Action::None}, // neither
        {0x06, true, false, Action::Open},         {0x00, true, false, Action::NotifyParent},
        {0x1D, false, true, Action::NotifyParent},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.flags << row.hasText << row.isCtrlDown);
        Link link;
        link.m_flags = row.flags;
        link.m_displayText = row.hasText ? _T("text") : _T("");
        EXPECT_EQ(link.ReleaseMouse(true, true, row.isCtrlDown), row.action);
        EXPECT_EQ(link.ReleaseMouse(true, false, row.isCtrlDown), Action::None) << "outside";
        EXPECT_EQ(link.ReleaseMouse(false, true, row.isCtrlDown), Action::None) << "not pressed";
        EXPECT_TRUE(link.PressKey(0x0D, false));
        EXPECT_EQ(link.ReleaseKey(0x0D, row.isCtrlDown), row.action);
    }
}

TEST(Link, OnlyItsOwnKeyActivatesAndOnlyOnce) {
    Link link;
    link.m_displayText = _T("text");
    EXPECT_FALSE(link.PressKey(0x20, false));
    EXPECT_EQ(link.ReleaseKey(0x20, false), Action::None);
    EXPECT_TRUE(link.PressKey(0x0D, true));
    EXPECT_EQ(link.ReleaseKey(0x0D, false), Action::None) << "held since it was pressed elsewhere";
    EXPECT_TRUE(link.PressKey(0x0D, false));
    EXPECT_TRUE(link.PressKey(0x0D, true)) << "repeats";
    EXPECT_EQ(link.ReleaseKey(0x11, false), Action::None);
    EXPECT_EQ(link.ReleaseKey(0x0D, false), Action::Open);
    EXPECT_EQ(link.ReleaseKey(0x0D, false), Action::None);
    EXPECT_TRUE(link.PressKey(0x0D, false));
    EXPECT_TRUE(link.CancelKey() && !link.CancelKey());
    EXPECT_EQ(link.ReleaseKey(0x0D, false), Action::None) << "cancelled";
}

TEST(Link, ColorFollowsItsState) {
    const quorvel::ContrastColors contrast = {0x111111, 0x222222, 0x333333};
    const struct {
        bool isEnabled, holdsMouse, isKeyPressed;
        COLORREF color, contrastColor;
    } rows[] = {{true, false, false, 0xFF0000, 0x111111},
                {true, true, false, 0x0000FF, 0x222222},
                {true, false, true, 0x0000FF, 0x222222},
                {false, true, true, 0xABCDEF, 0x333333}};
    for (const auto& row : rows) {
        Link link;
        link.m_systemDisabledColor = 0xABCDEF;
        link.m_isKeyPressed = row.isKeyPressed;
        EXPECT_EQ(link.TextColor(row.isEnabled, row.holdsMouse, nullptr), row.color);
        EXPECT_EQ(link.TextColor(row.isEnabled, row.holdsMouse, &contrast), row.contrastColor);
    }
}

TEST(Link, AddressesThatAreNoneLeaveTheFormerOne) {
    Link link;
    EXPECT_TRUE(link.SetUri(_T("http://example.com/")));
    for (const WCHAR* none :
         {static_cast<const WCHAR*>(nullptr), _T(""), _T("example.com"), _T("http://"),
          _T("http://a b"), _T("http://a\nb"), _T("javascript:alert(1)"), _T("C:\\a.txt")})
        EXPECT_FALSE(link.SetUri(none));
    EXPECT_EQ(link.Uri(), _T("http://example.com/"));
    EXPECT_TRUE(link.SetUri(_T("http://") + CString(_T('a'), 10000)));
    EXPECT_EQ(link.Uri().GetLength(), 10007);
    EXPECT_EQ(link.TipText(), _T("http://") + CString(_T('a'), 393) + _T("..."));
    link.SetFlag(Link::kHasUri, false);
    EXPECT_EQ(link.TipText(), _T(""));
}

} // namespace
