#include <zowidgets/host/shell/detail/LibavOptions.h>

#ifdef ZO_HAVE_LIBAV

#include <zowidgets/host/base/configb.h>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/dict.h>
#include <libavutil/opt.h>
#include <libavutil/pixdesc.h>
}

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cstring>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>

namespace LibavOptions {
namespace {

char const* const kGeneralOptions[] = {"b", "g", "bf", "qmin", "qmax"};

LightweightString<wchar_t> wide(char const* text) {
  return LightweightString<wchar_t>::fromUTF8(text ? std::string_view(text) : std::string_view());
}

std::vector<AVOption const*> optionsOf(AVClass const* avClass) {
  std::vector<AVOption const*> options;
  for (AVOption const* option = nullptr; (option = av_opt_next(&avClass, option));)
    options.push_back(option);
  return options;
}

std::vector<AVOption const*> constantsOf(std::vector<AVOption const*> const& all, char const* unit) {
  std::vector<AVOption const*> constants;
  if (!unit)
    return constants;
  for (AVOption const* option : all)
    if (option->type == AV_OPT_TYPE_CONST && option->unit && std::strcmp(option->unit, unit) == 0)
      constants.push_back(option);
  return constants;
}

bool isIntegral(AVOptionType type) {
  return type == AV_OPT_TYPE_INT || type == AV_OPT_TYPE_INT64 || type == AV_OPT_TYPE_UINT64 ||
         type == AV_OPT_TYPE_DURATION;
}

bool fitsInt(double value) { return value >= INT_MIN && value <= INT_MAX; }

MediaOption recordFor(AVOption const& option, int kind) {
  MediaOption record;
  record.id = option.name;
  record.legend = wide(option.name);
  record.tooltip = wide(option.help);
  record.kind = kind;
  return record;
}

Row valueRow(MediaOption const& record, AVOption const& option) { return Row{record, option.name, {}, Row::kValue}; }

void addNumber(AVOption const& option, std::vector<Row>& rows) {
  bool const integral = isIntegral(option.type);
  double const value = integral ? double(option.default_val.i64) : option.default_val.dbl;
  // A whole number is offered within an int's range, which holds every
  // practical value (a bit rate of two gigabits a second, say); only a
  // default beyond it makes the option a real number.
  bool const asInteger = integral && fitsInt(value);
  MediaOption record = recordFor(option, asInteger ? MediaOption::kInteger : MediaOption::kNumber);
  record.min = asInteger ? std::max(option.min, double(INT_MIN)) : option.min;
  record.max = asInteger ? std::min(option.max, double(INT_MAX)) : option.max;
  record.defaultNumber = value;
  rows.push_back(valueRow(record, option));
}

void addChoices(AVOption const& option, std::vector<MediaOption::Choice> choices, std::vector<Row>& rows) {
  MediaOption record = recordFor(option, MediaOption::kChoice);
  record.defaultNumber = static_cast<int>(option.default_val.i64);
  record.choices = std::move(choices);
  rows.push_back(Row{record, option.name, {}, Row::kChoice});
}

void addChoice(AVOption const& option, std::vector<AVOption const*> const& constants, std::vector<Row>& rows) {
  std::vector<MediaOption::Choice> choices;
  bool defaultNamed = false;
  for (AVOption const* constant : constants) {
    int const value = static_cast<int>(constant->default_val.i64);
    bool duplicate = false;
    for (MediaOption::Choice const& choice : choices)
      duplicate = duplicate || choice.value == value;
    if (duplicate)
      continue;
    choices.push_back({wide(constant->name), wide(constant->help), value});
    defaultNamed = defaultNamed || constant->default_val.i64 == option.default_val.i64;
  }
  // An encoder may leave its choice to itself ("auto", often -1) without a name for it.
  if (!defaultNamed)
    choices.insert(choices.begin(), {L"default", {}, static_cast<int>(option.default_val.i64)});
  addChoices(option, std::move(choices), rows);
}

void addFlags(AVOption const& option, std::vector<AVOption const*> const& constants, std::vector<Row>& rows) {
  for (AVOption const* constant : constants) {
    if (constant->default_val.i64 == 0)
      continue;
    bool const set = (option.default_val.i64 & constant->default_val.i64) == constant->default_val.i64;
    MediaOption record;
    record.id = LightweightString<char>(option.name) + "." + constant->name;
    record.legend = LightweightString<wchar_t>(wide(option.name).str() + L": " + wide(constant->name).str());
    record.tooltip = wide(constant->help);
    record.kind = MediaOption::kBoolean;
    record.defaultNumber = set ? 1 : 0;
    rows.push_back(Row{record, option.name, constant->name, Row::kFlag});
  }
}

void addText(AVOption const& option, std::vector<Row>& rows) {
  MediaOption record = recordFor(option, MediaOption::kText);
  if (option.type == AV_OPT_TYPE_PIXEL_FMT)
    record.defaultText = wide(av_get_pix_fmt_name(static_cast<AVPixelFormat>(option.default_val.i64)));
  else if (option.type == AV_OPT_TYPE_STRING || option.type == AV_OPT_TYPE_IMAGE_SIZE ||
           option.type == AV_OPT_TYPE_VIDEO_RATE || option.type == AV_OPT_TYPE_COLOR || option.type == AV_OPT_TYPE_DICT)
    record.defaultText = wide(option.default_val.str);
  rows.push_back(valueRow(record, option));
}

void addOption(AVOption const& option, std::vector<AVOption const*> const& all, std::vector<Row>& rows) {
  std::vector<AVOption const*> const constants = constantsOf(all, option.unit);
  if (option.type == AV_OPT_TYPE_FLAGS)
    addFlags(option, constants, rows);
  else if (option.type == AV_OPT_TYPE_BOOL && option.default_val.i64 >= 0) {
    MediaOption record = recordFor(option, MediaOption::kBoolean);
    record.defaultNumber = option.default_val.i64 != 0 ? 1 : 0;
    rows.push_back(valueRow(record, option));
  } else if (option.type == AV_OPT_TYPE_BOOL) // "auto" (-1): the encoder decides unless told
    addChoices(option, {{L"auto", {}, -1}, {L"off", {}, 0}, {L"on", {}, 1}}, rows);
  else if (isIntegral(option.type) && !constants.empty())
    addChoice(option, constants, rows);
  else if (isIntegral(option.type) || option.type == AV_OPT_TYPE_DOUBLE || option.type == AV_OPT_TYPE_FLOAT ||
           option.type == AV_OPT_TYPE_RATIONAL)
    addNumber(option, rows);
  else
    addText(option, rows);
}

bool wanted(AVOption const& option) {
  return option.type != AV_OPT_TYPE_CONST && (option.flags & AV_OPT_FLAG_ENCODING_PARAM) &&
         !(option.flags & AV_OPT_FLAG_DEPRECATED) && !(option.flags & AV_OPT_FLAG_READONLY);
}

} // namespace

namespace {

std::vector<Row> readRows(AVCodec const& codec) {
  std::vector<Row> rows;
  std::set<std::string> names;
  std::vector<AVOption const*> const general = optionsOf(avcodec_get_class());
  for (char const* name : kGeneralOptions)
    for (AVOption const* option : general)
      if (std::strcmp(option->name, name) == 0 && wanted(*option) && names.insert(name).second)
        addOption(*option, general, rows);
  if (codec.priv_class) {
    std::vector<AVOption const*> const own = optionsOf(codec.priv_class);
    for (AVOption const* option : own)
      if (wanted(*option) && names.insert(option->name).second)
        addOption(*option, own, rows);
  }
  return rows;
}

} // namespace

std::vector<Row> const& rowsFor(AVCodec const& codec) {
  // An encoder's options are fixed for the life of the process; each panel
  // of that encoder reads them from here.
  static std::mutex mutex;
  static std::unordered_map<AVCodec const*, std::vector<Row>> rowsByCodec;
  std::lock_guard lock(mutex);
  auto const [place, isNew] = rowsByCodec.try_emplace(&codec);
  if (isNew)
    place->second = readRows(codec);
  return place->second;
}

MediaOptions optionsOf(std::vector<Row> const& rows) {
  MediaOptions options;
  for (Row const& row : rows)
    options.push_back(row.option);
  return options;
}

namespace {

// The value `state` holds for the record as the option's text, or nothing
// when it holds none or the default.
std::optional<std::string> changedValue(MediaOption const& record, configb const& state) {
  if (!state.in(record.id))
    return std::nullopt;
  switch (record.kind) {
  case MediaOption::kBoolean:
    if (state.getBool(record.id) == (record.defaultNumber != 0))
      return std::nullopt;
    return state.getBool(record.id) ? "1" : "0";
  case MediaOption::kChoice: {
    // Choices are kept as unsigned numbers; "auto" (-1) wraps round.
    int const value = static_cast<int>(state.getUnsigned(record.id));
    return value == int(record.defaultNumber) ? std::nullopt : std::optional(std::to_string(value));
  }
  case MediaOption::kText: {
    LightweightString<wchar_t> const value = state.getString(record.id);
    return value == record.defaultText ? std::nullopt : std::optional(std::string(value.toUTF8().view()));
  }
  default: {
    double const value = state.getDouble(record.id);
    if (value == record.defaultNumber)
      return std::nullopt;
    char text[64];
    std::snprintf(text, sizeof text, "%.17g", value);
    return std::string(text);
  }
  }
}

} // namespace

void addToDictionary(std::vector<Row> const& rows, configb const& state, AVDictionary** dictionary) {
  std::map<std::string, std::string> flagChanges;
  for (Row const& row : rows) {
    std::optional<std::string> const value = changedValue(row.option, state);
    if (!value)
      continue;
    std::string const name(row.optionName.view());
    if (row.kind == Row::kFlag)
      flagChanges[name].append(*value == "1" ? "+" : "-").append(row.flagName.view());
    else
      av_dict_set(dictionary, name.c_str(), value->c_str(), 0);
  }
  for (auto const& [name, changes] : flagChanges)
    av_dict_set(dictionary, name.c_str(), changes.c_str(), 0);
}

} // namespace LibavOptions

#endif
