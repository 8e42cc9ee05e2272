// Reading a panel description: JSON::parse (wide text to a JSON::Element tree)
// against the bare parse of the same text by the library it is built on, and
// by the other JSON libraries that Debian ships, so that the choice can be
// checked again. Sizes are in KiB of UTF-8 text: a small panel (6) and a
// large one (60).

#include <zowidgets/host/base/JSON.h>

#include <benchmark/benchmark.h>
#include <nlohmann/json.hpp>
#include <rapidjson/document.h>
#include <simdjson.h>

#include <initializer_list>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

namespace {

// A description with rows of every kind, about `bytes` long; the same text on
// every run.
std::string makeDescription(std::size_t bytes) {
  std::mt19937 random(6011);
  auto pick = [&](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
  static char const* const kLegends[] = {"Gain",     "Offset",       "Blur radius", "Sharpen",   "Opacity",
                                         "Width",    "Height",       "Quality",     "Mode",      "Fade in",
                                         "Fade out", "Colour space", "Title",       "Frame rate"};
  std::string text = "{\n  \"rows\": [";
  auto add = [&text](std::initializer_list<std::string_view> parts) {
    for (std::string_view part : parts)
      text += part;
  };
  for (int row = 0; text.size() + 300 < bytes; ++row) {
    std::string name = std::string("p") + std::to_string(row);
    std::string other = std::string("p") + std::to_string(row / 2);
    std::string legend = std::string(kLegends[pick(std::size(kLegends))]) + " " + std::to_string(row);
    add({row ? ",\n    {" : "\n    {", R"("name": ")", name, R"(", "legend": ")", legend, R"(", )"});
    switch (pick(6)) {
    case 0:
      add({R"("type": "bool", "default": )", pick(2) ? "true" : "false", R"(, "tooltip": )",
           std::to_string(1000 + pick(9000))});
      break;
    case 1:
      add({R"("type": "int", "min": 0, "max": )", std::to_string(10 + pick(990)), R"(, "default": )",
           std::to_string(pick(10)), R"(, "visible if": ")", other, R"(=true")"});
      break;
    case 2:
      add({R"("type": "int", "values": {"Fast": 1, "Good": 2, "Best": 3}, "choice": "2", "active if": ")", other,
           R"(=1|2")"});
      break;
    case 3:
      add({R"("type": "float", "Min": -1.5, "Max": )", std::to_string(pick(10000) / 100.0),
           R"(, "default": 0.25, "must not be higher than": ")", other, R"(")"});
      break;
    case 4:
      add({R"("type": "text", "value": "Caf\u00e9 \"Nord\" )", "\xE2\x82\xAC",
           R"(", "hint": "your name", "obfuscated": false, "advance": true)"});
      break;
    default:
      add({R"("type": "label")"});
    }
    text += "}";
  }
  return text + "\n  ]\n}\n";
}

struct Description {
  explicit Description(benchmark::State& state)
      : utf8(makeDescription(static_cast<std::size_t>(state.range(0)) * 1024)),
        wide(LightweightString<wchar_t>::fromUTF8(utf8)) {}

  void count(benchmark::State& state) const {
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * utf8.size()));
  }

  std::string utf8;
  LightweightString<wchar_t> wide;
};

void elementFromWideText(benchmark::State& state) {
  Description text(state);
  for (auto _ : state) {
    Zo::Ptr<JSON::Element> root = JSON::parse(text.wide);
    if (!root)
      state.SkipWithError("did not parse");
    benchmark::DoNotOptimize(root.get());
  }
  text.count(state);
}

// The library's document, as a user of it would parse: default flags.
void rapidjsonDocumentFromWideText(benchmark::State& state) {
  Description text(state);
  using WideDocument = rapidjson::GenericDocument<rapidjson::UTF8<>>;
  for (auto _ : state) {
    WideDocument document;
    rapidjson::GenericStringStream<rapidjson::UTF32<wchar_t>> stream(text.wide.c_str());
    document.ParseStream<rapidjson::kParseDefaultFlags, rapidjson::UTF32<wchar_t>>(stream);
    if (document.HasParseError())
      state.SkipWithError("did not parse");
    benchmark::DoNotOptimize(&document);
  }
  text.count(state);
}

void rapidjsonDocumentFromUTF8(benchmark::State& state) {
  Description text(state);
  for (auto _ : state) {
    rapidjson::Document document;
    document.Parse(text.utf8.data(), text.utf8.size());
    if (document.HasParseError())
      state.SkipWithError("did not parse");
    benchmark::DoNotOptimize(&document);
  }
  text.count(state);
}

void simdjsonDocumentFromUTF8(benchmark::State& state) {
  Description text(state);
  simdjson::padded_string padded(text.utf8);
  simdjson::dom::parser parser;
  for (auto _ : state) {
    simdjson::dom::element root;
    if (parser.parse(padded).get(root))
      state.SkipWithError("did not parse");
    benchmark::DoNotOptimize(&root);
  }
  text.count(state);
}

void nlohmannDocumentFromUTF8(benchmark::State& state) {
  Description text(state);
  for (auto _ : state) {
    nlohmann::json document = nlohmann::json::parse(text.utf8, nullptr, false);
    if (document.is_discarded())
      state.SkipWithError("did not parse");
    benchmark::DoNotOptimize(&document);
  }
  text.count(state);
}

void assemble(simdjson::dom::element value, JSON::ElementAssembler& assembler) {
  switch (value.type()) {
  case simdjson::dom::element_type::OBJECT:
    assembler.startObject();
    for (auto [key, member] : simdjson::dom::object(value)) {
      assembler.key(key);
      assemble(member, assembler);
    }
    assembler.end();
    break;
  case simdjson::dom::element_type::ARRAY:
    assembler.startArray();
    for (simdjson::dom::element item : simdjson::dom::array(value))
      assemble(item, assembler);
    assembler.end();
    break;
  case simdjson::dom::element_type::STRING:
    assembler.addString(std::string_view(value));
    break;
  case simdjson::dom::element_type::INT64:
  case simdjson::dom::element_type::UINT64:
  case simdjson::dom::element_type::DOUBLE:
    assembler.addNumber(double(value));
    break;
  case simdjson::dom::element_type::BOOL:
    assembler.addBool(bool(value));
    break;
  case simdjson::dom::element_type::NULL_VALUE:
    assembler.addNull();
    break;
  }
}

// The same elements built from the fastest reader's document instead, wide
// text converted to UTF-8 first: what choosing it would have cost end to end.
void elementThroughSimdjsonFromWideText(benchmark::State& state) {
  Description text(state);
  simdjson::dom::parser parser;
  for (auto _ : state) {
    simdjson::padded_string utf8(text.wide.toUTF8().view());
    simdjson::dom::element root;
    if (parser.parse(utf8).get(root))
      state.SkipWithError("did not parse");
    JSON::ElementAssembler assembler;
    assemble(root, assembler);
    benchmark::DoNotOptimize(assembler.result().get());
  }
  text.count(state);
}

} // namespace

BENCHMARK(elementFromWideText)->Arg(6)->Arg(60);
BENCHMARK(rapidjsonDocumentFromWideText)->Arg(6)->Arg(60);
BENCHMARK(rapidjsonDocumentFromUTF8)->Arg(6)->Arg(60);
BENCHMARK(simdjsonDocumentFromUTF8)->Arg(6)->Arg(60);
BENCHMARK(nlohmannDocumentFromUTF8)->Arg(6)->Arg(60);
BENCHMARK(elementThroughSimdjsonFromWideText)->Arg(6)->Arg(60);
