// The values in a source that includes both kinds of headers: each is the system's own.
#include <type_traits>

template <class Text>
using UnitOf = std::remove_cvref_t<decltype(std::declval<Text>()[0])>;
static_assert(std::is_same_v<UnitOf<decltype(_T("x"))>, TCHAR> && std::is_same_v<TCHAR, WCHAR>);
static_assert(std::is_same_v<quorvel::win32::sockaddr, ::sockaddr>);
static_assert(std::is_same_v<quorvel::win32::addrinfo, ::addrinfo>);

#if defined(_WIN32)
static_assert(AF_INET6 == 23 && SOL_SOCKET == 0xffff && SO_KEEPALIVE == 8 && DELETE == 0x10000);
#else
static_assert(AF_INET == 2 && AF_INET6 == 10 && SOCK_DGRAM == 2 && MSG_PEEK == 2);
static_assert(SOL_SOCKET == 1 && SO_REUSEADDR == 2 && SO_ERROR == 4 && SO_KEEPALIVE == 9);
static_assert(FIONBIO == 0x5421 && FIONREAD == 0x541b && DELETE == ns_uop_delete);
#endif
#if defined(HAS_OTHER_MD5)
static_assert(sizeof(quorvel::MD5_CTX) != sizeof(MD5_CTX));
#endif
