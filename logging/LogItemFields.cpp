#include <zowidgets/logging/LogItemFields.h>

#include <zowidgets/host/base/JSON.h>
#include <zowidgets/host/base/JSONElement.h>
#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/shell/FilePaths.h>
#include <zowidgets/host/shell/OS.h>
#include <zowidgets/host/toolkit/CursorCodes.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/InputRouter.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/logging/Logger.h>

#include <cmath>
#include <cwctype>

namespace {

Logger::LoggedItem const* rowOf(Logger const* logger, int row) {
  if (!logger || row < 0 || static_cast<std::size_t>(row) >= logger->rows().size())
    return nullptr;
  return &logger->rows()[static_cast<std::size_t>(row)];
}

bool startsWithNoCase(std::wstring_view text, std::wstring_view prefix) {
  if (text.size() < prefix.size())
    return false;
  for (std::size_t i = 0; i < prefix.size(); ++i)
    if (static_cast<wchar_t>(std::towlower(static_cast<wint_t>(text[i]))) != prefix[i])
      return false;
  return true;
}

bool equalsNoCase(std::wstring_view text, std::wstring_view lower) {
  return text.size() == lower.size() && startsWithNoCase(text, lower);
}

int indentPixels(Logger::LoggedItem const& row) { return row.indent * UifStd::getRowHeight(); }

// `box` is the cell's text box: the cell less its margins.
void drawDivider(CanvasRenderer& renderer, Zo::Box<double> const& box, Logger::LoggedItem const& row,
                 Glib::FontDesc const& font, Palette const& palette) {
  int const gap = UifStd::getWidgetGap();
  double const middle = std::round((box.y0 + box.y1) / 2.0) + 0.5;
  if (row.text.empty()) {
    Colour const colour = Colour::mix(palette.text(0), palette.window(), 0.2);
    renderer.renderPrimitive(Glib::LineDescription(XY<double>(box.x0 + indentPixels(row), middle),
                                                   XY<double>(box.x1 - gap, middle), 1.0, colour));
    return;
  }
  Glib::TextDescription text(row.text, Zo::Box<double>(box.x0 + indentPixels(row), box.y0, box.x1, box.y1), font,
                             row.fg);
  renderer.renderPrimitive(text);
  double const textEnd = text.calcBounds().x1;
  Colour const colour = Colour::mix(palette.subheadingText(), palette.window(), 0.2);
  if (textEnd + gap < box.x1 - gap)
    renderer.renderPrimitive(
        Glib::LineDescription(XY<double>(textEnd + gap, middle), XY<double>(box.x1 - gap, middle), 1.0, colour));
}

} // namespace

void LogItemField::drawField(CellContext& context, CellData const& data) {
  Logger::LoggedItem const* row = rowOf(logger_, context.pos.y);
  if (!context.renderer || !row)
    return;
  CanvasRenderer& renderer = *context.renderer;
  Glib::FontDesc const font = fontOf(data);
  Zo::Box<double> box = textBox(context, data);
  if (row->type == LoggerBase::kOutputDivider) {
    drawDivider(renderer, box, *row, font, data.palette);
    return;
  }
  if (row->text.empty())
    return;
  box.x0 += indentPixels(*row);
  if (row->numDisplayLines > 1) {
    Zo::Box<int> const area(static_cast<int>(box.x0), context.box.y0, static_cast<int>(box.x1), context.box.y1);
    HTMLRenderer::render(renderer, Logger::paragraphsOf(*row), area, UifStd::getRowHeight(), font);
    return;
  }
  Glib::TextDescription text(data.text.getString(), box, font, row->fg);
  renderer.renderPrimitive(text);
  if (row->type == LoggerBase::kOutputHyperLink) {
    Zo::Box<double> const bounds = text.calcBounds();
    double const underline = bounds.y0 + 1.0;
    renderer.renderPrimitive(Glib::LineDescription(XY<double>(bounds.x0, underline),
                                                   XY<double>(std::min(bounds.x1, box.x1), underline), 1.0, row->fg));
  }
}

