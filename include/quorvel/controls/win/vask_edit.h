// CVaskEdit: the base of the library's edit controls. Windows only, user-interface thread.
//
// Ctrl+A selects all text. The platform's multi-line edits do not do that.
#pragma once

#include <quorvel/framework/win/edit.h>
#include <quorvel/framework/win/message_map.h>

class QUORVEL_API CVaskEdit : public CEdit {
    DECLARE_DYNAMIC(CVaskEdit)
public:
    CVaskEdit();
    ~CVaskEdit() override;

protected:
    void OnChar(UINT character, UINT repeats, UINT flags);
    DECLARE_MESSAGE_MAP()
};
