#pragma once

#include <zowidgets/builder/UIBuilderParams.h>
#include <zowidgets/export/CompressionFormatButton.h>

// A compression format button with the chosen format's options below it,
// built by the panel builder from the parameters the file writers give. The
// widget always takes the height of its content, and tells its owner of
// every change of format or option.
class ZO_API CompressionWidget : public StandardPanel {
public:
  // The notice to the owner: the compression as it now stands.
  struct Event : iObject {
    explicit Event(VideoCompressionInfo info) : info(std::move(info)) {}
    VideoCompressionInfo info;
  };
  static constexpr char const* kChangedMsg = "CompressionChanged";

  struct InitArgs : StandardPanel::InitArgs {
    InitArgs() = default;
    InitArgs(Compression::eUsage usage, unsigned short width) : usage(usage) { size = XY<int>(width, 0); }
    Compression::eUsage usage = Compression::kVideoExport;
    LightweightString<char> fileType;
    Zo::Ptr<iCallbackBase<int, NotifyMsg>> listener;
  };

  explicit CompressionWidget(InitArgs const& args);
  char const* idstring() const override { return "CompressionWidget"; }

  // Takes the shot, format and option values of `info`, offers `formats`,
  // and rebuilds the options; a code of -1 leaves the button alone. A code
  // that `formats` lacks is replaced as the format button replaces one when
  // the file type changes (by the shot's width, else the first format), its
  // options dropped; no listener is told, as for any value set by the
  // program, and getVideoCompressionInfo() answers the replacement.
  void setCompressionFormat(VideoCompressionInfo const& info, VectorExt<Zo::Image::Format> const& formats);
  // The options hold every row's value, the defaults included.
  VideoCompressionInfo getVideoCompressionInfo() const;
  void setFileType(LightweightString<char> const& fileType) { fileType_ = fileType; }
  LightweightString<char> const& getFileType() const noexcept { return fileType_; }
  void setListener(Zo::Ptr<iCallbackBase<int, NotifyMsg>> const& listener) { listener_ = listener; }

  CompressionFormatButton* getFormatButton() const noexcept { return formatButton_; }
  GenericParam::ParamList const& getParams() const noexcept { return params_; }
  UIBuilder::Params* getBuiltParams() const noexcept { return builtParams_.get(); }

  void resize(double width, double height) override;
  void handleChildResize(Glob* child) override;
  int handleMessageEvent(LightweightString<char> const& message, Glob* sender) override;

private:
  void createCompressionSpecificWidgets();
  void removeCompressionSpecificWidgets();
  void handleCompressionChange();
  void informListener();
  int handleParameterChange(NotifyMsg const& message);
  int contentHeight() const;

  CompressionFormatButton* formatButton_ = nullptr;
  VideoCompressionInfo info_;
  LightweightString<char> fileType_;
  GenericParam::ParamList params_;
  Zo::Ptr<UIBuilder::Params> builtParams_;
  Zo::Ptr<iCallbackBase<int, NotifyMsg>> listener_;
};
