// A client's combo box, or what takes itself for one: it does what it is told, and writes it down.
#pragma once

#include <map>
#include <string>

#include "equipment/show_arguments.h"
#include "frame/late_object.h"

namespace tarvo::test {

class ComboBox final : public LateObject {
 public:
  std::string log;
  Text type = u"ComboBox";
  bool typeFails = false;
  std::string missing;  // a member that it does not have
  std::vector<Text> items{u"de antes"};

  Text typeName() override {
    if (typeFails) throw RunTimeError(kOutOfMemory);
    return type;
  }

  Value call(TextView name, std::span<const Value> arguments) override {
    record(name, arguments);
    if (name == u"Clear" && arguments.empty()) {
      items.clear();
    } else if (name == u"AddItem" && arguments.size() == 1) {
      items.push_back(*arguments.front().tryGet<Text>());
    } else {
      throw RunTimeError(kNoSuchMember);
    }
    return {};
  }

  // As the stand-in of the platform-call service asks for it.
  Value get(TextView name, std::span<const Value> indexes) override {
    if (name == u"ListCount") return static_cast<std::int32_t>(items.size());
    if (name == u"List")
      return items.at(static_cast<std::size_t>(*indexes[0].tryGet<std::int32_t>()));
    throw RunTimeError(kNoSuchMember);
  }

  void put(TextView name, std::span<const Value> indexes, const Value& value) override {
    record(name, indexes);
    log += "= " + show(value) + "; ";
    if (name != u"List") return;
    const auto index = static_cast<std::size_t>(*indexes[0].tryGet<std::int16_t>());
    if (index > items.size()) throw RunTimeError(kInvalidProcedureCall);
    if (index == items.size()) items.emplace_back();
    items[index] = *value.tryGet<Text>();
  }

 private:
  void record(TextView name, std::span<const Value> values) {
    if (toUtf8(name) == missing) throw RunTimeError(kNoSuchMember, name);
    log += toUtf8(name);
    for (const Value& value : values) log += " " + show(value);
    log += "; ";
  }
};

}  // namespace tarvo::test
