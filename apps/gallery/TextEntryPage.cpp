// One-line text entry: plain, titled, numeric, read-only and password boxes.
#include "GalleryModel.h"
#include "PageLayout.h"

#include <zowidgets/host/widgets/panels/TitleGlob.h>
#include <zowidgets/host/widgets/text/NumericTextBox.h>
#include <zowidgets/host/widgets/text/TextBox.h>
#include <zowidgets/host/widgets/text/TitleTextBox.h>

namespace {

using WString = LightweightString<wchar_t>;

TitleTextBox::InitArgs titled(XY<int> size, UIString const& title, int titleWidth) {
  TitleTextBox::InitArgs args{GlobCreationInfo(size)};
  args.title = title;
  args.titleWidth = titleWidth;
  return args;
}

Glob* buildTextEntryPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  int const width = m.row * 16;
  int const titleWidth = m.row * 5;
  XY<int> const size(width, m.row);
  StandardPanel* panel = openPageWindow(context, XY<int>(width + 2 * m.gap, 6 * m.row + 7 * m.rowGap), L"Text entry");

  // Both name boxes edit one value: Return in either updates the other.
  auto* name = bindTo<WString>(
      panel->createWidget<TitleTextBox>(titled(size, L"Clip name", titleWidth), Glob::UserTopLeft(m.gap, m.rowGap)),
      context.model.clipName);
  TitleTextBox::InitArgs mirror = titled(size, L"Same name", titleWidth);
  bindTo<WString>(panel->createWidget<TitleTextBox>(mirror, Glob::Below(m.rowGap, name)), context.model.clipName);

  TitleTextBox::InitArgs search = titled(size, L"Search", titleWidth);
  search.ghostLabel = L"Type to search clips";
  panel->createWidget<TitleTextBox>(search, Glob::Below(m.rowGap));

  TitleGlob::InitArgs gainRow(size);
  gainRow.legend = L"Gain (0 to 1)";
  auto* row = panel->createWidget<TitleGlob>(gainRow, Glob::Below(m.rowGap));
  auto* gain = bindTo<WString>(
      new NumericTextBox(TextBox::InitArgs(GlobCreationInfo(XY<int>(width - titleWidth, m.row)))), context.model.gain);
  gain->setValueRange(0.0, 1.0);
  row->setChildGlob(gain);

  TitleTextBox::InitArgs readOnly = titled(size, L"Read only", titleWidth);
  readOnly.editable = false;
  panel->createWidget<TitleTextBox>(readOnly, Glob::Below(m.rowGap))->setString(L"Shot on camera B");

  auto* password =
      bindTo<WString>(panel->createWidget<TitleTextBox>(titled(size, L"Password", titleWidth), Glob::Below(m.rowGap)),
                      context.model.password);
  password->setObfuscatedDisplay(true);
  password->setShowPasswordControl(true);
  return panel;
}

PageRegistrar const textEntryPage{"text-entry", "Text entry",
                                  "Titled text boxes sharing one value, ghost text, a numeric box kept between 0 and "
                                  "1, a read-only box and a password box with its eye",
                                  buildTextEntryPage};

} // namespace
