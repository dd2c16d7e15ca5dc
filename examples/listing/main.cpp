// listing: makes, checks and signs update listings on the publisher's side. See kUsage.
#include "common/program.h"
#include "listing/signing.h"

#include <quorvel/framework/app.h>
#include <quorvel/framework/date_time.h>
#include <quorvel/framework/exceptions.h>
#include <quorvel/framework/file.h>
#include <quorvel/update/signed_file.h>
#include <quorvel/update/update_listing.h>
#include <quorvel/util/calendar/date_parser.h>
#include <quorvel/util/calendar/local_time.h>
#include <quorvel/util/text/utf8.h>
#include <quorvel/util/text/validation.h>
#include <quorvel/xml/markup.h>
#include <quorvel/xml/xml_file.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <random>
#include <string>

using namespace quorvel::win32;

namespace {

constexpr char kUsage[] =
    R"(usage: listing new FILE
       listing add FILE --title TEXT [--link URL] [--description TEXT] [--priority PRIORITY]
       listing check FILE
       listing key NAME
       listing sign FILE --key NAME.key [--serial NUMBER]
       listing verify FILE --key NAME.pub

  new     writes an update listing without entries
  add     adds an entry at the end, and dates entry and listing with the present time
  check   says what a check for updates would not show as it is meant
  key     makes a key pair: NAME.pub for programs, NAME.key, which nobody else may read
  sign    writes FILE.minisig, in the format of minisign
  verify  checks FILE by FILE.minisig and prints the trusted comment

A listing that was signed with a serial number is accepted only before one with a smaller number
or none: count up.

exit code: 0 done, 1 not done, or something is wrong with the listing or signature, 2 wrong usage
)";

enum ExitCode { kExitDone = 0, kExitFailed = 1, kExitUsage = 2 };

typedef std::map<CString, CString> Options;

// The file's bytes are UTF-8 or the text of keys and signatures.
std::string ReadBytes(const CString& name) {
    CFile file(name, CFile::modeRead | CFile::shareDenyWrite);
    std::string bytes(static_cast<std::size_t>(file.GetLength()), 0);
    bytes.resize(file.Read(bytes.data(), static_cast<UINT>(bytes.size())));
    return bytes;
}

void WriteBytes(const CString& name, const std::string& bytes) {
    CFile file(name, CFile::modeCreate | CFile::modeWrite);
    file.Write(bytes.data(), static_cast<UINT>(bytes.size()));
    file.Close();
}

