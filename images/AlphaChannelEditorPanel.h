#pragma once

#include <zowidgets/host/widgets/buttons/Button.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>
#include <zowidgets/images/ImageEditorView.h>

#include <functional>

// "Alphatron": touches up the alpha channel of a picture pixel by pixel. The
// picture shows twice side by side, its colours on the left and its alpha on
// the right; both views hold the same pixels, so an edit in the alpha view
// shows in both, and zooming or scrolling one moves the other with it. The
// result is saved as "AT-Output.png" beside the picture, never over it.
class TextLabel;

class ZO_API AlphaChannelEditorPanel : public StandardPanel {
public:
  static constexpr char const* kCommand = "Alpha Channel Editor";
  static constexpr char const* kOutputName = "AT-Output.png";
  static constexpr char const* kOpenMsg = "AlphatronOpen";
  static constexpr char const* kSaveMsg = "AlphatronSave";

  // Asks the user for a picture; an empty answer means none was chosen.
  using FileChooser = std::function<LightweightString<wchar_t>()>;

  explicit AlphaChannelEditorPanel(InitArgs const& args);
  char const* idstring() const override { return "AlphaChannelEditorPanel"; }
  // A new panel on the screen, ready for a picture.
  static AlphaChannelEditorPanel* create();
  static XY<int> calcSize();

  // What "Open" and Control-O ask for the file with, in place of the host's
  // file browser (which they open when no chooser is set).
  void setFileChooser(FileChooser chooser) { chooser_ = std::move(chooser); }
  // Loads the picture into both views; false, leaving the views as they
  // were, when it cannot be read.
  bool openFile(LightweightString<wchar_t> const& path);
  // Writes the picture to kOutputName in its folder; false without a
  // picture or when the file cannot be written.
  bool saveFile();
  LightweightString<wchar_t> const& getFileName() const noexcept { return fileName_; }
  LightweightString<wchar_t> outputPath() const;
  // The line beside the Save button where Save and Control-S say that the
  // picture was saved, or why it was not; its tooltip is the file's path.
  TextLabel* getSaveReport() const noexcept { return saveReport_; }

  ImageEditorView* getRGBView() const noexcept { return rgbView_; }
  ImageEditorView* getAlphaView() const noexcept { return alphaView_; }

  int handleMessageEvent(LightweightString<char> const& message, Glob* sender) override;
  int handleKeyboardEvent(int key) override;
  void resize(double width, double height) override;

private:
  int handleRGBViewEvent(ImageEditorView::Event const& event);
  int handleAlphaViewEvent(ImageEditorView::Event const& event);
  void follow(ImageEditorView* from, ImageEditorView* to, ImageEditorView::Event const& event);
  void chooseFile();
  // Saves, and says so in the save report.
  void saveAndReport();
  XY<int> viewSize() const;
  int saveReportWidth() const;

  Button* openButton_ = nullptr;
  Button* saveButton_ = nullptr;
  ImageEditorView* rgbView_ = nullptr;
  ImageEditorView* alphaView_ = nullptr;
  LightweightString<wchar_t> fileName_;
  FileChooser chooser_;
  TextLabel* saveReport_ = nullptr;
};
