// CVaskEdit: the base of the library's edit controls. Windows only, user-interface thread.
//
// Ctrl+A selects the whole text, which the platform's edits of several lines do not do themselves.
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
