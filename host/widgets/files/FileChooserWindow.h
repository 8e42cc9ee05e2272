#pragma once

#include <zowidgets/host/widgets/buttons/Button.h>
#include <zowidgets/host/widgets/files/FileBrowser.h>

#include <functional>

// A window holding a FileBrowser and, below it, "Cancel" and a "Choose"
// button that chooses: the current file, or with `chooseFolder` the folder
// entry the user picked in the list (else the folder shown, whatever row the
// browser made current on showing it). A double click on a file chooses it
// too. The window closes after choosing; "Cancel", Escape and its close
// button close it without a choice.
class ZO_API FileChooserWindow : public StandardPanel {
public:
  using Chosen = std::function<void(LightweightString<wchar_t> const& path)>;

  struct InitArgs : StandardPanel::InitArgs {
    using StandardPanel::InitArgs::InitArgs;
    InitArgs() = default;
    FileBrowserBase::InitArgs browser;
    bool chooseFolder = false;
    Chosen chosen;
  };

  explicit FileChooserWindow(InitArgs const& args);
  char const* idstring() const override { return "FileChooserWindow"; }
  eWindowKind windowKind() const override { return eWindowKind::kDialogue; }

  // Opens a modal chooser near `owner` (may be null).
  static FileChooserWindow* open(InitArgs args, Glob* owner);
  // The size a chooser opens at.
  static XY<int> defaultSize();

  FileBrowser& getBrowser() const noexcept { return *browser_; }
  // What the "Choose" button would choose now; empty when nothing fits.
  LightweightString<wchar_t> getChoice() const;

  // What the "Choose" button does.
  void handleDoIt() override;
  Button& getChooseButton() const noexcept { return *chooseButton_; }
  Button& getCancelButton() const noexcept { return *cancelButton_; }
  void resize(double width, double height) override;

private:
  void choose(LightweightString<wchar_t> const& path);

  FileBrowser* browser_ = nullptr;
  Button* chooseButton_ = nullptr;
  Button* cancelButton_ = nullptr;
  bool chooseFolder_ = false;
  Chosen chosen_;
};
