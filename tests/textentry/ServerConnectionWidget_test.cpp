#include "CredentialsTestSupport.h"

#include <zowidgets/host/base/ResourceStrings.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>
#include <zowidgets/textentry/PasswordEntryBox.h>
#include <zowidgets/textentry/ServerConnectionWidget.h>

#include <vector>

namespace {

using Request = iHTTPServer::ConnectionRequest;

Request fullRequest() {
  Request request;
  request.serverAddress = L"media.example.org";
  request.userName = L"editor";
  request.password = L"s3cret";
  return request;
}

struct ServerConnectionWidgetTest : CredentialsTest {
  ServerConnectionWidget* connection = nullptr;
  PushButton* connect = nullptr;
  std::vector<ServerConnectionWidgetEvent> events;

  // The widget as an owner uses it: a Connect button below, active while
  // the request is complete.
  void open(Request const& request) {
    int const row = UifStd::getRowHeight();
    ServerConnectionWidget::InitArgs args(XY<int>(row * 12, ServerConnectionWidget::calcHeight()));
    args.request = request;
    connection = add<ServerConnectionWidget>(args);
    connect = window->createWidget<PushButton>(PushButton::InitArgs(L"Connect", XY<int>()),
                                               Glob::Below(UifStd::getRowGap(), connection));
    connect->setActive(ServerConnectionWidget::isEligibleForConnection(connection->gatherUserData()), kRedrawNow);
    connection->addListener(
        Broadcaster<ServerConnectionWidgetEvent>::makeCallback([this](ServerConnectionWidgetEvent const& event) {
          events.push_back(event);
          connect->setActive(ServerConnectionWidget::isEligibleForConnection(event.request), kRedrawNow);
        }));
  }

