// The display texts of the enumerations, and combo boxes filled with them.
#include <gmock/gmock.h>

#include "combo_box.h"
#include "equipment/call_log.h"
#include "equipment/errors.h"
#include "equipment/recording_services.h"
#include "frame/modRDPGlobalValues.h"
#include "printer/clsUtilImp.h"
#include "services/clsApi.h"
#include "ui/clsEnumPrint.h"

namespace tarvo::test {
namespace {

// The platform-call service: writes down what it is asked about the control.
class ControlApi final : public clsApi {
 public:
  std::string log;
  Fault fault;

  bool fFormKey(Ref<Object>&, std::int16_t, std::int16_t) override {
    throw RunTimeError(kNoSuchMember);
  }
  void sPressButton(Ref<Object>&) override { throw RunTimeError(kNoSuchMember); }
  std::int32_t fWidthForItems(Ref<Object>& refControl) override {
    log += "width; ";
    fault.countCall();
    return real_->fWidthForItems(refControl);
  }
  void sAdjustDropDown(Ref<Object>& refControl) override {
    log += dynamic_cast<ComboBox*>(refControl.get()) != nullptr ? "adjust; " : "adjust?; ";
    fault.countCall();
  }

 private:
  Ref<clsApi> real_ = make<LibTarvoCI::clsApi>();
};

class EnumTexts : public testing::Test {
 protected:
  EnumTexts() {
    modRDPGlobalValues& services = modRDPGlobalValues::ofThisThread();
    services = modRDPGlobalValues();
    services.refInsError = error;
    services.refInsMessage = messages;
    services.refInsApi = api;
  }
  ~EnumTexts() override {
    EXPECT_TRUE(error->reports.empty()) << "no operation has a handler";
    modRDPGlobalValues::ofThisThread() = modRDPGlobalValues();
  }

  // What the operator saw since the last time.
  std::string takeMessages() {
    std::string shown = calls.text();
    calls.clear();
    return shown;
  }

