#include <zowidgets/textentry/GhostLabel.h>
#include <zowidgets/textentry/PasswordEntryBox.h>

#include <zowidgets/host/widgets/popups/Tooltip.h>

#include <algorithm>

namespace {

constexpr ResId kPasswordLabel = 11427;
constexpr ResId kRevealTooltip = 13030;

// The box and its eye fill the panel: no border of its own unless asked.
PasswordEntryBox::InitArgs withoutBorder(PasswordEntryBox::InitArgs args) {
  if (!args.hasBorder)
    args.setBorder(Border());
  return args;
}

} // namespace

PasswordEntryBox::PasswordEntryBox(InitArgs const& args) : StandardPanel(withoutBorder(args)) {
  int const side = height();
  CycleButton::InitArgs eye({}, XY<int>(side, side));
  eye.style = Button::kStyleFlat;
  reveal_ = createWidget<CycleButton>(eye, Glob::RightCentre(0, 0, 2));
  reveal_->setContextString(TooltipDetails(UIString(kRevealTooltip)));
  reveal_->setPickIcons({kHiddenIcon, kRevealedIcon}, kNoRedraw);
  reveal_->setCallback(Broadcaster<ButtonEvent>::makeCallback(this, &PasswordEntryBox::toggleShowPassword));

  TextBox::InitArgs box(GlobCreationInfo(XY<int>(std::max(0, width() - side), side)));
  box.ghostLabel = UIString(resolveGhostLabel(UIString(kPasswordLabel)));
  textBox_ = createWidget<TextBox>(box, Glob::LeftCentre(0, 0, 2));
  textBox_->setEditable(true);
  textBox_->setAlignment(args.alignment);
  textBox_->setObfuscatedDisplay(true);
  textBox_->addListener(Broadcaster<TextBoxEvent>::makeCallback(this, &PasswordEntryBox::handleTextEvents));
}

void PasswordEntryBox::setString(LightweightString<wchar_t> const& password) { textBox_->setString(password); }

LightweightString<wchar_t> PasswordEntryBox::getString() const { return textBox_->getString(); }

void PasswordEntryBox::setGhostLabel(UIString const& label) {
  textBox_->setGhostLabel(UIString(resolveGhostLabel(label)));
}

void PasswordEntryBox::setDataAdaptor(Zo::Ptr<ValAdaptorBase<LightweightString<wchar_t>>> const& adaptor) {
  textBox_->setDataAdaptor(adaptor);
}

void PasswordEntryBox::setShowPasswordActive(bool active, eRedrawFlag redraw) {
  revealAllowed_ = active;
  reveal_->setActive(active && isActive(), redraw);
  if (!active) {
    reveal_->setPickState(kHidden, redraw);
    showRevealState();
  }
}

bool PasswordEntryBox::isPasswordRevealed() const { return !textBox_->isObfuscatedDisplay(); }

bool PasswordEntryBox::claimKbdFocus() { return textBox_->claimKbdFocus(); }

void PasswordEntryBox::setActive(bool active, eRedrawFlag redraw) {
  textBox_->setActive(active, redraw);
  reveal_->setActive(active && revealAllowed_, redraw);
  StandardPanel::setActive(active, redraw);
}

void PasswordEntryBox::resize(double width, double height) {
  StandardPanel::resize(width, height);
  // Made in the constructor, after the panel's first size.
  if (!reveal_ || !textBox_)
    return;
  int const side = this->height();
  reveal_->resize(side, side);
  textBox_->resize(std::max(0, this->width() - side), side);
}

void PasswordEntryBox::getTabOrderables(std::vector<TabOrderable*>& into) {
  into.push_back(textBox_);
  into.push_back(reveal_);
}

int PasswordEntryBox::toggleShowPassword(ButtonEvent const&) {
  showRevealState();
  // The user goes on typing after a click on the eye.
  if (!textBox_->hasKbdFocus())
    textBox_->claimKbdFocus();
  invalidate();
  return 0;
}

int PasswordEntryBox::handleTextEvents(TextBoxEvent const& event) {
  broadcast(TextBoxEvent(event.kind, this, event.text));
  return 0;
}

void PasswordEntryBox::showRevealState() { textBox_->setObfuscatedDisplay(reveal_->getPickState() != kRevealed); }
