// An object known by the names of its members, as controls and reports are: it writes down what is
// done to it, and answers what the test laid out.
#pragma once

#include <map>
#include <string>

#include "equipment/call_log.h"
#include "equipment/show_arguments.h"
#include "frame/late_object.h"

namespace LibTarvoCI::test {

class NamedObject final : public tarvo::LateObject {
 public:
  tarvo::test::CallLog log;

  // What a member answers, by its name, "List(2)" for an indexed one.  A name that is in neither of
  // the two is error 438.
  std::map<std::string, tarvo::Value> answers;
  std::map<std::string, tarvo::RunTimeError> errors;

  tarvo::Text typeName() override { return u"NamedObject"; }

  tarvo::Value call(tarvo::TextView name, std::span<const tarvo::Value> arguments) override {
    log.add("call " + tarvo::toUtf8(name) + "(" + shown(arguments) + ")");
    return answerOf(tarvo::toUtf8(name));
  }

  tarvo::Value get(tarvo::TextView name, std::span<const tarvo::Value> indexes) override {
    log.add("get " + tarvo::toUtf8(name) + "(" + shown(indexes) + ")");
    std::string key = tarvo::toUtf8(name);
    for (const tarvo::Value& index : indexes) {
      const auto* number = index.tryGet<std::int32_t>();
      key += "(" + (number == nullptr ? "?" : std::to_string(*number)) + ")";
    }
    return answerOf(key);
  }

  void put(tarvo::TextView name, std::span<const tarvo::Value> indexes,
           const tarvo::Value& value) override {
    log.add("put " + tarvo::toUtf8(name) + "(" + shown(indexes) +
            ") = " + tarvo::test::show(value));
    answerOf(tarvo::toUtf8(name));
  }

 private:
  static std::string shown(std::span<const tarvo::Value> values) {
    std::string all;
    for (const tarvo::Value& value : values) {
      all += (all.empty() ? "" : ", ") + tarvo::test::show(value);
    }
    return all;
  }

  tarvo::Value answerOf(const std::string& name) const {
    const auto error = errors.find(name);
    if (error != errors.end()) throw error->second;
    const auto answer = answers.find(name);
    if (answer == answers.end()) {
      throw tarvo::RunTimeError(tarvo::kNoSuchMember, {u"NamedObject", u"no such member", {}, 0});
    }
    return answer->second;
  }
};

// An object that cannot be reached by name.
class NamelessObject final : public tarvo::Object {};

}  // namespace LibTarvoCI::test
