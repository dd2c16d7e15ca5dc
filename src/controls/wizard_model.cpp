#include "controls/wizard_model.h"

#include <quorvel/res/message_ids.h>

#include <span>

namespace quorvel {

namespace {

struct ButtonText {
    int buttonId;
    UINT textId;
};

// The system's ids for special buttons.
constexpr int kApplyNow = 0x3021;
constexpr int kWizardBack = 0x3023;
constexpr int kWizardNext = 0x3024;
constexpr int kWizardFinish = 0x3025;

constexpr ButtonText kSheetButtons[] = {
    {IDOK, kTextSheetOk},
    {IDCANCEL, kTextSheetCancel},
    {kApplyNow, kTextSheetApply},
    {IDHELP, kTextSheetHelp},
};
constexpr ButtonText kWizardButtons[] = {
    {kWizardNext, kTextWizardNext}, {kWizardFinish, kTextWizardFinish},
    {kWizardBack, kTextWizardBack}, {IDCANCEL, kTextWizardCancel},
    {IDHELP, kTextSheetHelp},
};

UINT Find(std::span<const ButtonText> buttons, int buttonId) {
    for (const ButtonText& button : buttons) {
        if (button.buttonId == buttonId)
            return button.textId;
    }
    return 0;
}

CString Named(UINT textId, const CString& name) {
    CString text;
    AfxFormatString1(text, textId, name);
    return text;
}

} // namespace

BOOL WizardEvents::Get(int index, CVaskEvent& event) const {
    if (!IsIndex(index))
        return FALSE;
    event = m_events[static_cast<std::size_t>(index)];
    return TRUE;
}

BOOL WizardEvents::Update(int index, const CVaskEvent& event) {
    if (!IsIndex(index))
        return FALSE;
    m_events[static_cast<std::size_t>(index)] = event;
    return TRUE;
}

BOOL WizardEvents::Delete(int index) {
    if (!IsIndex(index))
        return FALSE;
    m_events.erase(m_events.begin() + index);
    return TRUE;
}

CString WizardWelcomeText(const CString& name) {
    return Named(kTextWizardWelcome, name);
}

CString WizardCompletingText(const CString& name) {
    return Named(kTextWizardCompleting, name);
}

CString WizardCompletedText(const CString& name) {
    return Named(kTextWizardCompleted, name);
}

UINT SheetButtonText(int buttonId) {
    return Find(kSheetButtons, buttonId);
}

UINT WizardButtonText(int buttonId) {
    return Find(kWizardButtons, buttonId);
}

} // namespace quorvel
