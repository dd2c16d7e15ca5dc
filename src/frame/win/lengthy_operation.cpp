#include <quorvel/frame/lengthy_operation.h>

CLengthyOperationHandler::~CLengthyOperationHandler() = default;

void CLengthyOperationHandler::PumpMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) { // the thread's message loop must get it
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}
