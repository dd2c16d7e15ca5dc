#include "document.h"

#include <quorvel/xml/xml_file.h>

#include <cstdio>
#include <fstream>
#include <iostream>
#include <random>

namespace fs = std::filesystem;

const CString kStandardStream(_T("-"));

namespace {

const CString kNoCopy(_T("cannot be copied to a temporary file"));

fs::path PathOf(const CString& name) {
    return fs::path(std::basic_string<WCHAR>(name));
}

CString TextOf(const fs::path& path) {
    return CString(path.string<WCHAR>().c_str());
}

[[noreturn]] void FailToRead(const CString& name, const CString& reason) {
    throw Failure{kExitFailed, DisplayName(name) + _T(": ") + reason};
}

Step ParseStep(const CString& text) {
    const int bracket = text.Find(_T('['));
    Step step{bracket < 0 ? text : text.Left(bracket), 1};
    if (bracket < 0)
        return step;
    step.number = 0;
    const WCHAR* rest = text.GetString() + bracket + 1;
    for (; *rest >= '0' && *rest <= '9' && step.number <= 100000000; ++rest)
        step.number = step.number * 10 + (*rest - '0');
    return CString(rest) == _T("]") ? step : Step{CString(), 0};
}

// The loader overlooks an encoding that is set apart from its "=", and would read other characters.
bool LoaderSeesEncoding(const CString& declaration) {
    return declaration.Find(_T("encoding")) < 0 || declaration.Find(_T("encoding=\"")) >= 0 ||
           declaration.Find(_T("encoding='")) >= 0;
}

// `declaration` with another encoding; where it has none to replace, or nothing to put it behind, a
// new one.
CString WithEncoding(CString declaration, const CString& encoding) {
    const CString named = _T("encoding=\"") + encoding + _T("\"");
    for (const WCHAR* attribute : {_T("encoding="), _T("version=")}) {
        const int begin = declaration.Find(attribute);
        if (begin < 0)
            continue;
        const int quote = begin + CString(attribute).GetLength();
        const int end = declaration.Find(declaration[quote], quote + 1);
        if (end < 0)
            continue;
        if (*attribute == 'v')
            return declaration.Left(end + 1) + _T(" ") + named + declaration.Mid(end + 1);
        return declaration.Left(begin) + named + declaration.Mid(end + 1);
    }
    return _T("<?xml version=\"1.0\" ") + named + _T("?>");
}

} // namespace

std::vector<Step> ParsePath(const CString& path) {
    std::vector<Step> steps;
    for (int begin = 1; begin <= path.GetLength() && path[0] == '/';) {
        const int slash = path.Find(_T('/'), begin);
        const int end = slash < 0 ? path.GetLength() : slash;
        steps.push_back(ParseStep(path.Mid(begin, end - begin)));
        begin = end + 1;
    }
    bool isPath = !steps.empty();
    for (const Step& step : steps)
        isPath = isPath && !step.name.IsEmpty() && step.number > 0 &&
                 step.name.FindOneOf(_T(" \t=<>@]")) < 0;
    if (!isPath)
        throw Failure{kExitFailed, _T("not a path as in /rss/channel/item[2]: ") + path};
    return steps;
}

CString DisplayName(const CString& fileName) {
    return fileName == kStandardStream ? CString(_T("standard input")) : fileName;
}

PrivateFolder::PrivateFolder() {
    std::random_device random;
    do
        m_path = fs::temp_directory_path() / ("xmltool-" + std::to_string(random()));
    while (!fs::create_directory(m_path));
    fs::permissions(m_path, fs::perms::owner_all);
}

PrivateFolder::~PrivateFolder() {
    std::error_code ignored;
    fs::remove_all(m_path, ignored);
}

Input::Input(const CString& fileName) : m_name(fileName) {
    if (fileName != kStandardStream)
        return;
    m_folder.emplace();
    std::ofstream copy(m_folder->File(), std::ios::binary);
    if (std::cin.peek() != std::istream::traits_type::eof())
        copy << std::cin.rdbuf();
    if (!copy.flush() || std::ferror(stdin))
        FailToRead(fileName, kNoCopy);
}

CString Input::Path() const {
    return m_folder ? TextOf(m_folder->File()) : m_name;
}

bool Input::Check(CXMLFault& fault) const {
    if (AfxCheckXMLFile(Path(), fault))
        return true;
    if (fault.nLine == 0)
        FailToRead(m_name, fault.strMessage);
    return false;
}

