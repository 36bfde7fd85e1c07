// Stand-in of the date service.
//
// Raises: 6 for a date outside 1 January 100 to 31 December 9999.
#pragma once

#include <functional>

#include "frame/date.h"
#include "frame/services.h"
#include "services/fail.h"

namespace LibTarvoCI {

class clsUtilDate final : public tarvo::clsUtilDate {
 public:
  // Now, local time.
  using Clock = std::function<Date()>;

  // Default: the system's clock.
  clsUtilDate();
  explicit clsUtilDate(Clock clock);

  // The date part of now.
  Date fToday() override;

  // The time of now as HH:MM:SS, 24 hours.
  void fTimeText(Text& result) override;

  // See date_format.h.
  void fFormatDate(Date valDate, TextView valFormat, Text& result) override;

  // dd/mm/yyyy.
  void fDefaultDateText(Date valDate, Text& result) override;

  std::int16_t fYear(Date valDate) override;

  bool mayBeBypassed() const noexcept override { return true; }

 private:
  const tarvo::CivilTime& partsOf(Date date);

  Clock clock_;

  // What is asked of a date is asked together, its text and its year.
  Date lastDate_;
  tarvo::CivilTime partsOfLastDate_;  // those of day zero at first, as the date itself
};

}  // namespace LibTarvoCI