  TextBox* addressBox() const { return connection->getAddressBox(); }
  TextBox* nameBox() const { return connection->getSignInWidget()->getNameBox(); }
  TextBox* passwordBox() const { return connection->getSignInWidget()->getPasswordBox()->getTextBox(); }
};

TEST(ServerConnectionEligibility, IsFalseWhenAnyOneOfTheThreeStringsIsEmpty) {
  EXPECT_TRUE(ServerConnectionWidget::isEligibleForConnection(fullRequest()));
  Request noAddress = fullRequest();
  noAddress.serverAddress = L"";
  Request noUser = fullRequest();
  noUser.userName = L"";
  Request noPassword = fullRequest();
  noPassword.password = L"";
  EXPECT_FALSE(ServerConnectionWidget::isEligibleForConnection(noAddress));
  EXPECT_FALSE(ServerConnectionWidget::isEligibleForConnection(noUser));
  EXPECT_FALSE(ServerConnectionWidget::isEligibleForConnection(noPassword));
  EXPECT_FALSE(ServerConnectionWidget::isEligibleForConnection(Request()));
}

TEST(ServerConnectionEligibility, TheOtherFieldsDoNotMatter) {
  Request request = fullRequest();
  request.port = 0;
  request.secure = false;
  request.timeoutSeconds = 0;
  EXPECT_TRUE(ServerConnectionWidget::isEligibleForConnection(request));
}

TEST_F(ServerConnectionWidgetTest, TheBoxesStartFromTheRequestGiven) {
  open(fullRequest());
  EXPECT_EQ(addressBox()->getString().str(), L"media.example.org");
  EXPECT_EQ(nameBox()->getString().str(), L"editor");
  EXPECT_EQ(passwordBox()->getString().str(), L"s3cret");
  EXPECT_TRUE(connect->isActive());
  EXPECT_EQ(addressBox()->getGhostLabel().getString(), resourceStrW(12344));
}

TEST_F(ServerConnectionWidgetTest, GatherUserDataKeepsTheRequestsOtherFields) {
  Request given;
  given.port = 8443;
  given.secure = false;
  given.verifyCertificate = false;
  given.timeoutSeconds = 7;
  open(given);
  typeInto(*addressBox(), "10.0.0.5");
  typeInto(*nameBox(), "ed");
  typeInto(*passwordBox(), "pw");
  Request const gathered = connection->gatherUserData();
  EXPECT_EQ(gathered.serverAddress.str(), L"10.0.0.5");
  EXPECT_EQ(gathered.userName.str(), L"ed");
  EXPECT_EQ(gathered.password.str(), L"pw");
  EXPECT_EQ(gathered.port, 8443);
  EXPECT_FALSE(gathered.secure);
  EXPECT_FALSE(gathered.verifyCertificate);
  EXPECT_EQ(gathered.timeoutSeconds, 7);
}

TEST_F(ServerConnectionWidgetTest, EveryKeystrokeReportsTheWholeRequestSoConnectFollowsIt) {
  open(Request());
  EXPECT_FALSE(connect->isActive());
  typeInto(*addressBox(), "host");
  EXPECT_FALSE(connect->isActive());
  typeInto(*nameBox(), "me");
  EXPECT_FALSE(connect->isActive());
  typeInto(*passwordBox(), "p");
  EXPECT_TRUE(connect->isActive());
  ASSERT_FALSE(events.empty());
  EXPECT_EQ(events.back().kind, TextBoxEvent::kTextChanged);
  EXPECT_EQ(events.back().request.serverAddress.str(), L"host");
  EXPECT_EQ(events.back().request.userName.str(), L"me");
  EXPECT_EQ(events.back().request.password.str(), L"p");
  EXPECT_EQ(events.size(), 7u); // one for each character typed
  // Emptying the address makes the request incomplete again.
  typeInto(*addressBox(), "");
  for (int i = 0; i < 4; ++i)
    HeadlessInput::key(kKeyBackspace);
  EXPECT_FALSE(connect->isActive());
}

TEST_F(ServerConnectionWidgetTest, ReturnIsReportedFromTheAddressAndPasswordButNotTheName) {
  open(fullRequest());
  HeadlessInput::clickOn(*addressBox());
  HeadlessInput::key(kKeyReturn);
  ASSERT_EQ(events.size(), 1u);
  EXPECT_EQ(events[0].kind, TextBoxEvent::kReturnPressed);
  EXPECT_EQ(events[0].request, fullRequest());
  HeadlessInput::clickOn(*nameBox());
  HeadlessInput::key(kKeyReturn);
  EXPECT_EQ(events.size(), 1u);
  HeadlessInput::clickOn(*passwordBox());
  HeadlessInput::key(kKeyReturn);
  ASSERT_EQ(events.size(), 2u);
  EXPECT_EQ(events[1].kind, TextBoxEvent::kReturnPressed);
}

TEST_F(ServerConnectionWidgetTest, TheFocusGoesToTheFirstEmptyBox) {
  open(Request());
  EXPECT_TRUE(connection->claimKbdFocus());
  EXPECT_TRUE(addressBox()->hasKbdFocus());
  addressBox()->setString(L"host");
  EXPECT_TRUE(connection->claimKbdFocus());
  EXPECT_TRUE(nameBox()->hasKbdFocus());
}

TEST_F(ServerConnectionWidgetTest, TabVisitsTheAddressNamePasswordAndEyeThenTheOwnersButton) {
  open(fullRequest());
  window->tabOrder().addTabStops(*connection, 0);
  window->tabOrder().addTabStop(*connect, 1);
  HeadlessInput::clickOn(*addressBox());
  std::vector<Glob*> visited;
  for (int i = 0; i < 5; ++i) {
    HeadlessInput::key(kKeyTab);
    visited.push_back(get_kbd_focus());
  }
  std::vector<Glob*> const expected{nameBox(), passwordBox(),
                                    connection->getSignInWidget()->getPasswordBox()->getRevealButton(), connect,
                                    addressBox()};
  EXPECT_EQ(visited, expected);
}

TEST_F(ServerConnectionWidgetTest, AnInactiveWidgetTakesNoTyping) {
  open(Request());
  connection->setActive(false, kRedrawNow);
  typeInto(*addressBox(), "x");
  typeInto(*nameBox(), "x");
  EXPECT_TRUE(connection->gatherUserData().serverAddress.empty());
  EXPECT_TRUE(connection->gatherUserData().userName.empty());
}

// The address box sits inside the same inset as the sign-in widget's boxes,
// one gap above the name as the name is above the password, and the height
// holds the three boxes with margins of one indent exactly.
TEST_F(ServerConnectionWidgetTest, TheThreeBoxesLineUpEvenlyAndCalcHeightHoldsThemExactly) {
  open(fullRequest());
  int const left = addressBox()->screenPosition().x;
  EXPECT_EQ(nameBox()->screenPosition().x, left);
  EXPECT_EQ(passwordBox()->screenPosition().x, left);
  EXPECT_EQ(nameBox()->width(), addressBox()->width());
  EXPECT_EQ(left - connection->screenPosition().x, UifStd::getIndentWidth());
  PasswordEntryBox* password = connection->getSignInWidget()->getPasswordBox();
  int const addressBottom = addressBox()->screenPosition().y;
  int const nameBottom = nameBox()->screenPosition().y;
  int const gap = UifStd::getWidgetGap();
  EXPECT_EQ(addressBottom - (nameBottom + nameBox()->height()), gap);
  EXPECT_EQ(nameBottom - (password->screenPosition().y + password->height()), gap);
  int const indent = UifStd::getIndentWidth();
  EXPECT_EQ(connection->height() - (addressBox()->getY() + addressBox()->height()), indent);
  EXPECT_EQ(password->screenPosition().y - connection->screenPosition().y, indent);
}

} // namespace
