// Template lines with the values of their variables, on arbitrary input.
//
// An input is what a person could type: the template line, and after it one value per line, which
// the variables get in turn.  A value's first character is its kind:
//   #-12.5   a number        e...  an enumeration   a...  an array    ?  the variable is not known
//   d36000   a date          s n   a boolean        !     an error    *  looks at the line's text
// and any other line is a text.
//
// Each line is translated with services that must be asked for every step and with some that may be
// bypassed, twice with each: nobody may see a difference.
#include <string>
#include <vector>

#include "frame/codepage.h"
#include "frame/decimal.h"
#include "frame/modRDPGlobalValues.h"
#include "fuzzing.h"
#include "printer/clsUtilImp.h"
#include "services/clsError.h"
#include "services/clsTexto.h"
#include "services/clsUtilDate.h"
#include "services/clsUtilMathOperations.h"
#include "template/line_translator.h"
#include "tests/template/asked_services.h"
#include "tests/template/forwarding_convert.h"

namespace tarvo::fuzz {
namespace {

// What ends that has no end, and keeps within memory what a template may ask for.
constexpr std::size_t kLongestInput = 1'000;
constexpr int kMostAnswers = 40;
constexpr int kMostMessages = 20;
constexpr std::int16_t kMostBlanks = 9;
// One value spread by a separator pattern, among 32,767 characters.
constexpr std::size_t kLongestText = 10'000'000;

constexpr std::int32_t kSourceRaises = 4711;
constexpr std::int32_t kOperatorRaises = 4712;

// All that was to be seen, as text.
using Account = std::string;

class Operator final : public clsMessage {
 public:
  explicit Operator(Account& account) : account_(account) {}

  void sShowMessageWithTitle(TextView valText, TextView valTitle) override {
    account_ += "message " + toUtf8(valTitle) + ": " + toUtf8(valText) + "\n";
    if (++messages_ >= kMostMessages) throw RunTimeError(kOperatorRaises);
  }
  void sShowMessage(Text&) override { fail(); }
  void sWarning(Text&) override { fail(); }
  void sWarningWithTitle(TextView, TextView) override { fail(); }
  bool fAskAcceptCancel(TextView, TextView) override { return fail(); }
  bool fWarnLocation(TextView, std::int16_t) override { return fail(); }

 private:
  static bool fail() {
    require(false, "a template shows messages with a title only");
    return false;
  }

  Account& account_;
  int messages_ = 0;
};

// Counts of blanks may fill any memory: they end early here.
class ThriftyConvert final : public test::ForwardingConvert {
 public:
  std::int16_t fTextToInteger(TextView valText) override {
    const std::int16_t number = ForwardingConvert::fTextToInteger(valText);
    if (number > kMostBlanks) throw RunTimeError(kOverflow);
    return number;
  }
};

std::string placeOf(const clsObSpecialVar& variable) {
  return std::to_string(variable.GetPosBegin()) + "-" + std::to_string(variable.GetPosEnd()) + " " +
         std::to_string(variable.GetSize()) + " {" + toUtf8(variable.GetReadText()) + "} " +
         toUtf8(variable.GetRecordName()) + "." + toUtf8(variable.GetFieldName());
}

class Source final : public VariableSource {
 public:
  Source(const std::vector<Text>& values, Account& account) : values_(values), account_(account) {}

  bool answer(Ref<clsObLineCharacts>& line) override {
    const clsObSpecialVar& variable = *line->GetSpecialVar();
    account_ += "answer " + placeOf(variable) + "\n";
    if (++answers_ > kMostAnswers) throw RunTimeError(kSourceRaises);
    if (values_.empty()) return false;
    return give(values_[static_cast<std::size_t>(answers_ - 1) % values_.size()], *line);
  }

  void notFound(clsObLineCharacts& line) override {
    require(line.GetSpecialVar()->GetContentString() == u"No se encontró", "what nobody knows");
  }

