// CFile: an unbuffered file.
//
// Offsets and lengths are in bytes and 64 bits wide. A failure throws a CFileException with the
// file's name and the system's error code, except where an operation returns its result. Any thread
// may use a file, one at a time.
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
        modeCreate = 0x1000,     // creates the file or empties an existing one ...
        modeNoTruncate = 0x2000, // ... unless this is set too
        typeBinary = 0x8000      // the only type there is
    };
    enum SeekPosition : UINT { begin, current, end }; // where an offset counts from
    static const HANDLE hFileNull;                    // the handle of a file that is not open

    CFile();
    explicit CFile(HANDLE file);                  // the handle is not closed by the destructor
    CFile(const WCHAR* fileName, UINT openFlags); // throws when Open fails
    ~CFile() override;                            // closes, ignoring errors

    // On failure returns FALSE and fills in *error, unless it is null. Closes an open file first.
    virtual BOOL Open(const WCHAR* fileName, UINT openFlags, CFileException* error = nullptr);
    // A new object for the same open file; both share one position. The caller deletes it.
    virtual CFile* Duplicate() const;
    virtual void Close(); // no effect when no file is open
    virtual void Abort(); // closes, ignoring errors

    // Returns the number of bytes read: fewer than `count` at the end of the file.
    virtual UINT Read(void* buffer, UINT count);
    // When only some of the bytes fit, throws a CFileException with cause diskFull.
    virtual void Write(const void* buffer, UINT count);
    virtual void Flush(); // to the disk

    // Returns the new position, in bytes; it may be beyond the end of the file.
    virtual ULONGLONG Seek(LONGLONG offset, UINT from);
    // The position and the length, in bytes.
    virtual ULONGLONG GetPosition() const;
    virtual ULONGLONG GetLength() const;
    virtual void SetLength(ULONGLONG length); // truncates or extends; moves to the new end
    // SeekToEnd returns the length.
    ULONGLONG SeekToEnd() { return Seek(0, end); }
    void SeekToBegin() { Seek(0, begin); }

    // The full path, and the last part of it; both are empty when the file was not opened by name.
    virtual CString GetFilePath() const;
    virtual CString GetFileName() const;

    static void Rename(const WCHAR* oldName, const WCHAR* newName); // refuses an existing name
    static void Remove(const WCHAR* fileName);                      // deletes the file

    HANDLE m_hFile; // hFileNull when no file is open

protected:
    BOOL m_bCloseOnDelete; // FALSE for a file given as a handle
    CString m_strFileName; // the full path; empty without a name
};
