// Registry keys and values as .reg text of version 5, apart from any registry.
#pragma once

#include <quorvel/framework/string.h>

#include <string>
#include <vector>

typedef std::basic_string<WCHAR> Wide;

struct RegValue {
    Wide name; // empty for a key's default value
    DWORD kind = REG_NONE;
    std::string data;
    bool isRemoval = false;

    friend bool operator==(const RegValue&, const RegValue&) = default;
};

struct RegKey {
    Wide path;              // with the root's name in front
    bool isRemoval = false; // with all below it
    std::vector<RegValue> values;

    friend bool operator==(const RegKey&, const RegKey&) = default;
};

// Where a text is not .reg text.
struct RegTextFault {
    int line; // from 1
    const WCHAR* reason;
};

// A whole file as text: UTF-16LE with its mark, or UTF-8. Throws RegTextFault for anything else.
Wide DecodeRegFile(const std::string& bytes);
// UTF-16LE with its mark.
std::string EncodeRegFile(const Wide& text);

// Throws RegTextFault.
std::vector<RegKey> ParseRegText(const Wide& text);
Wide FormatRegText(const std::vector<RegKey>& keys);

// "dword:0000002a", "hex:01,02" or "\"text\"", on one line. A text that could not be read back from
// quotes, for want of its terminator or with line breaks in it, is written as bytes.
Wide FormatRegData(const RegValue& value);
