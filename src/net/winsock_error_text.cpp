#include <quorvel/net/winsock_error_text.h>

#include <quorvel/res/message_ids.h>

#include <algorithm>
#include <iterator>

namespace {

struct ErrorText {
    DWORD code;
    UINT textId;
};
// Deliberate: 10104 to 10106 have catalogue texts but no row here.
// clang-format off
constexpr ErrorText kErrorTexts[] = {
    {6, quorvel::kTextWinsockInvalidHandle}, {8, quorvel::kTextWinsockNotEnoughMemory},
    {87, quorvel::kTextWinsockInvalidParameter}, {995, quorvel::kTextWinsockOperationAborted},
    {996, quorvel::kTextWinsockIoIncomplete}, {997, quorvel::kTextWinsockIoPending},
    {10004, quorvel::kTextWinsockInterrupted}, {10013, quorvel::kTextWinsockPermissionDenied},
    {10014, quorvel::kTextWinsockBadAddress}, {10022, quorvel::kTextWinsockInvalidArgument},
    {10024, quorvel::kTextWinsockTooManyOpenFiles}, {10035, quorvel::kTextWinsockWouldBlock},
    {10036, quorvel::kTextWinsockInProgress}, {10037, quorvel::kTextWinsockAlreadyInProgress},
    {10038, quorvel::kTextWinsockNotSocket}, {10039, quorvel::kTextWinsockDestinationRequired},
    {10040, quorvel::kTextWinsockMessageTooLong}, {10041, quorvel::kTextWinsockWrongProtocolType},
    {10042, quorvel::kTextWinsockBadProtocolOption},
    {10043, quorvel::kTextWinsockProtocolNotSupported},
    {10044, quorvel::kTextWinsockTypeNotSupported},
    {10045, quorvel::kTextWinsockOperationNotSupported},
    {10046, quorvel::kTextWinsockProtocolFamilyNotSupported},
    {10047, quorvel::kTextWinsockAddressFamilyNotSupported},
    {10048, quorvel::kTextWinsockAddressInUse}, {10049, quorvel::kTextWinsockAddressNotAvailable},
    {10050, quorvel::kTextWinsockNetworkDown}, {10051, quorvel::kTextWinsockNetworkUnreachable},
    {10052, quorvel::kTextWinsockNetworkReset}, {10053, quorvel::kTextWinsockConnectionAborted},
    {10054, quorvel::kTextWinsockConnectionReset}, {10055, quorvel::kTextWinsockNoBufferSpace},
    {10056, quorvel::kTextWinsockAlreadyConnected}, {10057, quorvel::kTextWinsockNotConnected},
    {10058, quorvel::kTextWinsockShutDown}, {10060, quorvel::kTextWinsockTimedOut},
    {10061, quorvel::kTextWinsockConnectionRefused}, {10064, quorvel::kTextWinsockHostDown},
    {10065, quorvel::kTextWinsockHostUnreachable}, {10067, quorvel::kTextWinsockTooManyProcesses},
    {10091, quorvel::kTextWinsockNetworkUnavailable},
    {10092, quorvel::kTextWinsockVersionOutOfRange}, {10093, quorvel::kTextWinsockNotStarted},
    {10101, quorvel::kTextWinsockDisconnecting}, {10107, quorvel::kTextWinsockSystemCallFailure},
    {10109, quorvel::kTextWinsockTypeNotFound}, {11001, quorvel::kTextWinsockHostNotFound},
    {11002, quorvel::kTextWinsockHostNotFoundNonauthoritative},
    {11003, quorvel::kTextWinsockNonrecoverable}, {11004, quorvel::kTextWinsockNoData},
};
// clang-format on

} // namespace

CString AfxGetWinsockErrorText(DWORD code) {
    const auto found = std::ranges::find(kErrorTexts, code, &ErrorText::code);
    CString text;
    text.LoadString(found != std::end(kErrorTexts) ? found->textId
                                                   : UINT{quorvel::kTextUnknownError});
    return text;
}
