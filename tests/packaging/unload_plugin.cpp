// A plugin of a host: uses services that keep state in the process, on a thread that ends.
#include <quorvel/framework/string.h>
#include <quorvel/platform/linux_api.h>
#include <quorvel/system/profile.h>
#include <quorvel/util/text/match.h>

#include <thread>

extern "C" __attribute__((visibility("default"))) bool UseServices() {
    bool works = false;
    std::thread([&works] {
        CString text(_T("\u00c4RGER"));
        const CRegistryPath path(HKEY_CURRENT_USER, _T("Software\\Quorvel unload test"));
        works = AfxMatchText(text, _T("^\u00e4r"), FALSE) &&
                AfxWriteProfileDWord(path, _T("Number"), 7) &&
                AfxGetProfileDWord(path, _T("Number"), 0) == 7 &&
                quorvel::win32::SetTimer(nullptr, 0, 60'000, nullptr) != 0;
    }).join();
    return works;
}
