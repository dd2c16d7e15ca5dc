// The printf formats of the string class. The expected texts are those of the Windows runtime;
// control and non-ASCII characters are written as \xHHHH.
#include <quorvel/framework/string.h>

#include "support/test.h"

#include <cmath>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

template <class Ch, class... Arguments>
std::string Printed(const Ch* format, Arguments... arguments) {
    CStringT<Ch> text;
    text.Format(format, arguments...);
    return Printable(text.GetString(), text.GetLength());
}

#define NARROW(expected, format, ...)                                                              \
    { "narrow " format, Printed(format __VA_OPT__(, ) __VA_ARGS__), expected }
#define WIDE(expected, format, ...)                                                                \
    { "wide " format, Printed(_T(format) __VA_OPT__(, ) __VA_ARGS__), expected }
#define BOTH(expected, format, ...)                                                                \
    NARROW(expected, format __VA_OPT__(, ) __VA_ARGS__),                                           \
        WIDE(expected, format __VA_OPT__(, ) __VA_ARGS__)

TEST(Printf, Integers) {
    ExpectCases<std::string>({
        BOTH("-2147483648|7|4294967295|10|FF", "%d|%i|%u|%o|%X", INT_MIN, 7, -1, 8, 255),
        BOTH("+0003|+5   | 0003|-0003", "%0+5d|%-+ #05d|% 05d|%05d", 3, 5, 3, -3),
        // Unlike in C, zeros fill the width even with a precision.
        BOTH("00042|+0042", "%05.3d|%0+5.3d", 42, 42),
        BOTH("||     |+||010|0", "%.0d|%.d|%5.0d|%+.0d|%#.0x|%#o|%#x", 0, 0, 0, 0, 0, 8, 0),
        BOTH("0x0000ff|    0x00ff", "%#08x|%#10.4x", 255, 255),
        BOTH("42    |0042|42|000042", "%*d|%.*d|%.*d|%0*d", -6, 42, 4, 42, -4, 42, 6, 42),
        BOTH("4464|1170|25536", "%hu|%hx|%hi", 70000, 70000, -40000),
        BOTH("300|4567", "%hhd|%hhx", 300, 0x1234567), // there is no 8-bit type
        BOTH("-9223372036854775808|FFFFFFFFFFFFFFFB", "%I64d|%I64X", LLONG_MIN, -5LL),
        BOTH("-5|4294967291|5|5|5497558138880", "%I32d|%I32u|%wd|%Ld|%jd", -5, -5, 5, 5, 5LL << 40),
        BOTH("-5|4|5", "%Id|%zu|%td", INT_PTR{-5}, INT_PTR{4}, INT_PTR{5}),
    });
}

TEST(Printf, CharactersAndTexts) {
    const int euro = 0x20ac;
    const WCHAR* const wideNull = nullptr;
    const char* const narrowNull = nullptr;
    const WCHAR* const w = _T("wide");
    ExpectCases<std::string>({
        BOTH("[\\x0000]", "[%c]", 0),
        WIDE("\\x20AC|b|c|\\x20AC|\\x20AC|d|\\x2345", "%c|%C|%hc|%lc|%wc|%hC|%c", euro, 'b', 'c',
             euro, euro, 'd', 0x12345),
        NARROW("a|\\x00E9|c|\\x00FF|\\x00E9|A", "%c|%C|%hc|%lc|%hC|%c", 'a', 0xe9, 'c', 0xff, 0xe9,
               0x141),
        NARROW("[][]x", "[%C][%lc]x", 0x100, euro), // dropped: no byte for it
        WIDE("wide|nar|nar|wide|wide|nar|wide|wide", "%s|%S|%hs|%ls|%ws|%hS|%lS|%wS", w, "nar",
             "nar", w, w, "nar", w, w),
        NARROW("nar|wide|nar|wide|wide|nar|wide|wide", "%s|%S|%hs|%ls|%ws|%hS|%lS|%wS", "nar", w,
               "nar", w, w, "nar", w, w),
        WIDE("      wide|wide      |wi|        wi|000000wide||",
             "%10s|%-10s|%.2s|%10.2s|%010s|%.0s|%.s", w, w, w, w, w, w, w),
        WIDE("wide", "%.2147483647s", w),
        WIDE("(null)|(null)|(null)|(n|  (null)|(null)", "%s|%S|%hs|%.2s|%8s|%.10s", wideNull,
             narrowNull, narrowNull, wideNull, wideNull, wideNull),
        // Widths convert one to one, with any code page.
        WIDE("\\x0080\\x00E9\\x00FF|\\x0080", "%hs|%.1hs", "\x80\xe9\xff", "\x80\xe9\xff"),
        NARROW("\\x0080\\x00E9\\x00FF|\\x0080", "%ls|%.1ls", _T("\x80\xe9\xff"),
               _T("\x80\xe9\xff")),
        NARROW("", "lost with the rest: %ls", _T("a\x20ac")),
    });
}

