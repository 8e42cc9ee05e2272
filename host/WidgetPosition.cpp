#include <zowidgets/host/WidgetPosition.h>

WidgetSurround WidgetSurround::on(eWidgetRelativity side, int gap) {
  WidgetSurround s;
  switch (side) {
  case kRelativeLeft:
    s.left = gap;
    break;
  case kRelativeRight:
    s.right = gap;
    break;
  case kRelativeAbove:
    s.top = gap;
    break;
  case kRelativeBelow:
    s.bottom = gap;
    break;
  case kRelativeNone:
    break;
  }
  return s;
}

Border::Border(int type, int thickness, int margin)
    : type_(type < 0 || type > kLastBorderType ? 0 : type), thickness_(thickness < 0 ? 0 : thickness) {
  int edge = thickness_ + (margin < 0 ? 0 : margin);
  left_ = right_ = top_ = bottom_ = edge;
}

void Border::setMargins(int left, int right, int top, int bottom) {
  left_ = left;
  right_ = right;
  top_ = top;
  bottom_ = bottom;
}

int Border::calcMarginSize(int sides) const noexcept {
  return ((sides & 1) ? left_ : 0) + ((sides & 2) ? right_ : 0) + ((sides & 4) ? top_ : 0) +
         ((sides & 8) ? bottom_ : 0);
}
