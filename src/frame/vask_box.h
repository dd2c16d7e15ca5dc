// A message box with its additions, ready to be shown.
#pragma once

#include <quorvel/framework/string.h>

#include <optional>

namespace quorvel {

struct VaskBox {
    CString text;
    UINT type = 0;
    std::optional<CString> heading;
    std::optional<CString> checkBoxText;
    int checkState = 0; // 0 or 1
    CString helpTarget; // empty when there is none
};

// Shows it through AfxMessageBox and leaves the final check state in it. The box's result.
int ShowVaskBox(VaskBox& box);

} // namespace quorvel