  CallLog calls;
  CallLog errorCalls;
  Ref<RecordingError> error = make<RecordingError>(errorCalls);
  Ref<RecordingMessage> messages = make<RecordingMessage>(calls);
  Ref<ControlApi> api = make<ControlApi>();
  Ref<clsEnumPrint> texts = make<clsEnumPrint>();
  Ref<ComboBox> box = make<ComboBox>();
  Ref<Object> reference = box;
};

// --- To text.

TEST_F(EnumTexts, OfEveryValueAndOfThoseOutside) {
  const auto pod = [&](std::int32_t value) {
    return texts->fEnumPruebaODefinitivaToString(static_cast<ePruebaODefinitiva>(value));
  };
  const auto mode = [&](std::int32_t value) {
    return texts->fEnumPrintingModeToString(static_cast<ePrintingMode>(value));
  };
  EXPECT_EQ(u"Imprimir Planilla", pod(ePOD_Definitiva));
  EXPECT_EQ(u"Borrador", pod(ePOD_Borrador));
  EXPECT_EQ(u"Impresión Texto (DOS)", mode(ePM_Text));
  EXPECT_EQ(u"Impresión Gráfica", mode(ePM_Graphic));
  for (const std::int32_t value : {-1, 2, 5, 2147483647, -2147483647 - 1}) {
    EXPECT_EQ(u"Imprimir Planilla", pod(value)) << value;
    EXPECT_EQ(u"Impresión Texto (DOS)", mode(value)) << value;
  }
}

// --- To number.

struct NumberCase {
  TextView text;
  std::int16_t pruebaODefinitiva;  // -1: a text that it does not have
  std::int16_t printingMode;
};

constexpr NumberCase kNumberCases[] = {
    {u"Imprimir Planilla", 0, -1},
    {u"IMPRIMIR PLANILLA", 0, -1},
    {u"Borrador", 1, -1},
    {u"borrador", 1, -1},
    {u"BORRADOR", 1, -1},
    {u"bORRADOR", 1, -1},
    {u"Impresión Texto (DOS)", -1, 0},
    {u"IMPRESIÓN TEXTO (DOS)", -1, 0},
    {u"impresión texto (dos)", -1, 0},
    {u"Impresión Gráfica", -1, 1},
    {u"IMPRESIÓN GRÁFICA", -1, 1},
    {u"Impresion Texto (DOS)", -1, -1},
    {u"Impresion Grafica", -1, -1},
    {u"Impresión Texto", -1, -1},
    {u" Borrador", -1, -1},
    {u"Borrador ", -1, -1},
    {TextView(u"Borrador\0", 9), -1, -1},
    {u"", -1, -1},
    {u"1", -1, -1},
    {u"ePM_Text", -1, -1},
};

TEST_F(EnumTexts, AreFoundInCapitalsOrNot) {
  for (const NumberCase& row : kNumberCases) {
    SCOPED_TRACE(toUtf8(row.text));
    const std::string shown =
        inQuotes(Text(u"Valor ").append(row.text).append(u" no existe en tipo enumerativo "));
    const std::string start = "clsMessage.sWarning " + shown.substr(0, shown.size() - 1);

    EXPECT_EQ(std::max<std::int16_t>(row.pruebaODefinitiva, 0),
              texts->fStrPruebaODefinitivaToNum(row.text, true));
    EXPECT_EQ(row.pruebaODefinitiva >= 0 ? "" : start + "pruebaODefinitiva\"\n", takeMessages());
    EXPECT_EQ(std::max<std::int16_t>(row.printingMode, 0),
              texts->fStrPrintingModeToNum(row.text, true));
    EXPECT_EQ(row.printingMode >= 0 ? "" : start + "PrintingMode\"\n", takeMessages());

    EXPECT_EQ(std::max<std::int16_t>(row.pruebaODefinitiva, 0),
              texts->fStrPruebaODefinitivaToNum(row.text, false));
    EXPECT_EQ(std::max<std::int16_t>(row.printingMode, 0),
              texts->fStrPrintingModeToNum(row.text, false));
    EXPECT_EQ("", takeMessages());
  }
}

TEST_F(EnumTexts, NeedAMessageServiceOnlyForAWarning) {
  messages->fault.raiseAt(1, kOverflow);
  EXPECT_EQ(kOverflow, errorNumberOf([&] { texts->fStrPrintingModeToNum(u"otro", true); }));
  modRDPGlobalValues::ofThisThread().refInsMessage = nullptr;
  EXPECT_EQ(1, texts->fStrPruebaODefinitivaToNum(u"Borrador", true));
  EXPECT_EQ(0, texts->fStrPruebaODefinitivaToNum(u"otro", false));
  EXPECT_EQ(kObjectNotSet,
            errorNumberOf([&] { texts->fStrPruebaODefinitivaToNum(u"otro", true); }));
}

// --- Combo boxes.

TEST_F(EnumTexts, OfTheFinalPrintFillAComboBoxInTheirOrder) {
  texts->sFillComboBoxWithPruebaODefinitiva(reference);
  EXPECT_EQ(
      "Clear; AddItem text \"Imprimir Planilla\"; AddItem text \"Borrador\"; Width; = int32 " +
          std::to_string(17 * LibTarvoCI::clsApi::kTwipsPerCharacter +
                         LibTarvoCI::clsApi::kTwipsForButton) +
          "; ",
      box->log);
  EXPECT_EQ("width; adjust; ", api->log);
  EXPECT_THAT(box->items, testing::ElementsAre(u"Imprimir Planilla", u"Borrador"));
  for (std::int16_t value = 0; value < 2; ++value) {
    EXPECT_EQ(value,
              texts->fStrPruebaODefinitivaToNum(box->items[static_cast<std::size_t>(value)], true));
  }
}

TEST_F(EnumTexts, OfThePrintingModesFillAComboBoxGraphicFirst) {
  texts->sFillComboBoxWithPrintingMode(reference);
  EXPECT_EQ(
      "Clear; Text; = text \"Impresión Gráfica\"; List int16 0; = text \"Impresión Gráfica\"; "
      "List int16 1; = text \"Impresión Texto (DOS)\"; ListIndex; = int16 0; Width; = int32 " +
          std::to_string(21 * LibTarvoCI::clsApi::kTwipsPerCharacter +
                         LibTarvoCI::clsApi::kTwipsForButton) +
          "; ",
      box->log);
  EXPECT_EQ("width; ", api->log);
  EXPECT_THAT(box->items, testing::ElementsAre(u"Impresión Gráfica", u"Impresión Texto (DOS)"));
  EXPECT_EQ(ePM_Graphic, texts->fStrPrintingModeToNum(box->items[0], true));
  EXPECT_EQ(ePM_Text, texts->fStrPrintingModeToNum(box->items[1], true));
}

TEST_F(EnumTexts, OfTheFinalPrintLeaveOtherObjectsAlone) {
  for (const TextView type : {u"ListBox", u"combobox", u"COMBOBOX", u"ComboBox ", u"Combo", u""}) {
    box->type = type;
    texts->sFillComboBoxWithPruebaODefinitiva(reference);
    EXPECT_EQ("", box->log) << toUtf8(type);
  }
  box->type = u"ComboBox";
  box->typeFails = true;
  texts->sFillComboBoxWithPruebaODefinitiva(reference);
  EXPECT_EQ("", box->log);
  EXPECT_THAT(box->items, testing::ElementsAre(u"de antes"));
  Ref<Object> none;
  texts->sFillComboBoxWithPruebaODefinitiva(none);
  Ref<Object> nameless = texts;
  texts->sFillComboBoxWithPruebaODefinitiva(nameless);
  EXPECT_EQ("", api->log);
}

TEST_F(EnumTexts, OfThePrintingModesFillAnyObject) {
  box->type = u"ListBox";
  box->typeFails = true;
  texts->sFillComboBoxWithPrintingMode(reference);
  EXPECT_EQ(2u, box->items.size());
  Ref<Object> none;
  EXPECT_EQ(kObjectNotSet, errorNumberOf([&] { texts->sFillComboBoxWithPrintingMode(none); }));
  Ref<Object> nameless = texts;
  EXPECT_EQ(kNoSuchMember, errorNumberOf([&] { texts->sFillComboBoxWithPrintingMode(nameless); }));
}

TEST_F(EnumTexts, AMissingMemberIsTheCallersError) {
  for (const char* member : {"Clear", "AddItem", "Width"}) {
    box->missing = member;
    EXPECT_EQ(kNoSuchMember,
              errorNumberOf([&] { texts->sFillComboBoxWithPruebaODefinitiva(reference); }))
        << member;
  }
  for (const char* member : {"Clear", "Text", "List", "ListIndex", "Width"}) {
    box->missing = member;
    EXPECT_EQ(kNoSuchMember,
              errorNumberOf([&] { texts->sFillComboBoxWithPrintingMode(reference); }))
        << member;
  }
}

TEST_F(EnumTexts, AServicesErrorIsTheCallersAndNothingIsTakenBack) {
  api->fault.raiseAt(1, kOverflow);
  EXPECT_EQ(kOverflow,
            errorNumberOf([&] { texts->sFillComboBoxWithPruebaODefinitiva(reference); }));
  EXPECT_EQ(2u, box->items.size());
  EXPECT_THAT(box->log, testing::Not(testing::HasSubstr("Width")));
  api->fault.raiseAt(2, kOverflow);
  EXPECT_EQ(kOverflow,
            errorNumberOf([&] { texts->sFillComboBoxWithPruebaODefinitiva(reference); }));
  EXPECT_THAT(box->log, testing::HasSubstr("Width"));
  api->fault.raiseAt(1, kOverflow);
  EXPECT_EQ(kOverflow, errorNumberOf([&] { texts->sFillComboBoxWithPrintingMode(reference); }));
  modRDPGlobalValues::ofThisThread().refInsApi = nullptr;
  EXPECT_EQ(kObjectNotSet, errorNumberOf([&] { texts->sFillComboBoxWithPrintingMode(reference); }));
  EXPECT_EQ(kObjectNotSet,
            errorNumberOf([&] { texts->sFillComboBoxWithPruebaODefinitiva(reference); }));
}

}  // namespace
}  // namespace tarvo::test
