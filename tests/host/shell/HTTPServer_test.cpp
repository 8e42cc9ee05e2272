#include <zowidgets/host/shell/HTTPServer.h>

#include <gtest/gtest.h>

namespace {

TEST(ConnectionRequest, ADescriptionNamesTheUserAndServerButNeverThePassword) {
  iHTTPServer::ConnectionRequest request;
  request.serverAddress = L"media.example.org";
  request.userName = L"editor";
  request.password = L"Wqm7#jZ";
  request.port = 8443;
  std::wstring const line = request.describe().str();
  EXPECT_NE(line.find(L"editor"), std::wstring::npos);
  EXPECT_NE(line.find(L"media.example.org"), std::wstring::npos);
  EXPECT_NE(line.find(L"8443"), std::wstring::npos);
  EXPECT_NE(line.find(L"with a password"), std::wstring::npos);
  EXPECT_EQ(line.find(L"Wqm7#jZ"), std::wstring::npos);
}

TEST(ConnectionRequest, ADescriptionSaysWhatIsMissingAndWhatIsRelaxed) {
  iHTTPServer::ConnectionRequest request;
  request.verifyCertificate = false;
  std::wstring const line = request.describe().str();
  EXPECT_NE(line.find(L"(no user)"), std::wstring::npos);
  EXPECT_NE(line.find(L"(no server)"), std::wstring::npos);
  EXPECT_NE(line.find(L"no password"), std::wstring::npos);
  EXPECT_NE(line.find(L"certificate not checked"), std::wstring::npos);
  EXPECT_EQ(line.find(L"port"), std::wstring::npos);
}

TEST(ConnectionRequest, RequestsCompareFieldByField) {
  iHTTPServer::ConnectionRequest a, b;
  EXPECT_EQ(a, b);
  b.timeoutSeconds = 5;
  EXPECT_NE(a, b);
}

} // namespace
