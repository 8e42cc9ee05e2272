#include <zowidgets/textentry/TextFilterWidget.h>

#include <zowidgets/host/widgets/buttons/Button.h>
#include <zowidgets/host/widgets/text/TextBox.h>

namespace {

constexpr ResId kSearchTip = 10568;
constexpr ResId kClearTip = 13340;

// The filter's button is always the square icon kind.
TextSearchWidget::InitArgs withIconButton(TextSearchWidget::InitArgs args) {
  args.buttonStyle = TextSearchWidget::kIconButton;
  return args;
}

} // namespace

TextFilterWidget::TextFilterWidget(InitArgs const& args) : TextSearchWidget(withIconButton(args)) {
  iconName_ = kSearchIcon;
}

void TextFilterWidget::setupButtonIcon(eRedrawFlag redraw) {
  TextBox const* box = getTextBox();
  LightweightString<char> const wanted = box->hasKbdFocus() || box->getString().empty() ? kSearchIcon : kClearIcon;
  if (wanted == iconName_)
    return;
  getButton()->setIconName(wanted.view(), redraw);
  iconName_ = wanted;
}

void TextFilterWidget::setString(LightweightString<wchar_t> const& text) {
  TextSearchWidget::setString(text);
  setupButtonIcon(kNoRedraw);
}

void TextFilterWidget::handleTextTyped() {
  showButtonActive(buttonWanted());
  setupButtonIcon(kRedrawNow);
}

void TextFilterWidget::handleEnterPressed() {
  TextSearchWidget::handleEnterPressed();
  setupButtonIcon(kRedrawNow);
}

void TextFilterWidget::handleSearchPressed() {
  if (iconName_ == kClearIcon) {
    setString({});
    // The empty filter is reported, so that what it hid comes back (a
    // picker left saying "nothing matches" kept saying so), and the caret
    // goes back to the box for the next filter.
    getTextBox()->claimKbdFocus();
    requestStartSearch();
  } else {
    TextSearchWidget::handleSearchPressed();
  }
  setupButtonIcon(kRedrawNow);
}

UIString TextFilterWidget::getTooltip() const { return UIString(iconName_ == kClearIcon ? kClearTip : kSearchTip); }
