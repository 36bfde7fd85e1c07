// How a job's client answers the variables of a template.
//
// A variable's name is RECORD.FIELD, or FIELD when it has no record part; names are compared
// without case.  It is looked for in the present detail record, then among the values that hold for
// the whole report.
//
// A line that is repeated gets its values one after the other: what is kept for that is kept for
// each name.
#pragma once

#include <cstdint>

#include "frame/text.h"
#include "tarvordp/job/record.h"
#include "template/clsObSpecialVar.h"
#include "template/text_key.h"
#include "ui/clsLibTarvoRdp.h"

namespace tarvordp {

class Answers {
 public:
  // REQUIRES: `values` outlives this.
  explicit Answers(const NamedValues& values);

  // Gives the variable its value and answers true; false when there is none.
  // `detail`: the present detail record; null: there is none.
  // Raises: what storing the value raises.
  bool answer(tarvo::Ref<tarvo::clsObSpecialVar>& variable, const Record* detail);

 private:
  // Where a repeated line has got to.
  struct Place {
    std::size_t value = 0;     // of a repeat, from 0
    std::uint8_t segment = 1;  // of a text in lines
  };

  const JobValue* find(const Record* detail) const;

  // Each answers as answer() does.
  bool store(tarvo::Ref<tarvo::clsObSpecialVar>&, const NoValue&) { return false; }
  bool store(tarvo::Ref<tarvo::clsObSpecialVar>& variable, const RepeatValue& repeat);
  bool store(tarvo::Ref<tarvo::clsObSpecialVar>& variable, const LinesValue& lines);
  template <class Value>
  bool store(tarvo::Ref<tarvo::clsObSpecialVar>& variable, const Value& value);

  const NamedValues& values_;
  tarvo::Ref<tarvo::clsLibTarvoRdp> helper_;
  tarvo::Text name_;  // of the variable that is answered, in capitals
  tarvo::TextMap<Place> places_;
};

// The name as the template asks for it, for people.
tarvo::Text nameOf(const tarvo::clsObSpecialVar& variable);

}  // namespace tarvordp
