#pragma once

#include <zowidgets/host/base/LightweightString.h>
#include <zowidgets/values/binding/ValAdaptor.h>
#include <zowidgets/values/notify/ValServer.h>

// The data the gallery's value widgets edit. Widgets on different pages share
// a server, so an edit on one shows at once on the others. It outlives every
// page window.
struct GalleryModel {
  ValServer<bool> loop{true};
  ValServer<bool> snap{false};
  ValServer<double> gain{0.35};
  ValServer<double> speed{100.0};
  ValServer<LightweightString<wchar_t>> clipName{LightweightString<wchar_t>(L"Interview take 3")};
  ValServer<LightweightString<wchar_t>> password{LightweightString<wchar_t>(L"correct horse")};
};

// Binds a widget showing A to a server of B, and returns the widget. Binding
// shows the value without a repaint, so the widget is repainted here.
template <class A, class B, class Widget> Widget* bindTo(Widget* widget, ValServer<B>& server) {
  widget->setDataAdaptor(Zo::Ptr<ValAdaptorBase<A>>(new ValAdaptor<A, B>(&server)));
  widget->invalidate();
  return widget;
}
