// The content of an extended message box.
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
    CString helpTarget; // empty without a help target
};

// Shows the box with AfxMessageBox, stores its final check state and returns its result.
int ShowVaskBox(VaskBox& box);

} // namespace quorvel
