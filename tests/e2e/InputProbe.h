#pragma once

#include <zowidgets/host/toolkit/Glob.h>

#include <string>

// A widget that shows what text it was given and remembers every input that
// reached it, for the end-to-end program to report.
class InputProbe : public Glob {
public:
  explicit InputProbe(XY<int> size);

  char const* idstring() const override { return "InputProbe"; }
  int react(Event const& event) override;

  int downs() const noexcept { return downs_; }
  int ups() const noexcept { return ups_; }
  int lastClicks() const noexcept { return lastClicks_; }
  XY<int> lastDown() const noexcept { return lastDown_; }
  std::string const& typed() const noexcept { return typed_; }
  int keysDown() const noexcept { return keysDown_; }
  int lastKey() const noexcept { return lastKey_; }
  int wheelSteps() const noexcept { return wheelSteps_; }

protected:
  void draw(CanvasRenderer& renderer) override;

private:
  int downs_ = 0;
  int ups_ = 0;
  int lastClicks_ = 0;
  XY<int> lastDown_{-1, -1};
  std::string typed_;
  int keysDown_ = 0;
  int lastKey_ = 0;
  int wheelSteps_ = 0;
};