 private:
  bool give(TextView value, clsObLineCharacts& line) {
    clsObSpecialVar& variable = *line.GetSpecialVar();
    const TextView rest = value.substr(value.empty() ? 0 : 1);
    switch (value.empty() ? u'=' : value[0]) {
      case u'#':
        variable.SetContentNumeric(Currency{numberIn(rest)}, rest.size() % 2 == 0);
        return true;
      case u'd':
        variable.SetContentDate(Date{static_cast<double>(numberIn(rest)) / 10'000});
        return true;
      case u's':
      case u'n':
        variable.SetContentBoolean(value[0] == u's');
        return true;
      case u'e':
        variable.SetContentEnum(rest);
        return true;
      case u'a':
        variable.SetContentArray(rest, 9, -1, rest.size() % 2 == 0, true, -1);
        return true;
      case u'?':
        return false;
      case u'!':
        throw RunTimeError(kSourceRaises);
      case u'*':
        account_ += "text " + toUtf8(line.GetTextToWrite()) + "\n";
        return true;
      default:
        variable.SetContentString(value);
        return true;
    }
  }

  // In ten-thousandths; whatever is no digit is passed over.
  static std::int64_t numberIn(TextView text) {
    std::int64_t number = 0;
    for (const char16_t c : text) {
      if (c >= u'0' && c <= u'9' && number < 100'000'000'000'000'000)
        number = number * 10 + c - u'0';
    }
    return text.starts_with(u'-') ? -number : number;
  }

  const std::vector<Text>& values_;
  Account& account_;
  int answers_ = 0;
};

struct Input {
  Text line;
  std::vector<Text> values;
};

Input read(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(data, data + std::min(size, kLongestInput));
  Text all;
  CodePage::windows1252().decode(bytes, all);
  Input input;
  std::size_t from = all.find(u'\n');
  input.line = all.substr(0, from);
  while (from != Text::npos && from + 1 < all.size()) {
    const std::size_t to = all.find(u'\n', from + 1);
    input.values.push_back(all.substr(from + 1, to == Text::npos ? to : to - from - 1));
    from = to;
  }
  return input;
}

// One engine's line and translator, with their services.
class World {
 public:
  World(Ref<clsTexto> texto, Ref<clsUtilDate> dates)
      : texto_(std::move(texto)), dates_(std::move(dates)) {
    printer_->SetChrBold(
        u"\x1B"
        u"E");
    printer_->SetChrCondensed(u"\x0F");
    printer_->SetChrNormal(u"\x12");
  }

  Account translate(const Input& input) {
    Account account;
    useServices(account);
    Source source(input.values, account);
    std::int32_t error = 0;
    line_->sClrRecord();
    try {
      translator_.translate(line_, input.line, source);
    } catch (const RunTimeError& raised) {
      error = raised.number();
      account += "error " + std::to_string(error) + " " + toUtf8(raised.description()) + "\n";
    }
    checkEnd(input, error);
    account += describeLine();
    modRDPGlobalValues::ofThisThread() = modRDPGlobalValues();
    return account;
  }

 private:
  void useServices(Account& account) {
    modRDPGlobalValues& services = modRDPGlobalValues::ofThisThread();
    services.refInsError = make<LibTarvoCI::clsError>();
    services.refInsMessage = make<Operator>(account);
    services.refInsTexto = texto_;
    services.refInsConvert = convert_;
    services.refInsUtilDate = dates_;
    services.refInsUtilMathOperations = math_;
    services.refInsImp = printer_;
  }

  void checkEnd(const Input& input, std::int32_t error) const {
    const Text& text = line_->GetTextToWrite();
    require(text.size() <= kLongestText, "a line takes no more memory than it was given");
    require(error == 0 || error == kInvalidProcedureCall || error == kOverflow ||
                error == kSubscriptOutOfRange || error == kTypeMismatch || error == kSourceRaises ||
                error == kOperatorRaises,
            "a line ends in an error that a template can cause");
    const bool isComment = trimBlanks(input.line).starts_with(u"...");
    require(!isComment || (error == 0 && !line_->GetPrintLine()), "a comment is not printed");
    require(isComment || error != 0 || text.find(u'{') == Text::npos,
            "every variable of a line is resolved");
    require(!line_->GetPauseWasRead() || isComment, "only a comment asks for a pause");
    require(input.line.find(u'{') != Text::npos || isComment || text == input.line,
            "a line without variables stays as it is");
  }

  std::string describeLine() const {
    const clsObLineCharacts& line = *line_;
    return "line " + toUtf8(line.GetTextToPrint()) + "\n" + placeOf(*line.GetSpecialVar()) + "\n" +
           std::to_string(line.GetNumberOfSkips()) + (line.GetSkipLine() ? " lines" : " open") +
           (line.GetSkipNPoints() ? " points" : "") + (line.GetHasTab() ? " tab" : "") +
           (line.GetPrintLine() ? "" : " suppressed") + (line.GetSkipPageWasRead() ? " page" : "") +
           (line.GetPauseWasRead() ? " pause" : "") +
           (line.GetSpecialVar()->GetEndOfRepeatPrintLine() ? "" : " repeats") +
           (line.GetSpecialVar()->GetLineOfRepeatToPrint() ? " again" : "");
  }

  Ref<clsTexto> texto_;
  Ref<ThriftyConvert> convert_ = make<ThriftyConvert>();
  Ref<clsUtilDate> dates_;
  Ref<LibTarvoCI::clsUtilMathOperations> math_ = make<LibTarvoCI::clsUtilMathOperations>();
  Ref<clsUtilImp> printer_ = make<clsUtilImp>();
  LineTranslator translator_;
  Ref<clsObLineCharacts> line_ = make<clsObLineCharacts>();
};

void requireSame(const Account& is, const Account& shouldBe, const char* claim) {
  if (is != shouldBe) std::fprintf(stderr, "%s\n--- and not\n%s\n", is.c_str(), shouldBe.c_str());
  require(is == shouldBe, claim);
}

void check(const Input& input) {
  World asked(make<test::AskedTexto>(), make<test::AskedDate>());
  World bypassed(make<LibTarvoCI::clsTexto>(), make<LibTarvoCI::clsUtilDate>());
  const Account account = asked.translate(input);
  requireSame(bypassed.translate(input), account, "services that are bypassed are not missed");
  requireSame(asked.translate(input), account, "a line comes out the same each time");
  requireSame(bypassed.translate(input), account, "what was read before is read the same");
}

}  // namespace
}  // namespace tarvo::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tarvo::fuzz::check(tarvo::fuzz::read(data, size));
  return 0;
}
