#pragma once

#include "QtApplication.h"
#include "SettingsPanelLook.h"

#include <QtGui/QColor>
#include <QtGui/QFont>
#include <QtGui/QFontInfo>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPen>

#include <cstdint>
#include <vector>

// The benchmark's settings panel painted with QPainter into an offscreen
// image of the panel's size, primitive for primitive as our widgets paint it:
// panel background, each row (background, label, track, knob, value box,
// number), then the raised border.
class QtSettingsPanel {
public:
  explicit QtSettingsPanel(Palette const& palette)
      : image_(SettingsPanelLook::panelSize().x, SettingsPanelLook::panelSize().y, QImage::Format_ARGB32_Premultiplied),
        window_(toQt(palette.window())), light_(toQt(palette.window(3))), dark_(toQt(palette.window(-3))),
        colours_(palette) {
    font_.setFamily(QStringLiteral("DejaVu Sans"));
    font_.setPixelSize(static_cast<int>(UifStd::getFont().size()));
    // Ours draws glyphs unhinted in grey.
    font_.setHintingPreference(QFont::PreferNoHinting);
    font_.setStyleStrategy(QFont::PreferAntialias);
    for (int row = 0; row < SettingsPanelLook::kRows; ++row) {
      labels_.push_back(QString::fromStdWString(SettingsPanelLook::label(row)));
      values_.push_back(QString::fromStdWString(SettingsPanelLook::valueText(row)));
    }
  }

  // False when Qt would draw the text in another font than ours.
  bool hasOurFont() const {
    QFontInfo const info(font_);
    return info.family() == QStringLiteral("DejaVu Sans") && info.pixelSize() == font_.pixelSize();
  }

  void paintAll() {
    QPainter painter(&image_);
    begin(painter);
    painter.fillRect(image_.rect(), window_);
    for (int row = 0; row < SettingsPanelLook::kRows; ++row)
      drawRow(painter, row);
    drawBorder(painter);
  }

  // Repaints one row's rectangle only: the panel's background under it, then
  // the row, clipped to it.
  void paintRow(int row) {
    QPainter painter(&image_);
    begin(painter);
    QRect const area = toQt(SettingsPanelLook::rowBox(row));
    painter.setClipRect(area);
    painter.fillRect(area, window_);
    drawRow(painter, row);
  }

  void fill(Colour const& colour) { image_.fill(toQt(colour)); }
  // The pixel at a bottom-up point of the panel, as 0xAARRGGBB.
  std::uint32_t pixel(XY<int> point) const { return image_.pixel(point.x, image_.height() - 1 - point.y); }

private:
  static QColor toQt(Colour const& colour) { return QColor::fromRgba(colour.get_vlib_colour()); }
  // A bottom-up box of the panel as the image's top-down rectangle.
  QRect toQt(Zo::Box<int> const& box) const {
    return QRect(box.x0, image_.height() - box.y1, box.width(), box.height());
  }

  void begin(QPainter& painter) const {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.setFont(font_);
  }

  void drawRow(QPainter& painter, int row) {
    using namespace SettingsPanelLook;
    Zo::Box<int> const rowArea = rowBox(row);
    XY<int> const origin(rowArea.x0, rowArea.y0);
    auto place = [&](Zo::Box<int> const& part) { return toQt(part.translated(origin)); };
    painter.fillRect(place(Zo::Box<int>(0, 0, rowArea.width(), rowArea.height())), window_);
    painter.setPen(toQt(colours_.label));
    painter.drawText(place(labelBox()), Qt::AlignLeft | Qt::AlignVCenter, labels_[row]);
    painter.fillRect(place(trackBox()), toQt(colours_.track));
    painter.setPen(Qt::NoPen);
    painter.setBrush(toQt(colours_.knob));
    painter.drawRoundedRect(QRectF(place(knobBox(row))), kKnobRadius, kKnobRadius);
    // A one-pixel pen centred half a pixel inside the edge, as ours draws
    // its outline inside the box.
    painter.setPen(QPen(toQt(colours_.valueOutline), 1.0));
    painter.setBrush(toQt(colours_.valueFill));
    painter.drawRect(QRectF(place(valueBox())).adjusted(0.5, 0.5, -0.5, -0.5));
    painter.setPen(toQt(colours_.valueText));
    painter.drawText(place(valueBox()), Qt::AlignCenter, values_[row]);
  }

  // The standard panel's raised border: light along the top and left, dark
  // along the bottom and right.
  void drawBorder(QPainter& painter) {
    int const w = image_.width(), h = image_.height(), t = SettingsPanelLook::border().thickness();
    painter.fillRect(toQt(Zo::Box<int>(0, h - t, w, h)), light_);
    painter.fillRect(toQt(Zo::Box<int>(0, 0, t, h - t)), light_);
    painter.fillRect(toQt(Zo::Box<int>(t, 0, w, t)), dark_);
    painter.fillRect(toQt(Zo::Box<int>(w - t, t, w, h - t)), dark_);
  }

  QImage image_;
  QFont font_;
  QColor window_;
  QColor light_;
  QColor dark_;
  SettingsPanelLook::RowColours colours_;
  std::vector<QString> labels_;
  std::vector<QString> values_;
};
