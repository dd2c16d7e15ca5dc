#include <quorvel/framework/mem_file.h>

#include "platform/win32.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>

IMPLEMENT_DYNAMIC(CMemFile, CFile)

namespace {

// A memory block cannot be larger.
constexpr ULONGLONG kMaximumLength = std::numeric_limits<SIZE_T>::max() / 2;

} // namespace

CMemFile::CMemFile(UINT growBytes)
    : m_buffer(nullptr), m_capacity(0), m_length(0), m_position(0), m_growBytes(growBytes),
      m_owned(true) {}

CMemFile::CMemFile(BYTE* buffer, UINT bufferSize, UINT growBytes) : CMemFile(growBytes) {
    Attach(buffer, bufferSize, growBytes);
}

CMemFile::~CMemFile() {
    CMemFile::Abort();
}

void CMemFile::Attach(BYTE* buffer, UINT bufferSize, UINT growBytes) {
    CMemFile::Abort();
    m_buffer = buffer;
    m_capacity = bufferSize;
    m_length = growBytes == 0 ? bufferSize : 0;
    m_growBytes = growBytes;
    m_owned = false;
}

BYTE* CMemFile::Detach() {
    BYTE* buffer = std::exchange(m_buffer, nullptr);
    CMemFile::Abort();
    return buffer;
}

BOOL CMemFile::Open(const WCHAR*, UINT, CFileException* error) {
    if (error != nullptr)
        error->m_cause = CFileException::invalidFile;
    return FALSE;
}

CFile* CMemFile::Duplicate() const {
    AfxThrowNotSupportedException();
}

void CMemFile::Close() {
    CMemFile::Abort();
}

void CMemFile::Abort() {
    if (m_owned)
        std::free(m_buffer);
    m_buffer = nullptr;
    m_capacity = 0;
    m_length = 0;
    m_position = 0;
    m_growBytes = 0;
}

UINT CMemFile::Read(void* buffer, UINT count) {
    if (m_position >= m_length)
        return 0;
    const SIZE_T position = static_cast<SIZE_T>(m_position);
    const UINT read = static_cast<UINT>(std::min<SIZE_T>(count, m_length - position));
    if (read > 0)
        std::memcpy(buffer, m_buffer + position, read);
    m_position += read;
    return read;
}

void CMemFile::Write(const void* buffer, UINT count) {
    if (count == 0)
        return;
    const ULONGLONG newEnd = m_position + count;
    Reserve(newEnd);
    const SIZE_T position = static_cast<SIZE_T>(m_position);
    if (position > m_length)
        std::memset(m_buffer + m_length, 0, position - m_length);
    std::memcpy(m_buffer + position, buffer, count);
    m_position = newEnd;
    m_length = std::max(m_length, position + count);
}

void CMemFile::Flush() {}

ULONGLONG CMemFile::Seek(LONGLONG offset, UINT from) {
    const LONGLONG start =
        from == begin ? 0 : static_cast<LONGLONG>(from == current ? m_position : m_length);
    if (from > end || offset < -start || offset > std::numeric_limits<LONGLONG>::max() - start)
        AfxThrowFileException(CFileException::badSeek);
    m_position = static_cast<ULONGLONG>(start + offset);
    return m_position;
}

ULONGLONG CMemFile::GetPosition() const {
    return m_position;
}

ULONGLONG CMemFile::GetLength() const {
    return m_length;
}

void CMemFile::SetLength(ULONGLONG length) {
    Reserve(length);
    const SIZE_T newLength = static_cast<SIZE_T>(length);
    if (newLength > m_length)
        std::memset(m_buffer + m_length, 0, newLength - m_length);
    m_position = std::min(m_position, length);
    m_length = newLength;
}

void CMemFile::Reserve(ULONGLONG size) {
    if (size <= m_capacity)
        return;
    if (m_growBytes == 0 || size > kMaximumLength)
        AfxThrowMemoryException();
    // Grows by the given step, or by half if that is more: the cost of writing stays linear.
    const ULONGLONG step = std::max<ULONGLONG>(m_growBytes, m_capacity / 2);
    const ULONGLONG capacity = std::min(std::max(m_capacity + step, size), kMaximumLength);
    void* moved = std::realloc(m_buffer, static_cast<SIZE_T>(capacity));
    if (moved == nullptr)
        AfxThrowMemoryException();
    m_buffer = static_cast<BYTE*>(moved);
    m_capacity = static_cast<SIZE_T>(capacity);
}
