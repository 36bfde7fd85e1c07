// The member tables: what compiled clients hold must not change unseen, and every table keeps the
// rules that all of them share.
#include <gmock/gmock.h>

#include <algorithm>
#include <cctype>
#include <set>

#include "equipment/golden.h"
#include "interfaces/idl.h"
#include "public_classes.h"
#include "services/public_classes.h"

namespace tarvo {
namespace {

using interfaces::LibraryContent;

const LibraryContent kPrint{kPrintLibrary, PublicClasses::infos, PublicEnumerations::infos};
const LibraryContent kCore{kCoreLibrary, LibTarvoCI::PublicClasses::infos, {}};

std::vector<const ClassInfo*> allClasses() {
  std::vector<const ClassInfo*> all(kPrint.classes.begin(), kPrint.classes.end());
  all.insert(all.end(), kCore.classes.begin(), kCore.classes.end());
  return all;
}

std::string lowerCase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return text;
}

// --- Contracts with compiled clients: operations in order, types, identifiers.

TEST(InterfaceContract, OfTheLibraryIsAsItWas) {
  EXPECT_TRUE(
      test::matchesGolden("interfaces/golden/LibTarvoRdpCI_2402.idl",
                          libraryIdl(kPrint, kCoreLibrary, "LibTarvoCI_2402_interfaces.idl")));
}

TEST(InterfaceContract, OfTheCoreServicesIsAsItWas) {
  EXPECT_TRUE(
      test::matchesGolden("interfaces/golden/LibTarvoCI_2402_interfaces.idl", interfaceIdl(kCore)));
  EXPECT_TRUE(test::matchesGolden("interfaces/golden/LibTarvoCI_2402.idl",
                                  libraryIdl(kCore, "LibTarvoCI_2402_interfaces.idl")));
}

TEST(InterfaceContract, OfTheManifestsIsAsItWas) {
  EXPECT_TRUE(test::matchesGolden("interfaces/golden/LibTarvoRdpCI_2402.manifest",
                                  assemblyManifest(kPrint, true)));
  EXPECT_THAT(assemblyManifest(kPrint, false), testing::HasSubstr("processorArchitecture=\"x86\""));
}

// --- Rules for every table.

TEST(MemberTables, NumberTheirClassesFromOneWithoutGaps) {
  for (const LibraryContent* content : {&kPrint, &kCore}) {
    std::uint16_t number = 0;
    for (const ClassInfo* info : content->classes) EXPECT_EQ(++number, info->number) << info->name;
  }
}

TEST(MemberTables, GiveEveryInterfaceAndClassAnIdentifierOfItsOwn) {
  std::set<std::string> ids{toString(libraryId(kPrintLibrary)), toString(libraryId(kCoreLibrary))};
  std::size_t expected = ids.size();
  for (const ClassInfo* info : allClasses()) {
    ids.insert(toString(interfaceId(*info)));
    ids.insert(toString(classId(*info)));
    expected += 2;
  }
  EXPECT_EQ(expected, ids.size());
}

TEST(MemberTables, NameNoOperationTwiceInAnyCase) {
  for (const ClassInfo* info : allClasses()) {
    std::set<std::string> names;
    for (const MemberInfo& member : info->members) {
      EXPECT_TRUE(names.insert(lowerCase(member.fullName())).second)
          << info->name << "." << member.fullName();
    }
  }
}

TEST(MemberTables, NameParametersByTheirKind) {
  for (const ClassInfo* info : allClasses()) {
    for (const MemberInfo& member : info->members) {
      for (const ParameterInfo& parameter : member.parameters) {
        const std::string name = parameter.name;
        // A few are named otherwise, and clients know them by that.
        const bool isKnown = name.starts_with("val") || name.starts_with("ref") ||
                             name.starts_with("init") || name.starts_with("linea") ||
                             name == "PrintingMode";
        EXPECT_TRUE(isKnown) << info->name << "." << member.fullName() << " " << name;
        EXPECT_TRUE(parameter.byReference || !name.starts_with("ref")) << name;
      }
    }
  }
}

TEST(MemberTables, HaveAHelpTextForEveryClassAndOperation) {
  for (const ClassInfo* info : allClasses()) {
    EXPECT_NE("", std::string(info->help)) << info->name;
    for (const MemberInfo& member : info->members) {
      EXPECT_NE("", std::string(member.help)) << info->name << "." << member.fullName();
      EXPECT_EQ(std::string::npos, std::string(member.help).find_first_of("\"\\"))
          << "the help text goes between quotes";
    }
  }
}

// --- The order of each interface, as clients were promised it.

// "=X": GetX and SetX; "<X": GetX alone; anything else is an operation's name.
struct PromisedOrder {
  const ClassInfo* info;
  std::vector<std::string> rows;

