// Setting and reading a DoubleParam through its text choke point, with the
// two conversions it is built on for reference.

#include <zowidgets/host/base/DataConvert.h>
#include <zowidgets/values/params/NumericParams.h>

#include <benchmark/benchmark.h>

namespace {

using WString = LightweightString<wchar_t>;

void doubleParamSetValueFromString(benchmark::State& state) {
  GenericParam::DoubleParam param(L"Gain", "gain", L"", 0.0, 0.0, 1.0);
  WString const text(L"0.125");
  for (auto _ : state)
    param.setValueFromString(text);
  if (param.getValue() != 0.125)
    state.SkipWithError("the parameter did not take the value");
}

void doubleParamGetValueAsString(benchmark::State& state) {
  GenericParam::DoubleParam param(L"Gain", "gain", L"", 0.125, 0.0, 1.0);
  for (auto _ : state)
    benchmark::DoNotOptimize(param.getValueAsString());
  if (param.getValueAsString() != L"0.125")
    state.SkipWithError("unexpected text for the value");
}

void convertTextToDouble(benchmark::State& state) {
  WString const text(L"0.125");
  for (auto _ : state)
    benchmark::DoNotOptimize(DataConvert::convert<WString, double>(text));
}

void convertDoubleToText(benchmark::State& state) {
  double value = 0.125;
  benchmark::DoNotOptimize(value);
  for (auto _ : state)
    benchmark::DoNotOptimize(DataConvert::convert<double, WString>(value));
}

} // namespace

BENCHMARK(doubleParamSetValueFromString);
BENCHMARK(doubleParamGetValueAsString);
BENCHMARK(convertTextToDouble);
BENCHMARK(convertDoubleToText);
