// The workbench with a file of 100 MB, against the least that its work needs: opening and showing
// the file against AfxLoadXMLFile, filtering against a bare scan that ignores letter case, and the
// memory of both against that of the document. The two take turns, and the medians are compared.
// Windows only.
#include <quorvel/framework/app.h>
#include <quorvel/xml/xml_file.h>

#include "win/window_bench.h"
#include "workbench/main_dialog.h"
#include "workbench/resource.h"

#include <objbase.h>
#include <psapi.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr std::size_t kFileSize = 100'000'000;
constexpr int kTurns = 3;
constexpr UINT kOpenLater = WM_APP + 1; // the dialog opens its file

void WriteFileOfBench(const CString& name) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(::_wfopen(name, L"wb"),
                                                               &std::fclose);
    std::size_t size = static_cast<std::size_t>(
        std::fputs("<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<notes>\n", file.get()));
    for (int i = 0; size < kFileSize; ++i)
        size += static_cast<std::size_t>(std::fprintf(
            file.get(),
            "  <note id=\"%d\" kind=\"%s\">\n    <title>Title %d</title>\n    <text>A note of some "
            "length, as people write them: number %d of a long list</text>\n  </note>\n",
            i, i % 3 == 0 ? "idea" : "task", i, i));
    std::fputs("</notes>\n", file.get());
}

double MegabytesInUse() {
    PROCESS_MEMORY_COUNTERS counters = {};
    ::GetProcessMemoryInfo(::GetCurrentProcess(), &counters, sizeof counters);
    return static_cast<double>(counters.PagefileUsage) / 1e6;
}

double Median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

void Print(const char* name, double workbench, double bare, const char* unit) {
    std::printf("%-30s %9.1f %s, bare %9.1f %s, ratio %.2f\n", name, workbench, unit, bare, unit,
                workbench / bare);
    std::fflush(stdout);
}

// The window of the workbench, which opens a file at once.
class Window : public MainDialog {
public:
    explicit Window(const CString& file) : MainDialog(file) {
        Create();
        MSG message;
        while (::PeekMessageW(&message, m_hWnd, kOpenLater, kOpenLater, PM_REMOVE)) {
        }
        ShowWindow(SW_SHOW);
        UpdateWindow();
    }
    ~Window() override { DestroyWindow(); }
    void Open() {
        SendMessage(kOpenLater);
        Paint();
    }
    void Filter() {
        SendMessage(WM_COMMAND, COMMAND_FILTER);
        Paint();
    }

private:
    void Paint() { ::RedrawWindow(m_hWnd, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN); }
};

void CompareOpening(const CString& file) {
    std::vector<double> times[2], memory[2];
    for (int turn = 0; turn < kTurns; ++turn) {
        const double before = MegabytesInUse();
        {
            CMarkup markup;
            CString error;
            times[0].push_back(MillisecondsOf([&] { AfxLoadXMLFile(file, markup, error); }));
            memory[0].push_back(MegabytesInUse() - before);
        }
        Window window(file);
        times[1].push_back(MillisecondsOf([&] { window.Open(); }));
        memory[1].push_back(MegabytesInUse() - before);
    }
    Print("opening and showing", Median(times[1]), Median(times[0]), "ms");
    Print("memory of it", Median(memory[1]), Median(memory[0]), "MB");
}

// What a program without the workbench does: how often the text occurs.
int CountBarely(const CMarkup& markup, const WCHAR* fold, const CString& wanted) {
    const CString& text = markup.GetDocConstRef();
    const WCHAR* const units = text.GetString();
    const int length = wanted.GetLength();
    int count = 0;
    for (int i = 0; i + length <= text.GetLength(); ++i) {
        int same = 0;
        while (same < length && fold[units[i + same]] == wanted[same])
            ++same;
        count += same == length;
    }
    return count;
}

void CompareFiltering(const CString& file) {
    CMarkup markup;
    CString error;
    AfxLoadXMLFile(file, markup, error);
    std::vector<WCHAR> fold(0x10000);
    for (unsigned unit = 0; unit < 0x10000; ++unit)
        fold[unit] = static_cast<WCHAR>(reinterpret_cast<UINT_PTR>(
            ::CharLowerW(reinterpret_cast<WCHAR*>(static_cast<UINT_PTR>(unit)))));
    Window window(file);
    window.Open();
    for (const char* const each : {"title 77777<", "idea", "not there"}) {
        const CString wanted(each);
        std::vector<double> times[2];
        int found = 0;
        for (int turn = 0; turn < kTurns; ++turn) {
            times[0].push_back(
                MillisecondsOf([&] { found = CountBarely(markup, fold.data(), wanted); }));
            window.SetDlgItemText(CONTROL_FIND, wanted);
            times[1].push_back(MillisecondsOf([&] { window.Filter(); }));
        }
        const std::string name = "filter, " + std::to_string(found) + " found";
        Print(name.c_str(), Median(times[1]), Median(times[0]), "ms");
    }
}

} // namespace

int main() {
    ::CoInitialize(nullptr);
    CWinApp app(_T("Workbench bench"));
    app.SetRegistryKey(_T("Quorvel"));
    WCHAR folder[MAX_PATH];
    ::GetTempPathW(MAX_PATH, folder);
    const CString file = CString(folder) + _T("workbench_bench.xml");
    WriteFileOfBench(file);
    CompareOpening(file);
    CompareFiltering(file);
    ::DeleteFileW(file);
    ::RegDeleteTreeW(HKEY_CURRENT_USER, _T("Software\\Quorvel\\Workbench bench"));
    ::CoUninitialize();
}
