#include <quorvel/util/compression/compression.h>

#include <quorvel/frame/message_box.h>
#include <quorvel/framework/string.h>
#include <quorvel/res/message_ids.h>
#include <quorvel/util/compression/zstream.h>

#include "platform/win32.h"
#include "util/compression/progress_box.h"
#include "util/compression/source_position.h"
#include "util/compression/stream_loops.h"

#include <new>
#include <utility>

namespace {

constexpr UINT kPackedSize = CZStream::DEFAULT_BUFFER_COMPRESSED_SIZE;
constexpr UINT kPlainSize = CZStream::DEFAULT_BUFFER_UNCOMPRESSED_SIZE;

struct CauseRow {
    bool deflating;
    compressionStage stage;
    int zlibError;
    UINT textId;
};
// clang-format off
constexpr CauseRow kCauses[] = {
    {true,  compressionStageInitialize, Z_MEM_ERROR,     quorvel::kTextCompressionOutOfMemory},
    {true,  compressionStageInitialize, Z_STREAM_ERROR,  quorvel::kTextCompressionInvalidLevel},
    {true,  compressionStageInitialize, Z_VERSION_ERROR, quorvel::kTextCompressionWrongVersion},
    {true,  compressionStageRun,        Z_STREAM_ERROR,  quorvel::kTextCompressionInconsistentState},
    {true,  compressionStageRun,        Z_BUF_ERROR,     quorvel::kTextCompressionNoProgress},
    {true,  compressionStageEnd,        Z_STREAM_ERROR,  quorvel::kTextCompressionInconsistentState},
    {true,  compressionStageEnd,        Z_DATA_ERROR,    quorvel::kTextCompressionFreedPrematurely},
    {false, compressionStageInitialize, Z_MEM_ERROR,     quorvel::kTextCompressionOutOfMemory},
    {false, compressionStageInitialize, Z_VERSION_ERROR, quorvel::kTextCompressionWrongVersion},
    {false, compressionStageRun,        Z_DATA_ERROR,    quorvel::kTextCompressionCorruptInput},
    {false, compressionStageRun,        Z_STREAM_ERROR,  quorvel::kTextCompressionInconsistentStructure},
    {false, compressionStageRun,        Z_MEM_ERROR,     quorvel::kTextCompressionOutOfMemory},
    {false, compressionStageRun,        Z_BUF_ERROR,     quorvel::kTextCompressionNoProgress},
    {false, compressionStageEnd,        Z_STREAM_ERROR,  quorvel::kTextCompressionInconsistentState},
};
// clang-format on

UINT CauseTextId(bool deflating, compressionStage stage, int zlibError) {
    for (const CauseRow& row : kCauses)
        if (row.deflating == deflating && row.stage == stage && row.zlibError == zlibError)
            return row.textId;
    return quorvel::kTextCompressionUnknownError;
}

int ShowError(bool deflating, const WCHAR* cause, UINT type) {
    const UINT formatId = deflating ? quorvel::kTextErrorDeflating : quorvel::kTextErrorInflating;
    return AfxFormatStringErrorMessageBox(formatId, type, 0, cause);
}

int ShowError(bool deflating, UINT causeId, UINT type) {
    WCHAR cause[256];
    return AfxLoadString(causeId, cause, 256) > 0 ? ShowError(deflating, cause, type) : 0;
}

// Success, a refusal without a message, or a failure with zlib's error.
struct Outcome {
    BOOL done = FALSE;
    compressionStage stage = compressionStageInitialize;
    int zlibError = Z_OK;

    static Outcome Failed(compressionStage stage, int zlibError) {
        return {FALSE, stage, zlibError};
    }
};

// The arguments of both functions.
struct Request {
    CFile& source;
    DWORD& bytesRead;
    CFile& destination;
    DWORD& bytesWritten;
    BOOL showProgress;
    const WCHAR* caption;
    const WCHAR* status;
};

struct Deflating {
    static constexpr bool kIsDeflating = true;
    static constexpr UINT kStatusId = quorvel::kTextDeflatingData;
    static constexpr UINT kInputSize = kPlainSize;
    static constexpr UINT kOutputSize = kPackedSize;
    int level;

    int Init(z_stream& stream) const { return deflateInit(&stream, level); }
    static int End(z_stream& stream) { return deflateEnd(&stream); }
    template <class Read>
    static int RunAll(z_stream& stream, Read read, quorvel::OutputBuffer output, CFile& file) {
        return quorvel::DeflateAll(stream, read, output, file);
    }
};

struct Inflating {
    static constexpr bool kIsDeflating = false;
    static constexpr UINT kStatusId = quorvel::kTextInflatingData;
    static constexpr UINT kInputSize = kPackedSize;
    static constexpr UINT kOutputSize = kPlainSize;

