#include <zowidgets/host/widgets/text/TextLabel.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <cmath>

TextLabel::TextLabel(InitArgs const& args)
    : Glob(args), text_(args.text), alignment_(args.alignment), font_(args.font), colour_(args.colour),
      wordWrap_(args.wordWrap) {}

void TextLabel::setString(UIString const& text, eRedrawFlag redraw) {
  if (text == text_)
    return;
  text_ = text;
  if (redraw == kRedrawNow)
    invalidate();
}

void TextLabel::setAlignment(Glib::eTextAlignment alignment) {
  alignment_ = alignment;
  invalidate();
}

void TextLabel::setFont(Glib::FontDesc const& font) {
  font_ = font;
  invalidate();
}

// Read at drawing time, so that a default font follows the interface scale.
Glib::FontDesc TextLabel::getFont() const { return font_ == Glib::FontDesc() ? UifStd::getFont() : font_; }

void TextLabel::setTextColour(Colour const& colour) {
  colour_ = colour;
  invalidate();
}

Colour TextLabel::getTextColour() const {
  if (colour_.use())
    return colour_;
  return isActive() ? getPalette().text() : getPalette().text(-10);
}

void TextLabel::setWordWrap(bool wrap) {
  wordWrap_ = wrap;
  invalidate();
}

Zo::Box<int> TextLabel::textBox() const {
  Border const& border = getBorder();
  int const indent = UifStd::getIndentWidth();
  return Zo::Box<int>(border.left() + indent, border.bottom(), width() - border.right() - indent,
                      height() - border.top());
}

int TextLabel::calcWidth(UIString const& text, Glib::FontDesc const& font) {
  Glib::FontDesc const used = font == Glib::FontDesc() ? UifStd::getFont() : font;
  Zo::Box<double> const bounds = Glib::TextDescription::calcBounds(text.getString(), used);
  return static_cast<int>(std::ceil(bounds.width())) + 2 * UifStd::getIndentWidth();
}

Glib::TextDescription TextLabel::describe() const {
  Glib::TextDescription text(text_.getString(), Glib::toDoubleBox(textBox()), getFont(), getTextColour(), alignment_);
  text.wordWrap = wordWrap_;
  text.verticalAlignment = wordWrap_ ? Glib::eTextVerticalAlignment::Top : Glib::eTextVerticalAlignment::Centre;
  return text;
}

void TextLabel::draw(CanvasRenderer& renderer) {
  if (!text_.empty())
    renderer.renderPrimitive(describe());
}
