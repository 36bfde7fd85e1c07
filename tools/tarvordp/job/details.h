// The detail records of a job, in their order, as the report's client walks through them.
//
// All records are read once when this is made: what is wrong with one is told before anything is
// printed, and their number is known.  Few records are kept; of many only the present one is in
// memory, and every walk reads them again.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tarvordp/job/record_source.h"

namespace tarvordp {

class Details {
 public:
  // Told the number of records read so far, after each.
  using Listener = std::function<void(std::int64_t)>;

  // No records.
  Details() = default;
  Details(const Details&) = delete;
  Details& operator=(const Details&) = delete;

  // `subtotal`: the name of the value that is added up, in capitals; empty: none.
  // Raises: Mistake for a record that is wrong, and for one whose `subtotal` is no number.
  Details(std::unique_ptr<RecordSource> source, tarvo::TextView subtotal,
          const Listener& listener = {});

  // Makes the first record the present one; false: there is none, and no present one either.
  // Raises: Mistake for data that have become wrong since they were read first, or that are another
  // number of records now.
  bool first();

  // Makes the next record the present one; false: there is none, and the present one stays.
  // Raises: as first().
  bool next();

  // Whether there are records and none of them has the name `subtotal`.
  bool lackSubtotal() const noexcept { return lackSubtotal_; }

  // RecordSource::doubt(), of the records that were read.
  const std::string& doubt() const noexcept { return doubt_; }

  // Null before first().
  const Record* present() const noexcept { return present_; }

  std::int64_t count() const noexcept { return count_; }

 private:
  bool readNext();

  std::unique_ptr<RecordSource> source_;  // empty: all records are kept
  std::vector<Record> kept_;
  Record read_[2];  // the present record and the one that is being read
  const Record* present_ = nullptr;
  std::int64_t count_ = 0;
  bool lackSubtotal_ = false;
  std::string doubt_;
  std::int64_t walked_ = 0;  // records of this walk, when they are not kept
  std::size_t index_ = 0;    // of the present record among the kept ones
};

// The number of the value; 0 when it is none.
tarvo::Currency amountOf(const JobValue& value);

}  // namespace tarvordp
