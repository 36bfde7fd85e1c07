// Objects of scripts as callback objects: a VBScript class, a JScript object.
#include "callback_test.h"
#include "script_host.h"

namespace tarvo::com {
namespace {

constexpr const char* kTrail = "\r\n   en clsCallbackProbe.";

// Values of every kind, each with the VBScript and the JScript that gives it.
constexpr TextView kVbAnswers =
    uR"(
Class Client
  Public calls
  Public way

  Public Function fTranslateSpecialVarMD(refLineToWrite, valMontoSubTotal)
    Dim variable
    Set variable = refLineToWrite.GetSpecialVar
    calls = calls & variable.GetRecordName & "." & variable.GetFieldName & _
        "[" & variable.GetArrayPosition & "] " & TypeName(valMontoSubTotal) & _
        " " & valMontoSubTotal & vbLf
    fTranslateSpecialVarMD = True
    Select Case refLineToWrite.GetField
      Case "TEXTO"
        variable.SetContentString "Ñandú & Cía."
      Case "ENTERO"
        variable.SetContentNumeric 1500, False
      Case "DOBLE"
        variable.SetContentNumeric -1234.565, True
      Case "MONEDA"
        variable.SetContentNumeric CCur(99999.99), False
      Case "CIFRAS"
        variable.SetContentNumeric "12", False
      Case "FECHA"
        variable.SetContentDate DateSerial(2024, 3, 15)
      Case "LOGICO"
        variable.SetContentBoolean True
      Case "ENUM"
        variable.SetContentEnum "S"
      Case "LETRA"
        variable.SetContentArray "SNNS", 4, -1, False, True, -1
      Case "SUBTOTAL"
        variable.SetContentNumeric valMontoSubTotal, False
      Case Else
        fTranslateSpecialVarMD = False
    End Select
    If way = "another" Then Set refLineToWrite = otra
    If way = "nothing" Then Set refLineToWrite = Nothing
    If way = "number" Then refLineToWrite = 7
    If way = "object" Then Set refLineToWrite = Me
    Fail "fTranslateSpecialVarMD"
  End Function

  Public Sub sDisplayPauseDialog
    calls = calls & "pause" & vbLf
    Fail "sDisplayPauseDialog"
  End Sub
  Public Function fReadFirstRecord
    fReadFirstRecord = True
  End Function
  Public Function fReadNextRecord
    fReadNextRecord = 0
  End Function
  Public Sub sAccumSubTotal(refMontoSubTotal)
    calls = calls & TypeName(refMontoSubTotal) & " " & refMontoSubTotal & vbLf
    refMontoSubTotal = refMontoSubTotal + 0.25
    Fail "sAccumSubTotal"
  End Sub
  Public Function fCanExecuteWriteReport(refMustShowErrorMsg, refErrorMsgToDisplay)
    calls = calls & TypeName(refMustShowErrorMsg) & " " & refMustShowErrorMsg & ", " & _
        TypeName(refErrorMsgToDisplay) & " <" & refErrorMsgToDisplay & ">" & vbLf
    refMustShowErrorMsg = True
    refErrorMsgToDisplay = "Señal: no hay papel"
  End Function
  Public Function fDetailRecordCount
    fDetailRecordCount = 40000
  End Function

