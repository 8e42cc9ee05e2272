#pragma once

#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/UifStd.h>

#include <string>

// Typing as a person does it: a click in the box, End, then the characters.
inline void typeInto(Glob& box, std::string const& text) {
  HeadlessInput::clickOn(box);
  HeadlessInput::key(kKeyEnd);
  HeadlessInput::typeText(text);
}

// A window for the credentials widgets under test.
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

  StandardPanel* window = nullptr;
};
