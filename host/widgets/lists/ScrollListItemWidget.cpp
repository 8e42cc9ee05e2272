#include <zowidgets/host/widgets/lists/ScrollListItemWidget.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/toolkit/UifStd.h>

ScrollListItemWidget::ScrollListItemWidget(InitArgs const& args) : Button(args), index_(args.index) {
  // The list holds the focus and the selection; a row only shows them.
  setCanBeIt(false);
  setPaintsOpaquely(true);
}

ScrollListItemWidget::Look ScrollListItemWidget::lookFor(Palette const& palette) {
  Look look;
  look.background = palette.window(-1);
  look.selected = palette.selection();
  look.hovered = palette.window(1);
  look.text = palette.text();
  look.selectedText = palette.text(2);
  look.cursorOutline = Palette::shaded(palette.selection(), 3);
  look.textIndent = UifStd::getWidgetGap() * 2;
  look.cursorRadius = UifStd::getIndentWidth();
  return look;
}

void ScrollListItemWidget::setSelected(bool selected, eRedrawFlag redraw) {
  if (selected == selected_)
    return;
  selected_ = selected;
  if (redraw != kNoRedraw)
    invalidate();
}

void ScrollListItemWidget::setCurrent(bool current, eRedrawFlag redraw) {
  if (current == current_)
    return;
  current_ = current;
  if (redraw != kNoRedraw)
    invalidate();
}

int ScrollListItemWidget::react(Event const& event) {
  if (event.type == Event::kMouseEnter || event.type == Event::kMouseLeave) {
    bool const hovered = event.type == Event::kMouseEnter;
    if (hovered != hovered_) {
      hovered_ = hovered;
      invalidate();
    }
  }
  // Presses, wheel turns and keys belong to the list.
  return 0;
}

void ScrollListItemWidget::drawBackground(CanvasRenderer& renderer) {
  Look const look = lookFor(getPalette());
  Zo::Box<int> const box(0, 0, width(), height());
  Colour ground = look.background;
  if (selected_)
    ground = look.selected;
  else if (hovered_ && isActive())
    ground = look.hovered;
  renderer.renderPrimitive(Glib::RectDescription(box, ground));
  if (current_) {
    Zo::Box<double> const ring(0.5, 0.5, width() - 0.5, height() - 0.5);
    renderer.renderPrimitive(
        Glib::RoundedRectDescription(ring, look.cursorRadius, Colour::invalid(), look.cursorOutline));
  }
}

void ScrollListItemWidget::draw(CanvasRenderer& renderer) {
  Look const look = lookFor(getPalette());
  Colour text = selected_ ? look.selectedText : look.text;
  if (!isActive())
    text = Palette::inactive(text, look.background);
  Zo::Box<double> const area(look.textIndent, 0, width() - look.textIndent, height());
  renderer.renderPrimitive(Glib::TextDescription(getLabel(), area, UifStd::getFont(), text));
}