  std::vector<std::string> operations() const {
    std::vector<std::string> names;
    for (const std::string& row : rows) {
      const bool isPair = row.front() == '=';
      const bool isRead = isPair || row.front() == '<';
      names.push_back(isRead ? "Get" + row.substr(1) : row);
      if (isPair) names.push_back("Set" + row.substr(1));
    }
    return names;
  }
};

void PrintTo(const PromisedOrder& order, std::ostream* out) { *out << order.info->name; }

const PromisedOrder kPromisedOrders[] = {
    {&Described<clsUtilImp>::info,
     {"=PrinterName",
      "=MaxLinPage",
      "=MaxChrLinCondensed80Columns",
      "=ChrFormFeed",
      "=ChrCondensed",
      "=ChrNormal",
      "=ChrInitExpanded",
      "=ChrEndExpanded",
      "=ChrBold",
      "=ChrLight",
      "=ChrReset",
      "=ChrInitUnderlying",
      "=ChrEndUnderlying",
      "=ChrFont10Points",
      "=ChrFont12Points",
      "=ChrInitItalic",
      "=ChrEndItalic",
      "=ChrHighLine1Point",
      "=ChrHighLine12Points",
      "=ChrGraphics",
      "=ChrInternationalChars",
      "=ChrInitialString1",
      "=ChrInitialString2",
      "=ChrInitialString3",
      "=ChrInitialString4",
      "=CanPrintInTextMode",
      "sSendJobAndStartNewOne",
      "sInitializePrinterFileHandle",
      "sClosePrinterFileHandle",
      "sWriteLn",
      "sWrite",
      "sSkipNPoints",
      "sResetPrinter",
      "sCancelPrintProcess",
      "sPrintUnderscore",
      "sPrintVerticalRule",
      "sPrintHorizontalRule",
      "sPrintTestPage"}},
    {&Described<clsObSpecialVar>::info,
     {"=ReadText",
      "=TextToWrite",
      "=RecordName",
      "=FieldName",
      "=IsFieldOfArray",
      "=ArrayPosition",
      "<ContentString",
      "<ContentNumeric",
      "<ContentDate",
      "<ContentBool",
      "<ContentEnum",
      "=AlignmentWasRead",
      "=AlignmentType",
      "<TypeField",
      "=Length",
      "=DecimalPlaces",
      "=PrintComa",
      "=PrintZero",
      "=NotSpacesToTheSides",
      "=FillWithZero",
      "=SeparatorOfCommasAndDot",
      "=RepeatCharsUntilFill",
      "=VariableToWriteEmpty",
      "=VariableToApplyCondition",
      "=PosEnd",
      "=PosBegin",
      "=Size",
      "=ValueComesInAttrib",
      "=IifPossibleValues",
      "=FieldOfArrayHasPositionInsideTheArray",
      "=PrintLine",
      "=LineOfRepeatToPrint",
      "=EndOfRepeatPrintLine",
      "<UsingSpecialSeparationString",
      "<SpecialSeparationString",
      "sClrObject",
      "sExtract",
      "sExtractFieldAndCharacteristics",
      "sExtractIfHasNumberArrayElement",
      "sExtractIfHasIndexOfValueInArrayElement",
      "sExtractIfHasFunction",
      "sExtractIfHasDateFormat",
      "sReadAttribute",
      "SetContentString",
      "SetContentNumeric",
      "SetContentDate",
      "SetContentEnum",
      "SetContentBoolean",
      "SetContentArray",
      "sFormatSpecialVar",
      "sAlignTextToWrite",
      "fIsEmpty"}},
    {&Described<clsObLineCharacts>::info,
     {"=TextToWrite",
      "=SpecialVar",
      "=Alignment",
      "=HasTab",
      "=TabPos",
      "=SkipLine",
      "=SkipNPoints",
      "=NumberOfSkips",
      "=PrintLine",
      "=SkipPageWasRead",
      "=PauseWasRead",
      "=LineToWriteEmpty",
      "sClrRecord",
      "sExtractSpecialVar",
      "sExtractComment",
      "sFormatSpecialVar",
      "sReplaceVarInTextToWrite",
      "fSpecialVarIsAnyControlChar",
      "fCheckAnyPrintingControlVarInCommentary",
      "GetField",
      "GetTextToPrint",
      "fNumberOfPrintedLinesThatWillFill"}},
    {&Described<clsImplementIDTraduc>::info, {"fTranslateSpecialVar", "sDisplayPauseDialog"}},
    {&Described<clsImplementIDMD>::info,
     {"fTranslateSpecialVarMD", "sDisplayPauseDialog", "fReadFirstRecord", "fReadNextRecord",
      "sAccumSubTotal", "fCanExecuteWriteReport", "fDetailRecordCount"}},
    {&Described<clsBody>::info,
     {"GetLinesArray", "SetLinesArray", "=NumberOfLinesWithInformation", "=MaxNumberOfLinesToPrint",
      "=NumberOfFirstLineOfBody", "=UseNumberWithCharacterToTheLeftSide", "=CharacterToTheLeftSide",
      "=RecordNumberToPrint", "=HasInsertBody"}},
    {&Described<clsLibTarvoRdp>::info,
     {"fChoosePrintingMode", "fMsgForLocateOptionChoosePrinter", "fToStringArray",
      "fExtractShortText"}},
    {&Described<clsObRepPlanilla>::info,
     {"GetLineToWrite", "=FileNameIDFirstSheet", "=FileNameIDSecondSheet", "=FileNameIDDraft",
      "sInit", "sInitForUserReport", "sSearchSpecialVarAndTranslate", "sPrintReport"}},
    {&Described<clsObRepMasterDetail>::info,
     {"GetLineToWrite", "sInit", "sPrintReport", "sSearchSpecialVarAndTranslate",
      "=EndOfDetailRecords", "=MontoSubTotalVan", "=InsertBodyWasPrinted", "=IsHalfLetterPaper",
      "=NumberOfLinesForHalfLetter", "=TopMarginLines", "=TopMarginPoints",
      "fReadFileUntilLineFrom"}},
    {&Described<clsARObRep>::info,
     {"sPrintReport", "sInit", "sInitializeGraphicHandle", "sCloseGraphicHandle", "sWriteLn",
      "sWrite", "sSkipNPoints", "sCancelGraphicPrintProcess"}},
    {&Described<clsEnumPrint>::info,
     {"fEnumPruebaODefinitivaToString", "fStrPruebaODefinitivaToNum",
      "sFillComboBoxWithPruebaODefinitiva", "fEnumPrintingModeToString", "fStrPrintingModeToNum",
      "sFillComboBoxWithPrintingMode"}},
};

class MemberOrder : public testing::TestWithParam<PromisedOrder> {};

TEST_P(MemberOrder, IsAsPromised) {
  std::vector<std::string> operations;
  for (const MemberInfo& member : GetParam().info->members) {
    operations.push_back(member.fullName());
  }
  EXPECT_THAT(operations, testing::ElementsAreArray(GetParam().operations()));
}

INSTANTIATE_TEST_SUITE_P(Classes, MemberOrder, testing::ValuesIn(kPromisedOrders),
                         [](const auto& suite) { return std::string(suite.param.info->name); });

}  // namespace
}  // namespace tarvo
