// Sets an environment variable while the object exists; null removes it.
#pragma once

#include "support/test.h"

#include <cstdlib>
#include <list>
#include <optional>
#include <utility>

// The variable that names the folder for temporary files.
inline constexpr const char* kTemporaryVariable = kOnLinux ? "TMPDIR" : "TMP";

class EnvironmentVariable {
public:
    EnvironmentVariable(std::string name, const char* value) : m_name(std::move(name)) {
        if (const char* const former = std::getenv(m_name.c_str()))
            m_former = former;
        Set(value);
    }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    ~EnvironmentVariable() { Set(m_former ? m_former->c_str() : nullptr); }

private:
    // Both C libraries have putenv. In one the text becomes part of the environment, so it must
    // stay. In one an empty value removes the variable, in the other the name alone does.
    void Set(const char* value) {
        static std::list<std::string> s_texts;
        static_cast<void>(
            putenv(s_texts.emplace_back(m_name + '=' + (value != nullptr ? value : "")).data()));
        if (value == nullptr)
            static_cast<void>(putenv(m_name.data()));
    }

    std::string m_name;
    std::optional<std::string> m_former;
};
