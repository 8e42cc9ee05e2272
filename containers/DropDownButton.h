#pragma once

#include <zowidgets/containers/DropDownMessages.h>
#include <zowidgets/host/shell/ScreenBackend.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/Button.h>
#include <zowidgets/host/widgets/popups/DropDownButtonBase.h>

#include <algorithm>

// What every button of the DropDownButton generation is made from: a button
// and how its panel lines up along the button's bottom edge.
struct ZO_API DropDownButtonInitArgs : Button::InitArgs {
  using Button::InitArgs::InitArgs;
  eWidgetAlignment alignment = kAlignStart;
};

// A button whose panel is a top-level window of its own, made by
// generateDropDown() each time it is shown. The button refers to the panel
// by handle and stamp and learns that it has gone only from the panel's
// DropDownMsg::kPanelGone. Not latching, a press toggles the panel and is
// reported as state 1 either way; latching, down shows it and up removes it.
template <class T> class ZO_API DropDownButton : public Button {
public:
  struct InitArgs : DropDownButtonInitArgs {
    InitArgs() = default;
    InitArgs(UIString label, XY<int> size, typename T::InitArgs dropDownArgs)
        : DropDownButtonInitArgs(std::move(label), size), dropDownArgs(std::move(dropDownArgs)) {}
    typename T::InitArgs dropDownArgs;
  };

  explicit DropDownButton(InitArgs const& args)
      : Button(args), alignment_(args.alignment), dropDownArgs_(args.dropDownArgs) {
    refitButton(*this, args);
  }
  ~DropDownButton() override {
    if (deleteOnDestruction_)
      takeOffScreen(host_.get());
  }
  char const* idstring() const override { return "DropDownButton"; }

  // Shows the panel unless it shows already; true when it shows now.
  bool displayDropDown() {
    if (host_.isLive())
      return false;
    if (parent() && UifStd::getWindowArrangement() == 0)
      if (Canvas* window = canvas())
        window->popToTop();
    host_ = GlobHandle(generateDropDown());
    invalidate(); // the frame that joins button and panel
    return host_.isLive();
  }

  virtual void switchState(int state, bool redraw) {
    eRedrawFlag const flag = redraw ? kRedrawNow : kNoRedraw;
    if (state != 1) {
      if (isLatching())
        removeMenuFromScreen();
      setState(state, flag);
      return;
    }
    if (host_.isLive() && !isLatching()) {
      // The press that closes the panel is still reported as a press: the
      // button shows state 1 until the panel's farewell or the next press.
      removeMenuFromScreen();
      setState(1, flag);
      return;
    }
    if (!host_.isLive())
      displayDropDown();
    setState(host_.isLive() ? 1 : 0, flag);
  }

  // Forgets the panel first, so that its farewell finds the button clear,
  // then takes it off the screen; it is deleted after the current event, as
  // the call may come from inside the panel's own handlers.
  void removeMenuFromScreen() {
    Glob* panel = host_.get();
    host_.clear();
    if (!panel)
      return;
    setState(0);
    takeOffScreen(panel);
  }

  // The panel on show, or null.
  T* getDropDownPanel() const { return dynamic_cast<T*>(host_.get()); }
  Glob* getDropDownWindow() const { return host_.get(); }
  void setDeleteOnDestruction(bool deleteIt) { deleteOnDestruction_ = deleteIt; }
  typename T::InitArgs const& getDropDownArgs() const noexcept { return dropDownArgs_; }

  int react(Event const& event) override {
    if (!event.isMessage()) {
      if (event.type == Event::kMouseWheel && isActive()) {
        handleMouseWheelDelta(event.wheel);
        return 1;
      }
      return Button::react(event);
    }
    if (event.message == DropDownMsg::kPanelGone) {
      // A panel that was torn off and forgotten may go at any time later.
      if (!event.sourceWidget || event.sourceWidget == host_.get()) {
        host_.clear();
        setState(0);
      }
      return 1;
    }
    if (Glob* panel = host_.get(); panel && (event.sourceWidget == panel || isParentedTo(event.sourceWidget, panel))) {
      if (handleDropDownMessage(event.message.c_str()))
        removeMenuFromScreen();
      return 1;
    }
    return Button::react(event);
  }

protected:
  bool opensOnDownArrow() const override { return !host_.isLive(); }
  // Makes and shows the panel; null when there is none to show.
  virtual Glob* generateDropDown() = 0;
  // A message from inside the panel; true closes the panel.
  virtual bool handleDropDownMessage(char const*) { return true; }
  virtual void handleMouseWheelDelta(int) {}
  virtual void handleSecondClick() { removeMenuFromScreen(); }
  // Tells the parent that the panel is about to appear.
  virtual void informParentOfImminentAppearance() { Glob::sendMsg(parent(), DropDownMsg::kButtonClick, this); }

  void performAction() override { switchState(isLatching() ? getState() : 1, true); }

  // Where a panel of `size` goes: under the button, or over it when there is
  // no room below; on the screen in any case. `clamped` says that there was
  // no room over it either, so that the panel was put at the screen's bottom.
  struct PanelPlace {
    XY<int> position;
    bool clamped = false;
  };
  PanelPlace calcPanelPlace(XY<int> size) const {
    Zo::Box<int> const button = screenBoxOf(*this);
    int x = button.x0;
    if (alignment_ == kAlignCentre)
      x = button.x0 + (button.width() - size.x) / 2;
    else if (alignment_ == kAlignEnd)
      x = button.x1 - size.x;
    int y = button.y0 - size.y;
    if (y < 0)
      y = button.y0 + height();
    bool const clamped = y + size.y > screenBackend().screenSize().y;
    if (clamped)
      y = 0;
    return {GlobManager::getSafePosForGlob(canvas(), size, XY<int>(x, y)), clamped};
  }
  XY<int> calcPanelPosition(XY<int> size) const { return calcPanelPlace(size).position; }

  // Makes the panel a window beside the button. A panel made for another
  // size than it took is moved to suit before anything is painted. A panel
  // framed as a drop menu casts a shadow round the sides that do not meet
  // the button; round all four when it could not be put beside the button.
  void displayWidget(T* panel) {
    Drawable::Suspender holdRedraws;
    PanelPlace const place = calcPanelPlace(panel->getSize());
    if (panel->getBorder().style() == Border::kDropMenuBorder) {
      constexpr float kShadowStrength = 0.35f;
      unsigned const edges =
          place.clamped ? unsigned(Glob::kAllEdges) : unsigned(Glob::kEdgeLeft | Glob::kEdgeRight | Glob::kEdgeBottom);
      panel->addSurround(2 * UifStd::getWidgetGap(), Colour(0.0, 0.0, 0.0), kShadowStrength, edges);
    }
    GlobManager::realize(panel);
    if (Canvas* window = panel->canvas())
      window->move(place.position);
  }

  typename T::InitArgs& dropDownArgs() noexcept { return dropDownArgs_; }
  // Lets the panel go without touching it.
  void forgetDropDown() noexcept { host_.clear(); }

  // Room at the right of the label for a chevron pointing to the panel.
  Zo::Box<int> labelBox() const override {
    return Zo::Box<int>(0, 0, std::max(0, width() - getRevealIndicatorWidth()), height());
  }
  void draw(CanvasRenderer& renderer) override {
    Button::draw(renderer);
    Glob const* panel = host_.get();
    drawDropDownChevron(renderer, Zo::Box<int>(labelBox().x1, 0, width(), height()), labelColour(),
                        panel && sideFacing(screenBoxOf(*this), screenBoxOf(*panel)) == kRelativeAbove);
  }

  // A button that does not latch reports a press that closed its panel as
  // state 1 too; any button looks down only while its panel shows.
  bool showsStateDown() const override { return Button::showsStateDown() && host_.isLive(); }

  void drawBorder(CanvasRenderer& renderer) override {
    Button::drawBorder(renderer);
    Glob const* panel = host_.get();
    if (getState() == 0 || !panel)
      return;
    drawOpenFrame(renderer, Zo::Box<int>(0, 0, width(), height()), UifStd::getIndentWidth(),
                  scale(getPalette().selection(), 1.4), sideFacing(screenBoxOf(*this), screenBoxOf(*panel)),
                  relativeBox(*this, *panel));
  }

private:
  static void takeOffScreen(Glob* panel) {
    if (!panel)
      return;
    if (Canvas* window = panel->canvas())
      window->unmap();
    GlobManager::requestDeletion(panel);
  }

  GlobHandle host_;
  bool deleteOnDestruction_ = true;
  eWidgetAlignment alignment_;
  typename T::InitArgs dropDownArgs_;
};
