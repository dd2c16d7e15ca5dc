#include "update/response_body.h"

#include <quorvel/frame/exception_text.h>
#include <quorvel/framework/exceptions.h>
#include <quorvel/framework/file.h>
#include <quorvel/res/message_ids.h>

#include "framework/replacement_file.h"

namespace quorvel {

namespace {

// The file that is being processed, and the message for an error with it.
struct Step {
    UINT textId;
    const WCHAR* fileName;
};

void DescribeFailure(CException* exception, const Step& step, CString& errorText) {
    CString cause;
    if (exception->IsKindOf(RUNTIME_CLASS(CFileException)))
        AfxGetFileExceptionErrorMessage(static_cast<CFileException*>(exception)->m_cause, cause);
    else
        AfxGetExceptionText(exception, cause);
    exception->Delete();
    errorText.FormatMessage(step.textId, step.fileName, cause.GetString());
}

// Calls `work(step, body)`, which updates `step`; `body` is the open response.
template <class Work>
bool WithBody(const WCHAR* response, ULONGLONG headerLength, CString& errorText, Work work) {
    Step step = {kTextErrorOpeningFile, response};
    try {
        CFile body(response, CFile::modeRead | CFile::shareDenyWrite);
        body.Seek(static_cast<LONGLONG>(headerLength), CFile::begin);
        work(step, body);
        return true;
    } catch (CException* exception) {
        DescribeFailure(exception, step, errorText);
        return false;
    }
}

} // namespace

bool CopyResponseBody(const WCHAR* response, ULONGLONG headerLength, const WCHAR* target,
                      CString& errorText) {
    return WithBody(response, headerLength, errorText, [=](Step& step, CFile& body) {
        const Step reading = step;
        const Step writing = {kTextErrorCreatingFile, target};
        step = writing;
        ReplacementFile copy(target);
        BYTE block[32 * 1024];
        for (;;) {
            step = reading;
            const UINT count = body.Read(block, sizeof block);
            step = writing;
            if (count == 0)
                break;
            copy.Write(block, count);
        }
        copy.Commit();
    });
}

bool DecodeResponseBody(const WCHAR* response, const CHttpHeader& header, ULONGLONG limit,
                        const WCHAR* target, BodyDecoder::Outcome& outcome, CString& errorText) {
    return WithBody(response, header.GetLength(), errorText, [&](Step& step, CFile& body) {
        const Step reading = step;
        const Step writing = {kTextErrorCreatingFile, target};
        step = writing;
        CFile decoded(target, CFile::modeCreate | CFile::modeWrite);
        BodyDecoder decoder(header, limit, [&](const char* bytes, std::size_t count) {
            decoded.Write(bytes, static_cast<UINT>(count));
        });
        char block[32 * 1024];
        UINT count = 0;
        do {
            step = reading;
            count = body.Read(block, sizeof block);
            step = writing;
        } while (count > 0 && decoder.Add(block, count));
        outcome = decoder.GetOutcome();
        decoded.Close();
    });
}

bool ReadResponseBody(const WCHAR* response, ULONGLONG headerLength, CStringA& body,
                      CString& errorText) {
    return WithBody(response, headerLength, errorText, [&body](Step&, CFile& file) {
        char block[1024];
        body.Empty();
        while (const UINT count = file.Read(block, sizeof block))
            body.Append(block, static_cast<int>(count));
    });
}

} // namespace quorvel
