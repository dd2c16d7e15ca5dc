#include <quorvel/framework/archive.h>

#include <algorithm>
#include <bit>
#include <climits>
#include <cstring>
#include <new>
#include <utility>

static_assert(std::endian::native == std::endian::little, "numbers are stored as they lie");

namespace {

constexpr int kMinimumBuffer = 128;

// The marks before a string's length; each announces the next wider form.
constexpr BYTE kLongerThanByte = 0xff;
constexpr WORD kLongerThanWord = 0xffff;
constexpr WORD kWideText = 0xfffe;

// A stored length may be wrong. So characters are loaded in pieces, and memory follows the file.
constexpr DWORD kPiece = 0x10000;

} // namespace

CArchive::CArchive(CFile* file, UINT mode, int bufferSize)
    : m_file(file), m_mode(mode), m_position(0), m_end(0),
      m_size(static_cast<UINT>(std::max(bufferSize, kMinimumBuffer))),
      m_buffer(new (std::nothrow) BYTE[m_size]) {
    if (file == nullptr)
        AfxThrowInvalidArgException();
    if (m_buffer == nullptr)
        AfxThrowMemoryException();
    m_strFileName = file->GetFilePath();
}

CArchive::~CArchive() {
    if ((m_mode & bNoFlushOnDelete) != 0)
        return;
    try {
        Close();
    } catch (CException* exception) {
        exception->Delete();
    }
}

void CArchive::CheckMode(Mode mode) const {
    if ((m_mode & load) != mode)
        AfxThrowArchiveException(IsLoading() ? CArchiveException::readOnly
                                             : CArchiveException::writeOnly,
                                 m_strFileName);
    if (m_file == nullptr)
        AfxThrowArchiveException(CArchiveException::genericException, m_strFileName);
}

UINT CArchive::Read(void* buffer, UINT count) {
    CheckMode(load);
    BYTE* target = static_cast<BYTE*>(buffer);
    UINT left = count;
    for (;;) {
        const UINT buffered = std::min(left, m_end - m_position);
        if (buffered > 0)
            std::memcpy(target, m_buffer.get() + m_position, buffered);
        m_position += buffered;
        target += buffered;
        left -= buffered;
        if (left == 0)
            return count;
        if (left >= m_size) { // the buffer is empty and would only cost a copy
            const UINT read = m_file->Read(target, left);
            target += read;
            left -= read;
            if (read == 0)
                return count - left;
        } else {
            m_position = 0;
            m_end = 0;
            m_end = m_file->Read(m_buffer.get(), m_size);
            if (m_end == 0)
                return count - left;
        }
    }
}

void CArchive::ReadAll(void* buffer, UINT count) {
    if (Read(buffer, count) != count)
        AfxThrowArchiveException(CArchiveException::endOfFile, m_strFileName);
}

void CArchive::Write(const void* buffer, UINT count) {
    CheckMode(store);
    if (count > m_size - m_position)
        Flush();
    if (count >= m_size) {
        m_file->Write(buffer, count);
    } else if (count > 0) {
        std::memcpy(m_buffer.get() + m_position, buffer, count);
        m_position += count;
    }
}

void CArchive::Flush() {
    if (m_file == nullptr)
        return;
    const UINT position = std::exchange(m_position, 0);
    const UINT end = std::exchange(m_end, 0);
    if (IsLoading() && position < end)
        m_file->Seek(-static_cast<LONGLONG>(end - position), CFile::current);
    if (IsStoring() && position > 0)
        m_file->Write(m_buffer.get(), position);
}

void CArchive::Close() {
    Flush();
    Abort();
}

void CArchive::Abort() {
    m_file = nullptr;
}

void CArchive::StoreLength(int length) {
    if (length < kLongerThanByte)
        *this << static_cast<BYTE>(length);
    else if (length < kWideText)
        *this << kLongerThanByte << static_cast<WORD>(length);
    else
        *this << kLongerThanByte << kLongerThanWord << static_cast<DWORD>(length);
}

DWORD CArchive::LoadLength(bool& wide) {
    wide = false;
    for (;;) {
        BYTE shortest;
        *this >> shortest;
        if (shortest != kLongerThanByte)
            return shortest;
        WORD shorter;
        *this >> shorter;
        if (shorter < kWideText)
            return shorter;
        DWORD length = INT_MAX; // an impossible length, for a second mark
        if (shorter == kLongerThanWord)
            *this >> length;
        else if (!std::exchange(wide, true))
            continue;
        if (length >= INT_MAX)
            AfxThrowArchiveException(CArchiveException::badIndex, m_strFileName);
        return length;
    }
}

template <class Ch>
CStringT<Ch> CArchive::LoadCharacters(DWORD length) {
    CStringT<Ch> text;
    while (length > 0) {
        const int count = static_cast<int>(std::min(length, kPiece));
        const int loaded = text.GetLength();
        ReadAll(text.GetBuffer(loaded + count) + loaded, static_cast<UINT>(count) * sizeof(Ch));
        text.ReleaseBuffer(loaded + count);
        length -= static_cast<DWORD>(count);
    }
    return text;
}

template <class Ch>
CArchive& CArchive::LoadText(CStringT<Ch>& text) {
    bool wide;
    const DWORD length = LoadLength(wide);
    if (wide)
        text = LoadCharacters<WCHAR>(length);
    else
        text = LoadCharacters<char>(length);
    return *this;
}

CArchive& CArchive::operator<<(const CString& text) {
    *this << kLongerThanByte << kWideText;
    StoreLength(text.GetLength());
    Write(text.GetString(), static_cast<UINT>(text.GetLength()) * sizeof(WCHAR));
    return *this;
}

CArchive& CArchive::operator<<(const CStringA& text) {
    StoreLength(text.GetLength());
    Write(text.GetString(), static_cast<UINT>(text.GetLength()));
    return *this;
}

CArchive& CArchive::operator>>(CString& text) {
    return LoadText(text);
}

CArchive& CArchive::operator>>(CStringA& text) {
    return LoadText(text);
}
