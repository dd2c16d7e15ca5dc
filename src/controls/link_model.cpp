#include "controls/link_model.h"

#include <quorvel/util/text/validation.h>

namespace quorvel {

namespace {

constexpr UINT kReturnKey = 0x0D;
constexpr int kTipLength = 400;

} // namespace

bool LinkModel::SetUri(const WCHAR* uri) {
    if (!AfxIsValidURL(uri))
        return false;
    m_uri = uri;
    return true;
}

bool LinkModel::Can(Command command) const {
    switch (command) {
    case Command::Open:
        return AreSet(kHasUri | kCanOpenUri);
    case Command::Edit:
        return AreSet(kHasUri | kCanEditUri);
    case Command::Copy:
        return AreSet(kHasUri | kCanCopyUri);
    }
    return false;
}

LinkModel::Action LinkModel::Activate(bool isCtrlDown) const {
    if (!AreSet(kHasUri))
        return Action::NotifyParent;
    if (!m_displayText.IsEmpty() && !isCtrlDown && Can(Command::Open))
        return Action::Open;
    return Can(Command::Edit) ? Action::Edit : Action::None;
}

LinkModel::Action LinkModel::ReleaseMouse(bool holdsMouse, bool isInText, bool isCtrlDown) const {
    return holdsMouse && isInText ? Activate(isCtrlDown) : Action::None;
}

bool LinkModel::PressKey(UINT key, bool isRepeated) {
    if (key != kReturnKey)
        return false;
    if (!isRepeated)
        m_isKeyPressed = true;
    return true;
}

LinkModel::Action LinkModel::ReleaseKey(UINT key, bool isCtrlDown) {
    // The key that closed a dialog is released here, although it was not pressed here.
    return key == kReturnKey && CancelKey() ? Activate(isCtrlDown) : Action::None;
}

bool LinkModel::CancelKey() {
    return std::exchange(m_isKeyPressed, false);
}

COLORREF LinkModel::TextColor(bool isEnabled, bool holdsMouse,
                              const ContrastColors* contrast) const {
    if (!isEnabled)
        return contrast != nullptr ? contrast->disabled
                                   : m_disabledColor.value_or(m_systemDisabledColor);
    if (holdsMouse || m_isKeyPressed)
        return contrast != nullptr ? contrast->active : m_activeColor;
    return contrast != nullptr ? contrast->link : m_linkColor;
}

CString LinkModel::TipText() const {
    if (!AreSet(kHasUri) || m_uri.GetLength() <= kTipLength)
        return AreSet(kHasUri) ? m_uri : CString();
    return m_uri.Left(kTipLength) + _T("...");
}

} // namespace quorvel
