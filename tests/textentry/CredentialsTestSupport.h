#pragma once

#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/UifStd.h>

#include <string>

// A window for the credentials widgets under test, and typing as a person
// does it: a click in the box, End, then the characters.
struct CredentialsTest : HeadlessScreenTest {
  void SetUp() override {
    HeadlessScreenTest::SetUp();
    int const row = UifStd::getRowHeight();
    window = openPanel(XY<int>(row * 16, row * 10), XY<int>(200, 300));
  }

  template <class T> T* add(typename T::InitArgs const& args) {
    int const gap = UifStd::getWidgetGap();
    return window->createWidget<T>(args, Glob::UserTopLeft(gap, gap));
  }

  static void typeInto(Glob& box, std::string const& text) {
    HeadlessInput::clickOn(box);
    HeadlessInput::key(kKeyEnd);
    HeadlessInput::typeText(text);
  }

  StandardPanel* window = nullptr;
};
