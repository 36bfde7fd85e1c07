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
    return ask(name, DISPATCH_METHOD | DISPATCH_PROPERTYGET, arguments);
  }
  Value get(TextView name, std::span<const Value> indexes) override {
    return ask(name, DISPATCH_PROPERTYGET, indexes);
  }
  void put(TextView name, std::span<const Value> indexes, const Value& value) override {
    const DISPID id = named_.idOf(name);
    // An object is set; a property that only takes values may still take it as one.
    const bool isSet = value.tryGet<Ref<Object>>() != nullptr &&
                       store(id, DISPATCH_PROPERTYPUTREF, indexes, value);
    if (!isSet && !store(id, DISPATCH_PROPERTYPUT, indexes, value)) {
      throw RunTimeError(kNoSuchMember, name);
    }
  }

 private:
  // Arguments in their order, as long as the call lasts.
  class Outgoing {
   public:
    explicit Outgoing(std::span<const Value> values) : owned_(values.size()) {
      for (std::size_t i = 0; i < values.size(); ++i) variantFromValue(values[i], owned_[i]);
    }
    void add(const Value& value) { variantFromValue(value, owned_.emplace_back()); }
    std::vector<VARIANT> slots() const { return {owned_.begin(), owned_.end()}; }

   private:
    std::deque<Variant> owned_;
  };

  Value ask(TextView name, WORD flags, std::span<const Value> arguments) {
    const Outgoing out(arguments);
    std::vector<VARIANT> slots = out.slots();
    Variant result;
    named_.invoke(named_.idOf(name), flags, slots, &result);
    Value value;
    valueFromVariant(result, value);
    return value;
  }

  // False when the object has no property that is written in this way.
  bool store(DISPID id, WORD flags, std::span<const Value> indexes, const Value& value) {
    Outgoing out(indexes);
    out.add(value);
    std::vector<VARIANT> slots = out.slots();
    return named_.invokeIfThere(id, flags, slots, nullptr);
  }

  NamedAccess named_;
};

}  // namespace

Ref<Object> makeLateObject(IUnknown* object) { return make<LateObjectProxy>(object); }

}  // namespace tarvo::com
