// CMemFile: a file in memory.
#pragma once

#include <quorvel/framework/file.h>

// It grows as it is written; the bytes of a gap are 0. What finds no memory throws a
// CMemoryException and changes nothing.
class QUORVEL_API CMemFile : public CFile {
    DECLARE_DYNAMIC(CMemFile)
public:
    explicit CMemFile(UINT growBytes = 1024);
    CMemFile(BYTE* buffer, UINT bufferSize, UINT growBytes = 0); // as Attach
    ~CMemFile() override;

    // Takes the caller's bytes in place of its own. With growBytes 0 they are the file, whose
    // length is then fixed; otherwise they come from malloc, are the room of an empty file, and
    // may move as it grows. Either way the caller frees them, after Detach.
    void Attach(BYTE* buffer, UINT bufferSize, UINT growBytes = 0);
    // Hands the bytes over (free them with free unless they were attached) and leaves an empty
    // file of fixed length. Null when there are none.
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
    // The position stays, unless it lies behind the new end.
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
