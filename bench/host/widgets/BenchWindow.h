#pragma once

// One widget filling a borderless top-level panel at the screen's corner,
// realized (so painted once) when made, deleted with the panel.

#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>

template <class W> struct BenchWindow {
  StandardPanel* panel = nullptr;
  W* widget = nullptr;

  explicit BenchWindow(typename W::InitArgs args) {
    StandardPanel::InitArgs panelArgs(args.size);
    panelArgs.screenPosition = XY<int>(0, 0);
    panelArgs.setBorder(Border());
    panel = new StandardPanel(panelArgs);
    args.setBorder(Border());
    widget = panel->createWidget<W>(args, Glob::UserTopLeft(0, 0));
    GlobManager::realize(panel);
  }
  ~BenchWindow() { delete panel; }
  BenchWindow(BenchWindow const&) = delete;
  BenchWindow& operator=(BenchWindow const&) = delete;
};
