#pragma once

#include <zowidgets/host/base/DataChange.h>
#include <zowidgets/host/base/LightweightString.h>
#include <zowidgets/host/toolkit/Drawable.h>
#include <zowidgets/values/binding/WidgetBase.h>

#include <vector>

template <class T> class ValWidget;

// The data side of a binding, as widgets of type A see it.
template <class A> class ZO_API ValAdaptorBase : public AdaptorBase {
public:
  virtual A getDataValue() = 0;
  virtual void forceWidgetUpdate(eRedrawFlag redraw) { setNewWidgetValue(getDataValue(), redraw); }
  virtual bool requestSetNewDataValue(A const& value, DataChangeType type) = 0;
  virtual void handleMsgForParent(LightweightString<char>) {}
  // Shows `value` on every bound widget, in set order.
  virtual void setNewWidgetValue(A value, eRedrawFlag redraw);
};

// A named base for string adaptors written by hand.
class ZO_API ValAdaptorWStringT : public ValAdaptorBase<LightweightString<wchar_t>> {};

// The widget side of a binding: what shows and edits a T. A widget takes it
// on beside its widget base (class Slider : public Glob, public
// ValWidget<double>), so a panel can be a value widget as well.
template <class T> class ZO_API ValWidget : public WidgetBase {
public:
  // Binds, then shows the data at once without a redraw of its own. A null
  // adaptor only clears the binding.
  virtual void setDataAdaptor(Zo::Ptr<ValAdaptorBase<T>> const& adaptor) {
    setAdaptor(adaptor);
    if (adaptor)
      adaptor->forceWidgetUpdate(kNoRedraw);
  }
  // Null when unbound or bound to an adaptor of another type.
  virtual Zo::Ptr<ValAdaptorBase<T>> getDataAdaptor() const {
    return getAdaptor().template dynamicCast<ValAdaptorBase<T>>();
  }
  virtual T getDataValue() {
    Zo::Ptr<ValAdaptorBase<T>> adaptor = getDataAdaptor();
    return adaptor ? adaptor->getDataValue() : T();
  }
  // A user's edit: goes to the data with redraws held for the whole way there
  // and back. False only when there is no adaptor.
  virtual bool requestSetNewDataValue(T const& value, DataChangeType type) {
    Zo::Ptr<ValAdaptorBase<T>> adaptor = getDataAdaptor();
    if (!adaptor)
      return false;
    Drawable::Suspender holdRedraws;
    return adaptor->requestSetNewDataValue(value, type);
  }
  virtual void setNewWidgetValue(T& value, eRedrawFlag redraw) = 0;
  virtual void setEnabledState(bool) {}
  virtual bool getEnabledState() const { return true; }
  virtual T getWidgetValue() = 0;
};

// Base for buttons that show a value in their label.
template <class T> class ZO_API ButtonWidget : public ValWidget<T> {};

template <class A> void ValAdaptorBase<A>::setNewWidgetValue(A value, eRedrawFlag redraw) {
  // A widget may unbind while being told; walk a snapshot.
  std::vector<WidgetBase*> widgets(boundWidgets().begin(), boundWidgets().end());
  for (WidgetBase* widget : widgets)
    if (auto* typed = dynamic_cast<ValWidget<A>*>(widget))
      typed->setNewWidgetValue(value, redraw);
}
