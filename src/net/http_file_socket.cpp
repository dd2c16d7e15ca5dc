#include <quorvel/net/http_file_socket.h>

#include <quorvel/framework/exceptions.h>

#include "net/http_header_reader.h"
#include "platform/win32.h"

CHttpFileSocket::CHttpFileSocket() : m_reader(std::make_unique<quorvel::HttpHeaderReader>()) {}

CHttpFileSocket::~CHttpFileSocket() {
    Close(); // first, because the worker uses all members
    CloseLocalFile();
}

void CHttpFileSocket::SetLocalFileName(const WCHAR* fileName) {
    if (fileName != nullptr)
        m_localFileName = fileName;
}

BOOL CHttpFileSocket::OnConnect(int errorCode) {
    if (errorCode != 0)
        return FALSE;
    m_headerParsed = FALSE;
    m_bytesReceived = 0;
    m_reader->Reset(m_headerLimit);
    return (m_getHeaderOnly || OpenLocalFile()) && SendRequest();
}

BOOL CHttpFileSocket::OpenLocalFile() {
    CloseLocalFile();
    CFileException error;
    m_localFileOpen =
        m_localFile.Open(m_localFileName, CFile::modeCreate | CFile::modeWrite, &error);
    return m_localFileOpen || Fail(statusSending, static_cast<DWORD>(error.m_lOsError));
}

BOOL CHttpFileSocket::SendRequest() {
    const CStringA object(GetHostObject().GetString());
    const CStringA server(GetHostServer().GetString());
    CStringA request;
    request.Format("%s %s HTTP/1.1\r\nHost: %s\r\nConnection: close\r\n\r\n",
                   m_getHeaderOnly ? "HEAD" : "GET", object.GetString(), server.GetString());
    // Deliberate: -1 counts as sent. Waiting for the answer will show the error.
    return Send(request.GetString(), request.GetLength(), 0) != 0 ||
           Fail(statusSending, static_cast<DWORD>(::WSAGetLastError()));
}

// Reports and keeps the error; returns false. Closes the file first: OnClose is not called any
// more, and the receiver of the status may read or delete the file.
bool CHttpFileSocket::Fail(int status, DWORD error) {
    CloseLocalFile();
    UpdateStatus(status, static_cast<int>(error));
    ::WSASetLastError(static_cast<int>(error));
    return false;
}

int CHttpFileSocket::ReceivePiece() {
    const UINT size = GetReceiveBufferSize();
    m_buffer.resize(size != 0 ? size : DEFAULT_RECEIVE_BUFFER_SIZE);
    return Receive(m_buffer.data(), static_cast<int>(m_buffer.size()), 0);
}

bool CHttpFileSocket::TakePiece(int length) {
    m_bytesReceived += static_cast<ULONGLONG>(length);
    ParseHeader(m_buffer.data(), length);
    const bool isHeaderTooLong = !m_headerParsed && m_bytesReceived > m_headerLimit;
    if (isHeaderTooLong || m_bytesReceived > m_fileLimit)
        return Fail(statusReceiving, WSAEMSGSIZE);
    if (!m_localFileOpen)
        return true;
    try {
        m_localFile.Write(m_buffer.data(), static_cast<UINT>(length));
        return true;
    } catch (CFileException* exception) {
        const LONG error = exception->m_lOsError;
        exception->Delete();
        return Fail(statusReceiving, error > 0 ? static_cast<DWORD>(error) : ERROR_WRITE_FAULT);
    }
}

int CHttpFileSocket::OnReceive(int errorCode) {
    if (errorCode != 0)
        return SOCKET_ERROR;
    const int received = ReceivePiece();
    return received > 0 && !TakePiece(received) ? SOCKET_ERROR : received;
}

BOOL CHttpFileSocket::ParseHeader(const char* data, int length) {
    if (m_headerParsed || length <= 0 || data == nullptr)
        return FALSE;
    const auto state = m_reader->Add(data, static_cast<std::size_t>(length), m_header);
    if (state != quorvel::HttpHeaderReader::State::Complete)
        return FALSE;
    m_headerParsed = TRUE;
    PostCallbackStatusChangeMessage(statusHeaderParsed, 0);
    return TRUE;
}

BOOL CHttpFileSocket::OnClose(int) {
    ::WSAEventSelect(GetHandle(), GetEventHandle(), 0);
    int error = 0;
    for (int received = 1; received > 0;) {
        received = ReceivePiece();
        if (received > 0 && TakePiece(received)) {
            UpdateStatus(statusReceived, received);
            continue;
        }
        error = received == 0 ? 0 : ::WSAGetLastError();
        if (received < 0)
            UpdateStatus(statusReceiving, error);
        break;
    }
    CloseLocalFile();
    ::WSASetLastError(error); // the error that belongs to status 14
    return TRUE;
}

void CHttpFileSocket::CloseLocalFile() {
    if (!m_localFileOpen)
        return;
    m_localFileOpen = FALSE;
    m_localFile.Abort(); // closes without throwing
}
