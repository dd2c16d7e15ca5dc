// Operations with typed values, for a class that has the same operations with text.
#pragma once

#include <quorvel/framework/string.h>

#include <type_traits>

namespace quorvel {

template <class T>
CString TextOfValue(T value) {
    constexpr bool isSigned = std::is_signed_v<T>;
    CString text;
    if constexpr (std::is_same_v<T, bool>)
        text = value ? _T("yes") : _T("no");
    else if constexpr (std::is_same_v<T, char>)
        text = static_cast<WCHAR>(static_cast<unsigned char>(value));
    else if constexpr (std::is_floating_point_v<T>)
        text.Format(_T("%g"), static_cast<double>(value));
    else if constexpr (sizeof(T) == sizeof(LONGLONG)) // long is 64 bits on some systems
        text.Format(isSigned ? _T("%I64d") : _T("%I64u"), static_cast<LONGLONG>(value));
    else
        text.Format(isSigned ? _T("%d") : _T("%u"), static_cast<int>(value));
    return text;
}

} // namespace quorvel

#define QUORVEL_DEFINE_TYPED_VALUE(operation, type)                                                \
    bool operation(const WCHAR* name, type value) {                                                \
        return operation(name, quorvel::TextOfValue(value).GetString());                           \
    }
#define QUORVEL_DEFINE_OPERATION(operation)                                                        \
    QUORVEL_DEFINE_TYPED_VALUE(operation, bool)                                                    \
    QUORVEL_DEFINE_TYPED_VALUE(operation, char)                                                    \
    QUORVEL_DEFINE_TYPED_VALUE(operation, unsigned char)                                           \
    QUORVEL_DEFINE_TYPED_VALUE(operation, short)                                                   \
    QUORVEL_DEFINE_TYPED_VALUE(operation, unsigned short)                                          \
    QUORVEL_DEFINE_TYPED_VALUE(operation, int)                                                     \
    QUORVEL_DEFINE_TYPED_VALUE(operation, unsigned int)                                            \
    QUORVEL_DEFINE_TYPED_VALUE(operation, long)                                                    \
    QUORVEL_DEFINE_TYPED_VALUE(operation, unsigned long)                                           \
    QUORVEL_DEFINE_TYPED_VALUE(operation, __int64)                                                 \
    QUORVEL_DEFINE_TYPED_VALUE(operation, unsigned long long)                                      \
    QUORVEL_DEFINE_TYPED_VALUE(operation, float)                                                   \
    QUORVEL_DEFINE_TYPED_VALUE(operation, double)
#define QUORVEL_DEFINE_TYPED_VALUES(Class)                                                         \
    QUORVEL_DEFINE_OPERATION(Class::AddElem)                                                       \
    QUORVEL_DEFINE_OPERATION(Class::AddChildElem)                                                  \
    QUORVEL_DEFINE_OPERATION(Class::AddAttrib)                                                     \
    QUORVEL_DEFINE_OPERATION(Class::SetAttrib)                                                     \
    QUORVEL_DEFINE_OPERATION(Class::AddChildAttrib)                                                \
    QUORVEL_DEFINE_OPERATION(Class::SetChildAttrib)
