// Building form panels of N rows: ours from a parameter list and from a JSON
// description, against Qt 5 building the same rows in a QFormLayout on its
// offscreen platform. A quarter of the rows each: a check box, a slider with
// a numeric box, a choice menu, a text box. "Build" is making the widgets and
// laying them out; "first paint" adds painting the whole panel once (our
// canvas; Qt's QWidget::grab()).
//
// After timing, each side is checked: the last row exists, sits where the
// layout put it, and (for paints) the picture has the panel's size.

#include "QtApplication.h"

#include <zowidgets/builder/UIBuilderParams.h>
#include <zowidgets/host/base/JSON.h>
#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/host/headless/HeadlessScreen.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/values/params/Params.h>

#include <QtGui/QPixmap>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QSlider>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QWidget>

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

namespace {

using namespace GenericParam;

int panelWidth() { return 18 * UifStd::getRowHeight(); }

std::vector<ChoiceParam::Choice> const& choices() {
  static std::vector<ChoiceParam::Choice> const list{
      {L"Fast", {}, 1, true}, {L"Balanced", {}, 2, true}, {L"Best", {}, 3, true}};
  return list;
}

ParamList makeParams(int rows) {
  ParamList params;
  for (int i = 0; i < rows; ++i) {
    std::string const id = std::string("p").append(std::to_string(i));
    switch (i % 4) {
    case 0:
      params.push_back(Zo::Ptr<iParam>(new BoolParam(L"Enabled", id.c_str(), {}, true)));
      break;
    case 1:
      params.push_back(Zo::Ptr<iParam>(new IntParam(L"Count", id.c_str(), {}, 25, 0, 100)));
      break;
    case 2:
      params.push_back(Zo::Ptr<iParam>(new ChoiceParam(L"Mode", id.c_str(), {}, 2, choices())));
      break;
    default:
      params.push_back(Zo::Ptr<iParam>(new TextParam(L"Title", id.c_str(), {}, L"Clip")));
      break;
    }
  }
  return params;
}

std::wstring makeDescription(int rows) {
  std::string text = "{\"rows\": [";
  for (int i = 0; i < rows; ++i) {
    std::string const name = std::string("\"name\": \"p").append(std::to_string(i)).append("\"");
    text += i ? ",\n" : "\n";
    switch (i % 4) {
    case 0:
      text += "{\"type\": \"bool\", " + name + ", \"legend\": \"Enabled\", \"default\": true}";
      break;
    case 1:
      text += "{\"type\": \"int\", " + name + ", \"legend\": \"Count\", \"min\": 0, \"max\": 100, \"default\": 25}";
      break;
    case 2:
      text += "{\"type\": \"int\", " + name +
              ", \"legend\": \"Mode\", \"values\": {\"Fast\": 1, \"Balanced\": 2, \"Best\": 3}, \"choice\": \"2\"}";
      break;
    default:
      text += "{\"type\": \"text\", " + name + ", \"legend\": \"Title\", \"value\": \"Clip\"}";
      break;
    }
  }
  return toWide(text + "]}").str();
}

// A top-level panel tall enough for the rows, at the screen's bottom left.
// The virtual screen is made once, before timing, at its usual size: a
// panel taller than it is painted whole into its own surface all the same.
StandardPanel* makePanel(int rows) {
  int const height = rows * (UifStd::getRowHeight() + UifStd::getRowGap());
  XY<int> const size =
      StandardPanel::calcPanelSize(XY<int>(panelWidth(), height), 0, StandardPanel::getDefaultBorder());
  StandardPanel::InitArgs args(size);
  args.screenPosition = XY<int>(0, 0);
  return new StandardPanel(args);
}

// The last row is laid out at the bottom of the user area.
bool lastRowInPlace(StandardPanel const& panel, int rows) {
  if (static_cast<int>(panel.getChildren().size()) != rows)
    return false;
  Glob const* last = panel.getChildren().back();
  return last->getY() + UifStd::getRowGap() >= panel.getUserArea().y0 && last->getY() <= panel.getUserArea().y0 + 2;
}

void disposeOf(StandardPanel* panel) {
  GlobManager::requestDeletion(panel);
  MessageLoop::runPending();
}

// Times `build` (which makes a panel of `rows` and returns what keeps its
// rows alive) once per iteration; `prepare` runs untimed before each, and
// `check` untimed after each, on the panel.
template <class Prepared, class Build, class Check>
void timeBuilds(benchmark::State& state, char const* failure, Prepared (*prepare)(int), Build build, Check check) {
  useHeadlessScreen();
  int const rows = static_cast<int>(state.range(0));
  bool ok = true;
  for (auto _ : state) {
    state.PauseTiming();
    Prepared const prepared = prepare(rows);
    state.ResumeTiming();
    StandardPanel* panel = makePanel(rows);
    Zo::Ptr<UIBuilder::Params> built = build(prepared, panel);
    benchmark::DoNotOptimize(built.get());
    state.PauseTiming();
    ok = ok && lastRowInPlace(*panel, rows) && check(*panel);
    built.reset();
    disposeOf(panel);
    state.ResumeTiming();
  }
  if (!ok)
    state.SkipWithError(failure);
}

bool anyPanel(StandardPanel const&) { return true; }

void zoBuildFromParams(benchmark::State& state) {
  timeBuilds(
      state, "the rows were not laid out", &makeParams,
      [](ParamList const& params, StandardPanel* panel) { return UIBuilder::build(params, panel, 0); }, &anyPanel);
}

// The description is made before timing, once per iteration like the
// parameter list, and parsed inside it.
LightweightString<wchar_t> describe(int rows) { return LightweightString<wchar_t>(makeDescription(rows)); }

void zoBuildFromJSON(benchmark::State& state) {
  timeBuilds(
      state, "the rows were not laid out", &describe,
      [](LightweightString<wchar_t> const& text, StandardPanel* panel) {
        return UIBuilder::buildFromJSON(text, panel);
      },
      &anyPanel);
}

// Redraws are held through the build and the realizing, so the panel is
// painted once as they are let go: what of it the screen shows (panels of
// 100 rows and more are taller than the screen; the rest is painted when it
// comes into view).
void zoBuildAndFirstPaint(benchmark::State& state) {
  timeBuilds(
      state, "the panel was not painted once", &makeParams,
      [](ParamList const& params, StandardPanel* panel) {
        Drawable::Suspender oneRedraw;
        Zo::Ptr<UIBuilder::Params> built = UIBuilder::build(params, panel, 0);
        GlobManager::realize(panel);
        return built;
      },
      [](StandardPanel const& panel) { return panel.canvas() && panel.canvas()->paintCount() == 1; });
}

// The same rows as QFormLayout rows: a check box across, and label plus
// field for the others; the slider row holds a slider and a spin box.
std::unique_ptr<QWidget> qtBuild(int rows) {
  auto window = std::make_unique<QWidget>();
  auto* form = new QFormLayout(window.get());
  for (int i = 0; i < rows; ++i) {
    switch (i % 4) {
    case 0: {
      auto* box = new QCheckBox(QStringLiteral("Enabled"));
      box->setChecked(true);
      form->addRow(box);
      break;
    }
    case 1: {
      auto* field = new QWidget;
      auto* line = new QHBoxLayout(field);
      line->setContentsMargins(0, 0, 0, 0);
      auto* slider = new QSlider(Qt::Horizontal);
      slider->setRange(0, 100);
      slider->setValue(25);
      auto* spin = new QSpinBox;
      spin->setRange(0, 100);
      spin->setValue(25);
      QObject::connect(slider, &QSlider::valueChanged, spin, &QSpinBox::setValue);
      QObject::connect(spin, qOverload<int>(&QSpinBox::valueChanged), slider, &QSlider::setValue);
      line->addWidget(slider);
      line->addWidget(spin);
      form->addRow(QStringLiteral("Count"), field);
      break;
    }
    case 2: {
      auto* combo = new QComboBox;
      combo->addItems({QStringLiteral("Fast"), QStringLiteral("Balanced"), QStringLiteral("Best")});
      combo->setCurrentIndex(1);
      form->addRow(QStringLiteral("Mode"), combo);
      break;
    }
    default:
      form->addRow(QStringLiteral("Title"), new QLineEdit(QStringLiteral("Clip")));
      break;
    }
  }
  window->resize(panelWidth(), form->sizeHint().height());
  form->activate();
  return window;
}

bool qtLastRowInPlace(QWidget& window, int rows) {
  auto* form = static_cast<QFormLayout*>(window.layout());
  if (form->rowCount() != rows)
    return false;
  QLayoutItem* item = form->itemAt(rows - 1, (rows - 1) % 4 == 0 ? QFormLayout::SpanningRole : QFormLayout::FieldRole);
  return item && item->widget() && item->widget()->geometry().bottom() < window.height() &&
         item->widget()->geometry().top() > 0;
}

void qtBuildForm(benchmark::State& state) {
  ensureQtApplication();
  int const rows = static_cast<int>(state.range(0));
  bool ok = true;
  for (auto _ : state) {
    std::unique_ptr<QWidget> window = qtBuild(rows);
    benchmark::DoNotOptimize(window.get());
    state.PauseTiming();
    ok = ok && qtLastRowInPlace(*window, rows);
    window.reset();
    state.ResumeTiming();
  }
  if (!ok)
    state.SkipWithError("the rows were not laid out");
}

void qtBuildAndGrab(benchmark::State& state) {
  ensureQtApplication();
  int const rows = static_cast<int>(state.range(0));
  bool ok = true;
  for (auto _ : state) {
    std::unique_ptr<QWidget> window = qtBuild(rows);
    QPixmap const picture = window->grab();
    state.PauseTiming();
    ok = ok && qtLastRowInPlace(*window, rows) && picture.height() == window->height();
    window.reset();
    state.ResumeTiming();
  }
  if (!ok)
    state.SkipWithError("the panel was not painted");
}

} // namespace

BENCHMARK(zoBuildFromParams)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(zoBuildFromJSON)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(qtBuildForm)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(zoBuildAndFirstPaint)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(qtBuildAndGrab)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMicrosecond);
