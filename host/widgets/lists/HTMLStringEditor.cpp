#include <zowidgets/host/widgets/lists/HTMLStringEditor.h>

#include <zowidgets/host/toolkit/CursorCodes.h>
#include <zowidgets/host/toolkit/Glob.h>

#include <cmath>

namespace {

Zo::Box<int> htmlArea(TableWidget::iCellEditor::CellContext const& context,
                      TableWidget::iCellEditor::CellData const& data) {
  Zo::Box<double> const text = TableWidget::iCellEditor::textBox(context, data);
  return Zo::Box<int>(static_cast<int>(text.x0), context.box.y0, static_cast<int>(text.x1), context.box.y1);
}

} // namespace

void HTMLStringEditor::drawField(CellContext& context, CellData const& data) {
  if (!context.renderer)
    return;
  auto const paragraphs = HTMLRenderer::parse(data.text.getString().view(), data.palette);
  Zo::Box<int> const area = htmlArea(context, data);
  HTMLRenderer::render(*context.renderer, paragraphs, area, area.height(), fontOf(data));
}

LightweightString<wchar_t> HTMLStringEditor::linkAt(CellContext const& context, CellData const& data, XY<int> point) {
  Zo::Box<int> const area = htmlArea(context, data);
  if (point.x < area.x0 || point.x >= area.x1 || point.y < area.y0 || point.y >= area.y1)
    return {};
  auto const paragraphs = HTMLRenderer::parse(data.text.getString().view(), data.palette);
  // Points count up from the bottom; the layout counts lines down from the top.
  return HTMLRenderer::linkAt(paragraphs, area.width(), area.height(), point.x - area.x0, area.y1 - 1 - point.y,
                              fontOf(data));
}

bool HTMLStringEditor::handleEvent(CellContext const& context, CellData const& data, Event const& event) {
  if (event.type != Event::kMouseUp || !mouse_left_event(event) || !context.table)
    return false;
  LightweightString<wchar_t> const link = linkAt(context, data, event.position);
  if (link.empty())
    return false;
  std::string const message = std::string(kLinkClickedMsg) + "=" + link.toUTF8().str();
  Glob::sendMsg(context.table->parent(), LightweightString<char>(message.c_str()), context.table);
  return true;
}

int HTMLStringEditor::contextCursor(CellContext const& context, CellData const& data, XY<int> const& point) const {
  return linkAt(context, data, point).empty() ? kCursorArrow : kCursorHand;
}

LightweightString<wchar_t> HTMLStringEditor::contextString(CellContext const&, CellData const& data) const {
  Palette const palette = data.palette;
  return HTMLRenderer::visibleText(HTMLRenderer::parse(data.text.getString().view(), palette));
}

XY<int> HTMLStringEditor::measure(CellData const& data, Glib::FontDesc const& font) const {
  Glib::FontDesc const used = font.family().empty() && font.size() == 0 ? fontOf(data) : font;
  double const width =
      HTMLRenderer::calcMaxWidth(HTMLRenderer::parse(data.text.getString().view(), data.palette), used);
  XY<int> const plain = ReadOnlyCellEditor::measure(data, used);
  return XY<int>(static_cast<int>(std::ceil(width)) + 2 * TableColumnDescription::textMargin() + data.leftOffset,
                 plain.y);
}
