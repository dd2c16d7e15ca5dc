// The actions and the display of a link, depending on flags, texts and states.
#include "controls/link_model.h"

#include <quorvel/util/text/validation.h>

#include "controls/link_schemes.h"
#include "support/test.h"

#include <iterator>

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
        {0x1F, false, false, Action::Edit},        {0x1F, false, true, Action::Edit},
        {0x1B, true, false, Action::Edit}, // cannot open
        {0x17, true, false, Action::Open}, // cannot edit
        {0x17, true, true, Action::None},          {0x17, false, false, Action::None},
        {0x13, true, false, Action::None}, // neither
        {0x0F, true, false, Action::Open},         {0x06, true, false, Action::Open},
        {0x00, true, false, Action::NotifyParent}, {0x00, false, true, Action::NotifyParent},
        {0x1D, true, false, Action::NotifyParent}, {0x1D, true, true, Action::NotifyParent},
        {0x1D, false, false, Action::NotifyParent}};
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.flags << row.hasText << row.isCtrlDown);
        Link link;
        link.m_flags = row.flags;
        link.m_displayText = row.hasText ? _T("text") : _T("");
        EXPECT_EQ(link.Activate(row.isCtrlDown), row.action);
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
    for (const UINT key : {0x20u, 0x1Bu, 0x11u}) {
        EXPECT_FALSE(link.PressKey(key, false));
        EXPECT_EQ(link.ReleaseKey(key, false), Action::None);
    }
    EXPECT_EQ(link.ReleaseKey(0x0D, false), Action::None) << "went down elsewhere";
    EXPECT_TRUE(link.PressKey(0x0D, true));
    EXPECT_EQ(link.ReleaseKey(0x0D, false), Action::None) << "held since it went down elsewhere";
    EXPECT_TRUE(link.PressKey(0x0D, false));
    EXPECT_TRUE(link.PressKey(0x0D, true)) << "repeats";
    EXPECT_EQ(link.ReleaseKey(0x11, false), Action::None);
    EXPECT_TRUE(link.m_isKeyPressed);
    EXPECT_EQ(link.ReleaseKey(0x0D, false), Action::Open);
    EXPECT_EQ(link.ReleaseKey(0x0D, false), Action::None);
    EXPECT_TRUE(link.PressKey(0x0D, false));
    EXPECT_TRUE(link.CancelKey());
    EXPECT_FALSE(link.CancelKey());
    EXPECT_EQ(link.ReleaseKey(0x0D, false), Action::None) << "cancelled";
}

TEST(Link, CommandsNeedAnAddressAndTheirFlag) {
    for (DWORD flags = 0; flags < 0x20; ++flags) {
        Link link;
        link.m_flags = flags;
        const bool hasUri = (flags & 0x02) != 0;
        EXPECT_EQ(link.Can(Link::Command::Open), hasUri && (flags & 0x04)) << flags;
        EXPECT_EQ(link.Can(Link::Command::Edit), hasUri && (flags & 0x08)) << flags;
        EXPECT_EQ(link.Can(Link::Command::Copy), hasUri && (flags & 0x10)) << flags;
        EXPECT_EQ(link.HasMenu(), hasUri) << flags;
    }
}

TEST(Link, ColorFollowsItsState) {
    const quorvel::ContrastColors contrast = {0x111111, 0x222222, 0x333333};
    const struct {
        bool isEnabled, holdsMouse, isKeyPressed, isContrast;
        COLORREF color;
    } rows[] = {{true, false, false, false, 0xFF0000}, {true, true, false, false, 0x0000FF},
                {true, false, true, false, 0x0000FF},  {false, false, false, false, 0xABCDEF},
                {false, true, true, false, 0xABCDEF},  {true, false, false, true, 0x111111},
                {true, true, false, true, 0x222222},   {true, false, true, true, 0x222222},
                {false, true, false, true, 0x333333}};
    for (const auto& row : rows) {
        Link link;
        link.m_systemDisabledColor = 0xABCDEF;
        link.m_isKeyPressed = row.isKeyPressed;
        EXPECT_EQ(
            link.TextColor(row.isEnabled, row.holdsMouse, row.isContrast ? &contrast : nullptr),
            row.color);
        if (!row.isEnabled && !row.isContrast) {
            link.m_disabledColor = 0x654321;
            EXPECT_EQ(link.TextColor(false, row.holdsMouse, nullptr), 0x654321u);
        }
    }
    EXPECT_EQ(Link().m_visitedColor, 0x800080u);
}

TEST(Link, AddressesThatAreNoneLeaveTheFormerOne) {
    Link link;
    EXPECT_TRUE(link.SetUri(_T("http://example.com/")));
    for (const WCHAR* none :
         {static_cast<const WCHAR*>(nullptr), _T(""), _T("example.com"), _T("http://"),
          _T("http://a b"), _T("http://a\nb"), _T("javascript:alert(1)"), _T("C:\\a.txt")})
        EXPECT_FALSE(link.SetUri(none));
    EXPECT_EQ(link.Uri(), _T("http://example.com/"));
    EXPECT_EQ(link.TipText(), _T("http://example.com/"));
    EXPECT_TRUE(link.SetUri(_T("http://") + CString(_T('a'), 10000)));
    EXPECT_EQ(link.Uri().GetLength(), 10007);
    EXPECT_EQ(link.TipText(), _T("http://") + CString(_T('a'), 393) + _T("..."));
    link.SetFlag(Link::kHasUri, false);
    EXPECT_EQ(link.TipText(), _T(""));
    link.ClearUri();
    EXPECT_TRUE(link.Uri().IsEmpty());
}

TEST(Link, FlagsAreSetTogetherAndHandIsOverText) {
    Link link;
    link.SetFlag(0x05, false);
    EXPECT_EQ(link.m_flags, 0x1Au);
    link.SetFlag(0x01, true);
    EXPECT_TRUE(link.AreSet(0x03));
    EXPECT_FALSE(link.AreSet(0x07));
    EXPECT_TRUE(link.ShowsHand(true));
    EXPECT_FALSE(link.ShowsHand(false));
    link.m_isMenuShowing = true;
    EXPECT_FALSE(link.ShowsHand(true));
}

TEST(Link, WorkDoesNotBeginTwice) {
    Link link;
    {
        const quorvel::LinkWork work(link);
        EXPECT_TRUE(work.IsEntered());
        EXPECT_FALSE(quorvel::LinkWork(link).IsEntered());
        EXPECT_TRUE(link.m_isBusy);
    }
    EXPECT_TRUE(quorvel::LinkWork(link).IsEntered());
}

TEST(LinkSchemes, BeginValidAddressesInOrder) {
    const WCHAR* const expected[] = {_T("http://"), _T("mailto:"), _T("file://"),  _T("https://"),
                                     _T("ftp://"),  _T("news:"),   _T("gopher://")};
    ASSERT_EQ(std::size(quorvel::kLinkSchemes), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        EXPECT_EQ(CString(quorvel::kLinkSchemes[i]), expected[i]);
        EXPECT_FALSE(AfxIsValidURL(expected[i]));
        EXPECT_TRUE(AfxIsValidURL(CString(expected[i]) + _T("a")));
    }
    EXPECT_EQ(quorvel::LinkToFile(_T("C:\\a b.txt")), _T("file://C:\\a b.txt"));
}

} // namespace
