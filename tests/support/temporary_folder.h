// A private folder for a test's files; the destructor removes it with its content.
#pragma once

#include <quorvel/framework/string.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

class TemporaryFolder {
public:
    TemporaryFolder() {
        std::random_device random;
        do
            m_path = std::filesystem::temp_directory_path() /
                     ("quorvel-test-" + std::to_string(random()));
        while (!std::filesystem::create_directory(m_path));
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    // The folder's path, without a separator at its end, and the path of a name in it.
    CString Path() const { return CString(m_path.string<WCHAR>().c_str()); }
    CString Path(const WCHAR* name) const { return CString(At(name).string<WCHAR>().c_str()); }

    // Whole files. Read returns an empty text for a missing file.
    void Write(const WCHAR* name, const std::string& bytes) const {
        std::ofstream(At(name), std::ios::binary) << bytes;
    }
    std::string Read(const WCHAR* name) const {
        std::ifstream file(At(name), std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }
    bool Has(const WCHAR* name) const { return std::filesystem::exists(At(name)); }
    // The read-only attribute; on Linux the permission to write.
    void SetReadOnly(const WCHAR* name, bool readOnly) const {
        std::filesystem::permissions(At(name), std::filesystem::perms(readOnly ? 0444 : 0644));
    }

private:
    std::filesystem::path At(const WCHAR* name) const {
        return m_path / std::basic_string<WCHAR>(name);
    }

    std::filesystem::path m_path;
};
