#include "request.h"

#include <algorithm>
#include <cctype>
#include <charconv>

namespace fs = std::filesystem;

namespace {

// Empty for an escape that is none.
std::optional<std::string> Decode(std::string_view text) {
    std::string decoded;
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned value = static_cast<unsigned char>(text[i]);
        if (text[i] == '%') {
            const std::string_view digits = text.substr(i + 1, 2);
            const char* const end = digits.data() + digits.size();
            if (digits.size() != 2 || std::from_chars(digits.data(), end, value, 16).ptr != end)
                return std::nullopt;
            i += 2;
        }
        decoded += static_cast<char>(value);
    }
    return decoded;
}

// What a name must not hold: separators and drives of either system, and control characters.
bool IsSafe(std::string_view name) {
    return name != ".." && std::ranges::none_of(name, [](char each) {
               return static_cast<unsigned char>(each) < ' ' || each == '\\' || each == ':';
           });
}

} // namespace

std::optional<Request> ReadRequest(std::string_view bytes) {
    if (bytes.find("\r\n\r\n") == bytes.npos)
        return std::nullopt;
    const std::string_view line = bytes.substr(0, bytes.find("\r\n"));
    const std::size_t target = line.find(' ') + 1;
    const std::size_t version = line.rfind(" HTTP/1.");
    if (target == 0 || version == line.npos || version < target || line[target] != '/')
        return Request{};
    std::string_view path = line.substr(target, version - target);
    path = path.substr(0, path.find_first_of("?#"));
    const std::optional<std::string> decoded = Decode(path);
    return decoded ? Request{std::string(line.substr(0, target - 1)), *decoded} : Request{};
}

fs::path FindFile(const fs::path& folder, const std::string& path) {
    fs::path file = folder;
    for (std::size_t begin = 0; begin < path.size();) {
        const std::size_t end = std::min(path.find('/', begin), path.size());
        const std::string name = path.substr(begin, end - begin);
        if (!IsSafe(name))
            return {};
        if (!name.empty())
            file /= fs::path(std::u8string(name.begin(), name.end()));
        begin = end + 1;
    }
    std::error_code ignored;
    if (fs::is_directory(file, ignored))
        file /= "index.html";
    return fs::is_regular_file(file, ignored) ? file : fs::path();
}
