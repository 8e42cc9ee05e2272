#pragma once

#include <zowidgets/host/toolkit/Orientation.h>
#include <zowidgets/host/widgets/panels/Splitter.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>

#include <array>
#include <string_view>

// A panel that shares its area between exactly two children, side by side or
// one above the other, with a splitter between them that the user drags.
// The division is kept as a fraction, so it survives resizing; each child's
// minimum and maximum size are honoured; a hidden child gives the other the
// whole area.
//
// The fraction is measured from the left edge side by side and from the
// bottom edge when stacked (y runs upward): it is the share of the first
// widget side by side and of the second when stacked.
class ZO_API SpaceDivider : public OccludedChildWidget {
public:
  // The first widget is the left or the top one, the second the right or
  // the bottom one.
  enum eWidgetIndex : int { kFirstWidget = 0, kSecondWidget = 1 };
  enum eWidgetID : int { kNoWidget = 0, kLeftWidget = 1, kRightWidget = 2, kTopWidget = 3, kBottomWidget = 4 };
  enum eSplitterType : int { kStandardSplitter = 0, kDiscreetSplitter = 1 };
  // A string entry of the creation info's configb: "left" or "right" name
  // the side-by-side axis, "top" or "bottom" the stacked one.
  static constexpr char const* kDividerIDKey = "DividerID";

  // Without a border of its own, unless one is set: the children and the
  // splitter cover the whole panel.
  struct InitArgs : StandardPanel::InitArgs {
    InitArgs() { setBorder(Border()); }
    InitArgs(XY<int> size, Orientation orientation, float splitPosition = 0.5f)
        : StandardPanel::InitArgs(size), orientation(orientation), splitPosition(splitPosition) {
      setBorder(Border());
    }
    Orientation orientation = kSideBySide;
    float splitPosition = 0.5f; // 0 to 1
  };

  explicit SpaceDivider(InitArgs const& args);
  char const* idstring() const override { return "SpaceDivider"; }

  // Makes a child by class name (GlobManager::createGlob) in a free slot;
  // null when the class is unknown or the slot is taken. With the info's
  // useParentAllotment set the child gets its share of the area, otherwise
  // the whole area.
  Glob* createWidgetX(GlobCreationInfo const& info, eWidgetIndex index);
  // The same for a widget type known here, made from its own arguments.
  template <class T> T* createWidgetX(typename T::InitArgs const& args, eWidgetIndex index) {
    if (!isFree(index))
      return nullptr;
    typename T::InitArgs sized = args;
    sized.size = calcNewWidgetSize(args, index);
    sized.setParent(this);
    T* made = new T(sized);
    adoptWidget(made, index, sized.size);
    return made;
  }
  // Destroys the child and the splitter; with kRedrawNow lays out again.
  void destroyWidget(eWidgetIndex index, eRedrawFlag redraw);
  Glob* getWidget(eWidgetIndex index) const;
  using Glob::getWidget;
  // The bar between the children; null until both exist.
  Splitter* getSplitter() const noexcept { return splitter_; }

  // Shows or hides a child. On the divider's own axis the panel grows or
  // shrinks by the child's length; when "DividerID" names the other axis the
  // panel keeps its size and the other child takes the space. A child that
  // shows or hides itself is followed the same way.
  void setWidgetVisible(Glob* child, bool visible);

  // Only before the splitter exists (both children made) does it count.
  void setSplitterType(eSplitterType type) noexcept { splitterType_ = type; }
  eSplitterType getSplitterType() const noexcept { return splitterType_; }
  // Clamped to 0 to 1; the children are sized anew.
  void setSplitPos(float position);
  float getSplitPos() const noexcept { return splitPosition_; }
  // Takes the division from the child's present length: the other child
  // gets the rest, and the fraction is taken over the whole length,
  // counting half a splitter.
  void setSplitPosFromWidget(eWidgetIndex index);
  void setWidgetPos(Glob* widget, XY<int> ignored);

  Orientation getOrientation() const noexcept { return orientation_; }
  // The axis "DividerID" named, or the orientation.
  int getConfiguredAxis() const noexcept { return configuredAxis_; }

  XY<int> calcMinSize() const;
  XY<int> getMinSize() const override { return calcMinSize(); }
  XY<int> calcWidgetSize(XY<int> const& size, eWidgetIndex index) const;
  XY<int> calcWidgetSize(eWidgetIndex index) const;
  int calcSplitterThickness() const;
  bool hasMinWidth(eWidgetIndex index) const;
  bool hasMinHeight(eWidgetIndex index) const;
  bool hasMaxWidth(eWidgetIndex index) const;
  bool hasMaxHeight(eWidgetIndex index) const;

  eWidgetID getWidgetID(eWidgetIndex index) const;
  static eWidgetIndex getIndex(int id);
  static eWidgetID getWidgetIDFromString(std::string_view text);
  static char const* asString(int id);

  void resize(double width, double height) override;
  void handleChildResize(Glob* child) override;
  void setPalette(Palette const& palette) override;
  int handleSplitterEvent(SplitterEvent const& event);

protected:
  void drawBackground(CanvasRenderer& renderer) override;

private:
  // While the divider sizes its own children, their resizes are its own
  // doing and must not move the division again.
  class SizingChildren;

  bool isSideBySide() const noexcept { return orientation_ == kSideBySide; }
  bool isFree(eWidgetIndex index) const;
  int indexOf(Glob const* widget) const;
  bool bothShowing() const;
  int lengthOf(XY<int> size) const noexcept { return isSideBySide() ? size.x : size.y; }
  XY<int> withLength(XY<int> size, int length) const noexcept;
  XY<int> calcNewWidgetSize(GlobCreationInfo const& info, eWidgetIndex index) const;
  void adoptWidget(Glob* widget, eWidgetIndex index, XY<int> asked);
  void createSplitter();
  void resizeBoth(XY<int> contents, XY<int> margins);
  void followVisibility(eWidgetIndex index);
  void followSplitter(SplitterEvent const& event);
  // The edge of a child that moves with the splitter.
  unsigned movingEdge(eWidgetIndex index) const noexcept;
  void setChildFlags(unsigned both);
  void setChildFlags(unsigned first, unsigned second);

  Splitter* splitter_ = nullptr;
  Orientation orientation_;
  int configuredAxis_;
  std::array<Glob*, 2> widgets_{};
  // The visibility each child had when last seen, to notice one that shows
  // or hides itself.
  std::array<bool, 2> shown_{};
  float splitPosition_;
  eSplitterType splitterType_ = kDiscreetSplitter;
  bool sizingChildren_ = false;
};