  Private Sub Fail(operation)
    If way = operation Then Err.Raise vbObjectError + 513, "MiPrograma", "no se puede"
    If way = operation & " 6" Then Err.Raise 6
    If way = operation & " library" Then otra.SetTabPos 256
  End Sub
End Class
Dim answers
Set answers = New Client
)";

constexpr TextView kJsAnswers =
    uR"(
var way = "", calls = "";
function fail(operation) {
  if (way == operation) throw new Error(-2147220991, "no se puede");
  if (way == operation + " 6") throw new Error(-2146828282, "");
  if (way == operation + " library") otra.SetTabPos(256);
}
function Client() {}
Client.prototype = {
  fTranslateSpecialVarMD: function(line, subtotal) {
    var variable = line.GetSpecialVar();
    calls += variable.GetRecordName() + "." + variable.GetFieldName() +
        "[" + variable.GetArrayPosition() + "]\n";
    fail("fTranslateSpecialVarMD");
    switch (line.GetField()) {
      case "TEXTO": variable.SetContentString("Ñandú & Cía."); return true;
      case "ENTERO": variable.SetContentNumeric(1500, false); return true;
      case "DOBLE": variable.SetContentNumeric(-1234.565, true); return true;
      case "CIFRAS": variable.SetContentNumeric("12", false); return true;
      case "LOGICO": variable.SetContentBoolean(true); return true;
      case "ENUM": variable.SetContentEnum("S"); return true;
      case "LETRA": variable.SetContentArray("SNNS", 4, -1, false, true, -1); return true;
    }
    return false;
  },
  sDisplayPauseDialog: function() { calls += "pause\n"; fail("sDisplayPauseDialog"); },
  fReadFirstRecord: function() { return true; },
  fReadNextRecord: function() { return 0; },
  sAccumSubTotal: function(subtotal) { subtotal = 5; fail("sAccumSubTotal"); },
  fCanExecuteWriteReport: function(show, message) {
    calls += typeof show + " " + show + ", " + typeof message + " <" + message + ">\n";
    return true;
  },
  fDetailRecordCount: function() { return 40000; }
};
var answers = new Client;
)";

struct Engine {
  const char* name;
  const wchar_t* progId;
  TextView source;
};

const Engine kEngines[] = {{"VBScript", L"VBScript", kVbAnswers},
                           {"JScript", L"JScript", kJsAnswers}};

class ScriptTest : public CallbackTest {
 protected:
  explicit ScriptTest(const Engine& engine) : engine_(engine) {}

  void SetUp() override {
    ASSERT_TRUE(host_.isThere()) << engine_.name << " is not installed";
    otherLine_->sClrRecord();
    host_.add(L"prueba", probe_.get());
    host_.add(L"otra", faceOfObject<IUnknown>(otherLine_, IID_IUnknown).get());
    ASSERT_EQ("", host_.run(engine_.source));
    const auto answers = host_.object(L"answers");
    ASSERT_TRUE(answers);
    ASSERT_EQ(S_OK, init(answers.get()));
  }
  void TearDown() override { init(nullptr); }

  bool isVbScript() const { return &engine_ == &kEngines[0]; }

  void behave(const char* way) {
    const Text object = isVbScript() ? u"answers." : u"";
    ASSERT_EQ("", host_.run(object + u"way = \"" + fromAscii(way) + u"\""));
  }

  // What the script gets of its call of the probe, "NUMBER DESCRIPTION" when that fails.
  std::string ofScript(TextView call) {
    const Text vbScript = u"On Error Resume Next\nErr.Clear\nseen = " + Text(call) +
                          u"\nIf Err.Number <> 0 Then seen = Hex(Err.Number) & \" \" & "
                          u"Err.Description\nErr.Clear";
    const Text jScript = u"try { seen = " + Text(call) +
                         u"; } catch (e) { seen = (e.number >>> 0).toString(16).toUpperCase() + "
                         u"\" \" + e.message; }";
    const std::string error = host_.run(isVbScript() ? vbScript : jScript);
    return error.empty() ? host_.text(L"seen") : error;
  }

  std::string calls() {
    host_.run(isVbScript() ? u"seen = answers.calls" : u"seen = calls");
    return host_.text(L"seen");
  }

  Ref<clsObLineCharacts> otherLine_ = make<clsObLineCharacts>();
  const Engine& engine_;
  ScriptHost host_{engine_.progId};
};

class ScriptCallbacks : public ScriptTest, public testing::WithParamInterface<const Engine*> {
 protected:
  ScriptCallbacks() : ScriptTest(*GetParam()) {}
};

// What only this language can do.
class VbScriptCallbacks : public ScriptTest {
 protected:
  VbScriptCallbacks() : ScriptTest(kEngines[0]) {}
};

