#pragma once

#include <zowidgets/host/shell/Compression.h>
#include <zowidgets/host/widgets/panels/TitleGlob.h>
#include <zowidgets/host/widgets/popups/DropDownMenuButton.h>

// A menu of the file types the host writes for a usage, by extension. The
// choice is remembered under a preference key and the parent is told of
// each change.
class ZO_API FileFormatButton : public DropDownMenuButton {
public:
  static constexpr char const* FileTypeChangedMsg = "FileTypeChangedMsg";

  struct InitArgs : DropDownMenuButton::InitArgs {
    InitArgs() = default;
    InitArgs(Compression::eUsage usage, LightweightString<char> key, XY<int> size)
        : usage(usage), preferenceKey(std::move(key)) {
      this->size = size;
    }
    Compression::eUsage usage = Compression::kVideoExport;
    LightweightString<char> preferenceKey; // empty: nothing remembered
  };

  explicit FileFormatButton(InitArgs const& args);
  char const* idstring() const override { return "FileFormatButton"; }

  // Fills the menu with the usage's file types and selects the remembered
  // one, or the first.
  void init(Compression::eUsage usage);
  // The identifier of the chosen type; empty if none.
  LightweightString<char> getFileType() const;
  Compression::eUsage getUsage() const noexcept { return usage_; }

  // Remembers the choice and tells the parent.
  virtual void informOwner();

private:
  Compression::eUsage usage_;
  LightweightString<char> preferenceKey_;
};

// A file format button with a legend to its left.
struct ZO_API TitledFileFormatButtonInitArgs : TitleGlob::InitArgs {
  TitledFileFormatButtonInitArgs() = default;
  TitledFileFormatButtonInitArgs(Compression::eUsage usage, LightweightString<char> key, UIString legend,
                                 unsigned short width);
  Compression::eUsage usage = Compression::kVideoExport;
  LightweightString<char> preferenceKey;
  unsigned short buttonWidth = 0; // 0: as wide as its widest extension
};

class ZO_API TitledFileFormatButton : public TitleGlob {
public:
  using InitArgs = TitledFileFormatButtonInitArgs;
  explicit TitledFileFormatButton(TitledFileFormatButtonInitArgs const& args);
  char const* idstring() const override { return "TitledFileFormatButton"; }
  FileFormatButton* getButton() const noexcept { return button_; }
  // The button's news of a new file type goes on to this row's parent, from
  // the button, so that an owner reads the type the same way whichever form
  // it holds.
  int react(Event const& event) override;

private:
  void init(Compression::eUsage usage, LightweightString<char> const& key, unsigned short buttonWidth);

  FileFormatButton* button_ = nullptr;
};
