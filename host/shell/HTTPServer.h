#pragma once

#include <zowidgets/host/base/LightweightString.h>

// The host's side of a media server reached over HTTP. Widgets gather from
// the user what a connection is made with; the host's server client makes
// the connection.
class ZO_API iHTTPServer {
public:
  // Everything a connection to a server is made with.
  struct ZO_API ConnectionRequest {
    // As the user typed it: a host name or address, perhaps with a scheme
    // and a port.
    LightweightString<wchar_t> serverAddress;
    LightweightString<wchar_t> userName;
    LightweightString<wchar_t> password;
    int port = 0;                  // 0: the one the address or the scheme gives
    bool secure = true;            // over TLS
    bool verifyCertificate = true; // refuse a server whose certificate fails
    int timeoutSeconds = 30;

    // A line about the request for a log or a status message: the user, the
    // server and the settings, never the password.
    LightweightString<wchar_t> describe() const;

    friend bool operator==(ConnectionRequest const&, ConnectionRequest const&) = default;
  };

  virtual ~iHTTPServer() = default;
};
