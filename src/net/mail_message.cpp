#include "net/mail_message.h"

#include "platform/win32.h"

namespace quorvel {

namespace {

bool NamesFile(const WCHAR* path) {
    if (path == nullptr || path[0] == 0)
        return false;
    const DWORD attributes = GetFileAttributesW(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

// The records want writable texts. Nothing writes to them, and the message owns them.
LPSTR Writable(const CStringA& text) {
    return const_cast<LPSTR>(text.GetString());
}

} // namespace

bool IsComplete(const MailTexts& texts) {
    for (const WCHAR* text : {texts.name, texts.address, texts.subject, texts.body})
        if (text == nullptr || text[0] == 0)
            return false;
    return true;
}

bool IsMailSent(ULONG result) {
    // Deliberate: 3, a failed logon, counts as sent. Some mail systems return it when the user has
    // closed their logon window.
    return result == SUCCESS_SUCCESS || result == MAPI_USER_ABORT || result == 3;
}

MailMessage::MailMessage(const MailTexts& texts)
    : m_name(texts.name), m_address(texts.address), m_subject(texts.subject), m_body(texts.body) {
    m_recipient.ulRecipClass = MAPI_TO;
    m_recipient.lpszName = Writable(m_name);
    m_recipient.lpszAddress = Writable(m_address);
    m_message.lpszSubject = Writable(m_subject);
    m_message.lpszNoteText = Writable(m_body);
    m_message.nRecipCount = 1;
    m_message.lpRecips = &m_recipient;
    if (!NamesFile(texts.attachmentPath))
        return;
    m_attachmentPath = CStringA(texts.attachmentPath);
    m_attachmentName = CStringA(texts.attachmentName);
    m_file.nPosition = ULONG{0xFFFFFFFF}; // no position in the body
    m_file.lpszPathName = Writable(m_attachmentPath);
    m_file.lpszFileName = texts.attachmentName != nullptr ? Writable(m_attachmentName) : nullptr;
    m_message.nFileCount = 1;
    m_message.lpFiles = &m_file;
}

} // namespace quorvel
