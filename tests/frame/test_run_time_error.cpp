// The run-time error: its texts, what it carries, and what other exceptions become.
#include "frame/run_time_error.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "frame/application.h"

namespace tarvo {
namespace {

TEST(RunTimeErrorDescription, EveryNumberOfTheLibraryHasItsText) {
  const struct {
    std::int32_t number;
    TextView description;
  } rows[] = {
      {5, u"Invalid procedure call or argument"},
      {6, u"Overflow"},
      {7, u"Out of memory"},
      {9, u"Subscript out of range"},
      {13, u"Type mismatch"},
      {28, u"Out of stack space"},
      {51, u"Internal error"},
      {53, u"File not found"},
      {57, u"Device I/O error"},
      {61, u"Disk full"},
      {62, u"Input past end of file"},
      {70, u"Permission denied"},
      {76, u"Path not found"},
      {91, u"Object variable not set"},
      {94, u"Invalid use of Null"},
      {429, u"Component can't create object"},
      {438, u"Object doesn't support this property or method"},
      {449, u"Argument not optional"},
      {450, u"Wrong number of arguments or invalid property assignment"},
  };
  for (const auto& row : rows) EXPECT_EQ(describeErrorNumber(row.number), row.description);
}

TEST(RunTimeErrorDescription, AnyOtherNumberHasASentenceWithIt) {
  EXPECT_EQ(describeErrorNumber(1000), u"Run-time error 1000");
  EXPECT_EQ(describeErrorNumber(0), u"Run-time error 0");
  EXPECT_EQ(describeErrorNumber(-2147220991), u"Run-time error -2147220991");
}

TEST(RunTimeError, OfANumberIsTheLibrarysOwn) {
  const RunTimeError error(kOverflow);
  EXPECT_EQ(error.number(), 6);
  EXPECT_EQ(error.source(), application().title);
  EXPECT_EQ(error.source(), u"LibTarvoRdpCI");
  EXPECT_EQ(error.description(), u"Overflow");
  EXPECT_EQ(error.helpFile(), u"");
  EXPECT_EQ(error.helpContext(), 0);
}

TEST(RunTimeError, MaySayWhatItIsAbout) {
  const RunTimeError error(kTypeMismatch, u"valLeftMargin");
  EXPECT_EQ(error.number(), 13);
  EXPECT_EQ(error.source(), u"LibTarvoRdpCI");
  EXPECT_EQ(error.description(), u"Type mismatch: valLeftMargin");
  EXPECT_EQ(RunTimeError(kTypeMismatch, u"").description(), u"Type mismatch");
}

TEST(RunTimeError, CarriesTheDetailsThatItIsGiven) {
  const RunTimeError error(-2147220991, {u"Cliente.clsDatos", u"No hay datos", u"ayuda.hlp", 77});
  EXPECT_EQ(error.number(), -2147220991);
  EXPECT_EQ(error.source(), u"Cliente.clsDatos");
  EXPECT_EQ(error.description(), u"No hay datos");
  EXPECT_EQ(error.helpFile(), u"ayuda.hlp");
  EXPECT_EQ(error.helpContext(), 77);
}

TEST(RunTimeError, DetailsThatAreLeftOutAreEmpty) {
  const RunTimeError error(1000, RunTimeError::Details{});
  EXPECT_EQ(error.source(), u"");
  EXPECT_EQ(error.description(), u"");
  EXPECT_EQ(error.helpFile(), u"");
  EXPECT_EQ(error.helpContext(), 0);
}

TEST(RunTimeError, ShowsNumberAndDescriptionInLogs) {
  EXPECT_STREQ(RunTimeError(kOverflow).what(), "6 Overflow");
  EXPECT_STREQ(RunTimeError(-5, {u"", u"año", u"", 0}).what(), "-5 a\xC3\xB1o");
}

// What handlers make of the exception that the action throws.
template <class Action>
RunTimeError handled(Action&& action) {
  try {
    action();
  } catch (...) {
    return currentRunTimeError();
  }
  ADD_FAILURE() << "nothing was thrown";
  return RunTimeError(0);
}

TEST(CurrentRunTimeError, IsTheErrorItself) {
  setLastSystemError(1801);
  const RunTimeError error = handled([] {
    throw RunTimeError(1000, {u"Cliente", u"No hay datos", u"ayuda.hlp", 77});
  });
  setLastSystemError(0);
  EXPECT_EQ(error.number(), 1000);
  EXPECT_EQ(error.source(), u"Cliente");
  EXPECT_EQ(error.description(), u"No hay datos");
  EXPECT_EQ(error.helpFile(), u"ayuda.hlp");
  EXPECT_EQ(error.helpContext(), 77);
  EXPECT_EQ(error.lastDllError(), 1801);
}

TEST(CurrentRunTimeError, ExhaustedMemoryIsError7) {
  const RunTimeError error = handled([] { throw std::bad_alloc(); });
  EXPECT_EQ(error.number(), 7);
  EXPECT_EQ(error.description(), u"Out of memory");
  EXPECT_EQ(error.source(), u"LibTarvoRdpCI");
  EXPECT_EQ(handled([] { throw std::bad_array_new_length(); }).number(), 7);
}

TEST(CurrentRunTimeError, AnyOtherStandardExceptionIsError51WithItsText) {
  const RunTimeError error = handled([] { throw std::runtime_error("a\xC3\xB1o roto"); });
  EXPECT_EQ(error.number(), 51);
  EXPECT_EQ(error.description(), u"Internal error: año roto");
  EXPECT_EQ(error.source(), u"LibTarvoRdpCI");
}

TEST(CurrentRunTimeError, AnythingElseThatIsThrownIsError51) {
  const RunTimeError error = handled([] { throw 42; });
  EXPECT_EQ(error.number(), 51);
  EXPECT_EQ(error.description(), u"Internal error");
}

class LastDllError : public ::testing::Test {
 protected:
  ~LastDllError() override { setLastSystemError(0); }
};

TEST_F(LastDllError, IsTheSystemsCodeWhenTheErrorWasRaised) {
  setLastSystemError(1801);
  const RunTimeError error(kOverflow);
  setLastSystemError(5);
  EXPECT_EQ(error.lastDllError(), 1801);
  EXPECT_EQ(RunTimeError(kOverflow, u"about").lastDllError(), 5);
  EXPECT_EQ(RunTimeError(1, RunTimeError::Details{}).lastDllError(), 5);
}

TEST_F(LastDllError, OfAnotherExceptionIsTheSystemsCodeWhenItIsHandled) {
  setLastSystemError(122);
  EXPECT_EQ(handled([] { throw std::bad_alloc(); }).lastDllError(), 122);
}

TEST_F(LastDllError, StaysWithTheErrorWhenItIsHandled) {
  setLastSystemError(1801);
  const RunTimeError error = handled([] {
    try {
      throw RunTimeError(kOverflow);
    } catch (...) {
      setLastSystemError(5);
      throw;
    }
  });
  EXPECT_EQ(error.lastDllError(), 1801);
}

}  // namespace
}  // namespace tarvo
