#pragma once

#include <zowidgets/host/base/ValObserver.h>
#include <zowidgets/host/widgets/buttons/Button.h>
#include <zowidgets/host/widgets/popups/Menu.h>

#include <functional>
#include <vector>

// A button showing the chosen row of a menu, with an arrow at its right. A
// click drops the menu down beside it; choosing a row shows it on the
// button, calls the selection hook, and sends dropDownMenuButtonMsg to the
// parent. The button may observe a choice held elsewhere (observeChoice):
// it then shows the row the choice names, and a row the user picks becomes
// the choice.
class ZO_API DropDownMenuButton : public Button, public ValObserverClient {
public:
  static constexpr char const* dropDownMenuButtonMsg = "DropDownMenuButtonMsg";

  struct InitArgs : Button::InitArgs {
    InitArgs() = default;
    InitArgs(std::vector<MenuItem> items, int selected, XY<int> size)
        : Button::InitArgs(UIString(), size), items(std::move(items)), selected(selected) {}
    std::vector<MenuItem> items;
    int selected = 0;
  };

  explicit DropDownMenuButton(InitArgs const& args);
  ~DropDownMenuButton() override;
  char const* idstring() const override { return "DropDownMenuButton"; }

  void setStrings(std::vector<MenuItem> const& items, int selected, eRedrawFlag redraw = kRedrawNow);
  void setStrings(std::vector<UIString> const& strings, int selected, eRedrawFlag redraw = kRedrawNow);
  // Shows row `index`; rows that cannot be chosen are refused.
  void setSelectedItem(int index, eRedrawFlag redraw = kRedrawNow);
  int getSelectedItem() const noexcept { return menu_.getSelected(); }
  LightweightString<wchar_t> getSelectedItemNameW() const;
  Menu const& getMenu() const noexcept { return menu_; }
  // Called with the row the user chose, before the parent's message.
  void setSelectionHook(std::function<void(int)> hook) { selectionHook_ = std::move(hook); }

  // The width of a drop-down button that fits the widest of these strings.
  static int calcWidth(std::vector<UIString> const& strings, Glib::FontDesc const& font = {});

  // Shows the row `choice` names from now on, and sets it to the row the
  // user picks; null stops observing. The choice must outlive the button or
  // tell it when it goes, as ValObserverBase does.
  void observeChoice(ValObserver<int>* choice);
  ValObserver<int>* getObservedChoice() const noexcept { return choice_; }
  // An open menu describes the choice as it was: it closes before a change.
  void notifyPreValChanged(ValObserverBase const& value) override;
  void notifyValChanged(ValObserverBase const& value) override;
  void notifyValObserverGone(ValObserverBase const& value) override;

  void openMenu();
  void closeMenu();
  // The open menu's window, or null.
  MenuWindow* getMenuWindow() const;

protected:
  void performAction() override;
  bool opensOnDownArrow() const override { return getMenuWindow() == nullptr; }
  Zo::Box<int> labelBox() const override;
  void draw(CanvasRenderer& renderer) override;

private:
  void handleMenuChange(MenuData::Change const& change);

  Menu menu_;
  MenuWindow* menuWindow_ = nullptr;
  std::function<void(int)> selectionHook_;
  ValObserver<int>* choice_ = nullptr;
};

// A drop-down menu button with a title to its left, as one widget. The
// button's selection message is passed on to this widget's parent.
class ZO_API TitleMenuButton : public Glob {
public:
  struct InitArgs : GlobCreationInfo {
    InitArgs() = default;
    InitArgs(UIString title, std::vector<MenuItem> items, int selected, XY<int> size)
        : GlobCreationInfo(size), title(std::move(title)), items(std::move(items)), selected(selected) {}
    UIString title;
    std::vector<MenuItem> items;
    int selected = 0;
    // The room the title takes, so that the buttons of rows one above the
    // other line up; 0: the title's own width and two widget gaps.
    int titleWidth = 0;
  };

  explicit TitleMenuButton(InitArgs const& args);
  // The room a title takes by itself.
  static int calcTitleWidth(UIString const& title);
  char const* idstring() const override { return "TitleMenuButton"; }

  DropDownMenuButton& getBtn() noexcept { return *button_; }
  DropDownMenuButton const& getBtn() const noexcept { return *button_; }
  int getSelectedItem() const noexcept { return button_->getSelectedItem(); }
  void setSelectedItem(int index, eRedrawFlag redraw = kRedrawNow) { button_->setSelectedItem(index, redraw); }
  void setStrings(std::vector<MenuItem> const& items, int selected, eRedrawFlag redraw = kRedrawNow) {
    button_->setStrings(items, selected, redraw);
  }
  int react(Event const& event) override;

protected:
  void draw(CanvasRenderer& renderer) override;

private:
  int titleWidth() const;

  LightweightString<wchar_t> title_;
  int titleWidth_;
  DropDownMenuButton* button_ = nullptr;
};
