#pragma once

#include <zowidgets/containers/DropDownMessages.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>
#include <zowidgets/values/binding/ColourDataValue.h>
#include <zowidgets/values/notify/Broadcaster.h>

class ComponentTextBox;
class HSColourWheel;
class Slider;
class WidgetGroup2;
class colourEyeDropper;

// What a colour picker tells its listeners: the user changed the colour.
struct ColourPickerEvent {
  enum eKind : int { kColourChanged = 0 };
  int kind = kColourChanged;
  ColourData colour;
};

// A panel for editing one colour: red, green and blue rows with sliders, a
// hex box, hue, saturation and value boxes beside a hue-saturation wheel with
// a brightness slider, an eye dropper, and optionally an alpha row. Every
// part is bound to one colour the panel holds, so an edit anywhere shows
// everywhere. A user's edit goes out through the panel's data adaptor, if it
// has one, and to its listeners; a colour from outside is only shown.
class ZO_API ColourPicker : public StandardPanel,
                            public Broadcaster<ColourPickerEvent>,
                            public ColourDataValWidget,
                            public ColourDataValClient {
public:
  // Mode bits: what takes part in activation and redraws.
  enum eFlags : unsigned {
    kUpdateWheel = 1, // the wheel is brought up to date when activated
    kHueControls = 2, // hue, saturation and value boxes, wheel, brightness
    kRGBControls = 4, // the red, green and blue rows
    kAlpha = 8,       // the alpha row exists
  };
  static constexpr unsigned kDefaultFlags = kUpdateWheel | kHueControls | kRGBControls;

  // What a drop-down panel tells its button when it goes.
  static constexpr char const* pootMsg = DropDownMsg::kPanelGone;

  struct InitArgs : GlobCreationInfo {
    InitArgs() : InitArgs(kDefaultFlags, ColourData()) {}
    // Sized for `flags` with calcSize.
    InitArgs(unsigned flags, ColourData const& colour);
    unsigned flags = kDefaultFlags;
    ColourData colour;
    Zo::Ptr<ValAdaptorBase<ColourData>> dataAdaptor;
    Broadcaster<ColourPickerEvent>::Callback callback;
  };

  explicit ColourPicker(InitArgs const& args);
  // A free-standing picker, starting on red (hue 1, full saturation and
  // value), opaque with an alpha row and fully transparent without one.
  ColourPicker(Palette const& palette, unsigned flags);
  char const* idstring() const override { return "ColourPicker"; }

  // The panel's outer size for these mode bits, and the sizes of its parts.
  static XY<int> calcSize(unsigned flags);
  static int calcColourWheelSize();
  static int calcHSVGroupHeight();
  static int calcTextBoxWidth();
  int calcSliderWidth() const;

  // The colour being edited. setColour changes it without telling anyone or
  // showing it.
  ColourData getColour() const;
  void setColour(ColourData const& colour);

  static Colour getSliderColour(ColourData::ComponentID component);
  static UIString getDisplayName(ColourData::ComponentID component);
  unsigned getFlags() const noexcept { return flags_; }

  // Brings the wheel's picture up to date now.
  void drawCurrent();
  // Repaints the sliders that take part under the mode bits.
  void drawBars();

  ComponentTextBox* getComponentBox(ColourData::ComponentID component) const;
  Slider* getComponentSlider(ColourData::ComponentID component) const;
  ComponentTextBox* getHexBox() const noexcept { return hexBox_; }
  // Hue, saturation and value boxes, by their HSV component.
  ComponentTextBox* getHueBox(int hsvComponent) const;
  Slider* getLightnessSlider() const noexcept { return lightnessSlider_; }
  HSColourWheel* getWheel() const noexcept { return wheel_; }
  WidgetGroup2* getRGBGroup() const noexcept { return rgbGroup_; }
  WidgetGroup2* getHSLGroup() const noexcept { return hslGroup_; }
  // Null without the alpha row.
  WidgetGroup2* getAlphaGroup() const noexcept { return alphaGroup_; }
  colourEyeDropper* getEyeDropper() const noexcept { return eyeDropper_; }

  // ValWidget: a colour from outside is shown, never sent back.
  void setNewWidgetValue(ColourData& colour, eRedrawFlag redraw) override;
  ColourData getWidgetValue() override { return getColour(); }
  void setEnabledState(bool enabled) override;
  bool getEnabledState() const override { return isActive(); }
  // ValClient: the panel's own widgets changed the colour.
  void valChangedNtfy() override;

  void setActive(bool active, eRedrawFlag redraw) override;
  // Takes the eye dropper's samples; the rest goes to the widget.
  int react(Event const& event) override;
  // Escape on the drop-down it lives in takes back the edits made there: the
  // colour it opened on goes out again, as an edit does.
  int handleMessageEvent(LightweightString<char> const& message, Glob* sender) override;

private:
  // The colour the panel holds; it can be assigned without telling anyone.
  class Server : public ValServer<ColourData> {
  public:
    using ValServer<ColourData>::ValServer;
    void notifyValChanged(DataChangeType type) override;
    void assignQuietly(ColourData const& colour);

  private:
    bool quiet_ = false;
  };

  void init();
  void addRGBRows();
  void addHSLControls();
  void addAlphaRow();
  void addEyeDropper();
  Slider* addSlider(Glob& group, Colour const& colour, Glob& beside);
  void applyActivity(bool active);
  // Sends a user's edit out, then tells the listeners.
  void setColour();
  void applyEyeDropperSample(LightweightString<char> const& message);

  Server server_;
  ColourData openingColour_;
  unsigned flags_;
  int writingOutward_ = 0;
  WidgetGroup2* rgbGroup_ = nullptr;
  WidgetGroup2* hslGroup_ = nullptr;
  WidgetGroup2* alphaGroup_ = nullptr;
  ComponentTextBox* rgbBoxes_[3] = {};
  Slider* rgbSliders_[3] = {};
  ComponentTextBox* hexBox_ = nullptr;
  ComponentTextBox* hsvBoxes_[3] = {};
  Slider* lightnessSlider_ = nullptr;
  HSColourWheel* wheel_ = nullptr;
  ComponentTextBox* alphaBox_ = nullptr;
  Slider* alphaSlider_ = nullptr;
  colourEyeDropper* eyeDropper_ = nullptr;
};
