// The printer profile: plain values, kept as they are given.
#include <gtest/gtest.h>

#include <type_traits>

#include "equipment/show_arguments.h"
#include "printer/clsUtilImp_members.h"

namespace tarvo::test {
namespace {

// One property, whatever its type is.
struct Property {
  const char* name;
  Value fresh;   // before it is set
  Value sample;  // something that a careless setter would change
  Value (*get)(const clsUtilImp& channel);
  void (*set)(clsUtilImp& channel, const Value& value);
};

// A text with everything that might get lost: character 0, blanks at its ends, characters that the
// code page does not have.
const Text kSampleText(u" \0\x1B\0\u00E9\u0430\xFF ", 8);

template <auto kGet, auto kSet>
Property property(const char* name) {
  using Type = std::decay_t<decltype((std::declval<const clsUtilImp&>().*kGet)())>;
  static_assert(std::is_same_v<Type, Text> || std::is_same_v<Type, std::uint8_t> ||
                std::is_same_v<Type, bool>);
  Value sample;
  if constexpr (std::is_same_v<Type, Text>) sample = kSampleText;
  if constexpr (std::is_same_v<Type, std::uint8_t>) sample = std::uint8_t{255};
  if constexpr (std::is_same_v<Type, bool>) sample = true;
  return {name, Value(Type()), sample,
          [](const clsUtilImp& channel) { return Value((channel.*kGet)()); },
          [](clsUtilImp& channel, const Value& value) { (channel.*kSet)(*value.tryGet<Type>()); }};
}

#define PROPERTY(name) property<&clsUtilImp::Get##name, &clsUtilImp::Set##name>(#name)

// In the order of the public interface, each with the type that it has there.
const Property kProperties[] = {
    PROPERTY(PrinterName),
    PROPERTY(MaxLinPage),
    PROPERTY(MaxChrLinCondensed80Columns),
    PROPERTY(ChrFormFeed),
    PROPERTY(ChrCondensed),
    PROPERTY(ChrNormal),
    PROPERTY(ChrInitExpanded),
    PROPERTY(ChrEndExpanded),
    PROPERTY(ChrBold),
    PROPERTY(ChrLight),
    PROPERTY(ChrReset),
    PROPERTY(ChrInitUnderlying),
    PROPERTY(ChrEndUnderlying),
    PROPERTY(ChrFont10Points),
    PROPERTY(ChrFont12Points),
    PROPERTY(ChrInitItalic),
    PROPERTY(ChrEndItalic),
    PROPERTY(ChrHighLine1Point),
    PROPERTY(ChrHighLine12Points),
    PROPERTY(ChrGraphics),
    PROPERTY(ChrInternationalChars),
    PROPERTY(ChrInitialString1),
    PROPERTY(ChrInitialString2),
    PROPERTY(ChrInitialString3),
    PROPERTY(ChrInitialString4),
    PROPERTY(CanPrintInTextMode),
};

#undef PROPERTY

void PrintTo(const Property& property, std::ostream* out) { *out << property.name; }

class ProfileProperty : public ::testing::TestWithParam<Property> {
 protected:
  Ref<clsUtilImp> channel = make<clsUtilImp>();
};

TEST_P(ProfileProperty, IsEmptyOnAFreshObject) {
  EXPECT_EQ(show(GetParam().get(*channel)), show(GetParam().fresh));
}

TEST_P(ProfileProperty, KeepsWhatItIsGiven) {
  GetParam().set(*channel, GetParam().sample);
  EXPECT_EQ(show(GetParam().get(*channel)), show(GetParam().sample));
  GetParam().set(*channel, GetParam().fresh);
  EXPECT_EQ(show(GetParam().get(*channel)), show(GetParam().fresh));
}

TEST_P(ProfileProperty, ChangesNoOther) {
  GetParam().set(*channel, GetParam().sample);
  for (const Property& other : kProperties) {
    if (other.name == GetParam().name) continue;
    EXPECT_EQ(show(other.get(*channel)), show(other.fresh)) << other.name;
  }
}

INSTANTIATE_TEST_SUITE_P(Every, ProfileProperty, ::testing::ValuesIn(kProperties),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Profile, HasTwentySixPropertiesOfThreeTypes) {
  int texts = 0, numbers = 0, booleans = 0;
  for (const Property& property : kProperties) {
    texts += property.fresh.tryGet<Text>() != nullptr;
    numbers += property.fresh.tryGet<std::uint8_t>() != nullptr;
    booleans += property.fresh.tryGet<bool>() != nullptr;
  }
  EXPECT_EQ(texts, 23);
  EXPECT_EQ(numbers, 2);
  EXPECT_EQ(booleans, 1);
}

// The interface begins with the properties, in the order of the list above.
TEST(Profile, IsTheFirstPartOfTheInterface) {
  const auto members = Described<clsUtilImp>::info.members;
  ASSERT_GT(members.size(), 2 * std::size(kProperties));
  std::size_t slot = 0;
  for (const Property& property : kProperties) {
    TypeKind kind = TypeKind::kText;
    if (property.fresh.tryGet<std::uint8_t>() != nullptr) kind = TypeKind::kByte;
    if (property.fresh.tryGet<bool>() != nullptr) kind = TypeKind::kBoolean;
    const MemberInfo& get = members[slot++];
    const MemberInfo& set = members[slot++];
    EXPECT_EQ(get.fullName(), std::string("Get") + property.name);
    EXPECT_EQ(get.result.kind, kind) << property.name;
    EXPECT_TRUE(get.parameters.empty()) << property.name;
    EXPECT_EQ(set.fullName(), std::string("Set") + property.name);
    EXPECT_EQ(set.result.kind, TypeKind::kNone) << property.name;
    ASSERT_EQ(set.parameters.size(), 1u) << property.name;
    EXPECT_STREQ(set.parameters[0].name, "valNewValue");
    EXPECT_EQ(set.parameters[0].type.kind, kind) << property.name;
    EXPECT_FALSE(set.parameters[0].byReference) << property.name;
  }
}

TEST(Profile, KeepsACopy) {
  const Ref<clsUtilImp> channel = make<clsUtilImp>();
  Text code =
      u"\x1B"
      u"E";
  channel->SetChrBold(code);
  code = u"gone";
  EXPECT_EQ(show(channel->GetChrBold()), "\"<1B>E\"");
}

}  // namespace
}  // namespace tarvo::test