    static int Init(z_stream& stream) { return inflateInit(&stream); }
    static int End(z_stream& stream) { return inflateEnd(&stream); }
    template <class Read>
    static int RunAll(z_stream& stream, Read read, quorvel::OutputBuffer output, CFile& file) {
        return quorvel::InflateAll(stream, read, output, file);
    }
};

// A stream that the destructor ends.
template <class Direction>
class ScopedStream {
public:
    ScopedStream() = default;
    ScopedStream(const ScopedStream&) = delete;
    ~ScopedStream() { End(); }

    int Init(const Direction& direction) {
        const int result = direction.Init(m_stream);
        m_open = result == Z_OK;
        return result;
    }
    int End() { return std::exchange(m_open, false) ? Direction::End(m_stream) : Z_OK; }
    z_stream& Get() { return m_stream; }

private:
    z_stream m_stream = {};
    bool m_open = false;
};

void ShowProgress(quorvel::ProgressBox& box, const Request& request, UINT statusId,
                  ULONGLONG range) {
    if (!box.Create())
        return;
    CString status(request.status);
    if (status.IsEmpty())
        status.LoadString(statusId);
    box.SetCaption(request.caption);
    box.SetStatus(status);
    box.SetRange(range);
}

template <class Direction>
Outcome Run(const Direction& direction, const Request& request) {
    const ULONGLONG bytesLeft = quorvel::BytesLeft(request.source);
    if (bytesLeft == 0)
        return {};
    quorvel::ProgressBox progress;
    if (request.showProgress) {
        if (!AfxIsValidString(request.caption) || !AfxIsValidString(request.status))
            return {};
        ShowProgress(progress, request, Direction::kStatusId, bytesLeft);
    }
    ScopedStream<Direction> stream;
    int result = stream.Init(direction);
    if (result != Z_OK)
        return Outcome::Failed(compressionStageInitialize, result);

    BYTE input[Direction::kInputSize];
    BYTE output[Direction::kOutputSize];
    UINT count = 0;
    const auto read = [&] {
        progress.AdvanceBy(count); // the previous chunk has been processed
        count = request.source.Read(input, Direction::kInputSize);
        stream.Get().next_in = input;
        stream.Get().avail_in = count;
        return count;
    };
    result = Direction::RunAll(stream.Get(), read, {output, Direction::kOutputSize},
                               request.destination);
    if (result != Z_STREAM_END)
        return Outcome::Failed(compressionStageRun, result);
    progress.AdvanceBy(count);
    const DWORD bytesRead = static_cast<DWORD>(stream.Get().total_in);
    const DWORD bytesWritten = static_cast<DWORD>(stream.Get().total_out);
    result = stream.End();
    if (result != Z_OK)
        return Outcome::Failed(compressionStageEnd, result);
    request.bytesRead = bytesRead;
    request.bytesWritten = bytesWritten;
    return {TRUE};
}

// Shows message boxes after the work, when the progress box is closed.
template <class Direction>
BOOL RunAndReport(const Direction& direction, const Request& request) {
    constexpr bool kIsDeflating = Direction::kIsDeflating;
    request.bytesRead = 0;
    request.bytesWritten = 0;
    Outcome outcome;
    WCHAR thrown[256] = {}; // an array, because there may be no memory
    bool threw = true;
    try {
        outcome = Run(direction, request);
        threw = false;
    } catch (CException* exception) {
        exception->GetErrorMessage(thrown, 256);
        thrown[255] = 0; // a host's class may omit the terminator
        exception->Delete();
    } catch (const std::bad_alloc&) {
        AfxLoadString(quorvel::kTextCompressionOutOfMemory, thrown, 256);
    } catch (...) {
        // An exception of the host's own type.
    }
    if (threw && thrown[0] != 0)
        ShowError(kIsDeflating, thrown, MB_ICONEXCLAMATION);
    else if (threw)
        ShowError(kIsDeflating, quorvel::kTextCompressionUnknownError, MB_ICONEXCLAMATION);
    else if (outcome.zlibError != Z_OK)
        AfxCompressionErrorMessageBox(kIsDeflating, outcome.stage, outcome.zlibError,
                                      MB_ICONEXCLAMATION);
    return outcome.done;
}

} // namespace

BOOL AfxDeflate(CFile& source, DWORD& bytesRead, CFile& destination, DWORD& bytesWritten, int level,
                BOOL showProgress, const WCHAR* caption, const WCHAR* status) {
    return RunAndReport(Deflating{level}, {source, bytesRead, destination, bytesWritten,
                                           showProgress, caption, status});
}

BOOL AfxInflate(CFile& source, DWORD& bytesRead, CFile& destination, DWORD& bytesWritten,
                BOOL showProgress, const WCHAR* caption, const WCHAR* status) {
    return RunAndReport(
        Inflating{}, {source, bytesRead, destination, bytesWritten, showProgress, caption, status});
}

int AfxCompressionErrorMessageBox(BOOL deflating, compressionStage stage, int zlibError,
                                  UINT type) {
    const bool isDeflating = deflating > 0;
    return ShowError(isDeflating, CauseTextId(isDeflating, stage, zlibError), type);
}
