#pragma once

#include "support/WidgetTestSupport.h"

#include <zowidgets/containers/SpaceDivider.h>

#include <algorithm>
#include <vector>

// A child that notes the resize-direction flags it holds whenever it is
// given a new size.
class FlagRecorder : public Glob {
public:
  using Glob::Glob;
  void resize(double width, double height) override {
    seen.push_back(getResizeDirection());
    Glob::resize(width, height);
  }
  std::vector<unsigned> seen;
};

// A child that refuses to be made smaller than its minimum.
class StubbornBox : public Glob {
public:
  struct InitArgs : GlobCreationInfo {
    XY<int> minimum;
  };
  explicit StubbornBox(InitArgs const& args) : Glob(args) {
    setMinSize(args.minimum);
    resize(args.size.x, args.size.y);
  }
  void resize(double width, double height) override {
    Glob::resize(std::max(width, double(getMinSize().x)), std::max(height, double(getMinSize().y)));
  }
};

// A divider filling a fresh top-level panel of the same size.
struct SpaceDividerTest : HeadlessScreenTest {
  StandardPanel* panel = nullptr;
  SpaceDivider* divider = nullptr;

  SpaceDivider* makeDivider(XY<int> size, Orientation orientation, float split = 0.5f,
                            SpaceDivider::eSplitterType type = SpaceDivider::kDiscreetSplitter,
                            configb const& config = {}) {
    panel = openPanel(size + XY<int>(20, 20));
    SpaceDivider::InitArgs args(size, orientation, split);
    args.config = config;
    divider = panel->createWidget<SpaceDivider>(args, Glob::UserTopLeft(10, 10));
    divider->setSplitterType(type);
    return divider;
  }

  // A plain child taking its share of the divider.
  template <class T = Glob> T* addChild(SpaceDivider::eWidgetIndex index) {
    GlobCreationInfo info;
    info.useParentAllotment = true;
    return divider->createWidgetX<T>(info, index);
  }

  Glob* first() const { return divider->getWidget(SpaceDivider::kFirstWidget); }
  Glob* second() const { return divider->getWidget(SpaceDivider::kSecondWidget); }
};
