#pragma once

#include <zowidgets/host/widgets/popups/DropDownMenuButton.h>
#include <zowidgets/values/binding/ValWidget.h>

#include <vector>

// A file row: a titled drop-down whose menu offers the file chosen now, a
// separator and "Browse…", which opens the host's file chooser at the
// file's folder. Its value is the path: a file chosen in the chooser becomes
// the row's file and goes to its data adaptor.
class TitledFileChooserButton : public TitleMenuButton, public ValWidget<LightweightString<wchar_t>> {
public:
  struct InitArgs : TitleMenuButton::InitArgs {
    InitArgs(UIString title, XY<int> size, LightweightString<wchar_t> path)
        : TitleMenuButton::InitArgs(std::move(title), {}, 0, size), path(std::move(path)) {}
    LightweightString<wchar_t> path;
    // Extensions the chooser offers, without the dot; empty for any file.
    std::vector<LightweightString<wchar_t>> extensions;
  };

  // The rows of the menu.
  enum eRow : int { kCurrentRow = 0, kSeparatorRow = 1, kBrowseRow = 2 };

  explicit TitledFileChooserButton(InitArgs const& args);
  char const* idstring() const override { return "TitledFileChooserButton"; }

  LightweightString<wchar_t> const& getPath() const noexcept { return path_; }
  void setPath(LightweightString<wchar_t> const& path, eRedrawFlag redraw = kRedrawNow);
  // Opens the file chooser, as "Browse…" does.
  void browse();

  void setNewWidgetValue(LightweightString<wchar_t>& value, eRedrawFlag redraw) override { setPath(value, redraw); }
  LightweightString<wchar_t> getWidgetValue() override { return path_; }

private:
  void showPath(eRedrawFlag redraw);

  LightweightString<wchar_t> path_;
  std::vector<LightweightString<wchar_t>> extensions_;
};
