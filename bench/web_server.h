// nginx on a free port of this machine, with a folder of its own, for as long as the program runs.
#pragma once

#include <string>

namespace web_server {

// The port; 0 when the server is not installed or does not start.
int Port();
// The port that answers over TLS, as localhost, with the certificate of the file, which signs
// itself. OpenSSL finds it by SSL_CERT_FILE.
int SecurePort();
std::string CertificateFile();
// The path of a file in the server's folder; what is put there is served.
std::string File(const std::string& name);

} // namespace web_server
