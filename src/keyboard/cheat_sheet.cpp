#include <quorvel/keyboard/cheat_sheet.h>

#include <quorvel/res/message_ids.h>

#include "keyboard/command_names.h"
#include "keyboard/text_view.h"

#include <algorithm>
#include <string_view>

namespace {

struct Row {
    CString command;
    CString key;
};

struct Sheet {
    CString title;
    Row headings;
    std::vector<Row> rows;
};

CString OneLine(CString text) {
    for (const WCHAR character : {'\t', '\r', '\n'})
        text.Replace(character, ' ');
    return text;
}

CString TextOf(UINT id) {
    CString text;
    text.LoadString(id);
    return text;
}

Sheet SheetOf(const CKeyboardMappingScheme& scheme) {
    Sheet sheet = {OneLine(scheme.GetName()),
                   {TextOf(quorvel::kTextColumnCommand), TextOf(quorvel::kTextColumnShortcutKey)},
                   {}};
    if (sheet.title.IsEmpty())
        sheet.title = TextOf(quorvel::kTextShortcutsTitle);
    std::vector<CKeyboardShortcut> shortcuts;
    scheme.GetKeyboardShortcuts(shortcuts);
    for (const CKeyboardShortcut& shortcut : shortcuts)
        if (shortcut.IsShortcutKeySet())
            sheet.rows.push_back({OneLine(quorvel::DisplayName(shortcut)),
                                  OneLine(quorvel::DisplayName(shortcut.GetShortcutKey()))});
    return sheet;
}

CString Plain(const Sheet& sheet) {
    int width = sheet.headings.command.GetLength();
    for (const Row& row : sheet.rows)
        width = std::max(width, row.command.GetLength());
    CString text;
    const auto add = [&](const Row& row) {
        text +=
            row.command + CString(' ', width + 2 - row.command.GetLength()) + row.key + _T("\r\n");
    };
    text += sheet.title + _T("\r\n\r\n");
    add(sheet.headings);
    const auto line = [](const CString& heading) { return CString('-', heading.GetLength()); };
    add({line(sheet.headings.command), line(sheet.headings.key)});
    for (const Row& row : sheet.rows)
        add(row);
    return text;
}

// Puts a backslash before every character that can have a meaning in Markdown.
CString InMarkdown(const CString& text) {
    static constexpr std::basic_string_view<WCHAR> kMarks = _T("\\`*_{}[]<>()#+-.!|~&");
    CString escaped;
    for (const WCHAR character : quorvel::ViewOf(text)) {
        if (kMarks.find(character) != kMarks.npos)
            escaped += _T("\\");
        escaped += character;
    }
    return escaped;
}

CString Markdown(const Sheet& sheet) {
    CString text = _T("# ") + InMarkdown(sheet.title) + _T("\r\n\r\n");
    const auto add = [&text](const Row& row) {
        text += _T("| ") + InMarkdown(row.command) + _T(" | ") + InMarkdown(row.key) + _T(" |\r\n");
    };
    add(sheet.headings);
    text += _T("| --- | --- |\r\n");
    for (const Row& row : sheet.rows)
        add(row);
    return text;
}

CString InHtml(CString text) {
    text.Replace(_T("&"), _T("&amp;")); // first, because the others insert ampersands
    text.Replace(_T("<"), _T("&lt;"));
    text.Replace(_T(">"), _T("&gt;"));
    text.Replace(_T("\""), _T("&quot;"));
    return text;
}

CString Html(const Sheet& sheet) {
    const CString title = InHtml(sheet.title);
    CString text =
        _T("<!DOCTYPE html>\r\n<html>\r\n<head>\r\n<meta charset=\"utf-8\">\r\n<title>") + title +
        _T("</title>\r\n</head>\r\n<body>\r\n<h1>") + title + _T("</h1>\r\n<table>\r\n<tr><th>") +
        InHtml(sheet.headings.command) + _T("</th><th>") + InHtml(sheet.headings.key) +
        _T("</th></tr>\r\n");
    for (const Row& row : sheet.rows)
        text += _T("<tr><td>") + InHtml(row.command) + _T("</td><td><kbd>") + InHtml(row.key) +
                _T("</kbd></td></tr>\r\n");
    return text + _T("</table>\r\n</body>\r\n</html>\r\n");
}

} // namespace

CString AfxGetShortcutCheatSheet(const CKeyboardMappingScheme& scheme, int format) {
    switch (format) {
    case AFX_CHEAT_SHEET_TEXT:
        return Plain(SheetOf(scheme));
    case AFX_CHEAT_SHEET_MARKDOWN:
        return Markdown(SheetOf(scheme));
    case AFX_CHEAT_SHEET_HTML:
        return Html(SheetOf(scheme));
    default:
        return CString();
    }
}
