#include "common/program.h"

#include <quorvel/frame/exception_text.h>
#include <quorvel/framework/exceptions.h>

#include <exception>
#include <iostream>

namespace {

int RunToTheEnd(int failedCode, const std::function<int()>& body) {
    const int code = body();
    if (std::fflush(stdout) != 0 || std::ferror(stdout) || !std::cout.flush())
        throw Failure{failedCode, _T("standard output cannot be written")};
    return code;
}

} // namespace

int RunProgram(const WCHAR* name, int failedCode, const std::function<int()>& body) {
    const auto report = [name](int code, const CString& text) {
        Print(stderr, CString(name) + _T(": ") + text);
        return code;
    };
    UsePlainStreams();
    try {
        return RunToTheEnd(failedCode, body);
    } catch (const Failure& failure) {
        return report(failure.code, failure.text);
    } catch (CException* exception) {
        CString text;
        AfxGetExceptionText(exception, text);
        exception->Delete();
        return report(failedCode, text);
    } catch (const std::exception& exception) {
        return report(failedCode, CString(exception.what()));
    }
}
