#include "platform/linux/windows/terminal.h"

#include <quorvel/platform/linux_api.h>

#include <sys/ioctl.h>
#include <unistd.h>

namespace quorvel {

std::string TerminalText(LPCWSTR text) {
    std::u16string shown(text != nullptr ? text : u"");
    std::erase_if(shown, [](WCHAR unit) {
        return (unit < ' ' && unit != '\n' && unit != '\t') || (unit >= 0x7f && unit < 0xa0);
    });
    const int length = static_cast<int>(shown.size());
    if (length == 0)
        return {};
    const int size =
        win32::WideCharToMultiByte(CP_UTF8, 0, shown.data(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    win32::WideCharToMultiByte(CP_UTF8, 0, shown.data(), length, bytes.data(), size, nullptr,
                               nullptr);
    return bytes;
}

int TerminalColumns(std::FILE* stream) {
    const int descriptor = fileno(stream);
    if (isatty(descriptor) == 0)
        return 0;
    winsize size = {};
    const bool told = ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return told ? size.ws_col : 80;
}

} // namespace quorvel
