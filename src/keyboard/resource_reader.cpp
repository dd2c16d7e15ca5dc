#include "keyboard/resource_reader.h"

#include <cstring>
#include <utility>

namespace quorvel {

namespace {

// Reads values from the bytes one after another. If a value is missing, reading ends: the reader
// has failed, and all further values are 0 or empty.
class Reader {
public:
    explicit Reader(std::span<const BYTE> bytes) : m_bytes(bytes) {}

    bool IsAtFault() const { return m_isAtFault; }
    template <class Number>
    Number Take() {
        Number number = 0;
        if (m_bytes.size() - m_place < sizeof number) {
            Fail();
            return 0;
        }
        std::memcpy(&number, m_bytes.data() + m_place, sizeof number);
        m_place += sizeof number;
        return number;
    }
    // Reads up to the terminator and skips it.
    CString TakeText() {
        CString text;
        while (const WORD unit = Take<WORD>())
            text.AppendChar(static_cast<WCHAR>(unit));
        return m_isAtFault ? CString() : text;
    }
    void Skip(std::size_t count) {
        if (m_bytes.size() - m_place < count)
            Fail();
        else
            m_place += count;
    }
    void AlignTo4() { Skip((4 - m_place % 4) % 4); }

private:
    void Fail() {
        m_isAtFault = true;
        m_place = m_bytes.size();
    }

    std::span<const BYTE> m_bytes;
    std::size_t m_place = 0;
    bool m_isAtFault = false;
};

struct Item {
    bool isPopup;
    bool isLast; // the last item of its level
    unsigned int command;
    CString text;
};

Item TakeItem(Reader& reader) {
    constexpr WORD kPopup = 0x0010;
    constexpr WORD kLast = 0x0080;
    const WORD options = reader.Take<WORD>();
    Item item = {(options & kPopup) != 0, (options & kLast) != 0, 0, {}};
    if (!item.isPopup)
        item.command = reader.Take<WORD>();
    item.text = reader.TakeText();
    return item;
}

Item TakeExtendedItem(Reader& reader) {
    constexpr WORD kPopup = 0x0001;
    constexpr WORD kLast = 0x0080;
    reader.AlignTo4();
    reader.Skip(2 * sizeof(DWORD)); // type and state
    const DWORD command = reader.Take<DWORD>();
    const WORD options = reader.Take<WORD>();
    Item item = {(options & kPopup) != 0, (options & kLast) != 0, command, reader.TakeText()};
    if (item.isPopup) {
        reader.AlignTo4();
        reader.Skip(sizeof(DWORD)); // help
    }
    return item;
}

} // namespace

bool ReadAccelerators(std::span<const BYTE> table, std::vector<ACCEL>& entries) {
    constexpr WORD kFlags = FVIRTKEY | FSHIFT | FCONTROL | FALT;
    constexpr WORD kLast = 0x0080;
    Reader reader(table);
    std::vector<ACCEL> read;
    for (WORD flags = 0; (flags & kLast) == 0;) {
        flags = reader.Take<WORD>();
        const WORD key = reader.Take<WORD>();
        const WORD command = reader.Take<WORD>();
        reader.Skip(sizeof(WORD));
        if (reader.IsAtFault())
            return false;
        read.push_back({static_cast<BYTE>(flags & kFlags), key, command});
    }
    entries = std::move(read);
    return true;
}

// "&&" is one ampersand; a single one marks a mnemonic.
CString LabelOf(const CString& text) {
    CString label;
    for (int i = 0; i < text.GetLength() && text[i] != '\t' && text[i] != '\b'; ++i) {
        if (text[i] == '&' && text[++i] == 0)
            break;
        label.AppendChar(text[i]);
    }
    return label;
}

bool ReadMenuLabels(std::span<const BYTE> menu, std::map<unsigned int, CString>& labels) {
    constexpr WORD kPlain = 0;
    constexpr WORD kExtended = 1;
    Reader reader(menu);
    const WORD version = reader.Take<WORD>();
    const WORD headerSize = reader.Take<WORD>();
    reader.Skip(headerSize);
    if (reader.IsAtFault() || (version != kPlain && version != kExtended))
        return false;
    // For each level above: whether its popup item is the last one there.
    std::vector<bool> levels;
    for (;;) {
        const Item item = version == kPlain ? TakeItem(reader) : TakeExtendedItem(reader);
        if (reader.IsAtFault())
            return false;
        if (item.isPopup) {
            levels.push_back(item.isLast);
            continue;
        }
        if (CString label = LabelOf(item.text); !label.IsEmpty())
            labels.try_emplace(item.command, std::move(label));
        bool isLast = item.isLast;
        for (; isLast; levels.pop_back()) {
            if (levels.empty())
                return true;
            isLast = levels.back();
        }
    }
}

} // namespace quorvel
