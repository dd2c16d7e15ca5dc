#include <quorvel/controls/win/vask_edit.h>

IMPLEMENT_DYNAMIC(CVaskEdit, CEdit)

BEGIN_MESSAGE_MAP(CVaskEdit, CEdit)
ON_WM_CHAR()
END_MESSAGE_MAP()

CVaskEdit::CVaskEdit() = default;
CVaskEdit::~CVaskEdit() = default;

void CVaskEdit::OnChar(UINT character, UINT repeats, UINT flags) {
    constexpr UINT kCtrlA = 1;
    if (character == kCtrlA)
        SetSel(0, -1);
    else
        CEdit::OnChar(character, repeats, flags);
}
