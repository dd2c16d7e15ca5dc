// Reads a response's header as a whole and in pieces, which must agree: the first byte seeds the
// sizes of the pieces, the others are what the server sends.
#include "fuzz_input.h"
#include "net/http_header_reader.h"

namespace {

void RequireSame(const CHttpHeader& left, const CHttpHeader& right) {
    Require(left.GetVersion() == right.GetVersion() &&
            left.GetStatusCode() == right.GetStatusCode() && left.GetLength() == right.GetLength());
    const CMapStringToString& fields = left.GetFieldsMap();
    Require(fields.GetCount() == right.GetFieldsMap().GetCount());
    for (POSITION next = fields.GetStartPosition(); next != nullptr;) {
        CString name, value, other;
        fields.GetNextAssoc(next, name, value);
        Require(!name.IsEmpty() && right.GetFieldValue(name, other) && other == value);
        Require(right.FindFieldValue(name.MakeLower(), other));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    typedef quorvel::HttpHeaderReader Reader;
    if (size == 0 || size > 1 << 16)
        return 0;
    unsigned seed = data[0];
    const std::string bytes(data + 1, data + size);

    CHttpHeader whole;
    const WideText text = Widened(bytes);
    const BOOL isComplete =
        whole.InitializeFromStream(CString(text.data(), static_cast<int>(text.size())));
    if (isComplete) {
        Require(whole.GetLength() <= bytes.size());
        Require(bytes.find("\r\n\r\n") + 4 == whole.GetLength());
        Require(whole.GetFileLength() >= whole.GetLength());
        whole.GetLastModified();
    }

    CHttpHeader pieced;
    Reader reader;
    for (std::size_t at = 0; at < bytes.size();) {
        seed = seed * 1103515245 + 12345;
        const std::size_t count = std::min<std::size_t>(bytes.size() - at, (seed >> 16) % 9);
        reader.Add(bytes.data() + at, count, pieced);
        at += count;
    }
    Require((reader.GetState() == Reader::State::Complete) == (isComplete != FALSE));
    RequireSame(whole, pieced);
    return 0;
}
