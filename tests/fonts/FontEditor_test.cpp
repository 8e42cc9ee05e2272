#include "fonts/FontChooserTestSupport.h"

#include <zowidgets/fonts/FontEditor.h>
#include <zowidgets/fonts/FontText.h>
#include <zowidgets/host/shell/Preferences.h>
#include <zowidgets/host/toolkit/CursorCodes.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/lists/TableCellEditor.h>
#include <zowidgets/host/widgets/lists/TableWidget.h>
#include <zowidgets/host/widgets/popups/DropDownButtonBase.h>

#include <memory>
#include <set>
#include <vector>

namespace {

using namespace FontChooserInput;
using WString = LightweightString<wchar_t>;

constexpr int kFontField = 100;

// Titles' fonts, one a row, in their text form; the second column shows
// plain text, for comparing what a font cell draws.
class TitleFonts : public iTableAdaptor {
public:
  std::vector<UIString> fonts;
  std::vector<WString> plain;
  std::set<int> tagged;
  bool storing = true;
  int stores = 0;

  int getSize() override { return static_cast<int>(fonts.size()); }
  std::vector<TableColumnDescription> getColumnDefinitions() override {
    // Of one width, so that the two columns' cells compare pixel for pixel.
    int const width = UifStd::getRowHeight() * 7;
    return {TableColumnDescription(UIString(L"Font"), width), TableColumnDescription(UIString(L"Text"), width)};
  }
  CellData getCellData(XY<int> const& pos, Palette const& palette) override {
    CellData data;
    data.palette = palette;
    if (pos.x == 0) {
      data.fieldType = kFontField;
      data.text = fonts[static_cast<std::size_t>(pos.y)];
    } else {
      data.text = UIString(plain[static_cast<std::size_t>(pos.y)]);
    }
    return data;
  }
  bool getTag(int row) override { return tagged.count(row) != 0; }
  void setTags(int first, int last, bool tag) override {
    for (int row = std::min(first, last); row <= std::max(first, last); ++row)
      tag ? void(tagged.insert(row)) : void(tagged.erase(row));
  }
  int getNumTagged() override { return static_cast<int>(tagged.size()); }
  bool storeFieldText(CellContext& context, WString const& text) override {
    if (!storing)
      return false;
    ++stores;
    fonts[static_cast<std::size_t>(context.pos.y)] = UIString(text);
    return true;
  }
  FontDefinition fontAt(int row) const { return fontFromString(fonts[static_cast<std::size_t>(row)].getString()); }
};

struct FontEditorTest : HeadlessScreenTest {
  TitleFonts model;
  StandardPanel* window = nullptr;
  TableWidget* table = nullptr;
  FontEditor* editor = nullptr;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    model.fonts = {
        UIString(asString(fontNamed(kLiberationSans, 12.0f))), UIString(asString(fontNamed("DejaVu Serif", 30.0f))),
        UIString(asString(fontNamed(kLiberationMono, 9.0f))), UIString(asString(fontNamed("DejaVu Sans", 48.0f)))};
    model.plain = {L"Liberation Sans", L"DejaVu Serif", L"Liberation Mono", L"DejaVu Sans"};
    int const row = UifStd::getRowHeight();
    window = openPanel(XY<int>(row * 16, row * 8), XY<int>(100, 600));
    TableWidget::InitArgs args(GlobCreationInfo(XY<int>(row * 16, TableWidget::calcHeight(6))));
    args.adaptor = &model;
    table = window->createWidget<TableWidget>(args, Glob::UserTopLeft(0, 0));
    auto owned = std::make_unique<FontEditor>(kRecentKey);
    editor = owned.get();
    table->registerEditor(kFontField, std::move(owned));
    pump();
  }

  XY<int> centreOf(XY<int> cell) const {
    Zo::Box<int> const box = table->getCellBox(cell);
    return HeadlessInput::pointOn(*table, XY<int>((box.x0 + box.x1) / 2, (box.y0 + box.y1) / 2));
  }

  // The cell less the grid lines at its edges.
  Zo::Image::Surface shotOfCell(XY<int> cell) {
    Zo::Box<int> const box = table->getCellBox(cell);
    return screen().grab(Zo::Box<int>(box.x0 + 1, box.y0, box.x1 - 1, box.y1).translated(table->screenPosition()));
  }

  // Puts the keys on the table at a font cell, Return to edit it and Return
  // again on its button: the chooser opens by keys alone.
  void openChooserByKeys(int row, FontEditor::Widget*& button) {
    HeadlessInput::clickOn(*table);
    table->setCurPos(XY<int>(0, row), TableWidget::kQuiet);
    pump();
    HeadlessInput::key(kKeyReturn);
    pump();
    ASSERT_TRUE(table->isEditing());
    button = dynamic_cast<FontEditor::Widget*>(table->getEditWidget());
    ASSERT_NE(button, nullptr);
    HeadlessInput::key(kKeyReturn);
    pump();
    ASSERT_NE(button->getDropDownPanel(), nullptr) << "Return on the button opens the chooser";
  }

