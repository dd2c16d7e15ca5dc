#include "net/linux/mailto.h"

#include <cstring>
#include <strings.h>

namespace quorvel {

namespace {

constexpr const char* kTypeOfAddress = "SMTP:";

std::string Escaped(const std::string& text) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    constexpr const char* kPlain =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~@";
    std::string result;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (std::strchr(kPlain, character) != nullptr)
            result += character;
        else
            result.append({'%', kDigits[byte >> 4], kDigits[byte & 15]});
    }
    return result;
}

std::string OnOneLine(std::string text) {
    for (char& character : text)
        if (static_cast<unsigned char>(character) < ' ' || character == 0x7f)
            character = ' ';
    return text;
}

// Makes every line end CR LF.
std::string WithMailLines(const std::string& text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n')
            continue;
        if (text[i] == '\n' || text[i] == '\r')
            result += "\r\n";
        else
            result += text[i];
    }
    return result;
}

std::string Quoted(const std::string& text) {
    std::string result = "\"";
    for (const char character : text) {
        if (character == '"' || character == '\\')
            result += '\\';
        result += character;
    }
    return result + '"';
}

std::string RecipientOf(const MapiRecipDesc& recipient) {
    std::string address = OnOneLine(recipient.lpszAddress);
    if (strncasecmp(address.c_str(), kTypeOfAddress, std::strlen(kTypeOfAddress)) == 0)
        address.erase(0, std::strlen(kTypeOfAddress));
    const std::string name = OnOneLine(recipient.lpszName);
    return name == address ? address : Quoted(name) + " <" + address + '>';
}

} // namespace

std::string MailtoOf(const MapiMessage& message) {
    return "mailto:" + Escaped(RecipientOf(*message.lpRecips)) +
           "?subject=" + Escaped(OnOneLine(message.lpszSubject)) +
           "&body=" + Escaped(WithMailLines(message.lpszNoteText));
}

std::string AttachmentNameOf(const std::string& name, const std::string& path) {
    const auto lastPart = [](const std::string& text) {
        return text.substr(text.find_last_of("/\\") + 1); // npos + 1 is 0
    };
    const std::string last = lastPart(name);
    return last.empty() || last == "." || last == ".." ? lastPart(path) : last;
}

} // namespace quorvel
