#include <zowidgets/textentry/GhostLabel.h>
#include <zowidgets/textentry/PasswordEntryBox.h>
#include <zowidgets/textentry/SignInWidget.h>

#include <zowidgets/host/toolkit/UifStd.h>

namespace {

constexpr ResId kUserNameLabel = 12031;

SignInWidget::InitArgs withMargin(SignInWidget::InitArgs args) {
  if (!args.hasBorder)
    args.setBorder(Border(UifStd::getIndentWidth()));
  return args;
}

} // namespace

SignInWidget::SignInWidget(InitArgs const& args) : StandardPanel(withMargin(args)) {
  XY<int> const boxSize(getUserArea().width(), textBoxHeight());
  TextBox::InitArgs name{GlobCreationInfo(boxSize)};
  name.ghostLabel = UIString(resolveGhostLabel(UIString(kUserNameLabel)));
  name_ = createWidget<TextBox>(name, Glob::UserTopLeft(0, 0));
  password_ = createWidget<PasswordEntryBox>(PasswordEntryBox::InitArgs(GlobCreationInfo(boxSize)),
                                             Glob::Below(UifStd::getWidgetGap(), name_));
  name_->setEditable(true);
  password_->getTextBox()->setEditable(true);
  name_->addListener(Broadcaster<TextBoxEvent>::makeCallback(this, &SignInWidget::handleTextEvents));
  password_->addListener(Broadcaster<TextBoxEvent>::makeCallback(this, &SignInWidget::handleTextEvents));
}

int SignInWidget::textBoxHeight() { return UifStd::getRowHeight() + UifStd::getWidgetGap(); }

// The gap between the boxes counts too, so that the password box is never
// cut off at the bottom.
int SignInWidget::calcHeight() { return 2 * textBoxHeight() + UifStd::getWidgetGap() + 2 * UifStd::getIndentWidth(); }

Credentials SignInWidget::getCredentials() const { return Credentials{name_->getString(), password_->getString()}; }

void SignInWidget::setCredentials(Credentials const& credentials) {
  name_->setString(credentials.userName);
  password_->setString(credentials.password);
}

void SignInWidget::setGhostLabels(UIString const& name, UIString const& password) {
  name_->setGhostLabel(UIString(resolveGhostLabel(name)));
  password_->setGhostLabel(password);
}

void SignInWidget::setNameActive(bool active) {
  nameActive_ = active;
  name_->setActive(active && isActive(), kRedrawNow);
}

void SignInWidget::setAllowPasswordReveal(bool allow, eRedrawFlag redraw) {
  password_->setShowPasswordActive(allow, redraw);
}

bool SignInWidget::claimKbdFocus() {
  if (nameActive_ && name_->getString().empty())
    return name_->claimKbdFocus();
  if (password_->getString().empty())
    return password_->claimKbdFocus();
  return false;
}

void SignInWidget::setActive(bool active, eRedrawFlag redraw) {
  name_->setActive(active && nameActive_, redraw);
  password_->setActive(active, redraw);
  StandardPanel::setActive(active, redraw);
}

void SignInWidget::resize(double width, double height) {
  StandardPanel::resize(width, height);
  // Made in the constructor, after the panel's first size.
  if (!name_ || !password_)
    return;
  int const boxWidth = getUserArea().width();
  name_->resize(boxWidth, textBoxHeight());
  password_->resize(boxWidth, textBoxHeight());
}

void SignInWidget::getTabOrderables(std::vector<TabOrderable*>& into) {
  into.push_back(name_);
  password_->getTabOrderables(into);
}

int SignInWidget::handleTextEvents(TextBoxEvent const& event) {
  // Return in the name box is not passed on: only the password box sends.
  bool const passedOn =
      event.kind == TextBoxEvent::kTextChanged || (event.source != name_ && event.kind == TextBoxEvent::kReturnPressed);
  if (passedOn)
    broadcast(SignInWidgetEvent{event.kind, getCredentials()});
  return 0;
}
