#include <zowidgets/fonts/FontEditor.h>

#include <zowidgets/fonts/FontLegend.h>
#include <zowidgets/fonts/FontText.h>
#include <zowidgets/host/base/NotifyMsgTypeDictionary.h>
#include <zowidgets/host/toolkit/CursorCodes.h>
#include <zowidgets/textentry/TextFilterWidget.h>

namespace {

// The editor's button: its chooser opens with the keyboard in the filter,
// as the font chooser button's does, so that a cell's font can be chosen by
// keys alone.
class FilterFirstButton : public FontEditor::Widget {
public:
  using FontEditor::Widget::Widget;

protected:
  Glob* generateDropDown() override {
    Glob* const shown = FontEditor::Widget::generateDropDown();
    if (auto* panel = dynamic_cast<FontChooserPanel*>(shown))
      panel->getFilter()->claimKbdFocus();
    return shown;
  }
};

} // namespace

FontEditor::FontEditor(LightweightString<char> const& recentFontsKey) : recentFontsKey_(recentFontsKey) {}

Glob* FontEditor::getWidget(Glob* parent) {
  if (Widget* live = liveWidget())
    return live;
  Widget::InitArgs args(UIString(), XY<int>(1, 1), FontChooserPanel::InitArgs(&font_, recentFontsKey_));
  args.setPalette(parent->getPalette());
  args.alignment = kAlignStart;
  Widget* button = new FilterFirstButton(args);
  if (!fontGuard_) {
    using Callback = iCallbackBase<int, ValServerEvent<FontDefinition>>;
    fontGuard_ = font_.addListener(Zo::Ptr<Callback>(new MethodCallback<FontEditor, ValServerEvent<FontDefinition>>(
                                       this, &FontEditor::handleFontChange)),
                                   NotifyMsgTypeDictionary::instance().anyType());
  }
  parent->addWidget(button);
  button->setVisible(false);
  setWidget(button);
  return button;
}

FontDefinition FontEditor::fontOfCell(CellData const& data) { return fontFromString(data.text.getString()); }

void FontEditor::initWidgetFromData(CellContext const&, CellData const& data) {
  Widget* button = liveWidget();
  if (!button)
    return;
  FontDefinition const font = fontOfCell(data);
  button->setPalette(data.palette);
  font_.assignQuietly(font);
  updateWidget(font);
}

void FontEditor::updateWidget(FontDefinition const& font) {
  if (Widget* button = liveWidget())
    showFontLegend(*button, font);
}

int FontEditor::handleFontChange(ValServerEvent<FontDefinition> const& event) {
  if (event.phase != ValServerEvent<FontDefinition>::kChanged)
    return 0;
  updateWidget(event.value);
  markChanged();
  if (Widget* button = liveWidget(); button && button->parent())
    Glob::sendMsg(button->parent(), kChangedMsg, button);
  return 0;
}

bool FontEditor::isResponsibleForMessage(LightweightString<char> const& message, Glob*) {
  return message == LightweightString<char>(kChangedMsg);
}

int FontEditor::storeData(CellContext& context) const {
  iTableAdaptor* adaptor = context.adaptor;
  if (!adaptor)
    return 0;
  Palette const palette = context.table ? context.table->getPalette() : Palette();
  FontDefinition const chosen = font_.get();
  int stored = 0;
  for (int row = 0, rows = adaptor->getSize(); row < rows; ++row) {
    if (row != context.pos.y && !adaptor->getTag(row))
      continue;
    CellContext rowContext = context;
    rowContext.pos.y = row;
    rowContext.isTagged = row != context.pos.y;
    FontDefinition font = fontOfCell(adaptor->getCellData(rowContext.pos, palette));
    // A change across rows never alters their sizes.
    font.name = chosen.name;
    font.style = chosen.style;
    font.fgColour = chosen.fgColour;
    font.bgColour = chosen.bgColour;
    if (adaptor->storeFieldText(rowContext, asString(font)))
      ++stored;
  }
  return stored;
}

void FontEditor::hide() {
  // The panel edits this cell only; it goes with the edit.
  if (Widget* button = liveWidget())
    button->removeMenuFromScreen();
  CellEditorBase::hide();
}

TableWidget::iCellEditor::CellData FontEditor::withFamilyName(CellData const& data) {
  CellData named = data;
  named.text = UIString(fontOfCell(data).name);
  return named;
}

void FontEditor::drawField(CellContext& context, CellData const& data) {
  TableWidget::iCellEditor::drawField(context, withFamilyName(data));
}

int FontEditor::contextCursor(CellContext const&, CellData const& data, XY<int> const&) const {
  return data.readOnly ? kCursorArrow : kCursorHand;
}

XY<int> FontEditor::measure(CellData const& data, Glib::FontDesc const& font) const {
  return TableWidget::iCellEditor::measure(withFamilyName(data), font);
}
