#pragma once

#include <zowidgets/values/binding/ValAdaptor.h>

#include <vector>

// A stand-in for a widget's value side: shows whatever its adaptor tells it,
// and records each time it was told and whether it was asked to redraw.
template <class T> class FakeValWidget : public ValWidget<T> {
public:
  void setNewWidgetValue(T& value, eRedrawFlag redraw) override {
    shown = value;
    updates.push_back(redraw);
  }
  T getWidgetValue() override { return shown; }

  // What a user's edit does: the widget shows the typed value, then asks for
  // it to be stored.
  bool typeValue(T const& value) {
    shown = value;
    return this->requestSetNewDataValue(value, kDataChangeAll);
  }

  T shown{};
  std::vector<eRedrawFlag> updates;
};

// A manager that rewrites or refuses values, as a parameter or a validator
// would.
template <class T> class ScriptedManager : public ValManagerBase<T> {
public:
  bool requestValChange(ValServer<T>*, T& value) override {
    ++requests;
    if (refuse)
      return false;
    if (rewrite)
      value = rewrite(value);
    return true;
  }
  void releaseServer(ValServer<T>* server) override { released.push_back(server); }

  bool refuse = false;
  std::function<T(T)> rewrite;
  int requests = 0;
  std::vector<ValServer<T>*> released;
};

// A client that logs the phases it heard.
template <class T> class PhaseLoggingClient : public ValClient<T> {
public:
  using ValClient<T>::ValClient;
  using ValClient<T>::operator=;
  void valChangedNtfy() override { phases.push_back(0); }
  void valPreChangedNtfy() override { phases.push_back(1); }
  std::vector<int> phases;
};
