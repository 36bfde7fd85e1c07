// Values of variables as a person types them into a case file.
//
//   NOMBRE=text Peña e Hijos      NOMBRE=number -12.5      NOMBRE=paren -12.5
//   NOMBRE=date 2026-03-15        NOMBRE=enum S            NOMBRE=true      NOMBRE=false
//
// A name is RECORD.FIELD or FIELD, as the variable has it.
#pragma once

#include <map>
#include <stdexcept>
#include <string>

#include "template/clsObSpecialVar.h"

namespace tarvo::test {

class TypedValues {
 public:
  void add(const std::string& line) {
    const std::size_t sign = line.find('=');
    if (sign == std::string::npos) throw std::runtime_error("no value: " + line);
    values_[line.substr(0, sign)] = line.substr(sign + 1);
  }

  static std::string nameOf(const clsObSpecialVar& variable) {
    const std::string record = toUtf8(variable.GetRecordName());
    return (record.empty() ? "" : record + ".") + toUtf8(variable.GetFieldName());
  }

  // Gives the variable its value; false when it has none here.
  bool store(clsObSpecialVar& variable) const {
    const auto found = values_.find(nameOf(variable));
    if (found == values_.end()) return false;
    const std::string& typed = found->second;
    const std::size_t blank = typed.find(' ');
    const std::string kind = typed.substr(0, blank);
    const std::string value = blank == std::string::npos ? "" : typed.substr(blank + 1);
    if (kind == "text") {
      variable.SetContentString(fromUtf8(value));
    } else if (kind == "number" || kind == "paren") {
      variable.SetContentNumeric(currencyFromText(fromUtf8(value)), kind == "paren");
    } else if (kind == "date") {
      variable.SetContentDate(dateOf({std::stoi(value.substr(0, 4)), std::stoi(value.substr(5, 2)),
                                      std::stoi(value.substr(8, 2)), 0, 0, 0}));
    } else if (kind == "enum") {
      variable.SetContentEnum(fromUtf8(value));
    } else if (kind == "true" || kind == "false") {
      variable.SetContentBoolean(kind == "true");
    } else {
      throw std::runtime_error("unknown kind of value: " + typed);
    }
    return true;
  }

 private:
  std::map<std::string, std::string> values_;
};

}  // namespace tarvo::test
