#include <zowidgets/textentry/TextSearchWidget.h>

#include <zowidgets/textentry/GhostLabel.h>

#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/TabOrderManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/Button.h>
#include <zowidgets/host/widgets/text/TextBox.h>
#include <zowidgets/values/notify/Callback.h>

#include <algorithm>

namespace {

constexpr ResId kSearchLabel = 10568;
// Stops added after any the owner numbered itself.
constexpr unsigned kTabStopOrder = 0xFFFFFFFE;

// The box and button fill the widget: no edge or margin unless asked for.
StandardPanel::InitArgs panelArgs(GlobCreationInfo const& args) {
  StandardPanel::InitArgs panel(args);
  if (!args.hasBorder)
    panel.setBorder(Border());
  return panel;
}

} // namespace

TextSearchWidget::InitArgs::InitArgs(unsigned short width, Palette const& palette)
    : GlobCreationInfo(XY<int>(width, UifStd::getRowHeight())) {
  setPalette(palette);
}

TextSearchWidget::TextSearchWidget(InitArgs const& args)
    : StandardPanel(panelArgs(args)), alwaysEnabled_(args.alwaysEnabled) {
  Drawable::Suspender const oneRepaint;
  if (args.callback)
    addListener(Callback{args.callback, 0});

  int const side = height();
  Button::InitArgs buttonArgs(UIString(), XY<int>(side, side));
  if (args.buttonStyle == kLabelButton) {
    buttonArgs.label = UIString(kSearchLabel);
    buttonArgs.autoResize = true;
  }
  button_ = createWidget<Button>(buttonArgs, Glob::BottomRight(0, 0));
  if (args.buttonStyle != kLabelButton)
    button_->setIconName("magnify.png", kNoRedraw);
  button_->setTextColour(getPalette().text(0), kNoRedraw);

  TextBox::InitArgs boxArgs(GlobCreationInfo(XY<int>(std::max(width() - button_->width(), 0), side)));
  boxArgs.editable = true;
  textBox_ = createWidget<TextBox>(boxArgs, Glob::BottomLeft(0, 0));

  textBox_->addListener(Broadcaster<TextBoxEvent>::makeCallback(this, &TextSearchWidget::handleTextEvents));
  button_->setCallback(Broadcaster<ButtonEvent>::makeCallback(this, &TextSearchWidget::handleSearchButton));
  if (!alwaysEnabled_)
    button_->setActive(false, kNoRedraw);

  tabOrder().addTabStop(*textBox_, kTabStopOrder);
  tabOrder().addTabStop(*button_, kTabStopOrder);
}

void TextSearchWidget::setString(LightweightString<wchar_t> const& text) {
  textBox_->setString(text);
  bool const active = alwaysEnabled_ || !text.empty();
  // The face goes with the state, as when typing changes it: an emptied
  // box's button kept the blue of an active one.
  button_->setFaceColour(active ? getPalette().doIt() : Colour::invalid(), kNoRedraw);
  button_->setActive(active, kNoRedraw);
}

LightweightString<wchar_t> TextSearchWidget::getString() const { return textBox_->getString(); }

bool TextSearchWidget::buttonWanted() const { return alwaysEnabled_ || !textBox_->getString().empty(); }

void TextSearchWidget::showButtonActive(bool active) {
  if (active == button_->isActive())
    return;
  button_->setFaceColour(active ? getPalette().doIt() : Colour::invalid(), kNoRedraw);
  button_->setTextColour(getPalette().text(0), kNoRedraw);
  button_->setActive(active, kRedrawNow);
}

void TextSearchWidget::handleTextTyped() { showButtonActive(buttonWanted()); }

void TextSearchWidget::handleEnterPressed() {
  if (button_->isActive())
    button_->claimKbdFocus();
  requestStartSearch();
}

void TextSearchWidget::handleSearchPressed() { handleEnterPressed(); }

void TextSearchWidget::requestStartSearch() {
  if (listenerCount() == 0)
    Glob::sendMsg(parent(), kStartSearchMsg, this);
  else
    broadcast(TextSearchWidgetEvent{getString()});
}

void TextSearchWidget::setTextAlignment(Glib::eTextAlignment alignment) { textBox_->setAlignment(alignment); }

void TextSearchWidget::setGhostLabel(UIString const& label) {
  textBox_->setGhostLabel(UIString(resolveGhostLabel(label)));
  textBox_->invalidate();
}

int TextSearchWidget::handleTextEvents(TextBoxEvent const& event) {
  if (event.kind == TextBoxEvent::kTextChanged)
    handleTextTyped();
  else if (event.kind == TextBoxEvent::kReturnPressed)
    handleEnterPressed();
  return 0;
}

int TextSearchWidget::handleSearchButton(ButtonEvent const&) {
  handleSearchPressed();
  return 0;
}

void TextSearchWidget::fitTextBox() {
  if (textBox_)
    textBox_->resize(std::max(width() - button_->width(), 0), textBox_->height());
}

void TextSearchWidget::resize(double width, double height) {
  StandardPanel::resize(width, height);
  fitTextBox();
}

void TextSearchWidget::handleChildResize(Glob* child) {
  StandardPanel::handleChildResize(child);
  // A relabelled button takes its room from the box.
  if (child == button_)
    fitTextBox();
}

void TextSearchWidget::setActive(bool active, eRedrawFlag redraw) {
  textBox_->setActive(active, kNoRedraw);
  button_->setActive(active && buttonWanted(), kNoRedraw);
  StandardPanel::setActive(active, redraw);
}

void TextSearchWidget::setPalette(Palette const& palette) {
  StandardPanel::setPalette(palette);
  if (button_ && button_->isActive())
    button_->setFaceColour(palette.doIt(), kNoRedraw);
}

bool TextSearchWidget::claimKbdFocus() { return textBox_->claimKbdFocus(); }

namespace {

bool editsText(Event const& event) {
  if (event.type == Event::kTextInput)
    return !event.text.empty();
  if (event.type != Event::kKeyDown)
    return false;
  int const bare = event.key & ~kKeyModifierMask;
  // The editing shortcuts too: Ctrl+A after a search selects the text to
  // type over, as it did before.
  if ((event.modifiers & kKeyCtrl) && !(event.modifiers & kKeyAlt))
    switch (bare) {
    case 'a':
    case 'c':
    case 'v':
    case 'x':
    case 'y':
    case 'z':
      return true;
    default:
      break;
    }
  switch (bare) {
  case kKeyBackspace:
  case kKeyDelete:
  case kKeyLeft:
  case kKeyRight:
  case kKeyHome:
  case kKeyEnd:
    return true;
  default:
    return false;
  }
}

} // namespace

int TextSearchWidget::react(Event const& event) {
  if (button_->hasKbdFocus() && textBox_->isActive() && editsText(event)) {
    textBox_->claimKbdFocus();
    return textBox_->react(event);
  }
  return StandardPanel::react(event);
}
