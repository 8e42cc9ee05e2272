#include <zowidgets/textentry/LoginPanel.h>

#include <zowidgets/host/drawing/HTMLRenderer.h>
#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>
#include <zowidgets/host/widgets/values/ScrollBar.h>
#include <zowidgets/host/widgets/text/LinkAwareMultiLineTextBox.h>
#include <zowidgets/host/widgets/text/TextLabel.h>
#include <zowidgets/host/widgets/text/TitleTextBox.h>

#include <algorithm>

namespace {

constexpr ResId kUserNameLabel = 12031;
constexpr ResId kPasswordLabel = 11427;
constexpr unsigned kStandardWidgets = StandardPanel::kPoot | StandardPanel::kPin;
// Every stop has the same order: they are visited as they were added.
constexpr unsigned kTabStopOrder = 0xFFFFFFFE;
// The panel's user area is this many rows wide; a longer message wraps, and
// past kMaxMessageLines it scrolls.
constexpr int kWidthInRows = 14;
constexpr int kMaxMessageLines = 10;

int userAreaWidth() { return kWidthInRows * UifStd::getRowHeight(); }

// Between the boxes and the row of the button, a little more than between
// rows, so that the form stands apart from its action.
int formGap() { return 2 * UifStd::getRowGap(); }

// Plain text is shown as written, line breaks kept; a message with tags of
// the renderer's subset (links, say) is read as HTML.
std::vector<HTMLParagraph> messageParagraphs(LightweightString<wchar_t> const& message) {
  LightweightString<wchar_t> const html =
      HTMLRenderer::isHTML(message.view())
          ? message
          : HTMLRenderer::convertToHTML(message.view(), HTMLRenderer::kEscapeMarkup | HTMLRenderer::kLineBreaksToTags);
  return HTMLRenderer::parse(html.view(), UifStd::getColourScheme());
}

// The message box's height for its text at the panel's width, with the room
// its margins and scroll bar take.
int messageBoxHeight(std::vector<HTMLParagraph> const& paragraphs) {
  int const margin = UifStd::getWidgetGap();
  int const textWidth = userAreaWidth() - 2 * margin - ScrollBar::thickness() - UifStd::getWidgetGap();
  int const lines = std::clamp(HTMLRenderer::calcNumDisplayLines(paragraphs, textWidth), 1, kMaxMessageLines);
  return ScrollableTextBoxBase::calcHeightForLines(lines, static_cast<int>(UifStd::getFont().size()), margin);
}

// The message, the name and password rows, and the row of the error line
// and the button.
int userAreaHeight(std::vector<HTMLParagraph> const& paragraphs) {
  int const row = UifStd::getRowHeight();
  int const rowGap = UifStd::getRowGap();
  return messageBoxHeight(paragraphs) + rowGap + row + rowGap + row + formGap() + PushButton::calcHeight();
}

int legendWidth() {
  int const widest = std::max(UifStd::measure(UIString(kUserNameLabel)).x, UifStd::measure(UIString(kPasswordLabel)).x);
  return widest + UifStd::getWidgetGap();
}

} // namespace

LoginPanel::InitArgs::InitArgs(UIString message, UIString title, Glob* target)
    : StandardPanel::InitArgs(calcSize(message.getString())), message(std::move(message)), target(target) {
  this->title = std::move(title);
  standardWidgets = kStandardWidgets;
}

XY<int> LoginPanel::calcSize(LightweightString<wchar_t> const& message) {
  XY<int> const userArea(userAreaWidth(), userAreaHeight(messageParagraphs(message)));
  return calcPanelSize(userArea, kStandardWidgets, getDefaultBorder());
}

LoginPanel::LoginPanel(InitArgs const& args)
    : StandardPanel(args), target_(args.target), targetStamp_(EventHandler::stampOf(args.target)) {
  setBorder(getDefaultBorder());
  addStandardWidgets(kStandardWidgets);
  setResizable(false);
  setTitle(args.title, UifStd::getTitleFont(), kNoRedraw);

  int const width = getUserArea().width();
  int const row = UifStd::getRowHeight();
  std::vector<HTMLParagraph> const paragraphs = messageParagraphs(args.message.getString());
  message_ = createWidget<LinkAwareMultiLineTextBox>(
      LinkAwareMultiLineTextBox::InitArgs(XY<int>(width, messageBoxHeight(paragraphs))), Glob::UserTopLeft(0, 0));
  message_->setHTML(paragraphs);

  login_ =
      createWidget<PushButton>(PushButton::InitArgs(args.loginLabel, XY<int>(0, PushButton::calcHeight()), loginMsg()),
                               Glob::UserBottomRight(0, 0));
  login_->setActive(false, kNoRedraw);

  TitleTextBox::InitArgs password{GlobCreationInfo(XY<int>(width, row))};
  password.title = UIString(kPasswordLabel);
  password.titleWidth = legendWidth();
  password_ = createWidget<TitleTextBox>(password, Glob::Above(formGap(), login_, kAlignEnd));
  TitleTextBox::InitArgs name{GlobCreationInfo(XY<int>(width, row))};
  name.title = UIString(kUserNameLabel);
  name.titleWidth = legendWidth();
  name_ = createWidget<TitleTextBox>(name, Glob::Above(UifStd::getRowGap(), password_, kAlignEnd));

  // A fixed size, so that a message never moves the other widgets.
  TextLabel::InitArgs error(XY<int>(std::max(0, width - login_->width() - UifStd::getWidgetGap()), row));
  error.colour = getPalette().warning();
  error_ = createWidget<TextLabel>(error, Glob::UserBottomLeft(0, 0));

  name_->setEditable(true);
  password_->setEditable(true);
  password_->setObfuscatedDisplay(true);
  name_->requestCallback("UsernameChar", this, TextBoxEvent::kTextChanged);
  password_->requestCallback("PasswordChar", this, TextBoxEvent::kTextChanged);
  password_->requestCallback(loginMsg(), this, TextBoxEvent::kReturnPressed);

  tabOrder().addTabStop(*name_, kTabStopOrder);
  tabOrder().addTabStop(*password_, kTabStopOrder);
  tabOrder().addTabStop(*login_, kTabStopOrder);
  name_->claimKbdFocus();
  if (args.modal)
    GlobManager::addModalGlob(this);
}

void LoginPanel::attemptLogIn() {
  if (!target_ || !EventHandler::valid(target_, targetStamp_))
    return;
  sendMessageWithData(loginMsg(), target_,
                      Zo::Ptr<iObject>(new Credentials(name_->getString(), password_->getString())));
}

void LoginPanel::showErrorMessage(UIString const& text) { error_->setString(text, kRedrawNow); }

int LoginPanel::handleMessageEvent(LightweightString<char> const& message, Glob* sender) {
  if (message == "UsernameChar" || message == "PasswordChar") {
    updateLoginButton();
    return 1;
  }
  if (message == loginMsg()) {
    attemptLogIn();
    return 1;
  }
  return StandardPanel::handleMessageEvent(message, sender);
}

void LoginPanel::updateLoginButton() {
  login_->setActive(!name_->getString().empty() && !password_->getString().empty(), kRedrawNow);
}
