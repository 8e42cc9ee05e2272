#pragma once

#include "support/MessageLog.h"
#include "support/WidgetTestSupport.h"

#include <zowidgets/editor/TrackButton.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>

// A track header as an application keeps one: it hears its track buttons'
// resize requests and gives each the height it asked for (at least a
// minimum), and keeps every message for the test to read.
class TrackHeaderStandIn : public MessageLog {
public:
  explicit TrackHeaderStandIn(XY<int> size) : MessageLog(size) {}
  int react(Event const& event) override {
    int const used = MessageLog::react(event);
    if (event.isMessage() && event.message.view().starts_with("TrackBtnResize") &&
        is_good_glob_ptr(event.sourceWidget)) {
      TrackButton::ResizeParams const request(event.message);
      int const height = std::max(minimumHeight, request.requestedHeight());
      event.sourceWidget->resize(event.sourceWidget->width(), height);
    }
    return used;
  }
  int minimumHeight = 8;
};

// A panel on the headless screen holding a TrackHeaderStandIn that fills it,
// for widgets that talk to their parent.
class EditorWidgetTest : public HeadlessScreenTest {
protected:
  void openHeader(XY<int> size = XY<int>(240, 200)) {
    panel = openPanel(size);
    // The header fills the user area, inside the panel's border.
    header = static_cast<TrackHeaderStandIn*>(
        panel->addChild(new TrackHeaderStandIn(panel->getUserArea().getDimensions()), Glob::UserBottomLeft(0, 0)));
  }
  template <class T> T* add(typename T::InitArgs args, WidgetPosition const& position) {
    args.setParent(header);
    return static_cast<T*>(header->addChild(new T(args), position));
  }

  StandardPanel* panel = nullptr;
  TrackHeaderStandIn* header = nullptr;
};
