// Calls beside what they give, a row each; the call is the row's label.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>

template <class Value, class Expected = Value>
struct Case {
    const char* call;
    Value actual;
    Expected expected;
};
#define CASE(call, expected)                                                                       \
    { #call, call, expected }

template <class Value, class Expected = Value>
void ExpectCases(std::initializer_list<Case<Value, Expected>> rows) {
    for (const auto& row : rows)
        EXPECT_EQ(row.actual, row.expected) << row.call;
}
