// CWaitCursor: shows the hour-glass while it exists. Windows only; user-interface thread.
#pragma once

#include <quorvel/framework/object.h>

class QUORVEL_API CWaitCursor {
public:
    CWaitCursor();
    CWaitCursor(const CWaitCursor&) = delete;
    ~CWaitCursor();

    void Restore(); // call it after a message box, which changes the cursor
};
