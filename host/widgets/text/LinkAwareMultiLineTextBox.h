#pragma once

#include <zowidgets/host/drawing/HTMLRenderer.h>
#include <zowidgets/host/widgets/text/MultiLineTextBox.h>

#include <vector>

// Read-only rich text from HTMLRenderer in a scrolling box. A click on a
// link opens its target through the platform shell (OS().open).
class ZO_API LinkAwareMultiLineTextBox : public ScrollableTextBoxBase {
public:
  using InitArgs = ScrollableTextBoxBase::InitArgs;

  explicit LinkAwareMultiLineTextBox(InitArgs const& args);
  char const* idstring() const override { return "LinkAwareMultiLineTextBox"; }

  void setHTML(std::vector<HTMLParagraph> const& paragraphs);
  std::vector<HTMLParagraph> const& getHTML() const noexcept { return paragraphs_; }
  // The link under a point in the box; empty when there is none.
  LightweightString<wchar_t> linkAt(XY<int> point) const;

  int react(Event const& event) override;

protected:
  int numDisplayLines() const override;
  void draw(CanvasRenderer& renderer) override;

private:
  std::vector<HTMLParagraph> paragraphs_;
  // A link pressed on, opened if the button comes up over it again.
  LightweightString<wchar_t> pressedLink_;
  mutable int countedWidth_ = -1;
  mutable unsigned countedFontSize_ = 0;
  mutable int countedLines_ = 1;
};
