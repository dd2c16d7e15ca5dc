// CFile: an unbuffered file. CMemFile: a file in memory.
//
// Offsets and lengths are in bytes, 64 bits wide. Every failure is thrown as a CFileException that
// names the file and bears the system's error code, except where an operation returns its result.
// Any thread may use a file, one at a time.
#pragma once

#include <quorvel/framework/exceptions.h>
#include <quorvel/framework/object.h>
#include <quorvel/framework/string.h>

class QUORVEL_API CFile : public CObject {
    DECLARE_DYNAMIC(CFile)
public:
    // One access mode, one share mode, and any of the others.
    enum OpenFlags : UINT {
        modeRead = 0x0000,
        modeWrite = 0x0001,
        modeReadWrite = 0x0002,
        shareCompat = 0x0000, // exclusive
        shareExclusive = 0x0010,
        shareDenyWrite = 0x0020,
        shareDenyRead = 0x0030,
        shareDenyNone = 0x0040,
        modeNoInherit = 0x0080,  // always so
        modeCreate = 0x1000,     // makes the file, or empties the one that is there ...
        modeNoTruncate = 0x2000, // ... unless this is set too
        typeBinary = 0x8000      // the only type there is
    };
    enum SeekPosition : UINT { begin, current, end };
    static const HANDLE hFileNull; // the handle of a file that is not open

    CFile();
    explicit CFile(HANDLE file); // the handle is not closed by the destructor
    CFile(const WCHAR* fileName, UINT openFlags);
    ~CFile() override; // closes, ignoring errors

    // FALSE on failure, with *error, when given, filled in. An open file is closed first.
    virtual BOOL Open(const WCHAR* fileName, UINT openFlags, CFileException* error = nullptr);
    // Another object for the same open file, with the same position: the caller deletes it.
    virtual CFile* Duplicate() const;
    virtual void Close();
    virtual void Abort(); // closes, ignoring errors

    // The number of bytes read: fewer than asked for at the end of the file.
    virtual UINT Read(void* buffer, UINT count);
    // Bytes that find no room are a CFileException of cause diskFull.
    virtual void Write(const void* buffer, UINT count);
    virtual void Flush(); // to the disk

    // The new position, which may lie behind the end.
    virtual ULONGLONG Seek(LONGLONG offset, UINT from);
    virtual ULONGLONG GetPosition() const;
    virtual ULONGLONG GetLength() const;
    virtual void SetLength(ULONGLONG length); // cuts or extends, and moves to the new end
    ULONGLONG SeekToEnd() { return Seek(0, end); }
    void SeekToBegin() { Seek(0, begin); }

    // The full path, and its last part; empty when the file was not opened by name.
    virtual CString GetFilePath() const;
    virtual CString GetFileName() const;

    static void Rename(const WCHAR* oldName, const WCHAR* newName);
    static void Remove(const WCHAR* fileName);

    HANDLE m_hFile;

protected:
    BOOL m_bCloseOnDelete;
    CString m_strFileName;
};

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
