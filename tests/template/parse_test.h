// Tables of what is written between braces, and of what comes of it.
//
//   const ParseCase rows[] = {
//       {"a width of 4 and more has two decimals", u"{F,12}", "field='F' length=12 decimals=2"},
//       {"unknown words are reported", u"{F,XYZ}", "field='F'", reports({u"XYZ"})},
//       {"a byte ends at 255", u"{F,256}", "field='F'", fails(6, "sReadAttribute")},
//   };
//   expectEach(rows);
#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "template/template_test.h"
#include "template/variable_dump.h"

namespace tarvo::test {

struct ParseOutcome {
  std::vector<TextView> unknown = {};  // attributes that are reported, in their order
  std::int32_t error = 0;              // the number that sExtract ends in
  const char* trail = "";              // who names it before sExtractFieldAndCharacteristics does
};
inline ParseOutcome reports(std::vector<TextView> unknown) {
  return {.unknown = std::move(unknown)};
}
inline ParseOutcome fails(std::int32_t error, const char* trail,
                          std::vector<TextView> unknown = {}) {
  return {.unknown = std::move(unknown), .error = error, .trail = trail};
}

struct ParseCase {
  const char* shows;
  TextView line;
  const char* dump;  // after an error: what was set until then
  ParseOutcome outcome = {};
};

class ParseTest : public TemplateTest {
 protected:
  // Reads each row's line with a new variable, with that variable once more, with one that has read
  // something else, and within other text; and every beginning of it.
  void expectEach(std::span<const ParseCase> rows) {
    for (const ParseCase& row : rows) {
      SCOPED_TRACE(row.shows);
      SCOPED_TRACE(toUtf8(row.line));
      const Ref<clsObSpecialVar> fresh = make<clsObSpecialVar>();
      expectReading(*fresh, row.line, row);
      expectReading(*fresh, row.line, row);
      expectReading(*usedVariable(), row.line, row);
      expectReading(*fresh, u"Total: " + Text(row.line) + u"{,} }\r\n", row);
      expectPlace(*fresh, row, 8);
      expectBeginningsEndCleanly(row.line);
    }
  }

  // The messages that were shown, whole.
  std::vector<std::string> messagesShown() const { return calls.linesOf("clsMessage"); }

  static std::string messageAbout(TextView attribute, TextView readText) {
    return "clsMessage.sShowMessageWithTitle " +
           inQuotes(u"No se encontró el tipo de atributo " + Text(attribute) + u" en la línea " +
                    Text(readText)) +
           ", \"Impresión de Plantilla\"";
  }

  // The error that reading the line ends in; 0 for none.
  std::int32_t read(clsObSpecialVar& reader, TextView line) {
    calls.clear();
    error->reports.clear();
    return errorNumberOf([&] { reader.sExtract(line); });
  }

  // The dump of the line, read by a new variable.
  std::string dumpOfLine(const Text& line) {
    const Ref<clsObSpecialVar> fresh = make<clsObSpecialVar>();
    EXPECT_EQ(read(*fresh, line), 0) << toUtf8(line);
    return dumpOf(*fresh);
  }

 private:
  static constexpr const char* kCallers = "sExtractFieldAndCharacteristics sExtract";

  // Everything that a reading must not leave behind.
  static Ref<clsObSpecialVar> usedVariable() {
    const Ref<clsObSpecialVar> used = make<clsObSpecialVar>();
    used->sExtract(
        u"....{R[1].F[2][3],QR,SC,NC,NB,C0,CP,FILL,VACIO,IIF(\"S\",A,B),QLR,7,5,"
        u"PATRONSEPARADOR=2C}");
    used->sExtract(u"....{R[1].F[2][3],DF(dd),QC}");
    used->SetContentString(u"left");
    used->sFormatSpecialVar();
    used->SetPrintLine(false);
    used->SetLineOfRepeatToPrint(true);
    used->SetEndOfRepeatPrintLine(false);
    used->SetIifPossibleValues(Value());  // an IIF alone changes it
    return used;
  }

  void expectReading(clsObSpecialVar& reader, const Text& line, const ParseCase& row) {
    expectReading(reader, TextView(line), row);
  }
  void expectReading(clsObSpecialVar& reader, TextView line, const ParseCase& row) {
    EXPECT_EQ(read(reader, line), row.outcome.error);
    EXPECT_EQ(dumpOf(reader), row.dump);
    std::vector<std::string> messages;
    for (const TextView attribute : row.outcome.unknown) {
      messages.push_back(messageAbout(attribute, reader.GetReadText()));
    }
    EXPECT_EQ(messagesShown(), messages);
    EXPECT_EQ(error->trail(), expectedTrail(row.outcome));
  }

  static std::string expectedTrail(const ParseOutcome& outcome) {
    if (outcome.error == 0) return "";
    const std::string trail = outcome.trail;
    return trail.empty() ? kCallers : trail + " " + kCallers;
  }

  // The braces of a row are the first and the last character of its line.
  static void expectPlace(const clsObSpecialVar& reader, const ParseCase& row, int begin) {
    const int size = static_cast<int>(row.line.size()) - 2;
    EXPECT_EQ(reader.GetPosBegin(), begin);
    EXPECT_EQ(reader.GetSize(), size);
    EXPECT_EQ(reader.GetPosEnd(), begin + size + 1);
  }

  // Every beginning of the line, and every beginning of what is between its braces.
  void expectBeginningsEndCleanly(TextView line) {
    const Ref<clsObSpecialVar> reader = make<clsObSpecialVar>();
    for (std::size_t size = 0; size < line.size(); ++size) {
      SCOPED_TRACE("the first " + std::to_string(size));
      EXPECT_EQ(read(*reader, line.substr(0, size)), size == 0 ? 0 : kInvalidProcedureCall);
      expectEndsCleanly(*reader, Text(line.substr(0, size)) + u"}");
    }
  }

  // Only with the errors that a text can cause, and ready for the next one.
  void expectEndsCleanly(clsObSpecialVar& reader, const Text& line) {
    message->fault.raiseAt(kMostMessages, kNoEnd);
    const std::int32_t number = read(reader, line);
    EXPECT_TRUE(number == 0 || number == kOverflow || number == kTypeMismatch) << number;
    message->fault.never();
    EXPECT_TRUE(number == 0 || error->trail().ends_with(kCallers)) << error->trail();
    reader.SetIifPossibleValues(Value());
    EXPECT_EQ(read(reader, u"{r.f,12,QR}"), 0);
    EXPECT_EQ(dumpOf(reader), "record='r' field='F' right length=12 decimals=2");
  }

  static constexpr int kMostMessages = 500;
  static constexpr std::int32_t kNoEnd = 4711;
};

}  // namespace tarvo::test
