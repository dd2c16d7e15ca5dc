// A document that is read from a file or standard input, walked by paths, and written back.
#pragma once

#include "common/program.h"

#include <quorvel/xml/check_xml.h>
#include <quorvel/xml/markup.h>

#include <filesystem>
#include <optional>
#include <vector>

// The exit codes of the program.
enum ExitCode { kExitDone = 0, kExitNotFound = 1, kExitFailed = 2 };

// A step of a path: the number-th child of that name, counted from 1.
struct Step {
    CString name;
    int number;
};
// "/rss/channel/item[2]" as steps. Throws Failure for anything else.
std::vector<Step> ParsePath(const CString& path);

// The name by which standard input and output are called.
extern const CString kStandardStream;
// How messages call the file.
CString DisplayName(const CString& fileName);

// A folder that only this user can look into, removed with its files at the end.
class PrivateFolder {
public:
    PrivateFolder();
    PrivateFolder(const PrivateFolder&) = delete;
    ~PrivateFolder();
    std::filesystem::path File() const { return m_path / "file.xml"; }

private:
    std::filesystem::path m_path;
};

// A file to read: the named one, or a copy of standard input.
class Input {
public:
    explicit Input(const CString& fileName);
    const CString& Name() const { return m_name; }
    CString Path() const;
    bool Check(CXMLFault& fault) const; // throws Failure where the file cannot be judged

private:
    CString m_name;
    std::optional<PrivateFolder> m_folder;
};

class Document : public CMarkup {
public:
    // Reads well-formed documents only; throws Failure otherwise.
    explicit Document(const CString& fileName);

    // Makes the element the main position; throws Failure where there is none.
    void Find(const CString& path);
    bool HasAttribute(const CString& name) const;
    // The main element's start tag without its angle brackets, as it stands.
    CString StartTag() const;

    void SetEncoding(const CString& name);
    // Throws Failure for a document that is no longer well-formed, or cannot be written.
    void Save(const CString& fileName);

private:
    void Load(const Input& input);
    void EscapeValues();
};
