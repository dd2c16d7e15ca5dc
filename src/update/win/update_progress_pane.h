// The small windows that show the progress of a check for updates. The window of the check owns
// them and stays usable.
#pragma once

#include <quorvel/controls/win/vask_dialog.h>
#include <quorvel/framework/win/progress_ctrl.h>

#include <functional>

namespace quorvel {

class UpdateProgressPane : public CVaskDialog {
public:
    // Calls `onCancel` for the Cancel button, Escape and the close box. The pane stays until it is
    // hidden.
    UpdateProgressPane(UINT templateId, std::function<void()> onCancel);
    ~UpdateProgressPane() override;

    BOOL Create(CWnd* owner); // hidden
    // Shows it centred over its owner, with empty texts and the bar at 0.
    void Show();
    void Hide();
    void SetText(const WCHAR* text);
    // In bytes. The bar, if the pane has one, is full when all expected bytes have arrived.
    void SetFigures(ULONGLONG received, ULONGLONG expected, const WCHAR* text);

protected:
    void OnOK() override {} // there is nothing to confirm
    void OnCancel() override;

private:
    const std::function<void()> m_onCancel;
};

} // namespace quorvel
