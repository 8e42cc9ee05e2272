#include <zowidgets/host/shell/HTTPServer.h>

#include <string>

LightweightString<wchar_t> iHTTPServer::ConnectionRequest::describe() const {
  std::wstring line = userName.empty() ? std::wstring(L"(no user)") : userName.str();
  line += L" at ";
  line += serverAddress.empty() ? std::wstring(L"(no server)") : serverAddress.str();
  if (port != 0)
    line += L", port " + std::to_wstring(port);
  line += secure ? L", secure" : L", not secure";
  if (secure && !verifyCertificate)
    line += L", certificate not checked";
  line += L", time-out " + std::to_wstring(timeoutSeconds) + L" s";
  line += password.empty() ? L", no password" : L", with a password";
  return LightweightString<wchar_t>(line);
}
