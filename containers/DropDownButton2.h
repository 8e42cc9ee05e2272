#pragma once

#include <zowidgets/containers/DropDownHost.h>
#include <zowidgets/host/widgets/popups/DropDownButtonBase.h>
#include <zowidgets/values/notify/UIThreadCallbackDupe.h>

// A button that shows a panel T in a drop-down window while it is down. The
// panel is made afresh from a kept T::InitArgs at each display; a T::InitArgs
// of width 0 makes the button inert. The window belongs to the window system
// once shown: the button only refers to it.
template <class T> class ZO_API DropDownButton2 : public DropDownButtonBase {
public:
  struct InitArgs : Button::InitArgs {
    InitArgs() = default;
    InitArgs(UIString label, XY<int> size, typename T::InitArgs dropDownArgs)
        : Button::InitArgs(std::move(label), size), dropDownArgs(std::move(dropDownArgs)) {}
    typename T::InitArgs dropDownArgs;
  };

  explicit DropDownButton2(InitArgs const& args) : DropDownButtonBase(args), dropDownArgs_(args.dropDownArgs) {}
  char const* idstring() const override { return "DropDownButton2"; }

  // Down shows the drop-down unless one shows already; up removes it. The
  // button stays down only while a drop-down shows.
  void switchState(int state, bool redraw) override {
    if (state != 1)
      removeDropDown();
    else if (!getDropDownHost()) {
      prepareToDisplayDropDown();
      displayDropDown();
    }
    DropDownButtonBase::switchState(state == 1 && !getDropDownHost() ? 0 : state, redraw);
  }

  // A showing panel is rebuilt at once with the new arguments, in place.
  void setDropDownArgs(typename T::InitArgs const& args) {
    dropDownArgs_ = args;
    if (!getDropDownHost())
      return;
    Drawable::Suspender holdRedraws;
    removeDropDown();
    displayDropDown();
  }
  typename T::InitArgs const& getDropDownArgs() const noexcept { return dropDownArgs_; }

  // The panel takes the window form of the button's new palette.
  void setPalette(Palette const& palette) override {
    DropDownButtonBase::setPalette(palette);
    dropDownArgs_.setPalette(makeWindowPalette(makeDropDownPalette()));
  }

  // The panel on show, or null.
  T* getDropDownPanel() const {
    auto* host = dynamic_cast<DropDownHost<T>*>(getDropDownHost());
    return host ? host->getPanel() : nullptr;
  }

  int handleDropDownEventInternal(NotifyMsg const& message) {
    if (auto const* event = dynamic_cast<DropDownHostBase::Event const*>(message.data().get()))
      handleDropDownEvent(*event);
    return 0;
  }

protected:
  void displayDropDown() override {
    previousDropDown().requestDeletion();
    if (dropDownArgs_.size.x <= 0)
      return;
    if (!dropDownArgs_.palette)
      dropDownArgs_.setPalette(makeDropDownPalette());
    using Callback = iCallbackBase<int, NotifyMsg>;
    // Events may arrive after the button has gone; the check drops them.
    Zo::Ptr<Callback> const callback =
        UIThreadCallbackDupe<NotifyMsg>::guarded(Zo::Ptr<Callback>(new MethodCallback<DropDownButton2, NotifyMsg>(
                                                     this, &DropDownButton2::handleDropDownEventInternal)),
                                                 this);
    typename DropDownHost<T>::InitArgs record(DropDownHostBase::InitArgs(this, callback), dropDownArgs_);
    record.setBorder(getDropDownBorder());
    record.size = TipWindowBase::calcSizeFor(dropDownArgs_.size, getDropDownRelativity(), getDropDownBorder());
    record.detachable = getDetachMode() == 1;
    record.setPalette(makeDropDownPalette());
    // The window may go to the other side than asked, where there is room;
    // the tip's depth is the same on either.
    Placement const placement = calcDropDownPosition(record.size);
    record.setRelativeDirection(placement.relativity);
    WidgetPosition position;
    position.x = placement.position.x;
    position.y = placement.position.y;
    DropDownHost<T>* host = DropDownHost<T>::create(record, position);
    adoptDropDown(host);
    host->setDetachable(getDetachMode() == 1);
    host->setResizableEdges(getResizableEdges());
    if (isModal())
      host->setModalContextGlob(this);
  }

private:
  typename T::InitArgs dropDownArgs_;
};
