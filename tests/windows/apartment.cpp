// COM on the tests' thread, as every COM client has it on its own.
#include <gmock/gmock.h>
#include <windows.h>
// windows.h must come first.
#include <objbase.h>

namespace tarvo::test {
namespace {

class Apartment : public testing::Environment {
 public:
  void SetUp() override { ASSERT_EQ(CoInitialize(nullptr), S_OK); }
};

const testing::Environment* const kApartment = testing::AddGlobalTestEnvironment(new Apartment);

}  // namespace
}  // namespace tarvo::test
