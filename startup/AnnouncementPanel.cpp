#include <zowidgets/startup/AnnouncementPanel.h>

#include <zowidgets/host/drawing/Fonts.h>
#include <zowidgets/host/drawing/HTMLRenderer.h>
#include <zowidgets/host/drawing/ImageLoader.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/shell/OS.h>
#include <zowidgets/host/toolkit/CursorCodes.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/InputRouter.h>
#include <zowidgets/host/toolkit/MouseMove.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/Checkbox.h>
#include <zowidgets/host/widgets/text/LinkAwareMultiLineTextBox.h>
#include <zowidgets/host/widgets/values/ImageView.h>
#include <zowidgets/values/notify/Callback.h>

#include <algorithm>
#include <cmath>

namespace {

using WString = LightweightString<wchar_t>;

// A picture that opens its link when clicked; a drag that moved does not.
class Banner : public ImageView {
public:
  Banner(ImageView::InitArgs const& args, WString link) : ImageView(args), link(std::move(link)) {
    setDefaultMouseCursor(kCursorHand);
  }
  char const* idstring() const override { return "Banner"; }
  UIString getTooltip() const override { return UIString(link); }

  int react(Event const& event) override {
    if (event.type == Event::kMouseDown && mouse_left_event(event)) {
      pressedAt_ = event.position;
      pressed_ = true;
      return 1;
    }
    if (event.type == Event::kMouseUp && mouse_left_event(event)) {
      bool const click = pressed_ && !isMouseMoveSignificant(pressedAt_, event.position);
      pressed_ = false;
      if (click && !link.empty())
        OS().open(link);
      return 1;
    }
    return ImageView::react(event);
  }

  WString link;

private:
  XY<int> pressedAt_;
  bool pressed_ = false;
};

constexpr unsigned kTitled = StandardPanel::kTitle | StandardPanel::kPin;

Border announcementBorder(StartupMessage const& message, bool banner) {
  Border border(8, 0, 15);
  // No title bar, no top edge above the content.
  int const top = message.title.empty() ? 0 : border.top();
  // The checkbox of a news item that comes back sits in the bottom margin,
  // which grows to hold it (a banner keeps a footer of its own).
  int const bottom = message.isRecurring() && !banner
                         ? std::max(border.bottom(), UifStd::getRowHeight() + UifStd::getWidgetGap())
                         : border.bottom();
  // A banner's picture runs to the visible edge; its footer is its own.
  if (banner)
    border.setMargins(border.thickness(), border.thickness(), border.thickness(), border.thickness());
  else
    border.setMargins(border.left(), border.right(), top, bottom);
  return border;
}

// The displayed size of a news item's picture: at most ten rows wide, its
// proportions kept.
XY<int> pictureSize(Zo::Image::Surface const& image) {
  int const width = std::min(10 * UifStd::getRowHeight(), image.width());
  int const height = static_cast<int>(double(width) * image.height() / std::max(1, image.width()));
  return {width, height};
}

int textLines(std::vector<HTMLParagraph> const& paragraphs, int width) {
  return std::max(1, HTMLRenderer::calcNumDisplayLines(paragraphs, width));
}

} // namespace

AnnouncementPanel::InitArgs::InitArgs(StartupMessage const& given) : message(given) {
  if (!message.imagePath.empty())
    image = ZoImage::Loader::loadImage(message.imagePath);
  setBorder(announcementBorder(message, !image.empty() && isBanner(message)));
  title = UIString(message.title);
  size = calcSize();
}

XY<int> AnnouncementPanel::InitArgs::calcSize() const {
  std::vector<HTMLParagraph> const paragraphs = HTMLRenderer::parse(message.text.view(), Palette());
  int const maxWidth = static_cast<int>(std::ceil(HTMLRenderer::calcMaxWidth(paragraphs)));
  int const row = UifStd::getRowHeight();
  if (!image.empty() && isBanner(message)) {
    double const scale = UifStd::getScale() * 0.5;
    int const edge = 2 * border.thickness();
    return XY<int>(static_cast<int>(image.width() * scale) + edge,
                   static_cast<int>(image.height() * scale) + edge + calcFooterHeight());
  }
  // The text box keeps a widget gap round its text: the lines are counted
  // at the width inside it, and the gap is part of the height, so the text
  // the panel was sized for shows whole.
  int const margin = UifStd::getWidgetGap();
  auto textHeight = [&](int boxWidth) {
    return MultiLineTextBox::calcHeightForLines(textLines(paragraphs, boxWidth - 2 * margin), getDefaultFontSize(),
                                                margin);
  };
  XY<int> inner;
  if (image.empty()) {
    inner.x = 25 * row;
    inner.y = textHeight(inner.x);
  } else {
    XY<int> const picture = pictureSize(image);
    int const textWidth = std::min(16 * row, maxWidth);
    inner.x = picture.x + textWidth + 2 * margin;
    inner.y = std::max(picture.y, textHeight(inner.x - picture.x - margin));
  }
  return StandardPanel::calcPanelSize(inner, message.title.empty() ? kTitle : kTitled, border);
}

WString AnnouncementPanel::getBannerLink(StartupMessage const& message) {
  return message.text.view().starts_with(L"http") ? message.text : WString();
}