  // Double-clicks a font cell, clicks its button and picks a family.
  void chooseFamilyFor(int row, LightweightString<char> const& family) {
    HeadlessInput::doubleClick(centreOf(XY<int>(0, row)));
    pump();
    ASSERT_TRUE(table->isEditing());
    auto* button = dynamic_cast<FontEditor::Widget*>(table->getEditWidget());
    ASSERT_NE(button, nullptr);
    HeadlessInput::clickOn(*button);
    pump();
    FontChooserPanel* panel = button->getDropDownPanel();
    ASSERT_NE(panel, nullptr);
    typeFilter(*panel, family.c_str());
    ASSERT_TRUE(clickFamily(*panel, family));
    pump();
  }
};

TEST_F(FontEditorTest, ACellShowsItsFamilyNameAsPlainTextWould) {
  for (int row = 0; row < 4; ++row) {
    Zo::Image::Surface const font = shotOfCell(XY<int>(0, row));
    Zo::Image::Surface const plain = shotOfCell(XY<int>(1, row));
    EXPECT_EQ(Zo::Image::Surface::maxChannelDifference(font, plain), 0) << row;
  }
  iTableAdaptor::CellData const data = model.getCellData(XY<int>(0, 3), table->getPalette());
  EXPECT_EQ(editor->measure(data, Glib::FontDesc()),
            editor->TableWidget::iCellEditor::measure(model.getCellData(XY<int>(1, 3), table->getPalette()),
                                                      Glib::FontDesc()));
}

TEST_F(FontEditorTest, AFamilyNameWithACommaShowsTheDefaultFont) {
  model.fonts[1] = UIString(L"0,16777215,0,12,Serif, Condensed");
  model.plain[1] = FontDefinition().name;
  table->redrawRows();
  pump();
  EXPECT_EQ(FontEditor::fontOfCell(model.getCellData(XY<int>(0, 1), table->getPalette())), FontDefinition());
  EXPECT_EQ(Zo::Image::Surface::maxChannelDifference(shotOfCell(XY<int>(0, 1)), shotOfCell(XY<int>(1, 1))), 0);
}

TEST_F(FontEditorTest, ACellWithAResourceIdTextParsesAsTheDefaultFont) {
  iTableAdaptor::CellData data;
  data.text = UIString(11670); // "Bold": a text, not a font
  EXPECT_EQ(FontEditor::fontOfCell(data), FontDefinition());
  data.text = UIString(11670, asString(fontNamed(kNotoMono)));
  EXPECT_EQ(FontEditor::fontOfCell(data), FontDefinition());
}

TEST_F(FontEditorTest, EditingShowsTheFamilyOnAButtonAndAChoiceWritesTheCell) {
  HeadlessInput::doubleClick(centreOf(XY<int>(0, 1)));
  pump();
  ASSERT_TRUE(table->isEditing());
  auto* button = dynamic_cast<FontEditor::Widget*>(table->getEditWidget());
  ASSERT_NE(button, nullptr);
  EXPECT_TRUE(button->isVisible());
  EXPECT_EQ(button->getLabel(), WString(L"DejaVu Serif"));
  EXPECT_EQ(button->getFont().family(), LightweightString<char>("DejaVu Serif"));
  EXPECT_EQ(editor->getFont(), fontNamed("DejaVu Serif", 30.0f));
  table->cancelEdit();
  // Away from the cell, so that a double click opens it as the first did.
  table->setCurPos(XY<int>(1, 3), TableWidget::kQuiet);

  chooseFamilyFor(1, kNotoMono);
  EXPECT_FALSE(table->isEditing());
  EXPECT_EQ(model.fontAt(1), fontNamed(kNotoMono, 30.0f));
  EXPECT_EQ(model.stores, 1);
  // The panel went with the edit; the family joined the recent fonts.
  pump();
  EXPECT_EQ(button->getDropDownPanel(), nullptr);
  EXPECT_EQ(prefs().getPreference(kRecentKey, L""), WString(L"Noto Mono"));
  model.plain[1] = L"Noto Mono";
  table->setCurPos(XY<int>(1, 3), TableWidget::kQuiet); // the current cell has an outline
  table->redrawRows();
  pump();
  EXPECT_EQ(Zo::Image::Surface::maxChannelDifference(shotOfCell(XY<int>(0, 1)), shotOfCell(XY<int>(1, 1))), 0);
}

