#pragma once

#include <zowidgets/host/widgets/panels/StandardPanel.h>

class FactoryGlobWrapper;

// A titled panel showing one widget made by class name: a
// FactoryGlobWrapper filling the user area. The panel's title is the
// title of its InitArgs; its minimum size fits the widget's.
class ZO_API FactoryGlobWrapperPanel : public StandardPanel {
public:
  struct InitArgs : StandardPanel::InitArgs {
    InitArgs() = default;
    InitArgs(XY<int> size, LightweightString<char> typeName, UIString const& panelTitle, configb widgetConfig = {})
        : StandardPanel::InitArgs(size), typeName(std::move(typeName)), widgetConfig(std::move(widgetConfig)) {
      title = panelTitle;
    }
    LightweightString<char> typeName; // a class registered with GlobManager
    configb widgetConfig;             // the saved settings the widget is made with
  };

  explicit FactoryGlobWrapperPanel(InitArgs const& args);
  char const* idstring() const override { return "FactoryGlobWrapperPanel"; }

  FactoryGlobWrapper* getWrapper() const noexcept { return wrapper_; }
  void resize(double width, double height) override;

protected:
  void drawBackground(CanvasRenderer& renderer) override;

private:
  FactoryGlobWrapper* wrapper_ = nullptr;
};
