// What may be passed for the "..." of a formatting function.
//
// A variable argument list takes an object of any class without a word and then formats its bytes.
// So each of these functions has two template overloads, which a call with an object selects: one
// passes on the text of strings, the other refuses objects of other classes at compile time.
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

template <class Type>
auto PlainInsert(const Type& insert) {
    if constexpr (StringInsert<Type>)
        return insert.GetString();
    else
        return insert;
}

} // namespace quorvel

// The two templates of the function that has these parameters before its "...". Both lists stand in
// parentheses; the second holds the parameters' names.
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
#define QUORVEL_LIST(...) __VA_ARGS__
