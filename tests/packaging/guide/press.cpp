// press CAPTION: waits for a dialog of any program with that caption, and presses its OK button.
#include <windows.h>

int main(int argc, char** argv) {
    for (int tries = 0; argc == 2 && tries < 600; ++tries) {
        const HWND dialog = FindWindowA("#32770", argv[1]);
        if (dialog != nullptr && IsWindowVisible(dialog))
            return PostMessageA(dialog, WM_COMMAND, IDOK, 0) ? 0 : 1;
        Sleep(50);
    }
    return 1;
}
