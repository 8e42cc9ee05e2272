#pragma once

#include <zowidgets/builder/UIBuilderParams.h>
#include <zowidgets/containers/DropDownButton2.h>

// The rows of a list of option parameters, for a drop-down. With saved
// state it shows those values.
class ZO_API CompressionSettingsPanel : public StandardPanel {
public:
  struct InitArgs : StandardPanel::InitArgs {
    InitArgs() = default;
    // Sized to the rows of `params`.
    InitArgs(GenericParam::ParamList params, configb* state = nullptr);
    GenericParam::ParamList params;
    configb* state = nullptr; // not owned; read at each display
  };

  explicit CompressionSettingsPanel(InitArgs const& args);
  char const* idstring() const override { return "CompressionSettingsPanel"; }
  UIBuilder::Params* getBuiltParams() const noexcept { return builtParams_.get(); }

private:
  Zo::Ptr<UIBuilder::Params> builtParams_;
  configb* state_;
};

// A small button with a settings icon that drops down a parameter list.
class ZO_API CompressionSettingsButton : public DropDownButton2<CompressionSettingsPanel> {
public:
  struct InitArgs : DropDownButton2<CompressionSettingsPanel>::InitArgs {
    InitArgs() = default;
    InitArgs(XY<int> size, CompressionSettingsPanel::InitArgs const& panel)
        : DropDownButton2<CompressionSettingsPanel>::InitArgs(UIString(), size, panel) {}
  };

  explicit CompressionSettingsButton(InitArgs const& args);
  char const* idstring() const override { return "CompressionSettingsButton"; }
};
