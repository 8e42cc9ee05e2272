#pragma once

#include <zowidgets/host/widgets/buttons/Button.h>
#include <zowidgets/host/widgets/files/FileChooserWindow.h>
#include <zowidgets/host/widgets/panels/TitleGlob.h>

// A button that shows a chosen file or folder (its name, the whole path in
// its tooltip) and, when pressed, opens a FileChooserWindow at that place.
// A choice is shown and broadcast as FileBrowserEvent::kFileChosen.
//
//   FileBrowserButton::InitArgs args(XY<int>(200, UifStd::getRowHeight()));
//   args.browser.folder = L"/home/ann/Videos";
//   args.chooseFolder = true;
//   auto* button = panel->createWidget<FileBrowserButton>(args, Glob::UserTopLeft(0, 0));
//   button->getPath(); // "/home/ann/Videos" until the user chooses another
class ZO_API FileBrowserButton : public Button, public Broadcaster<FileBrowserEvent> {
public:
  struct InitArgs : Button::InitArgs {
    InitArgs() = default;
    explicit InitArgs(XY<int> size) : Button::InitArgs(UIString(), size) {}
    // Where the browser opens; with chooseFolder also the folder shown until
    // the user chooses.
    FileBrowserBase::InitArgs browser;
    bool chooseFolder = false;
    LightweightString<wchar_t> path; // the file or folder shown at first
    // The button's label (Button::InitArgs::label) is what it shows while
    // nothing is chosen; "Choose…" when it has none.
  };

  explicit FileBrowserButton(InitArgs const& args);
  char const* idstring() const override { return "FileBrowserButton"; }

  // The chosen file or folder; empty when none.
  LightweightString<wchar_t> const& getPath() const noexcept { return path_; }
  void setPath(LightweightString<wchar_t> const& path, eRedrawFlag redraw = kRedrawNow);
  bool choosesFolder() const noexcept { return chooseFolder_; }
  // The chooser this button opened, while it is open; else null.
  FileChooserWindow* getOpenChooser() const;

protected:
  void performAction() override;

private:
  FileBrowserBase::InitArgs browserArgs_;
  bool chooseFolder_ = false;
  LightweightString<wchar_t> path_;
  UIString unchosenLabel_;
  FileChooserWindow* chooser_ = nullptr;
  IdStamp chooserStamp_;
};

// A FileBrowserButton with a legend on its left.
class ZO_API TitledFileBrowserButton : public TitleGlob {
public:
  struct InitArgs : TitleGlob::InitArgs {
    InitArgs() = default;
    InitArgs(UIString const& legend, XY<int> size) : TitleGlob::InitArgs(size) { this->legend = legend; }
    FileBrowserButton::InitArgs button;
  };

  explicit TitledFileBrowserButton(InitArgs const& args);
  char const* idstring() const override { return "TitledFileBrowserButton"; }

  FileBrowserButton& getButton() const noexcept { return *button_; }
  LightweightString<wchar_t> const& getPath() const noexcept { return button_->getPath(); }
  void setPath(LightweightString<wchar_t> const& path) { button_->setPath(path); }

private:
  FileBrowserButton* button_ = nullptr;
};
