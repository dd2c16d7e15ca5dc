// workbench [FILE]: shows the elements of an XML file, finds, filters and edits them.
#include <quorvel/framework/app.h>

#include "main_dialog.h"
#include "options.h"

#include <objbase.h>
#include <shellapi.h>

#include <memory>

namespace {

CString FileArgument() {
    int count = 0;
    const std::unique_ptr<LPWSTR, decltype(&::LocalFree)> arguments(
        ::CommandLineToArgvW(::GetCommandLineW(), &count), &::LocalFree);
    return arguments != nullptr && count > 1 ? CString(arguments.get()[1]) : CString();
}

} // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int) {
    ::CoInitialize(nullptr); // for the field that completes
    int result;
    {
        CWinApp app(_T("Workbench"));
        InstallLanguage(Settings::Load().language);
        MainDialog dialog(FileArgument());
        result = dialog.DoModal() == -1 ? 1 : 0;
    }
    ::CoUninitialize();
    return result;
}
