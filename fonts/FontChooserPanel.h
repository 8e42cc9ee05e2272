#pragma once

#include <zowidgets/fonts/FontItem.h>
#include <zowidgets/fonts/RecentFonts.h>
#include <zowidgets/host/base/TextSearch.h>
#include <zowidgets/host/widgets/lists/iTreeViewAdaptor.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>
#include <zowidgets/values/notify/ValServer.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

class Checkbox;
class ColourData;
class DropDownColourPickerButton;
class TextFilterWidget;
class TreeView;
struct CheckboxEvent;
struct ColourPickerEvent;
struct TextBoxEvent;
struct TextSearchWidgetEvent;
struct TreeViewEvent;

// Picks a font into a value it is given: a filter box on top, the installed
// families below it (the user's recent choices first), each row drawn in its
// own family, and at the foot the text and background colours and bold and
// italic. Every change goes straight into the value; the panel commits
// nothing itself. The family chosen in the list joins the recent fonts when
// the panel closes. The filter narrows the list as the user types; its
// pattern (docs/host-text-forms.md) may match anywhere in a name.
class ZO_API FontChooserPanel : public StandardPanel, public iTreeViewAdaptor {
public:
  using FontItem = ::FontItem;
  using RecentFonts = ::RecentFonts;

  struct InitArgs : StandardPanel::InitArgs {
    // At calcSize(), editing `font` (not owned; null: a value of the
    // panel's own), with the recent fonts under `recentFontsKey` (empty:
    // none kept).
    explicit InitArgs(ValServer<FontDefinition>* font = nullptr, LightweightString<char> recentFontsKey = {});
    ValServer<FontDefinition>* font = nullptr;
    LightweightString<char> recentFontsKey;
  };

  static Border border();
  // Ten rows wide and fifteen high inside border().
  static XY<int> calcSize();

  explicit FontChooserPanel(InitArgs const& args);
  ~FontChooserPanel() override;
  char const* idstring() const override { return "FontChooserPanel"; }

  // The list's size: the user area less the filter row, the footer row and
  // a gap under each.
  XY<int> calcTreeSize() const;
  // The recent families still installed, then every installed family in
  // order, case ignored: a recent family is listed twice.
  static std::vector<FontItem> getFontList(RecentFonts const& recent);
  // The same list's families, as fonts, for the recent fonts under `key`.
  static std::vector<Glib::FontDesc> getFontList(LightweightString<char> const& key);
  // The id of the value's family: its recent row when it has one.
  LightweightString<wchar_t> getSelectedFontID() const;

  // iTreeViewAdaptor, in the counted form: only rows in sight are asked.
  std::optional<std::size_t> getChildCount(LightweightString<wchar_t> const& parentId) const override;
  Item getChildItem(LightweightString<wchar_t> const& parentId, std::size_t index) const override;
  std::optional<std::size_t> getChildIndex(LightweightString<wchar_t> const& parentId,
                                           LightweightString<wchar_t> const& id) const override;

  // Narrows the list to the families the text matches; an empty text shows
  // them all. A text equal to the one applied changes nothing.
  void applyFilter(LightweightString<wchar_t> const& text);

  FontDefinition getFont() const { return font_->get(); }
  // Every row of the list, in order: the recent families, then the
  // installed ones (shared by every chooser).
  std::vector<FontItem const*> getItems() const;
  std::size_t itemCount() const noexcept;
  FontItem const& item(std::size_t index) const;
  // The items the filter lets through, in list order.
  std::vector<FontItem const*> getShownItems() const;
  bool wasFontChosen() const noexcept { return fontChosen_; }
  TextFilterWidget* getFilter() const noexcept { return filter_; }
  TreeView* getTree() const noexcept { return tree_; }
  Checkbox* getBoldBox() const noexcept { return bold_; }
  Checkbox* getItalicBox() const noexcept { return italic_; }
  DropDownColourPickerButton* getTextColourButton() const noexcept { return textColour_; }
  DropDownColourPickerButton* getBackgroundColourButton() const noexcept { return backgroundColour_; }

  void resize(double width, double height) override;
  // Down in the filter goes on into the list, onto its first row when none
  // is chosen.
  int handleKeyboardEvent(int key) override;
  // Escape on the drop-down takes back what was tried in the panel: the
  // font is as it was when the panel opened, and joins no recent list.
  int handleMessageEvent(LightweightString<char> const& message, Glob* sender) override;

private:
  void addFilter();
  void addTree();
  void addFooter();
  void orderTabStops();
  // Sets the value with the notices before and after.
  void setFont(FontDefinition const& font);
  void setStyleBit(unsigned bit, bool on);
  void setColour(NormalisedRGB FontDefinition::*colour, ColourData const& value);
  // Shows the value's style and colours, and selects its family.
  void showFont(FontDefinition const& font);
  // Selects the family's row unless a row of it is selected already.
  void selectFamily(FontDefinition const& font);
  void watchFont(ValServer<FontDefinition>* server);
  // The items the criteria let through, by index.
  void filterItems();

  int handleFiltering(TextSearchWidgetEvent const& event);
  int handleTyping(TextBoxEvent const& event);
  int handleTreeEvent(TreeViewEvent const& event);
  int toggleBold(CheckboxEvent const& event);
  int toggleItalic(CheckboxEvent const& event);
  int handleFGChange(ColourPickerEvent const& event);
  int handleBGChange(ColourPickerEvent const& event);
  int handleFontChange(ValServerEvent<FontDefinition> const& event);

  // Used when the caller gives no value, and once the caller's value has gone.
  ValServer<FontDefinition> ownFont_;
  ValServer<FontDefinition>* font_;
  FontDefinition openingFont_;
  Zo::Ptr<Zo::Guard> fontGuard_;
  RecentFonts recent_;
  std::shared_ptr<std::vector<FontItem> const> installedItems_;
  std::vector<FontItem> recentItems_;
  std::vector<std::size_t> shown_;
  TextSearch::Criteria criteria_;
  TextFilterWidget* filter_ = nullptr;
  TreeView* tree_ = nullptr;
  Checkbox* bold_ = nullptr;
  Checkbox* italic_ = nullptr;
  DropDownColourPickerButton* textColour_ = nullptr;
  DropDownColourPickerButton* backgroundColour_ = nullptr;
  bool fontChosen_ = false;
};
