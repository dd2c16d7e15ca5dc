// Headers of the system and of other libraries that a host includes before or after ours. Headers
// that are not installed are skipped.
#if defined(_WIN32)

#include <winsock2.h>
#include <windows.h>
#include <ws2tcpip.h>

#include <shlobj.h>
#include <wincrypt.h>

#else

#include <arpa/inet.h>
#include <arpa/nameser.h> // defines a macro DELETE
#include <fcntl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <signal.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#if __has_include(<openssl/md5.h>)
#include <openssl/md5.h>
#define HAS_OTHER_MD5
#endif
#if __has_include(<curl/curl.h>)
#include <curl/curl.h>
#endif
#if __has_include(<boost/asio/ip/tcp.hpp>)
#include <boost/asio/ip/tcp.hpp>
#endif
#if __has_include(<X11/Xlib.h>)
#include <X11/Xlib.h>
#endif

#endif
