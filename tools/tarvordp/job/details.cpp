#include "tarvordp/job/details.h"

#include <utility>

namespace tarvordp {
namespace {

constexpr std::size_t kMostKept = 1'000;

void checkSubtotal(const Record& record, tarvo::TextView subtotal, const RecordSource& source) {
  const JobValue* value = subtotal.empty() ? nullptr : record.find(subtotal);
  if (value == nullptr || std::holds_alternative<NumberValue>(*value) ||
      std::holds_alternative<NoValue>(*value)) {
    return;
  }
  source.mistake(tarvo::toUtf8(subtotal) + ": the subtotal needs a number here");
}

}  // namespace

Details::Details(std::unique_ptr<RecordSource> source, tarvo::TextView subtotal,
                 const Listener& listener)
    : source_(std::move(source)) {
  source_->restart();
  bool hasSubtotal = subtotal.empty();
  for (Record record; source_->next(record);) {
    checkSubtotal(record, subtotal, *source_);
    hasSubtotal = hasSubtotal || record.find(subtotal) != nullptr;
    ++count_;
    if (count_ <= static_cast<std::int64_t>(kMostKept)) kept_.push_back(std::move(record));
    if (listener) listener(count_);
  }
  lackSubtotal_ = count_ > 0 && !hasSubtotal;
  doubt_ = source_->doubt();
  if (kept_.size() == static_cast<std::size_t>(count_)) {
    source_ = nullptr;
  } else {
    kept_ = {};
  }
}

bool Details::first() {
  present_ = nullptr;
  index_ = 0;
  if (source_) {
    source_->restart();
    walked_ = 0;
    return next();
  }
  if (!kept_.empty()) present_ = &kept_.front();
  return present_ != nullptr;
}

bool Details::next() {
  if (source_) return readNext();
  if (index_ + 1 >= kept_.size()) return false;
  present_ = &kept_[++index_];
  return true;
}

// A query may find others when it runs again, and not every file tells that it was changed.
bool Details::readNext() {
  Record& other = present_ == &read_[0] ? read_[1] : read_[0];
  const bool isThere = source_->next(other);
  if (isThere) ++walked_;
  if (isThere ? walked_ > count_ : walked_ < count_) {
    source_->mistake("there were " + std::to_string(count_) +
                     " records when they were read first, and there are " +
                     (isThere ? "more" : "fewer") + " now");
  }
  if (isThere) present_ = &other;
  return isThere;
}

tarvo::Currency amountOf(const JobValue& value) {
  const auto* number = std::get_if<NumberValue>(&value);
  return number != nullptr ? number->amount : tarvo::Currency{};
}

}  // namespace tarvordp