INSTANTIATE_TEST_SUITE_P(Engines, ScriptCallbacks, testing::Values(&kEngines[0], &kEngines[1]),
                         [](const auto& suite) { return std::string(suite.param->name); });

TEST_P(ScriptCallbacks, AnswerEveryOperation) {
  const std::string report = callAll();
  if (isVbScript()) {
    EXPECT_EQ(
        "fTranslateSpecialVarMD false\n"
        "fReadFirstRecord true\n"
        "fReadNextRecord false\n"
        "sAccumSubTotal 1002500\n"
        "fCanExecuteWriteReport false, true, \"Señal: no hay papel\"\n"
        "fDetailRecordCount 40000\n",
        report);
    EXPECT_EQ(
        ".[0] Currency 100\n"
        "pause\n"
        "Currency 100\n"
        "Boolean False, String <>\n",
        calls());
  } else {
    // JScript's arguments are its own: what it assigns to them stays there.
    EXPECT_EQ(
        "fTranslateSpecialVarMD false\n"
        "fReadFirstRecord true\n"
        "fReadNextRecord false\n"
        "sAccumSubTotal 1000000\n"
        "fCanExecuteWriteReport true, false, \"\"\n"
        "fDetailRecordCount 40000\n",
        report);
    EXPECT_EQ(".[0]\npause\nboolean false, string <>\n", calls());
  }
}

struct LineCase {
  const char16_t* line;
  const char* printed;
};

constexpr LineCase kLines[] = {
    {u"[{c.texto,15}]", "[Ñandú & Cía.   ]"},
    {u"[{c.texto,15,DERECHA}]", "[   Ñandú & Cía.]"},
    {u"[{c.entero,10}]", "[  1.500,00]"},
    {u"[{c.entero}]", "[1.500]"},
    {u"[{c.doble,14,2}]", "[    (1.234,57)]"},
    {u"[{c.cifras,6,CONCEROS}]", "[012,00]"},
    {u"[{c.logico}]", "[S]"},
    {u"[{c.logico,IIF(\"S\",Activo,Inactivo)}]", "[Activo]"},
    {u"[{c.enum,IIF(\"N\",No,Sí)}]", "[Sí]"},
    {u"[{d.letra[2]}]", "[N]"},
    {u"[{d.letra[4]}{d.letra[2]}]", "[SN]"},
    {u"[{@constante}|{c.nadie}]", "[constante|No se encontró]"},
};

TEST_P(ScriptCallbacks, GiveValuesOfEveryKind) {
  for (const LineCase& row : kLines) EXPECT_EQ(row.printed, translate(row.line)) << calls();
}

TEST_P(ScriptCallbacks, AreAskedForEachVariableInItsPlace) {
  translate(u"{Cli.texto} {NORMAL} {@fijo} {det[7].nadie} {texto[3]}");
  EXPECT_EQ(isVbScript() ? "Cli.TEXTO[0] Currency 1500\ndet.NADIE[7] Currency 1500\n"
                           ".TEXTO[3] Currency 1500\n"
                         : "Cli.TEXTO[0]\ndet.NADIE[7]\n.TEXTO[3]\n",
            calls());
}

