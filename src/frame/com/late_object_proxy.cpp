// A foreign object of which only the names of its members are known.
#include <deque>

#include "frame/com/outside_object.h"
#include "frame/late_object.h"

namespace tarvo::com {
namespace {

class LateObjectProxy final : public LateObject, public OutsideObject {
 public:
  explicit LateObjectProxy(IUnknown* object) : OutsideObject(object), named_(object) {}

  Text typeName() override {
    if (named_.dispatch() == nullptr) throw RunTimeError(kNoSuchMember);
    ComPtr<ITypeInfo> info;
    check(named_.dispatch()->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.out()));
    Bstr name;
    check(info->GetDocumentation(MEMBERID_NIL, name.out(), nullptr, nullptr, nullptr));
    // A class's own interface is named after it, with an underscore before.
    TextView text = name.view();
    if (text.starts_with(u'_')) text.remove_prefix(1);
    return Text(text);
  }

  Value call(TextView name, std::span<const Value> arguments) override {
    return run(name, DISPATCH_METHOD | DISPATCH_PROPERTYGET, arguments, nullptr);
  }
  Value get(TextView name, std::span<const Value> indexes) override {
    return run(name, DISPATCH_PROPERTYGET, indexes, nullptr);
  }
  void put(TextView name, std::span<const Value> indexes, const Value& value) override {
    run(name, DISPATCH_PROPERTYPUT, indexes, &value);
  }

 private:
  Value run(TextView name, WORD flags, std::span<const Value> arguments, const Value* newValue) {
    const std::size_t count = arguments.size() + (newValue != nullptr ? 1 : 0);
    std::deque<Variant> owned(count);
    for (std::size_t i = 0; i < arguments.size(); ++i) variantFromValue(arguments[i], owned[i]);
    if (newValue != nullptr) variantFromValue(*newValue, owned.back());
    std::vector<VARIANT> slots(owned.begin(), owned.end());
    Variant result;
    named_.invoke(named_.idOf(name), flags, slots, newValue == nullptr ? &result : nullptr);
    Value value;
    valueFromVariant(result, value);
    return value;
  }

  NamedAccess named_;
};

}  // namespace

Ref<Object> makeLateObject(IUnknown* object) { return make<LateObjectProxy>(object); }

}  // namespace tarvo::com