bool AnnouncementPanel::isBanner(StartupMessage const& message) { return !getBannerLink(message).empty(); }

int AnnouncementPanel::calcFooterHeight() {
  return UifStd::getWidgetGap() + StandardPanel::getDefaultBorder().calcMarginSize(8) + UifStd::getRowHeight();
}

AnnouncementPanel::AnnouncementPanel(InitArgs const& args) : StandardPanel(args), m_message(args.message) {
  Drawable::Suspender const holdRedraws;
  setResizable(false);
  addStandardWidgets(kTitle);
  if (!args.image.empty() && isBanner(m_message))
    addBanner(args);
  else if (!args.image.empty())
    addPictureAndText(args);
  else
    addText(nullptr);
  // Hears every press, to close when the user goes on elsewhere.
  m_pressListener = Glib::addMouseListener(Zo::Ptr<iCallbackBase<int, Event>>(
      new MethodCallback<AnnouncementPanel, Event, int>(this, &AnnouncementPanel::handlePressAnywhere)));
}

AnnouncementPanel::~AnnouncementPanel() {
  // Seen once, or asked not to be shown again.
  if (!m_message.isRecurring() || (m_dontShowAgain && m_dontShowAgain->isChecked()))
    m_message.markAsRead();
}

int AnnouncementPanel::handlePressAnywhere(Event const& event) {
  // Inside another panel, that panel decides when it goes.
  if (parent() || isPinned() || event.type != Event::kMouseDown)
    return 0;
  XY<int> const origin = screenPosition();
  XY<int> const local(event.screenPosition.x - origin.x, event.screenPosition.y - origin.y);
  if (!Zo::Box<int>(0, 0, width(), height()).contains(local))
    GlobManager::requestDeletion(this);
  return 0;
}

int AnnouncementPanel::handleKeyboardEvent(int key) {
  if (!parent() && (key & ~kKeyModifierMask) == kKeyEscape) {
    GlobManager::requestDeletion(this);
    return 1;
  }
  return StandardPanel::handleKeyboardEvent(key);
}

void AnnouncementPanel::addBanner(InitArgs const& args) {
  int const edge = getBorder().thickness();
  ImageView::InitArgs picture(XY<int>(width() - 2 * edge, height() - calcFooterHeight() - 2 * edge));
  picture.image = args.image;
  // Placements start inside the margins, which for a banner are the edge.
  addChild(new Banner(picture, getBannerLink(m_message)), TopLeft(0, 0));
  if (m_message.isRecurring())
    addDontShowAgain(calcFooterHeight());
}

void AnnouncementPanel::addPictureAndText(InitArgs const& args) {
  if (!m_message.title.empty()) {
    addStandardWidgets(kTitled);
    setTitle(UIString(m_message.title), UifStd::getTitleFont(), kNoRedraw);
  }
  ImageView::InitArgs picture(pictureSize(args.image));
  picture.image = args.image;
  Glob* view = createWidget<ImageView>(picture, UserTopLeft(0, 0));
  addText(view);
}

void AnnouncementPanel::addText(Glob* beside) {
  if (!beside && !m_message.title.empty()) {
    addStandardWidgets(kTitled);
    setTitle(UIString(m_message.title), UifStd::getTitleFont(), kNoRedraw);
  }
  Zo::Box<int> const user = getUserArea();
  int const gap = UifStd::getWidgetGap();
  int const left = beside ? beside->width() + gap : 0;
  LinkAwareMultiLineTextBox::InitArgs box(XY<int>(std::max(1, user.width() - left), user.height()));
  auto* text = createWidget<LinkAwareMultiLineTextBox>(box, beside ? RightOf(gap, beside) : UserTopLeft(0, 0));
  Palette const palette = getPalette();
  // A picture that did not load leaves a link shown as plain text.
  WString const html = HTMLRenderer::isHTML(m_message.text.view())
                           ? m_message.text
                           : HTMLRenderer::convertToHTML(m_message.text.view(), HTMLRenderer::kEscapeMarkup);
  text->setHTML(HTMLRenderer::parse(html.view(), palette));
  text->setMargins(UifStd::getWidgetGap());
  text->setPalette(makeWindowPalette(palette, scale(palette.window(0), 1.1)));
  if (m_message.isRecurring())
    addDontShowAgain(getBorder().bottom() - getBorder().thickness());
}

void AnnouncementPanel::addDontShowAgain(int room) {
  UIString const label(kDontShowAgainId);
  Checkbox::InitArgs box(label, XY<int>(Checkbox::calcWidth(label), UifStd::getRowHeight()));
  box.appearance = Checkbox::getDefaultAppearance();
  // Placements start inside the margins: the strip starts below them, at
  // the visible edge, and the box keeps a widget gap from the left edge.
  Border const& edges = getBorder();
  int const fromBottom = edges.thickness() + std::max(0, room - box.size.y) / 2;
  int const fromLeft = std::max(0, UifStd::getWidgetGap() - (edges.left() - edges.thickness()));
  m_dontShowAgain = createWidget<Checkbox>(box, BottomLeft(fromLeft, fromBottom - edges.bottom()));
}
