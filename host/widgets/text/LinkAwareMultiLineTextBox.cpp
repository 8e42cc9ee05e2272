#include <zowidgets/host/widgets/text/LinkAwareMultiLineTextBox.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/shell/OS.h>
#include <zowidgets/host/toolkit/UifStd.h>

LinkAwareMultiLineTextBox::LinkAwareMultiLineTextBox(InitArgs const& args) : ScrollableTextBoxBase(args) {
  linesChanged();
}

void LinkAwareMultiLineTextBox::setHTML(std::vector<HTMLParagraph> const& paragraphs) {
  paragraphs_ = paragraphs;
  countedWidth_ = -1;
  pressedLink_ = {};
  scrollToLine(0);
  invalidate();
}

int LinkAwareMultiLineTextBox::numDisplayLines() const {
  Glib::FontDesc const font = UifStd::getFont();
  int const width = textArea().width();
  if (countedWidth_ != width || countedFontSize_ != font.size()) {
    countedWidth_ = width;
    countedFontSize_ = font.size();
    countedLines_ = HTMLRenderer::calcNumDisplayLines(paragraphs_, width, font);
  }
  return countedLines_;
}

LightweightString<wchar_t> LinkAwareMultiLineTextBox::linkAt(XY<int> point) const {
  Zo::Box<int> const area = textArea();
  if (!area.contains(point))
    return {};
  return HTMLRenderer::linkAt(paragraphs_, area.width(), lineHeight(), point.x - area.x0, area.y1 - point.y,
                              UifStd::getFont(), firstVisibleLine());
}

int LinkAwareMultiLineTextBox::react(Event const& event) {
  if (event.type == Event::kMouseDown && mouse_left_event(event)) {
    pressedLink_ = linkAt(event.position);
    return 1;
  }
  if (event.type == Event::kMouseUp && mouse_left_event(event)) {
    LightweightString<wchar_t> const link = linkAt(event.position);
    if (!link.empty() && link == pressedLink_)
      OS().open(link);
    pressedLink_ = {};
    return 1;
  }
  return ScrollableTextBoxBase::react(event);
}

void LinkAwareMultiLineTextBox::draw(CanvasRenderer& renderer) {
  Zo::Box<int> const area = textArea();
  Zo::Box<int> const oldClip = renderer.clipBox();
  renderer.setClipBox(oldClip.intersect(area.translated(renderer.origin())));
  HTMLRenderer::render(renderer, paragraphs_, area, lineHeight(), UifStd::getFont(), firstVisibleLine());
  renderer.setClipBox(oldClip);
}
