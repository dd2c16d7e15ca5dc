#include "reg_text.h"

#include <quorvel/util/text/utf8.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string_view>

namespace {

typedef std::basic_string_view<WCHAR> View;

constexpr View kHeader = _T("Windows Registry Editor Version 5.00");
constexpr std::size_t kWidth = 77; // of a line of bytes, without the backslash at its end

View Trimmed(View text) {
    const std::size_t begin = text.find_first_not_of(_T(" \t"));
    if (begin == View::npos)
        return View();
    return text.substr(begin, text.find_last_not_of(_T(" \t")) + 1 - begin);
}

bool Skip(View& text, View start) {
    if (!text.starts_with(start))
        return false;
    text.remove_prefix(start.size());
    return true;
}

// The value of up to `most` hexadecimal digits at the start, which are taken away.
std::optional<DWORD> TakeHex(View& text, std::size_t most) {
    DWORD number = 0;
    std::size_t count = 0;
    for (; count < most && count < text.size(); ++count) {
        const WCHAR unit = text[count];
        const WCHAR lower = static_cast<WCHAR>(unit | 0x20);
        if (unit >= '0' && unit <= '9')
            number = number * 16 + static_cast<DWORD>(unit - '0');
        else if (lower >= 'a' && lower <= 'f')
            number = number * 16 + static_cast<DWORD>(lower - 'a' + 10);
        else
            break;
    }
    text.remove_prefix(count);
    return count > 0 ? std::optional(number) : std::nullopt;
}

std::string BytesOf(View text) {
    return std::string(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(WCHAR));
}

// The lines of a text with any line ends, the blanks around them taken away.
class Lines {
public:
    explicit Lines(View text) : m_rest(text) {}

    bool Next(View& line) {
        if (m_rest.empty())
            return false;
        const std::size_t end = std::min(m_rest.find_first_of(_T("\r\n")), m_rest.size());
        line = Trimmed(m_rest.substr(0, end));
        m_rest.remove_prefix(end);
        if (!Skip(m_rest, _T("\r\n")) && !m_rest.empty())
            m_rest.remove_prefix(1);
        ++m_number;
        return true;
    }
    [[noreturn]] void Fail(const WCHAR* reason) const {
        throw RegTextFault{std::max(m_number, 1), reason};
    }

private:
    View m_rest;
    int m_number = 0;
};

class Parser {
public:
    explicit Parser(View text) : m_lines(text) {}

    std::vector<RegKey> Parse() {
        View line;
        do {
            if (!m_lines.Next(line))
                m_lines.Fail(_T("the header is missing"));
        } while (line.empty());
        if (line != kHeader)
            m_lines.Fail(_T("not a registry file of version 5"));
        while (m_lines.Next(line)) {
            if (line.empty() || line[0] == ';')
                continue;
            if (line[0] == '[')
                TakeKey(line);
            else
                TakeValue(line);
        }
        return std::move(m_keys);
    }

private:
    void TakeKey(View line) {
        if (line.size() < 3 || line.back() != ']')
            m_lines.Fail(_T("a key that has no end"));
        View path = line.substr(1, line.size() - 2);
        RegKey key;
        key.isRemoval = Skip(path, _T("-"));
        key.path = path;
        if (path.empty())
            m_lines.Fail(_T("a key without a name"));
        m_keys.push_back(std::move(key));
    }

    void TakeValue(View line) {
        if (m_keys.empty() || m_keys.back().isRemoval)
            m_lines.Fail(_T("a value that belongs to no key"));
        RegValue value;
        if (!Skip(line, _T("@")))
            value.name = TakeQuoted(line);
        line = Trimmed(line);
        if (!Skip(line, _T("=")))
            m_lines.Fail(_T("an equals sign is missing"));
        TakeData(Trimmed(line), value);
        m_keys.back().values.push_back(std::move(value));
    }

    void TakeData(View data, RegValue& value) {
        if (data == _T("-")) {
            value.isRemoval = true;
        } else if (data.starts_with('"')) {
            value.kind = REG_SZ;
            value.data = BytesOf(TakeQuoted(data)) + std::string(sizeof(WCHAR), '\0');
            RequireEnd(data);
        } else if (Skip(data, _T("dword:"))) {
            value.kind = REG_DWORD;
            const auto number = TakeHex(data, 8);
            if (!number)
                m_lines.Fail(_T("a number is missing"));
            value.data.assign(reinterpret_cast<const char*>(&*number), sizeof *number);
            RequireEnd(data);
        } else if (Skip(data, _T("hex"))) {
            TakeBytes(data, value);
        } else {
            m_lines.Fail(_T("an unknown kind of data"));
        }
    }

    // "(b):01,02,\" and the lines that follow it.
    void TakeBytes(View data, RegValue& value) {
        value.kind = REG_BINARY;
        if (Skip(data, _T("("))) {
            const auto kind = TakeHex(data, 8);
            if (!kind || !Skip(data, _T(")")))
                m_lines.Fail(_T("a kind in brackets is wrong"));
            value.kind = *kind;
        }
        if (!Skip(data, _T(":")))
            m_lines.Fail(_T("a colon is missing"));
        for (;;) {
            data = Trimmed(data);
            if (data == _T("\\")) {
                if (!m_lines.Next(data))
                    m_lines.Fail(_T("the text ends in the middle of a value"));
                continue;
            }
            if (data.empty())
                return;
            const auto byte = TakeHex(data, 2);
            if (!byte)
                m_lines.Fail(_T("bytes are two hexadecimal digits with commas between them"));
            value.data += static_cast<char>(*byte);
            data = Trimmed(data);
            if (!Skip(data, _T(",")))
                return RequireEnd(data);
        }
    }

