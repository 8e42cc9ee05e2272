#pragma once

#include <zowidgets/textentry/TextSearchWidget.h>

// A live filter box: a search box whose icon button turns into a clear
// button once a filter has been applied. While the box has the keyboard
// focus or is empty the button shows the magnifier and searches; otherwise
// it shows the clear icon, and a press empties the box without a search.
class ZO_API TextFilterWidget : public TextSearchWidget {
public:
  static constexpr char const* kSearchIcon = "magnify.png";
  static constexpr char const* kClearIcon = "poot.png";

  explicit TextFilterWidget(InitArgs const& args);
  char const* idstring() const override { return "TextFilterWidget"; }

  void setString(LightweightString<wchar_t> const& text) override;
  void handleTextTyped() override;
  void handleEnterPressed() override;
  void handleSearchPressed() override;
  using TextSearchWidget::getTooltip;
  UIString getTooltip() const override;

  // Puts the icon the box's state calls for on the button.
  void setupButtonIcon(eRedrawFlag redraw);
  LightweightString<char> const& getIconName() const noexcept { return iconName_; }

private:
  LightweightString<char> iconName_;
};
