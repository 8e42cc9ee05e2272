#pragma once

#include <zowidgets/host/widgets/panels/StandardPanel.h>

#include <string>

class Splitter;
class TabbedDialogue;

// Tabs over two pages, and two boxes with a splitter between them, in a
// window of their own, for the end-to-end cases that switch tabs and drag
// the bar as a person would.
class ContainersPanel {
public:
  // Opens the panel at a screen position (bottom-left corner, bottom-up).
  explicit ContainersPanel(XY<int> screenPosition);
  ~ContainersPanel();
  ContainersPanel(ContainersPanel const&) = delete;
  ContainersPanel& operator=(ContainersPanel const&) = delete;

  // The current tab and where the tabs are; where the bar is and how wide
  // the boxes beside it are, with the left box's least width; as JSON.
  std::string stateJson(std::string (*toScreen)(Zo::Box<int> const&)) const;

private:
  StandardPanel* panel_ = nullptr;
  TabbedDialogue* tabs_ = nullptr;
  Glob* left_ = nullptr;
  Glob* right_ = nullptr;
  Splitter* bar_ = nullptr;
};
