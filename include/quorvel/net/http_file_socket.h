// CHttpFileSocket: fetches one resource over HTTP/1.1, the header alone or the whole response into
// a local file.
//
// The host creates it, sets it up and calls Connect(url, port). One request is sent; redirects and
// chunked transfer are not followed up, and the file holds the response as it came, status line and
// fields included. Whether all of it came is the host's to tell, from the header's GetFileLength
// and GetBytesReceived.
//
// The protocol is plain HTTP: an "https://" address too is requested in the clear. The port is the
// one given to Connect, not the one in the address.
//
// What happens is posted to the status window. Statuses of this class are statusHeaderParsed
// once the header was read, statusReceived with the count of each piece, statusSending with the
// system's error when the local file can't be made and with the Winsock error when the request
// can't be sent, and statusReceiving with the Winsock error when receiving fails and with the
// system's error when writing the file fails. A count has 16 bits: with a receive buffer above
// 65535 bytes it is cut; GetBytesReceived is exact.
//
// The handlers run on the socket's worker thread. The header may be read once statusHeaderParsed
// has come, the counters at any time; all else belongs to the thread that owns the socket, and is
// set before Connect.
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

    void SetGetHeaderOnly(BOOL headerOnly) { m_getHeaderOnly = headerOnly; } // TRUE at first
    BOOL GetHeaderOnly() const { return m_getHeaderOnly; }
    void SetLocalFileName(const WCHAR* fileName); // nothing for null
    CString GetLocalFileName() const { return m_localFileName; }

    // Of the present connection. The fields stay those of the one before until a header was read.
    BOOL IsHeaderParsed() const { return m_headerParsed; }
    CHttpHeader GetHeader() const { return m_header; }
    CHttpHeader& GetHeaderRef() { return m_header; }
    const CHttpHeader& GetHeaderConstRef() const { return m_header; }
    ULONGLONG GetBytesReceived() const { return m_bytesReceived; } // the header included

    // A response with more bytes ends the connection with statusReceiving and WSAEMSGSIZE; so does
    // a header of more. No limits at first.
    void SetHeaderLimit(SIZE_T bytes) { m_headerLimit = bytes; }
    void SetFileLimit(ULONGLONG bytes) { m_fileLimit = bytes; }

protected:
    BOOL OnClose(int errorCode) override;
    BOOL OnConnect(int errorCode) override;
    int OnReceive(int errorCode) override;

    // Takes the next bytes of the response; one byte is a character. TRUE for those that complete
    // the header.
    BOOL ParseHeader(const char* data, int length);
    void CloseLocalFile();

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
