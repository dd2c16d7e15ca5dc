// What a client asks for and which file that is.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

// The line that a request begins with.
struct Request {
    std::string method;
    std::string path; // decoded, without the query
};

// The request when its header is complete; empty before. A first line that is none gives an empty
// method.
std::optional<Request> ReadRequest(std::string_view bytes);

// The file below the folder that a path names, "index.html" for a folder; empty when there is none
// or when the path leads out of the folder.
std::filesystem::path FindFile(const std::filesystem::path& folder, const std::string& path);
