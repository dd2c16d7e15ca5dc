// Checks what is passed for the "..." of a formatting function.
//
// A variable argument list accepts an object of any class without a warning, and its bytes are then
// formatted. So each such function has two template overloads, which a call with an object selects:
// one passes the text of strings on; the other refuses objects of other classes at compile time.
#pragma once

#include <quorvel/platform/platform.h>

#include <type_traits>

template <class Ch>
class CStringT;

namespace quorvel {

template <class Type>
concept StringInsert = std::is_class_v<Type> &&
    (std::is_base_of_v<CStringT<WCHAR>, Type> || std::is_base_of_v<CStringT<char>, Type>);

template <class... Types>
concept InsertsWithStrings =
    (StringInsert<Types> || ...) &&
    ((StringInsert<Types> || !(std::is_class_v<Types> || std::is_union_v<Types>)) && ...);

template <class... Types>
concept RefusedInserts =
    ((!StringInsert<Types> && (std::is_class_v<Types> || std::is_union_v<Types>)) || ...);

// The text of a string; any other value unchanged.
template <class Type>
auto PlainInsert(const Type& insert) {
    if constexpr (StringInsert<Type>)
        return insert.GetString();
    else
        return insert;
}

} // namespace quorvel

// Declares the two templates for the function that has these parameters before its "...". Both
// lists are in parentheses; the second one holds the names of the parameters.
#define QUORVEL_STRING_INSERTS(result, function, parameters, names)                                \
    template <class... Inserts>                                                                    \
    requires quorvel::InsertsWithStrings<Inserts...> result function(QUORVEL_LIST parameters,      \
                                                                     Inserts... inserts) {         \
        return function(QUORVEL_LIST names, quorvel::PlainInsert(inserts)...);                     \
    }                                                                                              \
    template <class... Inserts>                                                                    \
    requires quorvel::RefusedInserts<Inserts...> result function(QUORVEL_LIST parameters,          \
                                                                 Inserts... inserts)               \
    = delete;
// Removes the parentheses around a list.
#define QUORVEL_LIST(...) __VA_ARGS__
