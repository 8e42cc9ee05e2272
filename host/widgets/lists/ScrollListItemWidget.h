#pragma once

#include <zowidgets/host/widgets/buttons/Button.h>

// One row of a ScrollList: a label on the list's background, drawn in the
// selection colour when selected. The list makes, places and removes its rows
// as they scroll into and out of sight, so a row holds nothing the list
// cannot give it again; subclasses draw more (a picture, say) by overriding
// draw. Presses pass through to the list, which owns the selection.
class ZO_API ScrollListItemWidget : public Button {
public:
  struct InitArgs : Button::InitArgs {
    InitArgs() = default;
    InitArgs(int index, UIString label, XY<int> size) : Button::InitArgs(std::move(label), size), index(index) {}
    int index = 0;
  };

  explicit ScrollListItemWidget(InitArgs const& args);
  char const* idstring() const override { return "ScrollListItemWidget"; }

  int getIndex() const noexcept { return index_; }
  void setIndex(int index) noexcept { index_ = index; }
  bool isSelected() const noexcept { return selected_; }
  void setSelected(bool selected, eRedrawFlag redraw = kRedrawNow);
  // Whether the list's keyboard cursor is on this row.
  bool isCurrent() const noexcept { return current_; }
  void setCurrent(bool current, eRedrawFlag redraw = kRedrawNow);

  int react(Event const& event) override;

  // A row's look, from the palette and the interface metrics. The list's
  // ground, where no row is, has the rows' background.
  struct Look {
    Colour background;
    Colour selected;
    Colour hovered;
    Colour text;
    Colour selectedText;
    Colour cursorOutline;
    int textIndent = 0;
    double cursorRadius = 0.0;
  };
  static Look lookFor(Palette const& palette);

protected:
  void drawBackground(CanvasRenderer& renderer) override;
  void draw(CanvasRenderer& renderer) override;

private:
  int index_ = 0;
  bool selected_ = false;
  bool current_ = false;
  bool hovered_ = false;
};
