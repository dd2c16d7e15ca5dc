// The small windows that show how far a check for updates is, over the window of the check, which
// owns them and stays usable.
#pragma once

#include <quorvel/controls/win/vask_dialog.h>
#include <quorvel/framework/win/progress_ctrl.h>

#include <functional>

namespace quorvel {

class UpdateProgressPane : public CVaskDialog {
public:
    // `onCancel` is called on the Cancel button, Escape and the close box. The pane stays until it
    // is hidden.
    UpdateProgressPane(UINT templateId, std::function<void()> onCancel);
    ~UpdateProgressPane() override;

    BOOL Create(CWnd* owner); // hidden
    // In the middle of its owner, with empty texts and the bar at 0.
    void Show();
    void Hide();
    void SetText(const WCHAR* text);
    // Bytes. The bar, where the pane has one, is full when all that is expected has come.
    void SetFigures(ULONGLONG received, ULONGLONG expected, const WCHAR* text);

protected:
    void OnOK() override {} // there is nothing to accept
    void OnCancel() override;

private:
    const std::function<void()> m_onCancel;
};

} // namespace quorvel
