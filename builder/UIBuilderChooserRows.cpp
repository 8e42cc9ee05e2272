#include <zowidgets/builder/HostWidget.h>
#include <zowidgets/builder/TitledGlob.h>
#include <zowidgets/builder/detail/ColourAdaptor.h>
#include <zowidgets/builder/detail/TitledFileChooserButton.h>
#include <zowidgets/colour/DropDownColourPickerButton.h>
#include <zowidgets/fonts/TitledFontChooserButton.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/textentry/PasswordEntryBox.h>
#include <zowidgets/values/params/ColourParam.h>
#include <zowidgets/values/params/TextParams.h>

using namespace GenericParam;

namespace {

using TitledColourButton = TitledGlob<DropDownColourPickerButton>;

// A font row's client: a font parameter keeps the family alone, so the
// size, style and colours chosen in the panel go nowhere.
class FontSetter : public iCallbackBase<int, NotifyMsg> {
public:
  explicit FontSetter(Zo::Ptr<iParam> param) : param_(std::move(param)) {}
  int execute(NotifyMsg const& message) override {
    if (auto const* event = dynamic_cast<FontChooserButton::Event const*>(message.data().get()))
      param_->setValueFromString(event->font.name);
    return 0;
  }

private:
  Zo::Ptr<iParam> param_;
};

} // namespace

Glob* UIBuilder::makeColourWidget(Zo::Ptr<iParam> const& param, WidgetPosition const& position,
                                  WidgetSurround const& surround) {
  auto& colourParam = dynamic_cast<ColourParam&>(*param);
  int const buttonHeight = UifStd::getRowHeight() - 2 * UifStd::getIndentWidth();
  DropDownColourPickerButton::InitArgs buttonArgs(XY<int>(buttonHeight * 4, buttonHeight));
  TitledColourButton::InitArgs args(param->getLegend(), XY<int>(width_, UifStd::getRowHeight()), buttonArgs);
  args.id = "TitledColourButton";
  auto* row = createWidget<TitledColourButton>(args, isWidgetInitiallyVisible(param), position, surround);
  if (!row)
    return nullptr;
  DropDownColourPickerButton* button = row->getChild();
  button->setDropDownAlignment(kAlignEnd, kRelativeBelow);
  button->setColour(colourParam.getValue());
  button->setDataAdaptor(makeAdaptor<ColourAdaptor>(colourParam));
  finishRow(param, row);
  panel_->tabOrder().addTabStop(*button, kAppendTabStop);
  return row;
}

Glob* UIBuilder::makeFontWidget(Zo::Ptr<iParam> const& param, WidgetPosition const& position,
                                WidgetSurround const& surround) {
  FontDefinition font;
  font.name = param->getValueAsString();
  FontChooserButton::InitArgs buttonArgs(XY<int>(width_ * 2 / 3, 0), font);
  TitledFontChooserButton::InitArgs args(param->getLegend(), XY<int>(width_, UifStd::getRowHeight()), buttonArgs);
  auto* row = createWidget<TitledFontChooserButton>(args, isWidgetInitiallyVisible(param), position, surround);
  if (!row)
    return nullptr;
  FontChooserButton* button = row->getChild();
  button->setSelectedFont(font);
  button->setClientCallback(Zo::Ptr<iCallbackBase<int, NotifyMsg>>(new FontSetter(param)));
  finishRow(param, row);
  panel_->tabOrder().addTabStop(*button, kAppendTabStop);
  return row;
}

Glob* UIBuilder::makeFileWidget(Zo::Ptr<iParam> const& param, WidgetPosition const& position,
                                WidgetSurround const& surround) {
  auto& fileParam = dynamic_cast<FileParam&>(*param);
  TitledFileChooserButton::InitArgs args(param->getLegend(), XY<int>(width_, UifStd::getRowHeight()),
                                         param->getValueAsString());
  args.titleWidth = legendColumn(param->getLegend());
  auto* row = createWidget<TitledFileChooserButton>(args, isWidgetInitiallyVisible(param), position, surround);
  if (!row)
    return nullptr;
  row->setDataAdaptor(makeAdaptor<ValAdaptor<LightweightString<wchar_t>, LightweightString<wchar_t>>>(fileParam));
  finishRow(param, row);
  panel_->tabOrder().addTabStop(row->getBtn(), kAppendTabStop);
  return row;
}

Glob* UIBuilder::makePasswordWidget(Zo::Ptr<iParam> const& param, WidgetPosition const& position,
                                    WidgetSurround const& surround) {
  auto& textParam = dynamic_cast<TextParam&>(*param);
  PasswordEntryBox::InitArgs args(XY<int>(width_, UifStd::getRowHeight() + UifStd::getWidgetGap()));
  auto* box = createWidget<PasswordEntryBox>(args, isWidgetInitiallyVisible(param), position, surround);
  if (!box)
    return nullptr;
  box->setGhostLabel(param->getLegend());
  box->setShowPasswordActive((textParam.getFlags() & TextParam::kShowPasswordControl) != 0, kNoRedraw);
  box->setDataAdaptor(makeAdaptor<ValAdaptor<LightweightString<wchar_t>, LightweightString<wchar_t>>>(textParam));
  finishRow(param, box);
  panel_->tabOrder().addTabStops(*box, kAppendTabStop);
  return box;
}
