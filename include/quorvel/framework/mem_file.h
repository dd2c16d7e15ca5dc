// CMemFile: a file in memory. Any thread may use it, one at a time.
#pragma once

#include <quorvel/framework/file.h>

// The file grows as it is written; the bytes of a gap are 0. A failed allocation throws a
// CMemoryException and changes nothing. Open always fails with the cause invalidFile. Close and
// Abort free the bytes, unless they were attached, and leave an empty file of fixed length.
class QUORVEL_API CMemFile : public CFile {
    DECLARE_DYNAMIC(CMemFile)
public:
    // The memory grows by `growBytes` or more; with 0 every write throws CMemoryException.
    explicit CMemFile(UINT growBytes = 1024);
    CMemFile(BYTE* buffer, UINT bufferSize, UINT growBytes = 0); // as Attach
    ~CMemFile() override;

    // Uses the caller's buffer. With growBytes 0 it is the content of the file, whose length is
    // then fixed. Otherwise the file is empty, the buffer is its first memory, comes from malloc
    // and may move as the file grows. The caller frees it after Detach.
    void Attach(BYTE* buffer, UINT bufferSize, UINT growBytes = 0);
    // Returns the bytes to the caller and leaves an empty file of fixed length. Free them with
    // free, unless they were attached. Null when there are no bytes.
    BYTE* Detach();

    BOOL Open(const WCHAR* fileName, UINT openFlags, CFileException* error = nullptr) override;
    CFile* Duplicate() const override; // throws CNotSupportedException
    void Close() override;
    void Abort() override;
    UINT Read(void* buffer, UINT count) override;
    void Write(const void* buffer, UINT count) override;
    void Flush() override;
    ULONGLONG Seek(LONGLONG offset, UINT from) override;
    ULONGLONG GetPosition() const override;
    ULONGLONG GetLength() const override;
    // The position stays, unless it is beyond the new end; then it moves there.
    void SetLength(ULONGLONG length) override;

private:
    void Reserve(ULONGLONG size);

    BYTE* m_buffer;
    SIZE_T m_capacity;
    SIZE_T m_length;
    ULONGLONG m_position;
    UINT m_growBytes;
    bool m_owned;
};
