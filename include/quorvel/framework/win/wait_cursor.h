// CWaitCursor: the hour-glass for as long as the object lives. Windows only; user-interface thread.
#pragma once

#include <quorvel/framework/object.h>

class QUORVEL_API CWaitCursor {
public:
    CWaitCursor();
    CWaitCursor(const CWaitCursor&) = delete;
    ~CWaitCursor();

    void Restore(); // after a message box, which has a cursor of its own
};
