#pragma once

#include <zowidgets/host/base/DataConvert.h>
#include <zowidgets/values/binding/ValWidget.h>
#include <zowidgets/values/notify/ValClient.h>

// How a ValAdaptor<A,B> converts: toData for a widget's edit, toWidget for
// showing the data. Only the pairings below exist.
template <class A, class B> struct ValAdaptorConversion;

template <class T> struct ValAdaptorIdentity {
  static T toData(T const& value) { return value; }
  static T toWidget(T const& value) { return value; }
};
template <> struct ValAdaptorConversion<bool, bool> : ValAdaptorIdentity<bool> {};
template <> struct ValAdaptorConversion<double, double> : ValAdaptorIdentity<double> {};
template <> struct ValAdaptorConversion<LightweightString<wchar_t>, LightweightString<wchar_t>>
    : ValAdaptorIdentity<LightweightString<wchar_t>> {};

template <> struct ValAdaptorConversion<double, int> {
  static int toData(double value) { return ftisql(value); }
  static double toWidget(int value) { return value; }
};

template <class B> struct ValAdaptorTextConversion {
  static B toData(LightweightString<wchar_t> const& text) {
    return DataConvert::convert<LightweightString<wchar_t>, B>(text);
  }
  static LightweightString<wchar_t> toWidget(B const& value) {
    return DataConvert::convert<B, LightweightString<wchar_t>>(value);
  }
};
template <> struct ValAdaptorConversion<LightweightString<wchar_t>, int> : ValAdaptorTextConversion<int> {};
template <> struct ValAdaptorConversion<LightweightString<wchar_t>, double> : ValAdaptorTextConversion<double> {};

// Joins a server of B to widgets of A. Never refuses an edit: it converts
// blindly and reports success whatever the server's manager decides, so a
// vetoed edit stays on screen until something forces an update.
template <class A, class B> class ZO_API ValAdaptor : public ValAdaptorBase<A>, public ValClient<B> {
public:
  using Conversion = ValAdaptorConversion<A, B>;

  explicit ValAdaptor(ValServer<B>* server) { this->registerWith(server); }

  A getDataValue() override { return Conversion::toWidget(static_cast<B>(*this)); }

  bool requestSetNewDataValue(A const& value, DataChangeType) override {
    ValClient<B>::operator=(Conversion::toData(value));
    return true;
  }

  void valChangedNtfy() override { this->setNewWidgetValue(getDataValue(), kRedrawNow); }
};
