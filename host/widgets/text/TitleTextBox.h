#pragma once

#include <zowidgets/host/widgets/text/TextBoxBase.h>

// A text box with a legend on its left: the legend takes `titleWidth`
// pixels (its own width and a widget gap when 0) and the field the rest.
class ZO_API TitleTextBox : public TextBoxBase {
public:
  struct InitArgs : TextBoxBase::InitArgs {
    using TextBoxBase::InitArgs::InitArgs;
    InitArgs() = default;
    InitArgs(TextBoxBase::InitArgs const& args) : TextBoxBase::InitArgs(args) {}
    UIString title;
    int titleWidth = 0;
  };

  explicit TitleTextBox(InitArgs const& args);
  char const* idstring() const override { return "TitleTextBox"; }

  void setTitle(UIString const& title);
  UIString const& getTitle() const noexcept { return title_; }
  Zo::Box<int> getFieldBox() const override;

protected:
  void drawBackground(CanvasRenderer& renderer) override;

private:
  int titleWidth() const;

  UIString title_;
  int titleWidth_;
};
