// From the value to the text: which service is asked for what, in which order, and what is printed.
#include "equipment/show_arguments.h"
#include "template/expected_format.h"
#include "template/template_test.h"

namespace tarvo::test {
namespace {

using Give = void (*)(clsObSpecialVar& variable);

template <std::int64_t kTenThousandths, bool kParenthesis = false>
void number(clsObSpecialVar& v) {
  v.SetContentNumeric(Currency{kTenThousandths}, kParenthesis);
}
void ana(clsObSpecialVar& v) { v.SetContentString(u"Ana"); }
void dash(clsObSpecialVar& v) { v.SetContentString(u"-"); }
void noText(clsObSpecialVar& v) { v.SetContentString({}); }
void march15(clsObSpecialVar& v) { v.SetContentDate(Date{35869}); }
void enumC(clsObSpecialVar& v) { v.SetContentEnum(u"C"); }
void enumR(clsObSpecialVar& v) { v.SetContentEnum(u"R"); }
void yes(clsObSpecialVar& v) { v.SetContentBoolean(true); }
void no(clsObSpecialVar& v) { v.SetContentBoolean(false); }

class Format : public TemplateTest {
 protected:
  std::string formatted(TextView line, Give give) {
    variable->sExtract(line);
    give(*variable);
    return writtenBy([this] { variable->sFormatSpecialVar(); });
  }
};

// --- Every kind in every alignment and width.

struct WidthRow {
  const char16_t* line;  // without its last brace
  int width;
  Give give;
  const char* calls;  // before the alignment
  const char* text;   // which is aligned then
  const char* left;
  const char* right;
  const char* center;
  const char* justified;
};

constexpr WidthRow kWidthRows[] = {
    {u"{R.F", 0, ana, "", "Ana", "Ana", "Ana", "Ana", "Ana"},
    {u"{R.F,2", 2, ana, R"(fPadOrCut "Ana", 2, " ")", "An", "An", "An", "An", "An"},
    {u"{R.F,3", 3, ana, R"(fPadOrCut "Ana", 3, " ")", "Ana", "Ana", "Ana", "Ana", "Ana"},
    {u"{R.F,6", 6, ana, R"(fPadOrCut "Ana", 6, " ")", "Ana   ", "Ana   ", "   Ana", " Ana  ",
     "error 6"},

    {u"{R.F", 0, number<12'345'000>, "fFormatNumberDotComma 12345000/10000, 0, 0, false", "1.235",
     "1.235", "1.235", "1.235", "1.235"},
    {u"{R.F,4", 4, number<12'345'000>, "fFormatNumberDotComma 12345000/10000, 4, 2, false", "****",
     "****", "****", "****", "****"},
    {u"{R.F,7", 7, number<12'345'000>, "fFormatNumberDotComma 12345000/10000, 7, 2, false",
     "1234,50", "1234,50", "1234,50", "1234,50", "1234,50"},
    {u"{R.F,8", 8, number<12'345'000>, "fFormatNumberDotComma 12345000/10000, 8, 2, false",
     "1.234,50", "1.234,50", "1.234,50", "1.234,50", "1.234,50"},
    {u"{R.F,11", 11, number<12'345'000>, "fFormatNumberDotComma 12345000/10000, 11, 2, false",
     "   1.234,50", "1.234,50   ", "   1.234,50", " 1.234,50  ", "error 6"},

    {u"{R.F", 0, march15, "fDefaultDateText day 35869", "15/03/1998", "15/03/1998", "15/03/1998",
     "15/03/1998", "15/03/1998"},
    {u"{R.F,8", 8, march15, "fDefaultDateText day 35869", "15/03/1998", "15/03/1998", "15/03/1998",
     "15/03/1998", "15/03/1998"},
    {u"{R.F,10", 10, march15, "fDefaultDateText day 35869", "15/03/1998", "15/03/1998",
     "15/03/1998", "15/03/1998", "15/03/1998"},
    {u"{R.F,13", 13, march15, "fDefaultDateText day 35869", "15/03/1998", "15/03/1998   ",
     "   15/03/1998", " 15/03/1998  ", "error 6"},
    {u"{R.F,10,DF(d mmmm)", 10, march15, R"(fFormatDate day 35869, "d mmmm")", "15 marzo",
     "15 marzo  ", "  15 marzo", " 15 marzo ", "15   marzo"},

    {u"{R.F", 0, yes, "fBooleanToText true", "S", "S", "S", "S", "S"},
    {u"{R.F,1", 1, yes, "fBooleanToText true", "S", "S", "S", "S", "S"},
    {u"{R.F,4", 4, no, "fBooleanToText false", "N", "N   ", "   N", " N  ", "error 6"},
    {u"{R.F,IIF(\"N\",Vale,No vale)", 0, no,
     R"(fBooleanToText false; fReplaceAll "Vale", "<22>", "")", "Vale", "Vale", "Vale", "Vale",
     "Vale"},
    {u"{R.F,2,IIF(\"N\",Vale,No vale)", 2, no,
     R"(fBooleanToText false; fReplaceAll "Vale", "<22>", "")", "Vale", "Vale", "Vale", "Vale",
     "Vale"},
    {u"{R.F,4,IIF(\"N\",Vale,No vale)", 4, no,
     R"(fBooleanToText false; fReplaceAll "Vale", "<22>", "")", "Vale", "Vale", "Vale", "Vale",
     "Vale"},
    {u"{R.F,9,IIF(\"N\",Vale,No vale)", 9, yes,
     R"(fBooleanToText true; fReplaceAll "No vale", "<22>", "")", "No vale", "No vale  ",
     "  No vale", " No vale ", "No   vale"},

    {u"{R.F,IIF(\"C\",Contado,A plazo)", 0, enumC, R"(fReplaceAll "Contado", "<22>", "")",
     "Contado", "Contado", "Contado", "Contado", "Contado"},
    {u"{R.F,5,IIF(\"C\",Contado,A plazo)", 5, enumC, R"(fReplaceAll "Contado", "<22>", "")",
     "Contado", "Contado", "Contado", "Contado", "Contado"},
    {u"{R.F,7,IIF(\"C\",Contado,A plazo)", 7, enumC, R"(fReplaceAll "Contado", "<22>", "")",
     "Contado", "Contado", "Contado", "Contado", "Contado"},
    {u"{R.F,9,IIF(\"C\",Contado,A plazo)", 9, enumR, R"(fReplaceAll "A plazo", "<22>", "")",
     "A plazo", "A plazo  ", "  A plazo", " A plazo ", "A   plazo"},
    {u"{R.F,10,IIF(\"C\",Contado,A plazo)", 10, enumR, R"(fReplaceAll "A plazo", "<22>", "")",
     "A plazo", "A plazo   ", "   A plazo", " A plazo  ", "error 6"},
};

struct Alignment {
  const char16_t* word;
  const char* WidthRow::*result;
  const char* operation;
};

constexpr Alignment kAlignments[] = {
    {u",QL}", &WidthRow::left, "fAlignLeft"},
    {u",QR}", &WidthRow::right, "fAlignRight"},
    {u",QC}", &WidthRow::center, "fAlignCenter"},
    {u",QJ}", &WidthRow::justified, nullptr},
};

TEST_F(Format, AlignsEveryKindInItsWidth) {
  for (const WidthRow& row : kWidthRows) {
    for (const Alignment& alignment : kAlignments) {
      const Text line = Text(row.line) + alignment.word;
      SCOPED_TRACE(toUtf8(line));
      EXPECT_EQ(formatted(line, row.give), row.*alignment.result);

      std::string expected = row.calls;
      const bool isField =
          variable->GetTypeField() == TFR_Numeric && alignment.result == &WidthRow::right;
      const std::string aligned = inQuotes(fromUtf8(row.text));
      if (row.width != 0 && !isField && alignment.operation != nullptr) {
        expected += std::string("; ") + alignment.operation + " " + aligned + ", " +
                    std::to_string(row.width);
      }
      if (alignment.operation != nullptr) {
        EXPECT_EQ(callsMade(), expected);
      } else if (row.width != 0) {
        expected.append("; fTrim ").append(aligned);
        EXPECT_TRUE(callsMade().starts_with(expected)) << callsMade();
      }
    }
  }
}

TEST_F(Format, AlignsByTheKindWithoutAnAlignmentAttribute) {
  for (const WidthRow& row : kWidthRows) {
    SCOPED_TRACE(toUtf8(row.line));
    EXPECT_EQ(formatted(Text(row.line) + u"}", row.give),
              row.give == number<12'345'000> ? row.right : row.left);
  }
}

// --- The attributes.

struct Row {
  const char16_t* line;
  Give give;
  const char* text;
  const char* calls;
};

constexpr Row kRows[] = {
    // Decimals; a width of four and more has two unless the template says otherwise.
    {u"{F,12,0}", number<12'345'678>, "       1.235",
     "fFormatNumberDotComma 12345678/10000, 12, 0, false"},
    {u"{F,12,1}", number<12'345'678>, "     1.234,6",
     "fFormatNumberDotComma 12345678/10000, 12, 1, false"},
    {u"{F,12}", number<12'345'678>, "    1.234,57",
     "fFormatNumberDotComma 12345678/10000, 12, 2, false"},
    {u"{F,12,3}", number<12'345'678>, "   1.234,568",
     "fFormatNumberDotComma 12345678/10000, 12, 3, false"},
    {u"{F,12,4}", number<12'345'678>, "  1.234,5678",
     "fFormatNumberDotComma 12345678/10000, 12, 4, false"},
    {u"{F,12,5}", number<12'345'678>, " 1.234,56780",
     "fFormatNumberDotComma 12345678/10000, 12, 5, false"},
    {u"{F,3}", number<12'345>, "  1", "fFormatNumberDotComma 12345/10000, 3, 0, false"},
    {u"{F,10,255}", number<12'345>, "**********",
     "fFormatNumberDotComma 12345/10000, 10, 255, false"},
    {u"{F,255,0}", number<70'000>, nullptr, "fFormatNumberDotComma 70000/10000, 255, 0, false"},

    // Negative numbers, and the two styles.
    {u"{F,12}", number<-12'345'000>, "   -1.234,50",
     "fFormatNumberDotComma -12345000/10000, 12, 2, false"},
    {u"{F,12}", number<-12'345'000, true>, "  (1.234,50)",
     "fFormatNumberDotComma -12345000/10000, 12, 2, true"},
    {u"{F,12}", number<12'345'000, true>, "    1.234,50",
     "fFormatNumberDotComma 12345000/10000, 12, 2, true"},
    {u"{F,12,CP}", number<12'345'000>, "    1,234.50",
     "fFormatNumberCommaDot 12345000/10000, 12, 2, false"},
    {u"{F,12,3,COMASYPUNTO}", number<-12'345'000, true>, " (1,234.500)",
     "fFormatNumberCommaDot -12345000/10000, 12, 3, true"},
    {u"{F,12,CP,QL}", number<-12'345'000>, "-1,234.50   ",
     R"(fFormatNumberCommaDot -12345000/10000, 12, 2, false; fAlignLeft "   -1,234.50", 12)"},

    // A zero; without NOCERO it is a number like any other.
    {u"{F,6}", number<0>, "  0,00", "fFormatNumberDotComma 0/10000, 6, 2, false"},
    {u"{F,10,NC}", number<0>, "          ", R"(fAlignRight "", 10)"},
    {u"{F,10,NOCERO,QL}", number<0>, "          ", R"(fAlignLeft "", 10)"},
    {u"{F,10,NC,QC}", number<0>, "          ", R"(fAlignCenter "", 10)"},
    {u"{F,10,NC,QJ}", number<0>, "", R"(fTrim "")"},
    {u"{F,NC}", number<0>, "", ""},
    {u"{F,10,NC,SC}", number<0>, "          ", R"(fAlignRight "", 10)"},
    {u"{F,10,NC,CONCEROS}", number<0>, "0000000000",
     R"(fAlignRight "", 10; fReplaceAll "          ", " ", "0")"},
    {u"{F,10,NC,NB}", number<0>, "", R"(fAlignRight "", 10; fTrim "          ")"},
    {u"{F,6,NC}", number<1>, "  0,00", "fFormatNumberDotComma 1/10000, 6, 2, false"},

    // SINCOMAS: the value's own decimals or none; the parentheses do not count.
    {u"{F,12,SC}", number<12'345'678>, "   1234,5678",
     R"(fNumberToText currency 12345678/10000; fAlignRight "1234,5678", 12)"},
    {u"{F,12,1,SINCOMAS}", number<12'345'000>, "      1234,5",
     R"(fNumberToText currency 12345000/10000; fAlignRight "1234,5", 12)"},
    {u"{F,12,4,SC}", number<70'000>, "           7",
     R"(fNumberToText currency 70000/10000; fAlignRight "7", 12)"},
    {u"{F,12,0,SC}", number<12'345'000>, "        1235",
     "fRound 12345000/10000, 0; fNumberToText currency 12350000/10000; "
     R"(fAlignRight "1235", 12)"},
    {u"{F,12,0,SC}", number<-12'345'000, true>, "       -1235",
     "fRound -12345000/10000, 0; fNumberToText currency -12350000/10000; "
     R"(fAlignRight "-1235", 12)"},
    {u"{F,12,SC}", number<-12'345'000, true>, "     -1234,5",
     R"(fNumberToText currency -12345000/10000; fAlignRight "-1234,5", 12)"},
    {u"{F,12,SC,CP}", number<12'345'000>, "      1234,5",
     R"(fNumberToText currency 12345000/10000; fAlignRight "1234,5", 12)"},
    {u"{F,12,SC,QL}", number<12'345'000>, "1234,5      ",
     R"(fNumberToText currency 12345000/10000; fAlignRight "1234,5", 12; )"
     R"(fAlignLeft "      1234,5", 12)"},
    {u"{F,4,SC}", number<12'345'000>, "1234,5",
     R"(fNumberToText currency 12345000/10000; fAlignRight "1234,5", 4)"},
    {u"{F,SC}", number<4'999>, "0",
     R"(fRound 4999/10000, 0; fNumberToText currency 0/10000; fAlignRight "0", 0)"},
    {u"{F,SC}", number<5'000>, "1",
     R"(fRound 5000/10000, 0; fNumberToText currency 10000/10000; fAlignRight "1", 0)"},
    {u"{F,6,0,SC,NC}", number<4'999>, "     0",
     R"(fRound 4999/10000, 0; fNumberToText currency 0/10000; fAlignRight "0", 6)"},

    // CONCEROS fills every blank of a number, of nothing else.
    {u"{F,12,C0}", number<12'345'000>, "00001.234,50",
     R"(fFormatNumberDotComma 12345000/10000, 12, 2, false; fReplaceAll "    1.234,50", " ", "0")"},
    {u"{F,9,C0}", number<-15'000>, "0000-1,50",
     R"(fFormatNumberDotComma -15000/10000, 9, 2, false; fReplaceAll "    -1,50", " ", "0")"},
    {u"{F,9,C0}", number<-15'000, true>, "000(1,50)",
     "fFormatNumberDotComma -15000/10000, 9, 2, true; "
     R"_(fReplaceAll "   (1,50)", " ", "0")_"},
    {u"{F,6,QL,CONCEROS}", number<15'000>, "1,5000",
     R"(fFormatNumberDotComma 15000/10000, 6, 2, false; fAlignLeft "  1,50", 6; )"
     R"(fReplaceAll "1,50  ", " ", "0")"},
    {u"{F,6,C0,NB}", number<15'000>, "1,50",
     R"(fFormatNumberDotComma 15000/10000, 6, 2, false; fTrim "  1,50"; )"
     R"(fReplaceAll "1,50", " ", "0")"},
    {u"{F,5,C0}", ana, "Ana  ", R"(fPadOrCut "Ana", 5, " "; fAlignLeft "Ana  ", 5)"},
    {u"{F,12,C0}", march15, "15/03/1998  ",
     R"(fDefaultDateText day 35869; fAlignLeft "15/03/1998", 12)"},
    {u"{F,3,C0}", yes, "S  ", R"(fBooleanToText true; fAlignLeft "S", 3)"},
    {u"{F,3,C0,IIF(\"C\",1,2)}", enumC, "1  ", R"(fReplaceAll "1", "<22>", ""; fAlignLeft "1", 3)"},

    // NOBLANCOS takes off the blanks that the alignment put.
    {u"{F,12,NB}", number<12'345'000>, "1.234,50",
     R"(fFormatNumberDotComma 12345000/10000, 12, 2, false; fTrim "    1.234,50")"},
    {u"{F,5,NOBLANCOS}", ana, "Ana",
     R"(fPadOrCut "Ana", 5, " "; fAlignLeft "Ana  ", 5; fTrim "Ana  ")"},
    {u"{F,5,NB,QC}", ana, "Ana",
     R"(fPadOrCut "Ana", 5, " "; fAlignCenter "Ana  ", 5; fTrim " Ana ")"},
    {u"{F,NB}", [](clsObSpecialVar& v) { v.SetContentString(u"  A na "); }, "A na",
     R"(fTrim "  A na ")"},
    {u"{F,12,NB,QR}", march15, "15/03/1998",
     R"(fDefaultDateText day 35869; fAlignRight "15/03/1998", 12; fTrim "  15/03/1998")"},
    {u"{F,3,NB}", yes, "S", R"(fBooleanToText true; fAlignLeft "S", 3; fTrim "S  ")"},
    {u"{F,3,NB,IIF(\"C\",1,2)}", enumC, "1",
     R"(fReplaceAll "1", "<22>", ""; fAlignLeft "1", 3; fTrim "1  ")"},

    // FILL repeats a text of one character.
    {u"{F,5,FILL}", dash, "-----", R"(fRepeat "-", 5; fAlignLeft "-----", 5)"},
    {u"{F,5,REPEAT,QR}", dash, "-----", R"(fRepeat "-", 5; fAlignRight "-----", 5)"},
    {u"{F,5,FILL}", [](clsObSpecialVar& v) { v.SetContentString(u"ab"); }, "ab   ",
     R"(fPadOrCut "ab", 5, " "; fAlignLeft "ab   ", 5)"},
    {u"{F,5,FILL}", noText, "     ", R"(fPadOrCut "", 5, " "; fAlignLeft "     ", 5)"},
    {u"{F,FILL}", dash, "-", ""},
    {u"{F,1,FILL}", dash, "-", R"(fRepeat "-", 1; fAlignLeft "-", 1)"},
    {u"{F,5,0,FILL}", number<70'000>, "    7", "fFormatNumberDotComma 70000/10000, 5, 0, false"},
    {u"{F,3,FILL}", yes, "S  ", R"(fBooleanToText true; fAlignLeft "S", 3)"},

    // The words that decide about the line leave the text as it is.
    {u"{F,5,VACIO}", ana, "Ana  ", R"(fPadOrCut "Ana", 5, " "; fAlignLeft "Ana  ", 5)"},
    {u"{F,CONDICION}", ana, "Ana", ""},
    {u"{F,5,VACIA}", noText, "     ", R"(fPadOrCut "", 5, " "; fAlignLeft "     ", 5)"},
    {u"{F,VACIO}", number<0>, "0", "fFormatNumberDotComma 0/10000, 0, 0, false"},

    // Texts are what they are, attributes of numbers and dates or not.
    {u"{F}", noText, "", ""},
    {u"{F,5,1,SC,CP,NC,DF(dd)}", ana, "Ana  ", R"(fPadOrCut "Ana", 5, " "; fAlignLeft "Ana  ", 5)"},
    {u"{F,4,IIF(\"Ana\",Si,No)}", ana, "Ana ", R"(fPadOrCut "Ana", 4, " "; fAlignLeft "Ana ", 4)"},
    {u"{F,2}", [](clsObSpecialVar& v) { v.SetContentString(u"a\u00F1o"); }, "a\u00F1",
     "fPadOrCut \"a\u00F1o\", 2, \" \"; fAlignLeft \"a\u00F1\", 2"},
    {u"{F[2],3}", [](clsObSpecialVar& v) { v.SetContentArray(u"abc", 0, -1, false, true, 0); },
     "b  ", R"(fPadOrCut "b", 3, " "; fAlignLeft "b  ", 3)"},

    // Dates.
    {u"{F,DATEFORMAT(dd/mm/yy)}", march15, "15/03/98", R"(fFormatDate day 35869, "dd/mm/yy")"},
    {u"{F,DF(d \\de MMMM, \"a\" hh:nn)}",
     [](clsObSpecialVar& v) { v.SetContentDate(Date{35869.75}); }, "15 de marzo, a 18:00",
     R"(fFormatDate day 35869.75, "d \de MMMM, <22>a<22> hh:nn")"},
    {u"{F,DF()}", march15, "", R"(fFormatDate day 35869, "")"},
    {u"{F,DF}", march15, "", R"(fFormatDate day 35869, "")"},
    {u"{F,12,QR,DF(yyyy)}", march15, "        1998",
     R"(fFormatDate day 35869, "yyyy"; fAlignRight "1998", 12)"},
    {u"{@fecha,df(dd-mm)}", march15, "15-03", R"(fFormatDate day 35869, "DD-MM")"},
    {u"{F}", [](clsObSpecialVar& v) { v.SetContentDate(Date{-1.25}); }, "29/12/1899",
     "fDefaultDateText day -1.25"},
};

TEST_F(Format, DoesWhatTheAttributesSay) {
  for (const Row& row : kRows) {
    SCOPED_TRACE(toUtf8(row.line));
    const std::string text = row.text != nullptr ? row.text : std::string(254, ' ') + "7";
    EXPECT_EQ(formatted(row.line, row.give), text);
    EXPECT_EQ(callsMade(), row.calls);
  }
}

// Its number is no alignment; nobody checks what a client sets.
TEST_F(Format, LeavesATextAsItIsForAnUnknownAlignment) {
  for (const int unknown : {-1, 4, 255}) {
    variable->sExtract(u"{F,6}");
    ana(*variable);
    variable->SetAlignmentType(static_cast<eAlignmentType>(unknown));
    EXPECT_EQ(writtenBy([this] { variable->sFormatSpecialVar(); }), "Ana   ");
    EXPECT_EQ(callsMade(), R"(fPadOrCut "Ana", 6, " ")");
  }
}

TEST_F(Format, StartsAfreshEachTime) {
  variable->sExtract(u"{F,8,1,C0,NB,PATRONSEPARADOR=B}");
  number<15'000>(*variable);
  for (int i = 0; i < 3; ++i) {
    variable->SetTextToWrite(u"before");
    EXPECT_EQ(writtenBy([this] { variable->sFormatSpecialVar(); }), "1 , 5");
  }
}

// What a client has set counts like what a template says.
TEST_F(Format, TakesWhatAClientHasSet) {
  variable->sExtract(u"{F}");
  number<-12'345'000, true>(*variable);
  variable->SetLength(12);
  variable->SetDecimalPlaces(1);
  EXPECT_EQ(writtenBy([this] { variable->sFormatSpecialVar(); }), "   (1.234,5)");
  variable->SetSeparatorOfCommasAndDot(true);
  EXPECT_EQ(writtenBy([this] { variable->sFormatSpecialVar(); }), "   (1,234.5)");
  variable->SetPrintComa(false);
  EXPECT_EQ(writtenBy([this] { variable->sFormatSpecialVar(); }), "     -1234,5");
  variable->SetFillWithZero(true);
  EXPECT_EQ(writtenBy([this] { variable->sFormatSpecialVar(); }), "00000-1234,5");
  variable->SetNotSpacesToTheSides(true);
  EXPECT_EQ(writtenBy([this] { variable->sFormatSpecialVar(); }), "-1234,5");
}

// --- IIF.

struct IifRow {
  const char* shows;
  const char16_t* line;
  Give give;
  const char* text;
};

constexpr IifRow kIifRows[] = {
    {"the first value", u"{F,IIF(\"C\",Contado,Plazo)}", enumC, "Contado"},
    {"the second value", u"{F,IIF(\"C\",Contado,Plazo)}", enumR, "Plazo"},
    {"never a third", u"{F,IIF(\"X\",Uno,Dos,Tres)}", enumC, "Dos"},
    {"several texts, the first", u"{F,IIF(\"C\"\"R\",Uno,Dos)}", enumC, "Uno"},
    {"several texts, the last", u"{F,IIF(\"C\"\"R\",Uno,Dos)}", enumR, "Uno"},
    {"several texts with words between", u"{F,IIF(\"A\" o \"C\",Uno,Dos)}", enumC, "Uno"},
    {"none of several texts", u"{F,IIF(\"A\"\"B\",Uno,Dos)}", enumC, "Dos"},
    {"the text between two quoted ones", u"{F,IIF(\"A\"C\"B\",Uno,Dos)}", enumC, "Uno"},
    {"without quotes", u"{F,IIF(C,Uno,Dos)}", enumC, "Dos"},
    {"with one quote", u"{F,IIF(\"C,Uno,Dos)}", enumC, "Dos"},
    {"a longer text", u"{F,IIF(\"CC\",Uno,Dos)}", enumC, "Dos"},
    {"the text in another case", u"{F,IIF(\"c\",Uno,Dos)}", enumC, "Dos"},
    {"an empty condition", u"{F,IIF(,Uno,Dos)}", enumC, "Dos"},
    {"no text where it is asked for", u"{F,IIF(\"\",Uno,Dos)}",
     [](clsObSpecialVar& v) { v.SetContentEnum({}); }, "Uno"},
    {"no text where it is not", u"{F,IIF(\"C\",Uno,Dos)}",
     [](clsObSpecialVar& v) { v.SetContentEnum({}); }, "Dos"},
    {"a text with a quote", u"{F,IIF(\"a\"b\",Uno,Dos)}",
     [](clsObSpecialVar& v) { v.SetContentEnum(u"a\"b"); }, "Uno"},
    {"a quote", u"{F,IIF(\"\"\",Uno,Dos)}", [](clsObSpecialVar& v) { v.SetContentEnum(u"\""); },
     "Uno"},
    {"a text with blanks", u"{F,IIF(\" C\",Uno,Dos)}", enumC, "Dos"},
    {"at the condition's end", u"{F,IIF(x\"yC\"C\",Uno,Dos)}", enumC, "Uno"},
    {"quotes around the first value", u"{F,IIF(\"C\",\"Uno\",\"Dos\")}", enumC, "Uno"},
    {"quotes in the second value", u"{F,IIF(\"X\",U\"n\"o,D\"\"os\")}", enumC, "Dos"},
    {"quotes alone", u"{F,IIF(\"C\",\"\",Dos)}", enumC, ""},
    {"an empty first value", u"{F,IIF(\"C\",,Dos)}", enumC, ""},
    {"an empty second value", u"{F,IIF(\"X\",Uno,)}", enumC, ""},
    {"one empty value", u"{F,IIF(\"C\",)}", enumC, ""},
    {"blanks of QLR", u"{F,QLR,IIF(\"C\",[2,1]Uno,Dos)}", enumC, "  Uno "},

    {"no second value", u"{F,IIF(\"X\",Uno)}", enumC, "error 9"},
    {"no second value but an empty first", u"{F,IIF(\"X\",)}", enumC, "error 9"},
    {"no value for a match", u"{F,IIF(\"C\")}", enumC, "error 9"},
    {"no value", u"{F,IIF(\"X\")}", enumC, "error 9"},
    {"nothing at all", u"{F,IIF()}", enumC, "error 9"},

    {"true", u"{F,IIF(\"S\",Si,No)}", yes, "Si"},
    {"false", u"{F,IIF(\"S\",Si,No)}", no, "No"},
    {"false asked for", u"{F,IIF(\"N\",Inactivo,Activo)}", no, "Inactivo"},
    {"both", u"{F,IIF(\"S\"\"N\",Siempre,Nunca)}", no, "Siempre"},
    {"a condition without quotes", u"{F,IIF(S,Si,No)}", yes, "No"},
    {"quotes around a boolean's value", u"{F,IIF(\"S\",\"Si\",\"No\")}", no, "No"},
    {"a boolean without its second value", u"{F,IIF(\"S\",Si)}", no, "error 9"},
    {"a boolean without values", u"{F,IIF(\"S\")}", yes, "error 9"},
    {"a boolean without IIF", u"{F}", yes, "S"},
    {"false without IIF", u"{F}", no, "N"},
    {"a boolean with an empty IIF", u"{F,IIF()}", yes, "S"},
    {"a boolean whose IIF has no argument", u"{F,IIF}", no, "N"},
};

TEST_F(Format, ChoosesTheIifValue) {
  for (const IifRow& row : kIifRows)
    EXPECT_EQ(formatted(row.line, row.give), row.text) << row.shows;
}

// The list of an earlier variable is still there, and a list that a client has set.
TEST_F(Format, OfAnEnumerationWithoutIifIsError13) {
  const Value lists[] = {Value(), Value(Text(u"Uno")), Value(ValueArray{}),
                         Value(ValueArray{Value(Text(u"Uno")), Value(Text(u"Dos"))})};
  for (const Value& list : lists) {
    for (const char16_t* line : {u"{F}", u"{F,9,QR}", u"{F,DF(dd)}", u"{F,IIF}"}) {
      SCOPED_TRACE(show(list) + toUtf8(line));
      formatted(u"{F,IIF(\"C\",Uno,Dos)}", enumC);
      variable->SetIifPossibleValues(list);
      EXPECT_EQ(formatted(line, enumC), "error 13");
      EXPECT_EQ(callsMade(), "");
    }
  }
  EXPECT_EQ(formatted(u"{F,IIF(\"C\",Uno,Dos)}", enumC), "Uno");
  EXPECT_EQ(formatted(u"{F}", enumC), "error 13");
}

// A client may put whatever it likes in the list's place.
TEST_F(Format, TakesTheIifValuesThatAClientHasSet) {
  struct ListRow {
    Value list;
    const char* first;
    const char* second;
  };
  const ListRow rows[] = {
      {ValueArray{Value(Text(u"\"Un\"o")), Value(Text(u"Dos"))}, "Uno", "Dos"},
      {ValueArray{Value(Text(u"Uno"))}, "Uno", "error 9"},
      {ValueArray{}, "error 9", "error 9"},
      {ValueArray{Value(std::int16_t{1}), Value(Text(u"Dos"))}, "error 13", "Dos"},
      {Text(u"Uno"), "error 13", "error 13"},
      {Value(), "error 13", "error 13"},
  };
  for (const ListRow& row : rows) {
    SCOPED_TRACE(show(row.list));
    for (const bool isFirst : {true, false}) {
      variable->sExtract(u"{F,IIF(\"S\",Si,No)}");
      variable->SetIifPossibleValues(row.list);
      variable->SetContentBoolean(isFirst);
      const auto format = [this] { variable->sFormatSpecialVar(); };
      EXPECT_EQ(writtenBy(format), isFirst ? row.first : row.second);
      variable->SetContentEnum(isFirst ? u"S" : u"N");
      EXPECT_EQ(writtenBy(format), isFirst ? row.first : row.second);
    }
  }

  // A condition without values of its own may end in the text.
  formatted(u"{F,IIF(\"C\")}", enumC);
  variable->SetIifPossibleValues(rows[0].list);
  EXPECT_EQ(writtenBy([this] { variable->sFormatSpecialVar(); }), "Uno");
}

// --- Every combination.

class EveryFormat : public TemplateTest {
 protected:
  static Text lineOf(const FormatCase& c) {
    constexpr const char16_t* kWords[] = {u",QR", u",QL", u",QC", u",QJ"};
    Text line = u"{R.F";
    if (c.length != 0) line += u"," + fromAscii(std::to_string(c.length));
    if (c.length != 0) line += u"," + fromAscii(std::to_string(c.decimals));
    line += kWords[c.alignment];
    if (!c.printComa) line += u",SC";
    if (!c.printZero) line += u",NC";
    if (c.notSpacesToTheSides) line += u",NB";
    if (c.fillWithZero) line += u",C0";
    if (c.commasAndDot) line += u",CP";
    if (c.repeat) line += u",FILL";
    if (c.hasDateFormat) line += u",DF(d mmmm)";
    if (c.hasIif) line += u",IIF(\"S\" \"C\",Uno dos,\"Ningun\"o)";
    return line + (c.hasPattern ? u",PATRONSEPARADOR=B}" : u"}");
  }

  void give(const FormatCase& c) {
    switch (c.kind) {
      case TFR_Numeric:
        return variable->SetContentNumeric(c.number, c.parenthesis);
      case TFR_Enum:
        return variable->SetContentEnum(c.text);
      case TFR_Date:
        return variable->SetContentDate(c.date);
      case TFR_Boolean:
        return variable->SetContentBoolean(c.boolean);
      default:
        return variable->SetContentString(c.text);
    }
  }

  void expectAsItHasToBe(const FormatCase& c) {
    variable->sExtract(lineOf(c));
    give(c);
    const std::string written = writtenBy([this] { variable->sFormatSpecialVar(); });
    const ExpectedFormat expected(c);
    ASSERT_EQ(written, expected.result())
        << toUtf8(lineOf(c)) << " " << toUtf8(c.text) << " " << c.number.tenThousandths;
    ASSERT_EQ(serviceCalls.lines(), expected.calls().lines()) << toUtf8(lineOf(c));
    expectTheSameUnwatched(expected.result(), c);
    error->reports.clear();
    calls.clear();
  }

  // Where the text service need not be asked, the text is the same.
  void expectTheSameUnwatched(const std::string& text, const FormatCase& c) {
    useUnwatchedTexto();
    ASSERT_EQ(writtenBy([this] { variable->sFormatSpecialVar(); }), text) << toUtf8(lineOf(c));
    modRDPGlobalValues::ofThisThread().refInsTexto = texto;
  }

  // In every alignment and width, with and without each of the attributes.
  void expectEach(FormatCase c, std::initializer_list<std::uint8_t> widths,
                  std::initializer_list<bool FormatCase::*> more) {
    std::vector<bool FormatCase::*> attributes{&FormatCase::notSpacesToTheSides,
                                               &FormatCase::fillWithZero};
    attributes.insert(attributes.end(), more);
    for (const eAlignmentType alignment : {eAT_Right, eAT_Left, eAT_Center, eAT_Justify}) {
      for (const std::uint8_t width : widths) {
        for (unsigned bits = 0; bits < 1u << attributes.size(); ++bits) {
          c.alignment = alignment;
          c.length = width;
          for (std::size_t i = 0; i < attributes.size(); ++i) {
            c.*attributes[i] = (bits >> i & 1) != 0;
          }
          ASSERT_NO_FATAL_FAILURE(expectAsItHasToBe(c));
        }
      }
    }
  }
};

TEST_F(EveryFormat, OfTexts) {
  FormatCase c;
  for (const char16_t* text : {u"", u" ", u"-", u"Ana", u" a b", u"a bc  d"}) {
    c.text = text;
    ASSERT_NO_FATAL_FAILURE(
        expectEach(c, {0, 1, 3, 4, 8, 9}, {&FormatCase::repeat, &FormatCase::hasPattern}));
  }
}

TEST_F(EveryFormat, OfNumbers) {
  FormatCase c;
  c.kind = TFR_Numeric;
  for (const std::int64_t value : {0, 4'999, -15'000, 12'345'678}) {
    for (const std::uint8_t decimals : {std::uint8_t{0}, std::uint8_t{2}}) {
      c.number = Currency{value};
      c.decimals = decimals;
      // A width of 0 has no decimals.
      const std::uint8_t narrow = decimals == 0 ? 0 : 1;
      ASSERT_NO_FATAL_FAILURE(expectEach(c, {narrow, 4, 8, 11},
                                         {&FormatCase::parenthesis, &FormatCase::commasAndDot,
                                          &FormatCase::printComa, &FormatCase::printZero}));
    }
  }
}

TEST_F(EveryFormat, OfDates) {
  FormatCase c;
  c.kind = TFR_Date;
  for (const double serial : {2.0, 35869.75, -1.25}) {
    c.date = Date{serial};
    ASSERT_NO_FATAL_FAILURE(
        expectEach(c, {0, 1, 8, 10, 14}, {&FormatCase::hasDateFormat, &FormatCase::hasPattern}));
  }
}

TEST_F(EveryFormat, OfEnumerations) {
  FormatCase c;
  c.kind = TFR_Enum;
  for (const char16_t* text : {u"C", u"R", u""}) {
    c.text = text;
    ASSERT_NO_FATAL_FAILURE(
        expectEach(c, {0, 1, 7, 9}, {&FormatCase::hasIif, &FormatCase::hasPattern}));
  }
}

TEST_F(EveryFormat, OfBooleans) {
  FormatCase c;
  c.kind = TFR_Boolean;
  for (const bool value : {false, true}) {
    c.boolean = value;
    ASSERT_NO_FATAL_FAILURE(
        expectEach(c, {0, 1, 3, 7, 9}, {&FormatCase::hasIif, &FormatCase::hasPattern}));
  }
}

}  // namespace
}  // namespace tarvo::test
