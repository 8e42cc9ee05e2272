#include <zowidgets/host/widgets/text/TitleTextBox.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>

TitleTextBox::TitleTextBox(InitArgs const& args)
    : TextBoxBase(args), title_(args.title), titleWidth_(args.titleWidth) {}

void TitleTextBox::setTitle(UIString const& title) {
  title_ = title;
  invalidate();
}

int TitleTextBox::titleWidth() const {
  int const wanted = titleWidth_ > 0 ? titleWidth_ : UifStd::measure(title_).x + UifStd::getWidgetGap();
  return std::clamp(wanted, 0, width());
}

Zo::Box<int> TitleTextBox::getFieldBox() const { return Zo::Box<int>(titleWidth(), 0, width(), height()); }

void TitleTextBox::drawBackground(CanvasRenderer& renderer) {
  Palette const& palette = getPalette();
  renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(0, 0, width(), height()), palette.window()));
  if (!title_.empty()) {
    Zo::Box<double> const legend(0, 0, std::max(0, titleWidth() - UifStd::getWidgetGap()), height());
    // Dimmed with the field when inactive.
    Colour const text = isActive() ? palette.text() : Palette::inactive(palette.text(), palette.window());
    // A legend longer than its room ends in an ellipsis rather than a cut.
    Glib::TextDescription description(title_.getString(), legend, UifStd::getFont(), text);
    description.ellipsis = true;
    renderer.renderPrimitive(description);
  }
  TextBoxBase::drawBackground(renderer);
}
