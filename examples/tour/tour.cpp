// A console host of the library, one source for both systems.
//
//     tour [--lang-dir FOLDER] [FILE...]
//
// Walks through what the library offers so far: its own version resource, those of the modules
// named on the command line, the catalogue in two languages, digests, encoding names and an error
// box. It prints the same on Windows and on Linux.
#include "common/console.h"

#include <quorvel/frame/exception_text.h>
#include <quorvel/frame/languages.h>
#include <quorvel/frame/message_box.h>
#include <quorvel/frame/module.h>
#include <quorvel/framework/app.h>
#include <quorvel/framework/file.h>
#include <quorvel/res/message_ids.h>
#include <quorvel/types/module_version.h>
#include <quorvel/types/version_number.h>
#include <quorvel/util/text/base64.h>
#include <quorvel/util/text/encoding_names.h>
#include <quorvel/util/text/md5.h>
#include <quorvel/util/text/utf8.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <type_traits>
#include <vector>

using namespace quorvel::win32;

namespace {

// The console is written in UTF-8.
CStringA Utf8(const CString& text) {
    CStringA bytes;
    AfxWideCharToUTF8(text, bytes);
    return bytes;
}

void Heading(const char* text) {
    std::printf("\n== %s\n", text);
}

// Shows every message box on the console and takes its default button: nothing waits for a key.
class TourApp : public CWinApp {
public:
    int DoMessageBox(const WCHAR* prompt, UINT type, UINT) override {
        CString text(prompt);
        text.Replace(_T("\r\n"), _T("\n    | "));
        std::printf("    | %s\n", Utf8(text).GetString());
        return (type & MB_TYPEMASK) == MB_YESNO ? IDYES : IDOK;
    }
};

CString FileNameOf(const CString& path) {
    return path.Mid(std::max(path.ReverseFind('\\'), path.ReverseFind('/')) + 1);
}

void ShowLibrary() {
    Heading("The library's own version resource");
    CModuleVersion module;
    if (!module.Load(QuorvelGetInstanceHandle())) {
        std::printf("error %u\n", static_cast<unsigned>(module.GetLastError()));
        return;
    }
    CVersionNumber version;
    CString product, description, original;
    module.GetFileVersion(version);
    module.GetProductName(product);
    module.GetFileDescription(description);
    module.GetOriginalFileName(original);
    std::printf("%s %s: %s (%s)\n", Utf8(product).GetString(), Utf8(version.GetText()).GetString(),
                Utf8(description).GetString(), Utf8(original).GetString());
}

struct Module {
    CString path;
    CVersionNumber version;
    CString company;
    CString description;
};

void ShowModules(const std::vector<CString>& paths) {
    Heading("Modules, newest version first");
    std::vector<Module> modules;
    for (const CString& path : paths) {
        CModuleVersion info;
        if (!info.Load(path)) {
            std::printf("%-24s has no version resource (error %u)\n",
                        Utf8(FileNameOf(path)).GetString(),
                        static_cast<unsigned>(info.GetLastError()));
            continue;
        }
        Module module{path, {}, {}, {}};
        info.GetFileVersion(module.version);
        info.GetCompanyName(module.company);
        info.GetFileDescription(module.description);
        modules.push_back(module);
    }
    std::stable_sort(modules.begin(), modules.end(), [](const Module& left, const Module& right) {
        return left.version > right.version;
    });
    for (const Module& module : modules)
        std::printf("%-24s %-18s %s - %s\n", Utf8(FileNameOf(module.path)).GetString(),
                    Utf8(module.version.GetText()).GetString(), Utf8(module.company).GetString(),
                    Utf8(module.description).GetString());
}

void ShowTexts() {
    for (const UINT id :
         {quorvel::kTextExceptionMemory, quorvel::kTextDoNotShowAgain, quorvel::kTextSystemError}) {
        CString text;
        text.LoadString(id);
        text.Replace(_T("\r\n"), _T("\\r\\n"));
        std::printf("%u  %s\n", id, Utf8(text).GetString());
    }
}

void ShowLanguages(const CString& folder) {
    constexpr LANGID kGerman = 0x0407;
    Heading("The catalogue in English");
    ShowTexts();

    CString nameTemplate;
    nameTemplate.LoadString(quorvel::kTextLanguageFileTemplate);
    std::vector<unsigned short> languages;
    AfxEnumerateResourceDLLs(folder, nameTemplate, languages);
    std::printf("languages found:");
    for (const unsigned short language : languages) {
        CString name;
        AfxGetLanguageEnglishName(language, name);
        std::printf(" %u %s;", language, Utf8(name).GetString());
    }
    std::printf("\n");

    CString path;
    AfxGetResourceDLLPathName(folder, nameTemplate, kGerman, path);
    const std::unique_ptr<std::remove_pointer_t<HINSTANCE>, decltype(&FreeLibrary)> german(
        LoadLibraryExW(path, nullptr, LOAD_LIBRARY_AS_DATAFILE), FreeLibrary);
    if (german == nullptr) {
        std::printf("no German language library in %s\n", Utf8(folder).GetString());
        return;
    }
    const HINSTANCE english = QuorvelGetResourceHandle();
    QuorvelSetResourceHandle(german.get());
    Heading("The catalogue in German, once its language library is installed");
    ShowTexts();
    QuorvelSetResourceHandle(english);
}

// The first bytes of a file, as base64.
CString FirstBytes(const CString& path) {
    unsigned char bytes[24];
    CFile file;
    if (!file.Open(path, CFile::modeRead | CFile::shareDenyWrite))
        return CString();
    const int count = static_cast<int>(file.Read(bytes, sizeof bytes));
    int length = AfxBase64EncodeGetRequiredLength(count, 0);
    CString text;
    if (!AfxBase64Encode(bytes, count, text.GetBuffer(length), &length, 0))
        length = 0;
    text.ReleaseBuffer(length);
    return text;
}

void ShowDigests(const std::vector<CString>& paths) {
    Heading("MD5, and the first 24 bytes in base64");
    for (const CString& path : paths) {
        CStringA digest;
        if (!AfxGenerateFileMD5Checksum(path, digest))
            digest = "cannot be read";
        std::printf("%-24s %s %s\n", Utf8(FileNameOf(path)).GetString(), digest.GetString(),
                    Utf8(FirstBytes(path)).GetString());
    }
}

void ShowEncodings() {
    Heading("Encoding names");
    for (const WCHAR* name : {_T("latin1"), _T("UTF-8"), _T("Shift_JIS"), _T("us"), _T("koi8"),
                              _T("ebcdic-cp-nl"), _T("no-such-encoding")}) {
        CString preferred(_T("-"));
        UINT codePage;
        AfxGetPreferredCharacterEncodingName(name, preferred);
        AfxCharacterEncodingToCodePage(name, codePage);
        std::printf("%-18s %-14s %u\n", Utf8(CString(name)).GetString(),
                    Utf8(preferred).GetString(), codePage);
    }
}

void ShowErrorBox() {
    Heading("An error box, answered with its default button");
    const WCHAR* const missing = _T("no such file.xml");
    try {
        CFile file(missing, CFile::modeRead);
    } catch (CException* exception) {
        AfxFileIOExceptionMessageBox(exception, missing, quorvel::kTextErrorOpeningFile,
                                     MB_OK | MB_ICONEXCLAMATION, 0);
    }
}

} // namespace

int main(int argc, char** argv) {
    TourApp app;
    CString languageFolder(_T("."));
    std::vector<CString> files;
    const std::vector<CString> arguments = ProgramArguments(argc, argv);
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == _T("--lang-dir") && i + 1 < arguments.size())
            languageFolder = arguments[++i];
        else
            files.push_back(arguments[i]);
    }
    ShowLibrary();
    ShowModules(files);
    ShowLanguages(languageFolder);
    ShowDigests(files);
    ShowEncodings();
    ShowErrorBox();
    return 0;
}
