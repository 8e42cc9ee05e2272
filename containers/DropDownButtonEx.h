#pragma once

#include <zowidgets/containers/DropDownButton.h>
#include <zowidgets/containers/DropDownWidgetWithDtorNotify.h>

#include <algorithm>

// A DropDownButton whose panel T (a StandardPanel) is made from a kept
// T::InitArgs, at least as wide as the button. The detach mode says what the
// user may do with the panel: 0 nothing (it closes on a press elsewhere),
// kDetachable drag it off to float on its own, kMovable move it about
// (then the button does not latch). Messages from inside the panel go on to
// the button's parent and never close the panel.
template <class T> class ZO_API DropDownButtonEx : public DropDownButton<T> {
public:
  enum eDetachMode : int { kAttached = 0, kDetachable = 1, kMovable = 2 };

  struct InitArgs : DropDownButton<T>::InitArgs {
    InitArgs() = default;
    InitArgs(UIString label, XY<int> size, typename T::InitArgs dropDownArgs, int detachMode = kAttached)
        : DropDownButton<T>::InitArgs(std::move(label), size, std::move(dropDownArgs)), detachMode(detachMode) {}
    int detachMode = kAttached;
  };

  explicit DropDownButtonEx(InitArgs const& args) : DropDownButton<T>(args), detachMode_(args.detachMode) {
    this->setLatching(detachMode_ != kMovable);
  }
  char const* idstring() const override { return "DropDownButtonEx"; }

  // Kept for the next display; a showing panel is not changed.
  void setDropDownArgs(typename T::InitArgs const& args) { this->dropDownArgs() = args; }
  int getDetachMode() const noexcept { return detachMode_; }

  int react(Event const& event) override {
    if (event.isMessage() && event.message == DropDownMsg::kDetach && event.sourceWidget &&
        event.sourceWidget == this->getDropDownWindow()) {
      // The panel lives on by itself; the button is free for a new one.
      this->setLatching(false);
      this->forgetDropDown();
      this->setState(0);
      return 1;
    }
    if (event.isMessage() && event.message == DropDownMsg::kPanelGone)
      this->setLatching(detachMode_ != kMovable);
    return DropDownButton<T>::react(event);
  }

protected:
  Glob* generateDropDown() override {
    this->informParentOfImminentAppearance();
    typename DropDownWidgetWithDtorNotify<T>::InitArgs args(this->dropDownArgs(), this);
    args.movable = detachMode_ == kMovable;
    args.size.x = std::max(args.size.x, this->width());
    args.screenPosition = this->calcPanelPosition(args.size);
    auto* panel = new DropDownWidgetWithDtorNotify<T>(args);
    if (!panel->isMovable() && !panel->isPinned())
      panel->setModalContextGlob(this);
    panel->setDraggable(detachMode_ == kDetachable);
    this->displayWidget(panel);
    return panel;
  }

  bool handleDropDownMessage(char const* message) override {
    Glob::sendMsg(this->parent(), message, this);
    return false;
  }

private:
  int detachMode_;
};
