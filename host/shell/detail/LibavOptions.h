#pragma once

#include <zowidgets/host/shell/MediaOption.h>

#include <vector>

struct AVCodec;
struct AVDictionary;
class configb;

namespace LibavOptions {

// One option record made from an encoder's option, and how its value goes back.
struct Row {
  enum eKind : int {
    kValue = 0,  // the record's value is the option's value
    kChoice = 1, // the record's number is the named constant's value
    kFlag = 2,   // one named bit of a flags option, as a boolean
  };
  MediaOption option;
  LightweightString<char> optionName;
  LightweightString<char> flagName; // kFlag only
  int kind = kValue;
};

// The encoder's own options and the few general ones every video encoder
// reads (bit rate, key frame interval, B-frames, quantiser limits). Read
// once per encoder; the list lives as long as the process.
std::vector<Row> const& rowsFor(AVCodec const& codec);
MediaOptions optionsOf(std::vector<Row> const& rows);
// The values in `state` that differ from their option's default, as the
// encoder is to be opened with them.
void addToDictionary(std::vector<Row> const& rows, configb const& state, AVDictionary** dictionary);

} // namespace LibavOptions