bool LogItemField::handleEvent(CellContext const& context, CellData const&, Event const& event) {
  Logger::LoggedItem const* row = rowOf(logger_, context.pos.y);
  if (!row || row->type != LoggerBase::kOutputHyperLink || event.type != Event::kMouseUp || !mouse_left_event(event))
    return false;
  visitLink(LoggerBase::HyperLink::fromString(row->text));
  return true;
}

int LogItemField::contextCursor(CellContext const& context, CellData const&, XY<int> const&) const {
  Logger::LoggedItem const* row = rowOf(logger_, context.pos.y);
  return row && row->type == LoggerBase::kOutputHyperLink ? kCursorHand : kCursorArrow;
}

void LogItemField::visitLink(LoggerBase::HyperLink const& link) {
  if (link.empty())
    return;
  LightweightString<wchar_t> const& first = link.targets().front();
  if (!link.isInternal()) {
    LightweightString<wchar_t> const extension = getExtension(first);
    if (equalsNoCase(extension.view(), L"html") || equalsNoCase(extension.view(), L"edl") ||
        startsWithNoCase(first.view(), L"http:") || startsWithNoCase(first.view(), L"https:") ||
        startsWithNoCase(first.view(), L"www."))
      Glib::viewDocument(first);
    else
      Glib::revealFiles(link.targets());
    return;
  }
  Zo::Ptr<JSON::Element> const action = JSON::parse(first);
  if (!action || !action->hasString("type"))
    return;
  GlobCreationInfo info;
  info.className = action->getString("type");
  info.screenPosition = glib_getMousePos();
  if (info.className.empty())
    return;
  if (Zo::Ptr<JSON::Element> const params = action->getChild("params"))
    for (unsigned short i = 0; i < params->getNumStringAttribs(); ++i)
      info.config.set(params->getStringAttribName(i), params->getWStringAttrib(i));
  GlobManager::createGlob(info);
}

Zo::Box<int> LogItemHTMLField::areaOf(CellContext const& context, CellData const& data) const {
  Logger::LoggedItem const* row = rowOf(logger_, context.pos.y);
  CellData shifted = data;
  if (row)
    shifted.leftOffset = indentPixels(*row);
  Zo::Box<double> const text = textBox(context, shifted);
  return Zo::Box<int>(static_cast<int>(text.x0), context.box.y0, static_cast<int>(text.x1), context.box.y1);
}

void LogItemHTMLField::drawField(CellContext& context, CellData const& data) {
  Logger::LoggedItem const* row = rowOf(logger_, context.pos.y);
  if (!context.renderer || !row || !row->htmlLines)
    return;
  HTMLRenderer::render(*context.renderer, *row->htmlLines, areaOf(context, data), UifStd::getRowHeight(), fontOf(data));
}

LightweightString<wchar_t> LogItemHTMLField::linkAtPoint(CellContext const& context, CellData const& data,
                                                         XY<int> point) const {
  Logger::LoggedItem const* row = rowOf(logger_, context.pos.y);
  Zo::Box<int> const area = areaOf(context, data);
  if (!row || !row->htmlLines || point.x < area.x0 || point.x >= area.x1 || point.y < area.y0 || point.y >= area.y1)
    return {};
  return HTMLRenderer::linkAt(*row->htmlLines, area.width(), UifStd::getRowHeight(), point.x - area.x0,
                              area.y1 - 1 - point.y, fontOf(data));
}

bool LogItemHTMLField::handleEvent(CellContext const& context, CellData const& data, Event const& event) {
  if (event.type != Event::kMouseUp || !mouse_left_event(event) || !context.table)
    return false;
  LightweightString<wchar_t> const link = linkAtPoint(context, data, event.position);
  if (link.empty())
    return false;
  std::string const message = std::string(kLinkClickedMsg) + "=" + link.toUTF8().str();
  Glob::sendMsg(logger_, LightweightString<char>(message.c_str()), context.table);
  return true;
}

int LogItemHTMLField::contextCursor(CellContext const& context, CellData const& data, XY<int> const& point) const {
  return linkAtPoint(context, data, point).empty() ? kCursorArrow : kCursorHand;
}
