#include <quorvel/net/http_status_code_text.h>

#include <quorvel/res/message_ids.h>

#include <algorithm>
#include <iterator>

namespace {

struct StatusCode {
    DWORD code;
    UINT textId;
};
// clang-format off
constexpr StatusCode kStatusCodes[] = {
    {100, quorvel::kTextHttp100}, {101, quorvel::kTextHttp101},
    {200, quorvel::kTextHttp200}, {201, quorvel::kTextHttp201},
    {202, quorvel::kTextHttp202}, {203, quorvel::kTextHttp203},
    {204, quorvel::kTextHttp204}, {205, quorvel::kTextHttp205},
    {206, quorvel::kTextHttp206}, {300, quorvel::kTextHttp300},
    {301, quorvel::kTextHttp301}, {302, quorvel::kTextHttp302},
    {303, quorvel::kTextHttp303}, {304, quorvel::kTextHttp304},
    {305, quorvel::kTextHttp305}, {307, quorvel::kTextHttp307},
    {400, quorvel::kTextHttp400}, {401, quorvel::kTextHttp401},
    {402, quorvel::kTextHttp402}, {403, quorvel::kTextHttp403},
    {404, quorvel::kTextHttp404}, {405, quorvel::kTextHttp405},
    {406, quorvel::kTextHttp406}, {407, quorvel::kTextHttp407},
    {408, quorvel::kTextHttp408}, {409, quorvel::kTextHttp409},
    {410, quorvel::kTextHttp410}, {411, quorvel::kTextHttp411},
    {412, quorvel::kTextHttp412}, {413, quorvel::kTextHttp413},
    {414, quorvel::kTextHttp414}, {415, quorvel::kTextHttp415},
    {500, quorvel::kTextHttp500}, {501, quorvel::kTextHttp501},
    {502, quorvel::kTextHttp502}, {503, quorvel::kTextHttp503},
    {504, quorvel::kTextHttp504}, {505, quorvel::kTextHttp505},
};
// clang-format on

} // namespace

CString AfxGetHTTPStatusCodeText(DWORD code) {
    const auto found = std::ranges::find(kStatusCodes, code, &StatusCode::code);
    CString text;
    text.LoadString(found != std::end(kStatusCodes) ? found->textId
                                                    : UINT{quorvel::kTextHttpUnknown});
    return text;
}
