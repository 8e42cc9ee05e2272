#include <zowidgets/images/AlphaChannelEditorPanel.h>

#include <zowidgets/host/base/ResourceStrings.h>
#include <zowidgets/host/drawing/ImageLoader.h>
#include <zowidgets/host/drawing/ImageSaver.h>
#include <zowidgets/host/shell/Command.h>
#include <zowidgets/host/shell/FilePaths.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/files/FileChooserWindow.h>
#include <zowidgets/host/widgets/popups/Tooltip.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace {

constexpr unsigned kStandardWidgets = StandardPanel::kPoot | StandardPanel::kPin;
constexpr int kOpenText = 10071;
constexpr int kSaveText = 10082;

CommandRegistrar const alphaEditorCommand(
    AlphaChannelEditorPanel::kCommand,
    [](Cmd::Context const& context) { GlobManager::placeBeside(AlphaChannelEditorPanel::create(), context.origin); },
    UIString(L"Alpha Channel Editor"),
    UIString(L"Opens Alphatron, which edits the alpha channel of a picture pixel by pixel"), kCmdScopeApplication,
    MapItem{});

int buttonHeight() { return UifStd::getRowHeight(); }
int scaled(int atScaleOne) { return static_cast<int>(atScaleOne * UifStd::getScale()); }
int buttonWidth() { return scaled(80); }

} // namespace

XY<int> AlphaChannelEditorPanel::calcSize() {
  int const gap = UifStd::getWidgetGap();
  XY<int> const userArea(scaled(400) + gap, scaled(260) + buttonHeight() + gap);
  return StandardPanel::calcPanelSize(userArea, kStandardWidgets, StandardPanel::getDefaultBorder());
}

AlphaChannelEditorPanel* AlphaChannelEditorPanel::create() {
  Drawable::Suspender const holdRedraws;
  XY<int> const size = calcSize();
  Glob::setupRootPos(nullptr, glib_getPosForPanel(nullptr, size));
  InitArgs args{GlobCreationInfo(size)};
  args.standardWidgets = kStandardWidgets;
  auto* panel = new AlphaChannelEditorPanel(args);
  GlobManager::realize(panel);
  return panel;
}

AlphaChannelEditorPanel::AlphaChannelEditorPanel(InitArgs const& args) : StandardPanel(args) {
  setBorder(getDefaultBorder());
  // A click anywhere in the panel gives it the keyboard, so that Control-O
  // and Control-S reach it whatever had the keyboard before.
  setCanBeIt(true);
  addStandardWidgets(kStandardWidgets);
  setTitle(UIString(L"Alphatron"), UifStd::getTitleFont(), kNoRedraw);
  int const gap = UifStd::getWidgetGap();
  openButton_ = createWidget<Button>(
      Button::InitArgs(UIString(ellipsisResourceStrW(kOpenText)), XY<int>(buttonWidth(), buttonHeight()), kOpenMsg),
      Glob::UserTopLeft(0, 0));
  saveButton_ = createWidget<Button>(
      Button::InitArgs(UIString(ellipsisResourceStrW(kSaveText)), XY<int>(buttonWidth(), buttonHeight()), kSaveMsg),
      Glob::RightOf(gap));
  // Saving is otherwise silent: this line says where the picture went.
  TextLabel::InitArgs report(GlobCreationInfo(XY<int>(saveReportWidth(), buttonHeight())));
  saveReport_ = createWidget<TextLabel>(report, Glob::RightOf(gap));
  XY<int> const side = viewSize();
  rgbView_ = createWidget<ImageEditorView>(InitArgs(GlobCreationInfo(side)), Glob::Below(gap, openButton_));
  alphaView_ = createWidget<ImageEditorView>(InitArgs(GlobCreationInfo(side)), Glob::RightOf(gap, rgbView_));
  rgbView_->addListener(
      Broadcaster<ImageEditorView::Event>::makeCallback(this, &AlphaChannelEditorPanel::handleRGBViewEvent));
  alphaView_->addListener(
      Broadcaster<ImageEditorView::Event>::makeCallback(this, &AlphaChannelEditorPanel::handleAlphaViewEvent));
}

// Each view takes half the user area's width, less the gap between them.
XY<int> AlphaChannelEditorPanel::viewSize() const {
  Zo::Box<int> const user = getUserArea();
  int const gap = UifStd::getWidgetGap();
  return XY<int>(std::max(1, (user.width() - gap) / 2), std::max(1, user.height() - buttonHeight() - gap));
}