    Wide TakeQuoted(View& line) {
        if (!Skip(line, _T("\"")))
            m_lines.Fail(_T("a quotation mark is missing"));
        Wide text;
        for (std::size_t i = 0; i < line.size(); ++i) {
            if (line[i] == '"') {
                line.remove_prefix(i + 1);
                return text;
            }
            if (line[i] == '\\' && ++i == line.size())
                break;
            text += line[i];
        }
        m_lines.Fail(_T("a text has no end"));
    }

    void RequireEnd(View rest) const {
        if (!Trimmed(rest).empty())
            m_lines.Fail(_T("something follows a value"));
    }

    Lines m_lines;
    std::vector<RegKey> m_keys;
};

Wide Quoted(View text) {
    Wide quoted(1, '"');
    for (const WCHAR unit : text) {
        if (unit == '"' || unit == '\\')
            quoted += '\\';
        quoted += unit;
    }
    return quoted + WCHAR{'"'};
}

// The text of a REG_SZ that may stand in quotes.
std::optional<Wide> PlainText(const RegValue& value) {
    if (value.kind != REG_SZ || value.data.size() < sizeof(WCHAR) ||
        value.data.size() % sizeof(WCHAR) != 0)
        return std::nullopt;
    Wide text(value.data.size() / sizeof(WCHAR), 0);
    std::memcpy(text.data(), value.data.data(), value.data.size());
    if (text.back() != 0)
        return std::nullopt;
    text.pop_back();
    for (const WCHAR unit : text)
        if (unit < ' ' && unit != '\t')
            return std::nullopt;
    return text;
}

Wide Formatted(const char* format, DWORD number) {
    char text[32];
    const int length = std::snprintf(text, sizeof text, format, static_cast<unsigned>(number));
    return Wide(text, text + length);
}

// Broken into lines: `begin` is what stands before it in the first of them.
Wide WithBreaks(std::size_t begin, const Wide& bytes) {
    Wide lines;
    std::size_t column = begin;
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        if (column + 3 > kWidth && i > 0) {
            lines += _T("\\\r\n  ");
            column = 2;
        }
        const View byte = View(bytes).substr(i, 3);
        lines += byte;
        column += byte.size();
    }
    return lines;
}

} // namespace

Wide DecodeRegFile(const std::string& bytes) {
    const auto* const start = reinterpret_cast<const BYTE*>(bytes.data());
    if (AfxHasUTF16LEByteOrderMark(start, bytes.size())) {
        if (bytes.size() % sizeof(WCHAR) != 0)
            throw RegTextFault{1, _T("half a character is at the end")};
        Wide text(bytes.size() / sizeof(WCHAR) - 1, 0);
        std::memcpy(text.data(), bytes.data() + sizeof(WCHAR), text.size() * sizeof(WCHAR));
        if (text.find(WCHAR{0}) != Wide::npos)
            throw RegTextFault{1, _T("a character of the value 0")};
        return text;
    }
    const std::size_t mark = AfxHasUTF8ByteOrderMark(start, bytes.size()) ? 3 : 0;
    CString text;
    if (bytes.find('\0') != std::string::npos || !AfxUTF8ToWideChar(bytes.c_str() + mark, text))
        throw RegTextFault{1, _T("neither UTF-16 with a byte-order mark nor UTF-8")};
    return Wide(text);
}

std::string EncodeRegFile(const Wide& text) {
    return "\xff\xfe" + BytesOf(text);
}

std::vector<RegKey> ParseRegText(const Wide& text) {
    return Parser(text).Parse();
}

Wide FormatRegData(const RegValue& value) {
    if (const auto text = PlainText(value))
        return Quoted(*text);
    if (value.kind == REG_DWORD && value.data.size() == sizeof(DWORD)) {
        DWORD number;
        std::memcpy(&number, value.data.data(), sizeof number);
        return Formatted("dword:%08x", number);
    }
    Wide line = value.kind == REG_BINARY ? Wide(_T("hex:")) : Formatted("hex(%x):", value.kind);
    for (std::size_t i = 0; i < value.data.size(); ++i)
        line += Formatted(i + 1 < value.data.size() ? "%02x," : "%02x",
                          static_cast<unsigned char>(value.data[i]));
    return line;
}

Wide FormatRegText(const std::vector<RegKey>& keys) {
    Wide text(kHeader);
    text += _T("\r\n");
    for (const RegKey& key : keys) {
        text += _T("\r\n[");
        text += key.isRemoval ? _T("-") : _T("");
        text += key.path + _T("]\r\n");
        for (const RegValue& value : key.values) {
            const Wide start =
                (value.name.empty() ? Wide(1, '@') : Quoted(value.name)) + WCHAR{'='};
            const Wide data = value.isRemoval ? Wide(1, '-') : FormatRegData(value);
            const std::size_t colon =
                data.starts_with(_T("hex")) ? data.find(':') + 1 : data.size();
            text += start + data.substr(0, colon);
            text += WithBreaks(start.size() + colon, data.substr(colon)) + _T("\r\n");
        }
    }
    return text;
}
