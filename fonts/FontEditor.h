#pragma once

#include <zowidgets/containers/DropDownButtonEx.h>
#include <zowidgets/fonts/FontChooserPanel.h>
#include <zowidgets/fonts/FontDefinitionServer.h>
#include <zowidgets/host/widgets/lists/CellEditorBase.h>

// The editor of a table's font column, whose cells hold fonts in their one
// line of text form (fonts/FontText.h). A cell not being edited shows its
// family's name; one being edited is a button showing the family in itself,
// which opens a FontChooserPanel. Each change in the panel ends the edit
// and is written at once to the edited row and to every tagged row: their
// family, style and colours become the chosen ones, each keeping its own
// size. The edit's end closes the panel. A cell whose text is not a font
// shows and edits the default font.
class ZO_API FontEditor : public CellEditorBase<DropDownButtonEx<FontChooserPanel>> {
public:
  using Widget = DropDownButtonEx<FontChooserPanel>;
  // What the editor's widget tells the table when the font has changed.
  static constexpr char const* kChangedMsg = "FontEditor";

  // Keeps the panel's recent fonts under `recentFontsKey` (empty: none).
  explicit FontEditor(LightweightString<char> const& recentFontsKey = {});

  Glob* getWidget(Glob* parent) override;
  int storeData(CellContext& context) const override;
  void initWidgetFromData(CellContext const& context, CellData const& data) override;
  void hide() override;
  bool isResponsibleForMessage(LightweightString<char> const& message, Glob* sender) override;
  void drawField(CellContext& context, CellData const& data) override;
  int contextCursor(CellContext const& context, CellData const& data, XY<int> const& point) const override;
  XY<int> measure(CellData const& data, Glib::FontDesc const& font) const override;

  // Shows the font on the widget.
  void updateWidget(FontDefinition const& font);
  FontDefinition getFont() const { return font_.get(); }
  // The font the cell's text describes.
  static FontDefinition fontOfCell(CellData const& data);

private:
  int handleFontChange(ValServerEvent<FontDefinition> const& event);
  // The data with the family's name for its text.
  static CellData withFamilyName(CellData const& data);

  LightweightString<char> recentFontsKey_;
  FontDefinitionServer font_;
  Zo::Ptr<Zo::Guard> fontGuard_;
};