Document::Document(const CString& fileName) {
    const Input input(fileName);
    CXMLFault fault;
    if (!input.Check(fault)) {
        CString text;
        text.Format(_T("%s:%d:%d: %s"), DisplayName(fileName).GetString(), fault.nLine,
                    fault.nColumn, fault.strMessage.GetString());
        throw Failure{kExitNotFound, text};
    }
    Load(input);
}

// The loader wants a declaration or a mark, and leaves the declaration of UTF-16 aside.
void Document::Load(const Input& input) {
    std::ifstream file(PathOf(input.Path()), std::ios::binary);
    char beginning[4] = {};
    file.read(beginning, sizeof beginning);
    const auto length = static_cast<DWORD>(file.gcount());
    CString encoding;
    BOOL isBigEndian;
    int charSize, markLength;
    const bool isKnown =
        AfxDetermineXMLFileEncoding(reinterpret_cast<const BYTE*>(beginning), length, encoding,
                                    isBigEndian, charSize, markLength) != 0;
    CString path = input.Path();
    std::optional<PrivateFolder> folder;
    if (!isKnown) {
        file.clear();
        file.seekg(0);
        folder.emplace();
        std::ofstream copy(folder->File(), std::ios::binary);
        copy << "\xef\xbb\xbf" << file.rdbuf();
        if (!copy.flush())
            FailToRead(input.Name(), kNoCopy);
        path = TextOf(folder->File());
    }
    CString error;
    AfxLoadXMLFile(path, *this, error);
    EscapeValues();
    if (!IsWellFormed())
        FailToRead(input.Name(), GetError().IsEmpty() ? error : GetError());
    if (!LoaderSeesEncoding(GetXMLDeclaration()))
        FailToRead(input.Name(), _T("write the encoding without blanks around its \"=\""));
    if (charSize == 2)
        SetEncoding(isBigEndian ? _T("utf-16be") : _T("utf-16"));
}

// CMarkup cuts a tag at a ">" in a value, which well-formed documents may have: "&gt;" says the
// same.
void Document::EscapeValues() {
    const CString text = m_strDoc;
    CString escaped;
    int copied = 0;
    TokenPos node{0, 0, 0, text, FALSE};
    for (;;) {
        const int kind = x_ParseNode(node);
        if (kind != nodeElement && kind != nodeNone)
            continue;
        if (text[node.nFirst] == 0)
            break;
        node.nNext = node.nFirst + 1;
        while (x_FindToken(node) && (node.bQuoted || text[node.nFirst] != '>')) {
            CString value = x_GetToken(node);
            if (!node.bQuoted || value.Replace(_T(">"), _T("&gt;")) == 0)
                continue;
            escaped += text.Mid(copied, node.nFirst - copied) + value;
            copied = node.nLast + 1;
        }
    }
    if (copied > 0)
        SetDoc(escaped + text.Mid(copied));
}

void Document::Find(const CString& path) {
    const std::vector<Step> steps = ParsePath(path);
    ResetPos();
    for (const Step& step : steps) {
        IntoElem(); // nothing happens before the root
        for (int i = 0; i < step.number; ++i) {
            if (!FindElem(step.name))
                throw Failure{kExitNotFound, _T("not found: ") + path};
        }
    }
}

bool Document::HasAttribute(const CString& name) const {
    TokenPos token{0, 0, m_aPos[m_iPosMain].nTagOpen + 1, m_strDoc, FALSE};
    return x_FindAttrib(token, name) && token.bQuoted;
}

CString Document::StartTag() const {
    const ElemPos& element = m_aPos[m_iPosMain];
    const bool isEmpty = element.nEndTagClose == element.nTagClose;
    const int end = isEmpty ? element.nEndTagOpen : element.nTagClose;
    return m_strDoc.Mid(element.nTagOpen + 1, end - element.nTagOpen - 1);
}

void Document::SetEncoding(const CString& name) {
    SetXMLDeclaration(WithEncoding(GetXMLDeclaration(), name));
}

void Document::Save(const CString& fileName) {
    CXMLFault fault;
    if (!AfxCheckXML(GetXMLDeclaration() + GetDocConstRef(), fault))
        throw Failure{kExitFailed, _T("would not be well-formed: ") + fault.strMessage + _T(": ") +
                                       fault.strSnippet};
    CString error;
    std::optional<PrivateFolder> folder;
    if (fileName == kStandardStream)
        folder.emplace();
    if (!AfxSaveXMLFile(*this, folder ? TextOf(folder->File()) : fileName, error))
        throw Failure{kExitFailed, fileName + _T(": ") + error};
    if (folder)
        std::cout << std::ifstream(folder->File(), std::ios::binary).rdbuf();
}