TEST_F(FontEditorTest, EveryTaggedRowIsWrittenAtOnceEachKeepingItsSize) {
  HeadlessInput::click(centreOf(XY<int>(1, 1)), kMouseLeft, kKeyCtrl);
  HeadlessInput::click(centreOf(XY<int>(1, 3)), kMouseLeft, kKeyCtrl);
  pump();
  ASSERT_EQ(model.tagged, (std::set<int>{1, 3}));
  chooseFamilyFor(0, kLiberationMono);
  EXPECT_EQ(model.stores, 3);
  EXPECT_EQ(model.fontAt(0), fontNamed(kLiberationMono, 12.0f));
  EXPECT_EQ(model.fontAt(1), fontNamed(kLiberationMono, 30.0f));
  EXPECT_EQ(model.fontAt(2), fontNamed(kLiberationMono, 9.0f)); // untagged, and already this family
  EXPECT_EQ(model.fontAt(3), fontNamed(kLiberationMono, 48.0f));
}

TEST_F(FontEditorTest, StyleAndColoursGoAcrossTheRowsToo) {
  model.tagged = {2};
  model.fonts[2] = UIString(L"255,0,2,9,Liberation Mono");
  editor->getWidget(table);
  iTableAdaptor::CellContext context;
  context.table = table;
  context.adaptor = &model;
  context.pos = XY<int>(0, 0);
  editor->initWidgetFromData(context, model.getCellData(context.pos, table->getPalette()));
  EXPECT_EQ(editor->storeData(context), 2);
  EXPECT_EQ(model.fontAt(2), fontNamed(kLiberationSans, 9.0f));
}

TEST_F(FontEditorTest, AModelThatStoresNothingCountsNoRowWritten) {
  model.storing = false;
  model.tagged = {2, 3};
  chooseFamilyFor(0, kNotoMono);
  EXPECT_EQ(model.stores, 0);
  EXPECT_EQ(model.fontAt(0), fontNamed(kLiberationSans, 12.0f));
  EXPECT_FALSE(table->isEditing());
}

TEST_F(FontEditorTest, ThePointerIsAHandOverCellsThatCanBeEdited) {
  iTableAdaptor::CellContext const context;
  iTableAdaptor::CellData data = model.getCellData(XY<int>(0, 0), table->getPalette());
  EXPECT_EQ(editor->contextCursor(context, data, XY<int>()), kCursorHand);
  data.readOnly = true;
  EXPECT_EQ(editor->contextCursor(context, data, XY<int>()), kCursorArrow);
}

TEST_F(FontEditorTest, ByKeysAloneTheChooserTakesTypingAndGoesWithTheEdit) {
  FontEditor::Widget* button = nullptr;
  ASSERT_NO_FATAL_FAILURE(openChooserByKeys(1, button));
  FontChooserPanel* panel = button->getDropDownPanel();
  HeadlessInput::typeText("noto m");
  pump();
  EXPECT_EQ(panel->getFilter()->getString(), WString(L"noto m")) << "typing goes to the filter at once";
  IdStamp const stamp = EventHandler::stampOf(panel);
  HeadlessInput::key(kKeyDown);
  pump();
  EXPECT_FALSE(table->isEditing()) << "a family reached is a change, which ends the edit";
  EXPECT_EQ(model.fontAt(1).name.toUTF8().str().rfind("Noto M", 0), 0u) << model.fontAt(1).name.toUTF8().str();
  EXPECT_FALSE(EventHandler::valid(panel, stamp)) << "the chooser went with the edit";
}

TEST_F(FontEditorTest, AChooserOpenedByKeysGoesWithTheEditWhenAFamilyIsReachedFromTheFilterClickedInto) {
  FontEditor::Widget* button = nullptr;
  ASSERT_NO_FATAL_FAILURE(openChooserByKeys(1, button));
  FontChooserPanel* panel = button->getDropDownPanel();
  IdStamp const stamp = EventHandler::stampOf(panel);
  typeFilter(*panel, "liberation");
  pump();
  HeadlessInput::key(kKeyDown);
  pump();
  EXPECT_FALSE(table->isEditing());
  EXPECT_EQ(model.fontAt(1).name.toUTF8().str().rfind("Liberation", 0), 0u) << model.fontAt(1).name.toUTF8().str();
  EXPECT_FALSE(EventHandler::valid(panel, stamp)) << "the chooser went with the edit";
  EXPECT_EQ(get_kbd_focus(), table) << "the keys go back to the table, not to the hidden button";
  HeadlessInput::key(kKeyDown);
  pump();
  EXPECT_EQ(button->getDropDownPanel(), nullptr) << "Down opens no chooser for an edit that has ended";
  EXPECT_EQ(table->getCurPos(), XY<int>(0, 2)) << "Down moves on in the table";
}

TEST_F(FontEditorTest, OnlyItsOwnMessageEndsTheEdit) {
  EXPECT_TRUE(editor->isResponsibleForMessage(FontEditor::kChangedMsg, nullptr));
  EXPECT_FALSE(editor->isResponsibleForMessage("WStringEntered", nullptr));
}

} // namespace
