#pragma once

#include <zowidgets/host/base/LoggerBase.h>
#include <zowidgets/host/widgets/lists/HTMLStringEditor.h>
#include <zowidgets/host/widgets/lists/ReadOnlyCellEditor.h>

class Logger;

// Draws a plain log row: wrapped text, a divider rule, or a link that a
// click opens. Rows are only read, never edited.
class ZO_API LogItemField : public ReadOnlyCellEditor {
public:
  explicit LogItemField(Logger* logger) : logger_(logger) {}

  void drawField(CellContext& context, CellData const& data) override;
  bool handleEvent(CellContext const& context, CellData const& data, Event const& event) override;
  int contextCursor(CellContext const& context, CellData const& data, XY<int> const& point) const override;

  // Opens a link: a web address or an HTML or EDL file in its program, any
  // other file shown in its folder, an internal link's panel made.
  static void visitLink(LoggerBase::HyperLink const& link);

private:
  Logger* logger_;
};

// Draws a row of HTML, wrapped one display line per row height and moved
// right by the row's indent; a click on a link goes to the logger.
class ZO_API LogItemHTMLField : public HTMLStringEditor {
public:
  explicit LogItemHTMLField(Logger* logger) : logger_(logger) {}

  void drawField(CellContext& context, CellData const& data) override;
  bool handleEvent(CellContext const& context, CellData const& data, Event const& event) override;
  int contextCursor(CellContext const& context, CellData const& data, XY<int> const& point) const override;

private:
  LightweightString<wchar_t> linkAtPoint(CellContext const& context, CellData const& data, XY<int> point) const;
  Zo::Box<int> areaOf(CellContext const& context, CellData const& data) const;

  Logger* logger_;
};
