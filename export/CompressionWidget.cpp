#include <zowidgets/export/CompressionWidget.h>

#include <zowidgets/export/FileWriterInfo.h>
#include <zowidgets/host/toolkit/Drawable.h>
#include <zowidgets/host/toolkit/UifStd.h>

namespace {

StandardPanel::InitArgs withoutFrame(CompressionWidget::InitArgs const& args) {
  StandardPanel::InitArgs panel(args);
  panel.setBorder(Border(0, 0, 0));
  panel.size.y = UifStd::getRowHeight();
  return panel;
}

} // namespace

CompressionWidget::CompressionWidget(InitArgs const& args)
    : StandardPanel(withoutFrame(args)), fileType_(args.fileType), listener_(args.listener) {
  CompressionFormatButton::InitArgs buttonArgs(args.usage, static_cast<unsigned short>(std::max(1, width())),
                                               static_cast<unsigned short>(UifStd::getRowHeight()));
  formatButton_ = createWidget<CompressionFormatButton>(buttonArgs, UserTopLeft(0, 0));
}

void CompressionWidget::setCompressionFormat(VideoCompressionInfo const& info,
                                             VectorExt<Zo::Image::Format> const& formats) {
  info_ = info;
  formatButton_->setCompressionFormat(info_, formats);
  // A format the list lacks (one remembered for another file type) gives
  // way to the replacement the format button picks when the type changes,
  // so that the widget never holds a format it does not show.
  if (!info_.compression.code.isNone() && !formats.contains(info_.compression.code)) {
    formatButton_->setSelected(info_.compression, info_);
    info_.compression = formats.empty() ? CompressionFormat() : formatButton_->getLastSelected();
  }
  if (!info_.compression.code.isNone()) {
    handleCompressionChange();
    return;
  }
  removeCompressionSpecificWidgets();
  resize(width(), height());
  notifyResized();
}

void CompressionWidget::removeCompressionSpecificWidgets() {
  if (builtParams_)
    for (auto const& [id, row] : builtParams_->getWidgets())
      if (isChildGlob(row))
        removeWidget(row);
  builtParams_ = nullptr;
  params_ = GenericParam::ParamList();
}

void CompressionWidget::createCompressionSpecificWidgets() {
  Drawable::Suspender holdRedraws;
  removeCompressionSpecificWidgets();
  params_ = Zo::FileWriterInfo::getEncodeOptions(fileType_, info_);
  configb& options = info_.compression.options;
  GenericParam::validateState(params_, options);
  UIBuilder builder(this);
  builder.setStartPosition(Below(UifStd::getRowGap(), formatButton_));
  builtParams_ = builder.build(params_, options);
  builtParams_->addListener(Zo::Ptr<iCallbackBase<int, NotifyMsg>>(
      new MethodCallback<CompressionWidget, NotifyMsg, int>(this, &CompressionWidget::handleParameterChange)));
}

VideoCompressionInfo CompressionWidget::getVideoCompressionInfo() const {
  VideoCompressionInfo info = info_;
  // Written out when asked rather than at every build: the rows of a format
  // set by the program hold only the stored values and the defaults.
  if (!params_.empty()) {
    info.compression.options.clear();
    GenericParam::saveState(params_, info.compression.options);
  }
  return info;
}

void CompressionWidget::handleCompressionChange() {
  createCompressionSpecificWidgets();
  resize(width(), height());
  notifyResized();
}

int CompressionWidget::contentHeight() const {
  int const rowHeight = UifStd::getRowHeight();
  if (!builtParams_)
    return rowHeight;
  return UifStd::getRowGap() + builtParams_->calcHeight() + rowHeight;
}

void CompressionWidget::resize(double width, double /*height: the content decides*/) {
  if (builtParams_)
    for (auto const& [id, row] : builtParams_->getWidgets())
      row->resize(width, row->height());
  if (formatButton_)
    formatButton_->resize(width, formatButton_->height());
  StandardPanel::resize(width, contentHeight());
}

void CompressionWidget::handleChildResize(Glob* child) {
  StandardPanel::handleChildResize(child);
  resize(width(), height());
}

int CompressionWidget::handleMessageEvent(LightweightString<char> const& message, Glob* sender) {
  if (message != CompressionFormatButton::CompressionFormatChangedMsg)
    return StandardPanel::handleMessageEvent(message, sender);
  info_.compression.code = formatButton_->getCompressionFormat().code;
  // Options of one format mean nothing to another.
  info_.compression.options = configb();
  handleCompressionChange();
  informListener();
  return 1;
}

int CompressionWidget::handleParameterChange(NotifyMsg const&) {
  informListener();
  return 0;
}

void CompressionWidget::informListener() {
  if (builtParams_)
    builtParams_->saveState(info_.compression.options);
  if (listener_)
    listener_->execute(NotifyMsg(kChangedMsg, Zo::Ptr<iObject>(new Event(info_))));
}
