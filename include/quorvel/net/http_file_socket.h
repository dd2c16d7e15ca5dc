// CHttpFileSocket: fetches one resource over HTTP/1.1: only the header, or the whole response into
// a local file.
//
// The host creates it, sets it up and calls Connect(url, port). One request is sent. Redirects are
// not followed and chunks are not decoded: the file contains the response as received, including
// status line and fields. The host compares GetBytesReceived with the header's GetFileLength to
// find out whether the response is complete.
//
// The protocol is plain HTTP: a request for an "https://" address is not encrypted either. The port
// is the argument of Connect; a port in the address is ignored.
//
// Statuses are posted to the status window. Those of this class are: statusHeaderParsed after the
// header was read; statusReceived with the length of each piece; statusSending with the system's
// error when the local file cannot be created, or with the Winsock error when the request cannot be
// sent; statusReceiving with the Winsock error when receiving fails, or with the system's error
// when writing the file fails. A length has 16 bits: with a receive buffer above 65535 bytes it is
// truncated, but GetBytesReceived is exact.
//
// The handlers run on the socket's worker thread. Any thread may read the header after
// statusHeaderParsed, and the counters at any time. Everything else is for the thread that owns the
// socket; set it before Connect.
#pragma once

#include <quorvel/framework/file.h>
#include <quorvel/net/http_header.h>
#include <quorvel/net/vask_socket.h>

#include <atomic>
#include <memory>
#include <vector>

namespace quorvel {
class HttpHeaderReader;
} // namespace quorvel

class QUORVEL_API CHttpFileSocket : public CVaskSocket {
public:
    enum HttpStatus { statusHeaderParsed = 1000 }; // and the base class's

    CHttpFileSocket();
    ~CHttpFileSocket() override;

    // Whether only the header is fetched, and the file that gets the response.
    void SetGetHeaderOnly(BOOL headerOnly) { m_getHeaderOnly = headerOnly; } // default TRUE
    BOOL GetHeaderOnly() const { return m_getHeaderOnly; }
    void SetLocalFileName(const WCHAR* fileName); // nothing for null
    CString GetLocalFileName() const { return m_localFileName; }

    // About the current connection. Until its header has been read, the fields are those of the
    // previous connection.
    BOOL IsHeaderParsed() const { return m_headerParsed; }
    CHttpHeader GetHeader() const { return m_header; }
    CHttpHeader& GetHeaderRef() { return m_header; }
    const CHttpHeader& GetHeaderConstRef() const { return m_header; }
    ULONGLONG GetBytesReceived() const { return m_bytesReceived; } // the header included

    // A response with more bytes ends the connection with statusReceiving and WSAEMSGSIZE; so does
    // a header of more. No limits by default.
    void SetHeaderLimit(SIZE_T bytes) { m_headerLimit = bytes; }
    void SetFileLimit(ULONGLONG bytes) { m_fileLimit = bytes; }

protected:
    BOOL OnClose(int errorCode) override;
    BOOL OnConnect(int errorCode) override;
    int OnReceive(int errorCode) override;

    // Takes the next bytes of the response; one byte is a character. TRUE for those that complete
    // the header.
    BOOL ParseHeader(const char* data, int length);
    void CloseLocalFile(); // no effect without an open file

private:
    BOOL OpenLocalFile();
    BOOL SendRequest();
    int ReceivePiece();
    bool TakePiece(int length);
    bool Fail(int status, DWORD error);

    BOOL m_getHeaderOnly = TRUE;
    std::atomic<BOOL> m_headerParsed = FALSE;
    const std::unique_ptr<quorvel::HttpHeaderReader> m_reader;
    CHttpHeader m_header;
    CString m_localFileName;
    CFile m_localFile;
    BOOL m_localFileOpen = FALSE;
    std::vector<char> m_buffer;
    std::atomic<ULONGLONG> m_bytesReceived = 0;
    SIZE_T m_headerLimit = static_cast<SIZE_T>(-1);
    ULONGLONG m_fileLimit = static_cast<ULONGLONG>(-1);
};