TEST_P(ScriptCallbacks, FailWithTheirNumberAndTheTrail) {
  const std::string translateTrail = std::string(kTrail) + "fTranslateLine (Probe)";
  const std::string callTrail = std::string(kTrail) + "fCallAll (Probe)";
  behave("fTranslateSpecialVarMD");
  EXPECT_THAT(ofScript(u"prueba.fTranslateLine(\"{c.texto}\")"),
              testing::AllOf(testing::StartsWith("80040201 "), testing::EndsWith(translateTrail)));
  EXPECT_THAT(ofScript(u"prueba.fCallAll(0)"),
              testing::AllOf(testing::StartsWith("80040201 "), testing::EndsWith(callTrail)));
  behave("fTranslateSpecialVarMD 6");
  EXPECT_THAT(ofScript(u"prueba.fTranslateLine(\"{c.texto}\")"),
              testing::AllOf(testing::StartsWith(isVbScript() ? "6 " : "800A0006 "),
                             testing::EndsWith(translateTrail)));
  behave("sDisplayPauseDialog");
  EXPECT_THAT(ofScript(u"prueba.fCallAll(0)"),
              testing::AllOf(testing::StartsWith("80040201 "), testing::EndsWith(callTrail)));
  behave("sAccumSubTotal 6");
  EXPECT_THAT(ofScript(u"prueba.fCallAll(0)"),
              testing::AllOf(testing::StartsWith(isVbScript() ? "6 " : "800A0006 "),
                             testing::EndsWith(callTrail)));
  behave("");
  EXPECT_EQ("Ñandú & Cía.", ofScript(u"prueba.fTranslateLine(\"{c.texto}\")"))
      << "and go on afterwards";
}

TEST_P(ScriptCallbacks, HandTheLibrarysOwnErrorOn) {
  behave("fTranslateSpecialVarMD library");
  EXPECT_THAT(ofScript(u"prueba.fTranslateLine(\"{c.texto}\")"),
              testing::AllOf(testing::StartsWith(isVbScript() ? "6 " : "800A0006 "),
                             testing::EndsWith(std::string(kTrail) + "fTranslateLine (Probe)")));
}

TEST_P(ScriptCallbacks, EndACallThatNoScriptMade) {
  behave("fTranslateSpecialVarMD");
  EXPECT_THAT(translate(u"{c.texto}"),
              testing::AllOf(testing::StartsWith("80040201 "),
                             testing::EndsWith(std::string(kTrail) + "fTranslateLine (Probe)")));
}

TEST_F(VbScriptCallbacks, MayChangeTheReference) {
  const Ref<clsObLineCharacts> own = object_->GetLine();
  behave("number");
  EXPECT_THAT(translate(u"{c.texto}"), testing::StartsWith("800a000d "));
  behave("object");
  EXPECT_THAT(translate(u"{c.texto}"), testing::HasSubstr("|Type mismatch: clsObLineCharacts\r\n"));
  EXPECT_EQ(own.get(), object_->GetLine().get());
  behave("another");
  callAll();
  EXPECT_EQ(otherLine_.get(), object_->GetLine().get());
  behave("nothing");
  EXPECT_THAT(translate(u"{c.texto}"), testing::StartsWith("800a005b "));
  EXPECT_FALSE(object_->GetLine());
}

TEST_F(VbScriptCallbacks, GiveAmountsAndDates) {
  EXPECT_EQ("[   99.999,99]", translate(u"[{c.moneda,12}]"));
  EXPECT_EQ("[15/03/2024]", translate(u"[{c.fecha}]"));
  EXPECT_EQ("[    1.500,00]", translate(u"[{c.subtotal,12}]"));
}

// The script itself hands its object over, and gets the answers.
TEST_P(ScriptCallbacks, MayBeHandedOverByTheScript) {
  ASSERT_EQ("", host_.run(isVbScript() ? u"prueba.sInit New Client\nseen = prueba.fTranslateLine("
                                         u"\"{c.entero,10}\")"
                                       : u"prueba.sInit(new Client);"
                                         u"seen = prueba.fTranslateLine(\"{c.entero,10}\");"));
  EXPECT_EQ("  1.500,00", host_.text(L"seen"));
}

TEST_P(ScriptCallbacks, ThatLackAnOperationAreError438) {
  ASSERT_EQ("", host_.run(isVbScript() ? u"Class Bare\nEnd Class\nSet answers = New Bare"
                                       : u"answers = {};"));
  ASSERT_EQ(S_OK, init(host_.object(L"answers").get()));
  EXPECT_THAT(translate(u"{c.texto}"),
              testing::AllOf(testing::StartsWith("800a01b6 "),
                             testing::HasSubstr("property or method: fTranslateSpecialVarMD")));
}

}  // namespace
}  // namespace tarvo::com
