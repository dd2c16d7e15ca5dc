// CArchive: buffered storing to, or loading from, a CFile.
//
// Numbers are stored in their own width, little-endian. A string is its length and then its
// characters: a length below 255 is one byte, otherwise 0xFF and a WORD below 0xFFFE, otherwise
// 0xFF, 0xFFFF and a DWORD. Before the length of UTF-16 text stand 0xFF and 0xFFFE; either class of
// string loads either kind of text.
//
// Storing into an archive that loads throws a CArchiveException of cause readOnly, loading from one
// that stores writeOnly, and an end of the file within a value endOfFile; the variable to load is
// then unchanged. The file's own exceptions pass through. Any thread may use an archive, one at a
// time.
#pragma once

#include <quorvel/framework/exceptions.h>
#include <quorvel/framework/file.h>
#include <quorvel/framework/string.h>

#include <concepts>
#include <memory>

namespace quorvel {

template <class Type, class... Types>
concept OneOf = (std::same_as<Type, Types> || ...);

// The numbers that have the same width in every build.
template <class Type>
concept StoredNumber = OneOf<Type, char, signed char, BYTE, short, WORD, int, unsigned, LONG, DWORD,
                             LONGLONG, ULONGLONG, WCHAR, float, double>;

} // namespace quorvel

class QUORVEL_API CArchive {
public:
    enum Mode : UINT {
        store = 0,
        load = 1,
        bNoFlushOnDelete = 2 // the destructor aborts
    };

    // The file stays open and outlives the archive. A null file throws CInvalidArgException.
    CArchive(CFile* file, UINT mode, int bufferSize = 4096);
    CArchive(const CArchive&) = delete;
    CArchive& operator=(const CArchive&) = delete;
    // Closes, ignoring errors: call Close to learn of them.
    ~CArchive();

    BOOL IsLoading() const noexcept { return (m_mode & load) != 0; }
    BOOL IsStoring() const noexcept { return (m_mode & load) == 0; }
    CFile* GetFile() const noexcept { return m_file; } // null once closed

    // The number of bytes read: fewer than asked for at the end of the file.
    UINT Read(void* buffer, UINT count);
    void Write(const void* buffer, UINT count);
    // Writes what is buffered; when loading, moves the file back to what was loaded last.
    // What the file then refuses is given up.
    void Flush();
    void Close(); // flushes, and leaves the file
    void Abort(); // leaves the file as it is

    template <quorvel::StoredNumber Number>
    CArchive& operator<<(Number value) {
        Write(&value, sizeof value);
        return *this;
    }
    template <quorvel::StoredNumber Number>
    CArchive& operator>>(Number& value) {
        Number loaded;
        ReadAll(&loaded, sizeof loaded);
        value = loaded;
        return *this;
    }

    CArchive& operator<<(const CString& text);
    CArchive& operator<<(const CStringA& text);
    CArchive& operator>>(CString& text);
    CArchive& operator>>(CStringA& text);

    CString m_strFileName; // of the file, for exceptions

private:
    void CheckMode(Mode mode) const;
    void ReadAll(void* buffer, UINT count);
    void StoreLength(int length);
    DWORD LoadLength(bool& wide);
    template <class Ch>
    CStringT<Ch> LoadCharacters(DWORD length);
    template <class Ch>
    CArchive& LoadText(CStringT<Ch>& text);

    CFile* m_file;
    UINT m_mode;
    // Storing: the bytes before m_position wait to be written. Loading: those from m_position to
    // m_end wait to be loaded.
    UINT m_position;
    UINT m_end;
    UINT m_size;
    std::unique_ptr<BYTE[]> m_buffer;
};
