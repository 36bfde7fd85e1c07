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
        const bool isKnown =
            name.starts_with("val") || name.starts_with("ref") || name.starts_with("init");
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

TEST(MemberTables, HaveEveryPropertyOfTheProfileInInterfaceOrder) {
  const char* const properties[] = {"PrinterName",
                                    "MaxLinPage",
                                    "MaxChrLinCondensed80Columns",
                                    "ChrFormFeed",
                                    "ChrCondensed",
                                    "ChrNormal",
                                    "ChrInitExpanded",
                                    "ChrEndExpanded",
                                    "ChrBold",
                                    "ChrLight",
                                    "ChrReset",
                                    "ChrInitUnderlying",
                                    "ChrEndUnderlying",
                                    "ChrFont10Points",
                                    "ChrFont12Points",
                                    "ChrInitItalic",
                                    "ChrEndItalic",
                                    "ChrHighLine1Point",
                                    "ChrHighLine12Points",
                                    "ChrGraphics",
                                    "ChrInternationalChars",
                                    "ChrInitialString1",
                                    "ChrInitialString2",
                                    "ChrInitialString3",
                                    "ChrInitialString4",
                                    "CanPrintInTextMode"};
  const auto members = Described<clsUtilImp>::info.members;
  ASSERT_EQ(52u + 12u, members.size());
  for (std::size_t i = 0; i < std::size(properties); ++i) {
    EXPECT_EQ(std::string("Get") + properties[i], members[2 * i].fullName());
    EXPECT_EQ(std::string("Set") + properties[i], members[2 * i + 1].fullName());
  }
}

}  // namespace
}  // namespace tarvo
