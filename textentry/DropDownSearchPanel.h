#pragma once

#include <zowidgets/containers/DropDownButton2.h>
#include <zowidgets/textentry/TextSearchWidget.h>

// A search box in a small drop-down window. A search is sent to the target
// as one message, "StartSearch=<text>" with the text in UTF-8, and closes
// the drop-down unless repeated searches are allowed.
class ZO_API DropDownSearchPanel : public StandardPanel {
public:
  struct InitArgs : StandardPanel::InitArgs {
    InitArgs();
    InitArgs(Glob* target, bool allowRepeatedSearch, int width = 0);
    Glob* target = nullptr;
    bool allowRepeatedSearch = false;
  };

  // The box has the keyboard focus from the start.
  explicit DropDownSearchPanel(InitArgs const& args);
  char const* idstring() const override { return "DropDownSearchPanel"; }

  TextSearchWidget* getSearchWidget() const noexcept { return search_; }

protected:
  int handleMessageEvent(LightweightString<char> const& message, Glob* sender) override;

private:
  TextSearchWidget* search_ = nullptr;
  Glob* target_ = nullptr;
  bool allowRepeatedSearch_ = false;
};

// The small magnifier button that opens a DropDownSearchPanel below itself.
class ZO_API DropDownSearchPanelButton : public DropDownButton2<DropDownSearchPanel> {
public:
  struct InitArgs : DropDownButton2<DropDownSearchPanel>::InitArgs {
    InitArgs() = default;
    // A button `side` high, with room for the magnifier and the drop-down
    // arrow, whose searches go to `target`.
    InitArgs(int side, Glob* target);
  };

  explicit DropDownSearchPanelButton(InitArgs const& args);
  char const* idstring() const override { return "DropDownSearchPanelButton"; }

  void setAllowRepeatedSearch(bool allow);
  bool allowsRepeatedSearch() const noexcept { return allowRepeatedSearch_; }

private:
  bool allowRepeatedSearch_ = false;
};