TEST(Printf, FixedAndScientific) {
    ExpectCases<std::string>({
        BOTH("1.234500e+003|1.234500E+003|1234.500000", "%e|%E|%f", 1234.5, 1234.5, 1234.5),
        BOTH("     3.142| 3.14|+000003.14|+3.14     ", "%10.3f|% .2f|%+010.2f|%-+10.2f", 3.14159,
             3.14159, 3.14159, 3.14159),
        BOTH("1.|1.e+000|2e+000|1.500000", "%#.0f|%#.0e|%.0e|%.*f", 1.0, 1.0, 1.5, -1, 1.5),
    });
}

TEST(Printf, ExactTiesRoundAwayFromZero) {
    ExpectCases<std::string>({
        BOTH("1|3|-3|0.3|0.063", "%.0f|%.0f|%.0f|%.1f|%.3f", 0.5, 2.5, -2.5, 0.25, 0.0625),
        BOTH("1.3e+002|0.13|1e+001", "%.2g|%.2g|%.1g", 125.0, 0.125, 9.5),
    });
}

TEST(Printf, GeneralAndHexadecimal) {
    ExpectCases<std::string>({
        BOTH("1e-005|0.0001|100000|1e+006|-0", "%g|%g|%g|%g|%g", 1e-5, 1e-4, 1e5, 1e6, -0.0),
        BOTH("1e+003|1234.5678|0.10000000000000000555", "%.0g|%.10g|%.20g", 1234.0, 1234.5678, 0.1),
        BOTH("100000.|1.00|0.50000000000000000000|0.00000", "%#g|%#.3g|%#.20g|%#g", 1e5, 1.0, 0.5,
             0.0),
        BOTH("0x1.34a0000000000p+10|0X1.34A0000000000P+10", "%a|%A", 1234.5, 1234.5),
        BOTH("0x2p+0|0x1.19ap+0|0x1.p+0|0x2.0p+0|0x1.1p+0", "%.0a|%.3a|%#.0a|%.1a|%.1a", 1.5, 1.1,
             1.0, 1.96875, 1.03125),
    });
}

TEST(Printf, InfinityAndNotANumber) {
    const double indefinite = std::copysign(kNaN, -1.0);
    ExpectCases<std::string>({
        BOTH("-1.#INF00|-1.#IND00|+1.#QNAN0", "%f|%f|%+f", -kInfinity, indefinite, kNaN),
        BOTH("1.#QO|1.#QNAN00000|1.$|0x1.$p+0", "%.3f|%.10f|%.2g|%.1a", kNaN, kNaN, kNaN,
             kInfinity),
        BOTH("1|1.#Je+000|1.#J|-1.$|1e+000", "%.0f|%.2e|%.3g|%.1f|%#.0e", kInfinity, kInfinity,
             kInfinity, -kInfinity, kInfinity),
    });
}

TEST(Printf, Pointers) {
    const std::string zeros(2 * sizeof(void*) - 4, '0');
    const auto pointer = reinterpret_cast<void*>(ULONG_PTR{0x12ab});
    EXPECT_EQ(Printed("%p", pointer), zeros + "12AB");
    EXPECT_EQ(Printed(_T("%#p|%#p"), pointer, static_cast<void*>(nullptr)),
              "0X" + zeros + "12AB|" + zeros + "0000");
    EXPECT_EQ(Printed("%.2p|%#.1p|%#.5p", pointer, pointer, pointer), "00|0|0X000");
}

TEST(Printf, UnknownConversionsLoseWhatLedToThem) {
    ExpectCases<std::string>({
        BOTH("100%|%d", "100%%|%%d%"),
        BOTH("[k][k][k][!]", "[%k][%5k][%lk][%!]"),
        BOTH("[I][Is][I6d][qd][zs]", "[%I][%Is][%I6d][%qd][%zs]"),
        BOTH("bDUOvmrZTM", "%b%D%U%O%v%m%r%Z%T%M"),
    });
}

TEST(Printf, LongResultsAreWhole) {
    CString text;
    text.Format(_T("%*s|%-*d|"), 5000, _T("x"), 5000, 7);
    EXPECT_EQ(text.GetLength(), 10002);
    text.Format(_T("%.600f"), 1.0);
    EXPECT_EQ(text.GetLength(), 602);
}

} // namespace
