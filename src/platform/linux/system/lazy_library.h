// Shared libraries that are loaded by the first call of one of their functions: a program that
// calls none starts without them. They stay loaded. Any thread.
#pragma once

#include <atomic>

namespace quorvel {

class LazyLibrary {
public:
    constexpr explicit LazyLibrary(const char* fileName) : m_fileName(fileName) {}
    // A library or a function that is missing ends the program, as it would when it starts: the
    // packages depend on these libraries.
    void* Find(const char* function);

private:
    const char* const m_fileName;
    std::atomic<void*> m_handle{nullptr};
};

// A function of such a library, called like the function itself.
template <class Function>
class LazyFunctionPointer {
public:
    constexpr LazyFunctionPointer(LazyLibrary& library, const char* name)
        : m_library(library), m_name(name) {}
    operator Function*() {
        Function* function = m_function.load(std::memory_order_acquire);
        if (function == nullptr) {
            function = reinterpret_cast<Function*>(m_library.Find(m_name));
            m_function.store(function, std::memory_order_release);
        }
        return function;
    }

private:
    LazyLibrary& m_library;
    const char* const m_name;
    std::atomic<Function*> m_function{nullptr};
};

template <class Function>
class LazyFunction;
template <class Result, class... Parameters>
class LazyFunction<Result(Parameters...)> : public LazyFunctionPointer<Result(Parameters...)> {
public:
    using LazyFunctionPointer<Result(Parameters...)>::LazyFunctionPointer;
    Result operator()(Parameters... arguments) {
        Result (*const function)(Parameters...) = *this;
        return function(arguments...);
    }
};
template <class Result, class... Parameters>
class LazyFunction<Result(Parameters..., ...)>
    : public LazyFunctionPointer<Result(Parameters..., ...)> {
public:
    using LazyFunctionPointer<Result(Parameters..., ...)>::LazyFunctionPointer;
    template <class... More>
    Result operator()(Parameters... arguments, More... more) {
        Result (*const function)(Parameters..., ...) = *this;
        return function(arguments..., more...);
    }
};

} // namespace quorvel

// Declares the lazy function in namespace quorvel, where its name hides the global function that
// the library's header declares. A name that is a macro is expanded first.
#define QUORVEL_LAZY_FUNCTION(library, name)                                                       \
    inline constinit LazyFunction<decltype(::name)> name(library, QUORVEL_LAZY_NAME(name))
#define QUORVEL_LAZY_NAME(name) #name
