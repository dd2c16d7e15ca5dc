#include "platform/linux/windows/terminal_message_box.h"

#include <quorvel/platform/linux_api.h>

#include "platform/linux/windows/terminal.h"

#include <cctype>
#include <span>
#include <unistd.h>

namespace quorvel {

namespace {

struct Button {
    int id;
    char letter;
    const char* label;
};
constexpr Button kOk{IDOK, 'o', "OK"};
constexpr Button kCancel{IDCANCEL, 'c', "Cancel"};
constexpr Button kYes{IDYES, 'y', "Yes"};
constexpr Button kNo{IDNO, 'n', "No"};
constexpr Button kRetry{IDRETRY, 'r', "Retry"};

constexpr Button kOkSet[] = {kOk};
constexpr Button kOkCancelSet[] = {kOk, kCancel};
constexpr Button kAbortRetryIgnoreSet[] = {
    {IDABORT, 'a', "Abort"}, kRetry, {IDIGNORE, 'i', "Ignore"}};
constexpr Button kYesNoCancelSet[] = {kYes, kNo, kCancel};
constexpr Button kYesNoSet[] = {kYes, kNo};
constexpr Button kRetryCancelSet[] = {kRetry, kCancel};
constexpr Button kCancelTryContinueSet[] = {
    kCancel, {IDTRYAGAIN, 't', "Try Again"}, {IDCONTINUE, 'o', "Continue"}};

// Indexed by the values of MB_TYPEMASK.
constexpr std::span<const Button> kButtonSets[] = {
    kOkSet,    kOkCancelSet,    kAbortRetryIgnoreSet,  kYesNoCancelSet,
    kYesNoSet, kRetryCancelSet, kCancelTryContinueSet,
};

const char* IconWord(UINT type) {
    switch (type & MB_ICONMASK) {
    case MB_ICONERROR:
        return " (error)";
    case MB_ICONQUESTION:
        return " (question)";
    case MB_ICONWARNING:
        return " (warning)";
    case MB_ICONINFORMATION:
        return " (information)";
    default:
        return "";
    }
}

// Returns the chosen button; null at the end of the input.
const Button* Ask(std::span<const Button> buttons, const Button& preset, std::FILE* out,
                  std::FILE* input) {
    for (;;) {
        for (const Button& button : buttons)
            std::fprintf(out, "[%c] %s%s  ", button.letter, button.label,
                         button.id == preset.id ? " (default)" : "");
        std::fputs("? ", out);
        std::fflush(out);
        char line[80];
        if (std::fgets(line, sizeof line, input) == nullptr)
            return nullptr;
        if (line[0] == '\n')
            return &preset;
        const int letter = std::tolower(static_cast<unsigned char>(line[0]));
        for (const Button& button : buttons)
            if (letter == button.letter)
                return &button;
    }
}

} // namespace

int TerminalMessageBox(LPCWSTR text, LPCWSTR caption, UINT type, std::FILE* out, std::FILE* input) {
    const UINT set = type & MB_TYPEMASK;
    if (set >= std::size(kButtonSets)) {
        win32::SetLastError(ERROR_INVALID_MSGBOX_STYLE);
        return 0;
    }
    const std::span<const Button> buttons = kButtonSets[set];
    const UINT preset = (type & MB_DEFMASK) >> 8;
    const Button& presetButton = buttons[preset < buttons.size() ? preset : 0];
    std::fprintf(out, "%s%s\n%s\n", TerminalText(caption).c_str(), IconWord(type),
                 TerminalText(text).c_str());
    const Button* chosen = nullptr;
    if (input != nullptr && buttons.size() > 1)
        chosen = Ask(buttons, presetButton, out, input);
    std::fflush(out);
    return chosen != nullptr ? chosen->id : presetButton.id;
}

} // namespace quorvel

namespace quorvel::win32 {

int MessageBoxW(HWND, LPCWSTR text, LPCWSTR caption, UINT type) {
    const bool ask = isatty(STDIN_FILENO) != 0 && isatty(STDERR_FILENO) != 0;
    return TerminalMessageBox(text, caption, type, stderr, ask ? stdin : nullptr);
}

} // namespace quorvel::win32
