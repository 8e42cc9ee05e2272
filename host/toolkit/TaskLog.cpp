#include <zowidgets/host/toolkit/TaskLog.h>

#include <zowidgets/host/base/NotifyMsgTypeDictionary.h>

namespace {

int anyEventType() { return NotifyMsgTypeDictionary::instance().anyType(); }

} // namespace

void TaskLog::write(LightweightString<wchar_t> const& text, eOutputType type) {
  Event event;
  {
    std::lock_guard hold(lock_);
    items_.emplace_back(text, type, indent_);
    event.item = items_.back();
  }
  listeners_.issueNotification(event, anyEventType());
}

void TaskLog::setIndentLevel(std::uint16_t level) {
  std::lock_guard hold(lock_);
  indent_ = level;
}

void TaskLog::incIndent() {
  std::lock_guard hold(lock_);
  ++indent_;
}

void TaskLog::decIndent() {
  std::lock_guard hold(lock_);
  if (indent_ > 0)
    --indent_;
}

Zo::Ptr<Zo::Guard> TaskLog::addListener(Zo::Ptr<Listener> const& listener) {
  return listeners_.addListener(listener, anyEventType());
}

std::vector<LoggerBase::Item> TaskLog::getItems() const {
  std::lock_guard hold(lock_);
  return items_;
}

std::size_t TaskLog::numItems() const {
  std::lock_guard hold(lock_);
  return items_.size();
}

std::size_t TaskLog::copyItems(std::size_t first, std::vector<LoggerBase::Item>& into) const {
  std::lock_guard hold(lock_);
  if (first >= items_.size())
    return 0;
  into.insert(into.end(), items_.begin() + static_cast<std::ptrdiff_t>(first), items_.end());
  return items_.size() - first;
}

void TaskLog::reportProgress(double fraction) {
  Event event;
  event.kind = kProgress;
  event.progress = fraction;
  listeners_.issueNotification(event, anyEventType());
}