// The rest of the top row, after the two buttons.
int AlphaChannelEditorPanel::saveReportWidth() const {
  int const gap = UifStd::getWidgetGap();
  return std::max(1, getUserArea().width() - 2 * (buttonWidth() + gap));
}

void AlphaChannelEditorPanel::resize(double newWidth, double newHeight) {
  StandardPanel::resize(newWidth, newHeight);
  if (!rgbView_)
    return;
  saveReport_->resize(saveReportWidth(), buttonHeight());
  XY<int> const side = viewSize();
  rgbView_->resize(side.x, side.y);
  alphaView_->resize(side.x, side.y);
}

bool AlphaChannelEditorPanel::openFile(LightweightString<wchar_t> const& path) {
  Zo::Image::Surface const picture = ZoImage::Loader::loadImage(path);
  if (picture.empty())
    return false;
  fileName_ = path;
  alphaView_->setImage(picture, ImageViewEx::kAlpha);
  rgbView_->setImage(picture, ImageViewEx::kColours);
  return true;
}

LightweightString<wchar_t> AlphaChannelEditorPanel::outputPath() const {
  return joinPaths(getPath(fileName_), LightweightString<wchar_t>::fromUTF8(kOutputName));
}

bool AlphaChannelEditorPanel::saveFile() {
  if (rgbView_->getImage().empty())
    return false;
  return ZoImage::Saver::saveImage(rgbView_->getImage(), outputPath());
}

// The line names the file, which a long folder would push off its end; the
// whole path is its tooltip.
void AlphaChannelEditorPanel::saveAndReport() {
  LightweightString<wchar_t> const name = LightweightString<wchar_t>::fromUTF8(kOutputName);
  LightweightString<wchar_t> text;
  LightweightString<wchar_t> where;
  if (rgbView_->getImage().empty()) {
    text = L"There is no picture to save: open one first.";
  } else if (saveFile()) {
    text = L"Saved as " + name + L".";
    where = outputPath();
  } else {
    int const error = errno;
    text = L"Could not save " + name + L": " + LightweightString<wchar_t>::fromUTF8(std::strerror(error)) + L".";
    where = outputPath();
  }
  saveReport_->setString(UIString(text));
  saveReport_->setContextString(TooltipDetails(UIString(where)));
}

void AlphaChannelEditorPanel::chooseFile() {
  if (chooser_) {
    LightweightString<wchar_t> const path = chooser_();
    if (!path.empty())
      openFile(path);
    return;
  }
  // The host's file browser, offering the pictures the loader reads; the
  // panel may be gone by the time a file is chosen.
  FileChooserWindow::InitArgs args(GlobCreationInfo(FileChooserWindow::defaultSize()));
  args.title = UIString(L"Choose an image");
  args.browser.extensions = ZoImage::Loader::getSupportedImageExtensions();
  IdStamp const stamp = EventHandler::stampOf(this);
  args.chosen = [this, stamp](LightweightString<wchar_t> const& path) {
    if (EventHandler::valid(this, stamp))
      openFile(path);
  };
  FileChooserWindow::open(args, this);
}

int AlphaChannelEditorPanel::handleMessageEvent(LightweightString<char> const& message, Glob* sender) {
  if (message == kOpenMsg) {
    chooseFile();
    return 1;
  }
  if (message == kSaveMsg) {
    saveAndReport();
    return 1;
  }
  return StandardPanel::handleMessageEvent(message, sender);
}

int AlphaChannelEditorPanel::handleKeyboardEvent(int key) {
  int const letter = key & ~kKeyCtrl;
  if ((key & kKeyCtrl) && (letter == 'O' || letter == 'o')) {
    chooseFile();
    return 1;
  }
  if ((key & kKeyCtrl) && (letter == 'S' || letter == 's')) {
    saveAndReport();
    return 1;
  }
  return StandardPanel::handleKeyboardEvent(key);
}

// Zoom and scroll pass to the other view; a pixel edit only needs it to
// redraw, since both hold the same pixels.
void AlphaChannelEditorPanel::follow(ImageEditorView* from, ImageEditorView* to, ImageEditorView::Event const& event) {
  if (event.kind == ImageEditorView::Event::kViewChanged) {
    to->setPixelSize(from->getPixelSize());
    to->setOffset(from->getOffset());
  }
  to->getView()->invalidate();
}

int AlphaChannelEditorPanel::handleRGBViewEvent(ImageEditorView::Event const& event) {
  follow(rgbView_, alphaView_, event);
  return 0;
}

int AlphaChannelEditorPanel::handleAlphaViewEvent(ImageEditorView::Event const& event) {
  follow(alphaView_, rgbView_, event);
  return 0;
}
