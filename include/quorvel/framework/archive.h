// CArchive: stores values into, or loads them from, a CFile through a buffer.
//
// Numbers are stored in their own width, little-endian. A string is its length and then its
// characters. A length below 255 is one byte; below 0xFFFE it is 0xFF and a WORD; otherwise it is
// 0xFF, 0xFFFF and a DWORD. For UTF-16 text the bytes 0xFF and the WORD 0xFFFE precede the length.
// Either string class loads either kind of text.
//
// Storing into an archive that loads throws a CArchiveException with cause readOnly, loading from
// one that stores throws writeOnly, and a closed archive throws genericException. The end of the
// file within a value throws endOfFile, an impossible length badIndex; the variable to load is then
// unchanged. The file's own exceptions pass through. Any thread, one at a time.
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
    enum Mode : UINT { // store or load, to be combined with the flag
        store = 0,
        load = 1,
        bNoFlushOnDelete = 2 // the destructor aborts
    };

    // Does not own the file, which must outlive it. A null file throws CInvalidArgException.
    CArchive(CFile* file, UINT mode, int bufferSize = 4096);
    CArchive(const CArchive&) = delete;
    CArchive& operator=(const CArchive&) = delete;
    // Closes and ignores errors. Call Close to get them as exceptions.
    ~CArchive();

    // The direction stays the same after Close.
    BOOL IsLoading() const noexcept { return (m_mode & load) != 0; }
    BOOL IsStoring() const noexcept { return (m_mode & load) == 0; }
    CFile* GetFile() const noexcept { return m_file; } // null after Close

    // Returns the number of bytes read: fewer than `count` at the end of the file.
    UINT Read(void* buffer, UINT count);
    void Write(const void* buffer, UINT count); // the file may get the bytes only later
    // When storing, writes the buffer to the file; when loading, moves the file position back to
    // the first byte not yet loaded. If the file throws, the buffered bytes are lost.
    void Flush();
    void Close(); // flushes and detaches the file, which stays open
    void Abort(); // detaches the file without flushing

    // Numbers and texts in the format above. When loading throws, the variable is unchanged.
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

    // Texts. Loading into the other width converts with the active code page.
    CArchive& operator<<(const CString& text);
    CArchive& operator<<(const CStringA& text);
    CArchive& operator>>(CString& text);
    CArchive& operator>>(CStringA& text);

    CString m_strFileName; // the file's path, used in exceptions

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
    // When storing, the bytes before m_position are not written yet. When loading, the bytes from
    // m_position to m_end are not loaded yet.
    UINT m_position;
    UINT m_end;
    UINT m_size;
    std::unique_ptr<BYTE[]> m_buffer;
};
