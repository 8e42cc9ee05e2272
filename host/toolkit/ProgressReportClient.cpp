#include <zowidgets/host/toolkit/ProgressReportClient.h>

#include <algorithm>
#include <numeric>

ProgressReportClient::~ProgressReportClient() = default;

double ProgressReportClient::partStart() const {
  if (splits_.empty())
    return 0.0;
  Split const& split = splits_.back();
  return split.start + split.span * split.bounds[split.part];
}

double ProgressReportClient::partSpan() const {
  if (splits_.empty())
    return 1.0;
  Split const& split = splits_.back();
  return split.span * (split.bounds[split.part + 1] - split.bounds[split.part]);
}

void ProgressReportClient::reportWhole(double progress) {
  ProgressSnapshot snapshot;
  snapshot.progress = static_cast<float>(std::clamp(progress, 0.0, 1.0));
  snapshot.text = text_;
  snapshot.thumbnail = thumbnail_;
  handleProgressUpdate(snapshot);
}

void ProgressReportClient::updateProgress(double progress, LightweightString<wchar_t> const& text) {
  text_ = text;
  reportWhole(partStart() + partSpan() * std::clamp(progress, 0.0, 1.0));
}

void ProgressReportClient::updateProgress(ProgressSnapshot const& snapshot) {
  ProgressSnapshot whole = snapshot;
  text_ = snapshot.text;
  whole.progress =
      static_cast<float>(partStart() + partSpan() * std::clamp(static_cast<double>(snapshot.progress), 0.0, 1.0));
  if (whole.thumbnail)
    thumbnail_ = whole.thumbnail;
  else
    whole.thumbnail = thumbnail_;
  handleProgressUpdate(whole);
}

void ProgressReportClient::startSubTasks(unsigned long count) { startSubTasks(std::vector<unsigned long>(count, 1)); }

void ProgressReportClient::startSubTasks(std::vector<unsigned long> const& weights) {
  if (weights.empty())
    return;
  double const total = std::accumulate(weights.begin(), weights.end(), 0.0);
  Split split;
  split.start = partStart();
  split.span = partSpan();
  split.bounds.reserve(weights.size() + 1);
  split.bounds.push_back(0.0);
  double sum = 0.0;
  for (std::size_t i = 0; i < weights.size(); ++i) {
    sum += total > 0.0 ? static_cast<double>(weights[i]) : 1.0;
    split.bounds.push_back(sum / (total > 0.0 ? total : static_cast<double>(weights.size())));
  }
  split.bounds.back() = 1.0;
  splits_.push_back(std::move(split));
  reportWhole(partStart());
}

void ProgressReportClient::endSubTasks() {
  if (splits_.empty())
    return;
  double const end = splits_.back().start + splits_.back().span;
  splits_.pop_back();
  reportWhole(end);
}

void ProgressReportClient::nextSubTask() {
  if (splits_.empty())
    return;
  Split& split = splits_.back();
  if (split.part + 2 < split.bounds.size()) {
    ++split.part;
    reportWhole(partStart());
  } else {
    reportWhole(split.start + split.span);
  }
}

void ProgressReportClient::reset() {
  splits_.clear();
  thumbnail_.reset();
  text_ = LightweightString<wchar_t>();
  reportWhole(0.0);
}

Zo::Ptr<iObject> ProgressReportClient::getThumbnail() const { return thumbnail_; }

void ProgressReportClient::setThumbnail(Zo::Ptr<iObject> const& thumbnail) { thumbnail_ = thumbnail; }
