// A registry of the benchmarks' own, in a folder that is removed at the end.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>

class RegistryFolder {
public:
    // All benchmarks of a process use the one registry, so this comes before the first use of it.
    static const RegistryFolder& Shared() {
        static const RegistryFolder s_folder;
        return s_folder;
    }
    RegistryFolder(const RegistryFolder&) = delete;
    RegistryFolder& operator=(const RegistryFolder&) = delete;

    std::filesystem::path File(const std::string& name) const { return m_path / name; }

private:
    RegistryFolder()
        : m_path(std::filesystem::temp_directory_path() /
                 ("bench-" + std::to_string(std::random_device()()))) {
        std::filesystem::create_directory(m_path);
        setenv("QUORVEL_REGISTRY", (m_path / "registry.db").c_str(), 1);
    }
    ~RegistryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    std::filesystem::path m_path;
};
