// The samples that are not run here, held against the library's classes: every operation exists and
// has as many parameters, every class can be created, and the callbacks are those of the contract.
#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include "client_source.h"
#include "public_classes.h"
#include "services/public_classes.h"

namespace tarvo::test {
namespace {

using ::testing::ElementsAre;

std::string contentOf(const std::string& path) {
  std::ifstream file(TARVO_ROOT "/" + path, std::ios::binary);
  EXPECT_TRUE(file.is_open()) << path;
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<const ClassInfo*> publicClasses() {
  std::vector<const ClassInfo*> classes(PublicClasses::infos.begin(), PublicClasses::infos.end());
  classes.insert(classes.end(), LibTarvoCI::PublicClasses::infos.begin(),
                 LibTarvoCI::PublicClasses::infos.end());
  return classes;
}

bool hasClass(const std::string& progId) {
  return std::ranges::any_of(publicClasses(),
                             [&](const ClassInfo* info) { return info->progId() == progId; });
}

// The operations of that name, of whatever class.
std::vector<const MemberInfo*> operationsNamed(const std::string& name) {
  std::vector<const MemberInfo*> found;
  for (const ClassInfo* info : publicClasses()) {
    for (const MemberInfo& member : info->members) {
      if (member.fullName() == name) found.push_back(&member);
    }
  }
  return found;
}

struct Sample {
  const char* path;
  Language language;
  bool implementsContract;
};

class ClientSample : public ::testing::TestWithParam<Sample> {
 protected:
  const ClientSource source_{GetParam().language, contentOf(GetParam().path)};
};

TEST_P(ClientSample, SaysThatItIsNotRunHere) {
  const std::string text = contentOf(GetParam().path);
  EXPECT_LT(text.find("NOT RUN HERE"), 600u);
}

TEST_P(ClientSample, CallsOperationsThatExistWithTheirNumberOfArguments) {
  // Of the platform, and called as the library's are.
  const std::set<std::string> notOurs{"GetTypeFromProgID"};
  int calls = 0;
  for (const Mention& mention : source_.mentions()) {
    if (notOurs.contains(mention.name)) continue;
    const auto operations = operationsNamed(mention.name);
    EXPECT_FALSE(operations.empty()) << mention.name << " does not exist";
    if (!mention.hasArguments) continue;
    ++calls;
    EXPECT_TRUE(std::ranges::any_of(operations,
                                    [&](const MemberInfo* operation) {
                                      return operation->parameters.size() ==
                                             mention.arguments.size();
                                    }))
        << mention.name << " with " << mention.arguments.size() << " arguments";
  }
  EXPECT_GE(calls, 18) << "the sample was not understood";
}

TEST_P(ClientSample, CreatesClassesThatExist) {
  const auto names = source_.classNames();
  EXPECT_FALSE(names.empty());
  for (const std::string& name : names) {
    EXPECT_TRUE(hasClass(name) || name == "LibTarvoRdpCI.dll") << name;
  }
}

std::vector<std::string> signaturesOfContract() {
  std::vector<std::string> lines;
  for (const MemberInfo& member : Described<clsImplementIDMD>::info.members) {
    std::string line = member.fullName();
    for (const ParameterInfo& parameter : member.parameters) {
      line += std::string(parameter.byReference ? " by reference " : " by value ") + parameter.name;
    }
    lines.push_back(line);
  }
  return lines;
}

TEST_P(ClientSample, ImplementsTheWholeContractOfTheMasterDetailReport) {
  std::vector<std::string> implemented;
  for (const Mention& mention : source_.mentions()) {
    if (!mention.isDeclaration) continue;
    std::string line = mention.name;
    for (const std::string& argument : mention.arguments) {
      const Parameter own = source_.parameterOf(argument);
      line += (own.byReference ? " by reference " : " by value ") + own.name;
    }
    implemented.push_back(line);
  }
  EXPECT_EQ(implemented,
            GetParam().implementsContract ? signaturesOfContract() : std::vector<std::string>());
}

INSTANTIATE_TEST_SUITE_P(
    NotRun, ClientSample,
    ::testing::Values(Sample{"samples/visual-basic/Invoice.cls", Language::kVisualBasic, true},
                      Sample{"samples/visual-basic/Main.bas", Language::kVisualBasic, false},
                      Sample{"samples/csharp/Invoice.cs", Language::kCSharp, true},
                      Sample{"samples/powershell/invoice.ps1", Language::kPowerShell, true}),
    [](const auto& test) {
      std::string name(test.param.path);
      name = name.substr(name.rfind('/') + 1);
      std::ranges::replace(name, '.', '_');
      return name;
    });

// --- What reading a source finds.

std::string shown(const Mention& mention) {
  std::string text = (mention.isDeclaration ? "declares " : "") + mention.name;
  if (!mention.hasArguments) return text;
  for (const std::string& argument : mention.arguments) text += " <" + argument + ">";
  return text + " (" + std::to_string(mention.arguments.size()) + ")";
}

std::vector<std::string> mentionsOf(Language language, std::string_view text) {
  std::vector<std::string> lines;
  for (const Mention& mention : ClientSource(language, text).mentions()) {
    lines.push_back(shown(mention));
  }
  return lines;
}

TEST(ClientSourceReading, OfVisualBasic) {
  EXPECT_THAT(
      mentionsOf(Language::kVisualBasic,
                 "' sComment 1\r\n"
                 "a.sPair \"x, ' y\", F(1, 2)   ' sOther\r\n"
                 "Set b = a.GetThing\r\n"
                 "a.sLong 1, _\r\n    2\r\n"
                 "a.sNone\r\n"
                 "Private Function clsC_fDo(x As Long, _\r\n ByVal y As Long) As Boolean\r\n"
                 "  clsC_fDo = \"sText\"\r\n"),
      ElementsAre("sPair <\"x, ' y\"> <F(1, 2)> (2)", "GetThing", "sLong <1> <2> (2)", "sNone (0)",
                  "declares fDo <x As Long> <ByVal y As Long> (2)", "fDo"));
}

TEST(ClientSourceReading, OfCSharp) {
  EXPECT_THAT(mentionsOf(Language::kCSharp,
                         "// sComment(1)\n"
                         "a.sPair(\"x, )\", F(1, 2));  // sOther\n"
                         "string name = (string)b.GetThing() + \".\";\n"
                         "public bool fDo(ref object x,\n    object y)\n{\n"),
              ElementsAre("sPair <\"x, )\"> <F(1, 2)> (2)", "GetThing (0)",
                          "declares fDo <ref object x> <object y> (2)"));
}

TEST(ClientSourceReading, OfPowerShellAndWhatItCompiles) {
  EXPECT_THAT(mentionsOf(Language::kPowerShell,
                         "# sComment(1)\n"
                         "Add-Type @'\n// sOther(1)\npublic void sDo() { a.sPut(\"x\"); }\n'@\n"
                         "$a.sPair('x, #', (F 1))\n"
                         "Set-StrictMode\n"),
              ElementsAre("declares sDo (0)", "sPut <\"x\"> (1)", "sPair <'x, #'> <(F 1)> (2)"));
}

TEST(ClientSourceReading, OfParameters) {
  const ClientSource basic(Language::kVisualBasic, "");
  EXPECT_EQ(basic.parameterOf("ByVal x As Long").name, "x");
  EXPECT_FALSE(basic.parameterOf("ByVal x As Long").byReference);
  EXPECT_TRUE(basic.parameterOf("x As Long").byReference);
  const ClientSource sharp(Language::kCSharp, "");
  EXPECT_EQ(sharp.parameterOf("ref object x").name, "x");
  EXPECT_TRUE(sharp.parameterOf("ref object x").byReference);
  EXPECT_FALSE(sharp.parameterOf("object x").byReference);
}

TEST(ClientSourceReading, OfClasses) {
  EXPECT_THAT(ClientSource(Language::kVisualBasic,
                           "Set a = New LibTarvoRdpCI.clsBody\nb = \"LibTarvoCI.clsError\"\n")
                  .classNames(),
              ElementsAre("LibTarvoRdpCI.clsBody", "LibTarvoCI.clsError"));
}

}  // namespace
}  // namespace tarvo::test