CString Now() {
    static constexpr const char* kDays[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    static constexpr const char* kMonths[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                              "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const COleDateTime now = AfxGetCurrentUTCTime();
    char text[64];
    std::snprintf(text, sizeof text, "%s, %02d %s %d %02d:%02d:%02d GMT",
                  kDays[now.GetDayOfWeek() - 1], now.GetDay(), kMonths[now.GetMonth() - 1],
                  now.GetYear(), now.GetHour(), now.GetMinute(), now.GetSecond());
    return CString::FromUTF8(text);
}

void Save(CMarkup& markup, const CString& file) {
    CString errorText;
    if (!AfxSaveXMLFile(markup, file, errorText))
        throw Failure{kExitFailed, errorText};
}

void Load(CMarkup& markup, const CString& file) {
    CString errorText;
    CUpdateListing listing;
    UINT icon = 0;
    if (!listing.Load(file, errorText, icon) || !AfxLoadXMLFile(file, markup, errorText))
        throw Failure{kExitFailed, file + _T(": ") + errorText.TrimRight()};
}

int New(const CString& file) {
    CMarkup markup;
    markup.AddElem(_T("rss"));
    markup.AddAttrib(_T("version"), _T("2.0"));
    markup.AddChildElem(_T("channel"));
    markup.IntoElem();
    markup.AddChildElem(_T("lastBuildDate"), Now());
    Save(markup, file);
    return kExitDone;
}

// What lies between the tags, which are there once.
void Replace(CString& document, const CString& name, const CString& text) {
    const int begin = document.Find(_T("<") + name + _T(">"));
    const int end = document.Find(_T("</") + name + _T(">"));
    if (begin < 0 || end < begin)
        throw Failure{kExitFailed, _T("the listing has no simple element <") + name + _T(">")};
    document = document.Left(begin + name.GetLength() + 2) + text + document.Mid(end);
}

int Add(const CString& file, const Options& options) {
    const auto title = options.find(_T("--title"));
    const auto link = options.find(_T("--link"));
    if (title == options.end())
        throw Failure{kExitUsage, _T("--title is needed")};
    if (link != options.end() && !AfxIsValidURL(link->second))
        throw Failure{kExitUsage, _T("no address: ") + link->second};
    CMarkup item;
    item.AddElem(_T("item"));
    for (const auto& [option, value] : options)
        item.AddChildElem(option.Mid(2), value);
    item.AddChildElem(_T("pubDate"), Now());
    CMarkup markup;
    Load(markup, file);
    CString document = markup.GetDoc();
    Replace(document, _T("lastBuildDate"), Now());
    const int end = document.Find(_T("</channel>"));
    if (end < 0)
        throw Failure{kExitFailed, _T("the listing has no simple element <channel>")};
    document.Insert(end, item.GetDoc());
    markup.SetDoc(document);
    Save(markup, file);
    return kExitDone;
}

CString ChildText(CMarkup& markup, const WCHAR* name) {
    markup.ResetChildPos();
    return markup.FindChildElem(name) ? markup.GetChildData() : CString();
}

bool IsDate(const CString& text, bool mayBeAhead) {
    COleDateTime date;
    return AfxStringToDate(text, date, 1) &&
           (mayBeAhead || date <= AfxGetCurrentUTCTime() + COleDateTimeSpan(1.0));
}

int Check(const CString& file) {
    CMarkup markup;
    Load(markup, file);
    int problems = 0;
    const auto require = [&](bool holds, const CString& problem) {
        if (holds)
            return;
        Print(stdout, problem);
        ++problems;
    };
    markup.ResetPos();
    markup.FindElem(_T("rss"));
    markup.FindChildElem(_T("channel"));
    markup.IntoElem();
    const CString built = ChildText(markup, _T("lastBuildDate"));
    require(IsDate(built, false), _T("lastBuildDate: no date, or in the future: ") + built);
    markup.ResetChildPos();
    int number = 0;
    while (markup.FindChildElem(_T("item"))) {
        CString place;
        place.Format(_T("entry %d, "), ++number);
        markup.IntoElem();
        const CString link = ChildText(markup, _T("link"));
        const CString date = ChildText(markup, _T("pubDate"));
        const CString priority = ChildText(markup, _T("priority"));
        require(!ChildText(markup, _T("title")).IsEmpty(), place + _T("title: missing"));
        require(link.IsEmpty() || AfxIsValidURL(link), place + _T("link: no address: ") + link);
        require(IsDate(date, true), place + _T("pubDate: no date: ") + date);
        CUpdateListingItem item;
        item.SetPriorityFromText(priority);
        require(priority.IsEmpty() || item.GetPriorityText().CompareNoCase(priority) == 0,
                place + _T("priority: not high, normal or low: ") + priority);
        markup.OutOfElem();
    }
    return problems == 0 ? kExitDone : kExitFailed;
}

int MakeKey(const CString& name) {
    for (const CString& file : {name + _T(".pub"), name + _T(".key")})
        if (GetFileAttributesW(file) != INVALID_FILE_ATTRIBUTES)
            throw Failure{kExitFailed, _T("there is such a key already: ") + file};
    std::random_device source;
    std::array<unsigned char, 40> random;
    for (unsigned char& each : random)
        each = static_cast<unsigned char>(source());
    const SigningKey key = MakeSigningKey(random);
    WriteBytes(name + _T(".key"), SecretKeyText(key));
    WriteBytes(name + _T(".pub"), PublicKeyText(key));
    return kExitDone;
}

CString KeyOf(const Options& options) {
    const auto key = options.find(_T("--key"));
    if (key == options.end())
        throw Failure{kExitUsage, _T("--key is needed")};
    return key->second;
}

int Sign(const CString& file, const Options& options) {
    SigningKey key;
    if (!ReadSecretKey(ReadBytes(KeyOf(options)), key))
        throw Failure{kExitFailed, _T("no secret key without a password: ") + KeyOf(options)};
    const COleDateTimeSpan since1970 = AfxGetCurrentUTCTime() - COleDateTime(1970, 1, 1, 0, 0, 0);
    CString comment;
    comment.Format(_T("timestamp:%I64d"), static_cast<__int64>(since1970.GetTotalSeconds()));
    const auto serial = options.find(_T("--serial"));
    if (serial != options.end()) {
        if (serial->second.IsEmpty() ||
            serial->second.SpanIncluding(_T("0123456789")) != serial->second)
            throw Failure{kExitUsage, _T("no number: ") + serial->second};
        comment += _T(" serial:") + serial->second;
    }
    CStringA narrow;
    AfxWideCharToUTF8(comment, narrow);
    WriteBytes(file + _T(".minisig"), SignatureText(key, ReadBytes(file), narrow.GetString()));
    return kExitDone;
}

int Verify(const CString& file, const Options& options) {
    CString text;
    const CString key = CString::FromUTF8(ReadBytes(KeyOf(options)));
    if (!AfxVerifySignedFile(file, file + _T(".minisig"), key, text))
        throw Failure{kExitFailed, text};
    Print(stdout, text);
    return kExitDone;
}

Options ReadOptions(const std::vector<CString>& arguments, std::initializer_list<CString> known) {
    Options options;
    for (std::size_t i = 2; i < arguments.size(); i += 2) {
        if (std::find(known.begin(), known.end(), arguments[i]) == known.end() ||
            i + 1 == arguments.size())
            throw Failure{kExitUsage, _T("not understood: ") + arguments[i]};
        options[arguments[i]] = arguments[i + 1];
    }
    return options;
}

int Run(const std::vector<CString>& arguments) {
    UsePlainStreams();
    if (arguments.size() == 1 && arguments[0] == _T("--help")) {
        std::fputs(kUsage, stdout);
        return kExitDone;
    }
    if (arguments.size() < 2)
        throw Failure{kExitUsage, _T("a command and a file are needed (listing --help)")};
    const CString& command = arguments[0];
    const CString& file = arguments[1];
    if (command == _T("new"))
        return ReadOptions(arguments, {}), New(file);
    if (command == _T("add"))
        return Add(file, ReadOptions(arguments, {_T("--title"), _T("--link"), _T("--description"),
                                                 _T("--priority")}));
    if (command == _T("check"))
        return ReadOptions(arguments, {}), Check(file);
    if (command == _T("key"))
        return ReadOptions(arguments, {}), MakeKey(file);
    if (command == _T("sign"))
        return Sign(file, ReadOptions(arguments, {_T("--key"), _T("--serial")}));
    if (command == _T("verify"))
        return Verify(file, ReadOptions(arguments, {_T("--key")}));
    throw Failure{kExitUsage, _T("not understood: ") + command};
}

} // namespace

int main(int argc, char** argv) {
    CWinApp app(_T("listing"));
    return RunProgram(_T("listing"), kExitFailed,
                      [&] { return Run(ProgramArguments(argc, argv)); });
}
