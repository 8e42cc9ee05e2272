#include <zowidgets/host/widgets/lists/TableCellEditor.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/toolkit/CursorCodes.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <cmath>

Glib::FontDesc TableWidget::iCellEditor::fontOf(CellData const& data) {
  return data.font.family().empty() && data.font.size() == 0 ? UifStd::getFont() : data.font;
}

Zo::Box<double> TableWidget::iCellEditor::textBox(CellContext const& context, CellData const& data) {
  int const margin = TableColumnDescription::textMargin();
  Zo::Box<int> const& box = context.box;
  return Zo::Box<double>(box.x0 + margin + data.leftOffset, box.y0, std::max(box.x1 - margin, box.x0 + margin), box.y1);
}

void TableWidget::iCellEditor::drawField(CellContext& context, CellData const& data) {
  if (!context.renderer)
    return;
  Glib::eTextAlignment alignment = Glib::eTextAlignment::Left;
  if (context.table && context.pos.x >= 0 && context.pos.x < context.table->numColumns())
    alignment = context.table->getColumn(context.pos.x).getAlignment();
  context.renderer->renderPrimitive(Glib::TextDescription(data.text.getString(), textBox(context, data), fontOf(data),
                                                          data.palette.text(), alignment));
}

int TableWidget::iCellEditor::contextCursor(CellContext const&, CellData const& data, XY<int> const&) const {
  return data.readOnly ? kCursorArrow : kCursorDefault;
}

XY<int> TableWidget::iCellEditor::measure(CellData const& data, Glib::FontDesc const& font) const {
  Glib::FontDesc const used = font.family().empty() && font.size() == 0 ? fontOf(data) : font;
  Zo::Box<double> const bounds = Glib::TextDescription::calcBounds(data.text.getString(), used);
  return XY<int>(static_cast<int>(std::ceil(bounds.width())) + 2 * TableColumnDescription::textMargin() +
                     data.leftOffset,
                 static_cast<int>(std::ceil(bounds.height())));
}
