// The form in which the operator chooses the printing mode, and what the client gets of it.
#include "printing_mode_test.h"

namespace tarvo::test {
namespace {

using enum PrintingModeControl;

constexpr PrintingModeControl kControls[] = {kGraphic, kText, kContinue, kCancel};

// --- Choosing.

TEST_F(PrintingModeTest, ContinueWithoutTouchingTheOptionsIsGraphic) {
  operatorDoes(click(kContinue));
  EXPECT_EQ("graphic", outcome());
  EXPECT_EQ("choose graphic, show, step, close, hidden, gone", script.log);
  EXPECT_EQ("", api->log);
}

TEST_F(PrintingModeTest, TheChosenOptionCounts) {
  operatorDoes(click(kText), click(kContinue));
  EXPECT_EQ("text", outcome());
  EXPECT_EQ("choose graphic, show, step, choose text, step, close, hidden, gone", script.log);
  operatorDoes(click(kText), click(kGraphic), click(kContinue));
  EXPECT_EQ("graphic", outcome());
}

TEST_F(PrintingModeTest, CancelAndTheCloseBoxRefuse) {
  operatorDoes(click(kCancel));
  EXPECT_EQ("cancelled", outcome());
  operatorDoes(click(kText), click(kCancel));
  EXPECT_EQ("cancelled", outcome());
  operatorDoes();
  EXPECT_EQ("cancelled", outcome());
  EXPECT_EQ("choose graphic, show, hidden, gone", script.log);
  operatorDoes(click(kText));
  EXPECT_EQ("cancelled", outcome());
}

TEST_F(PrintingModeTest, EveryFormStartsAnew) {
  operatorDoes(click(kText), click(kContinue));
  EXPECT_EQ("text", outcome());
  operatorDoes(click(kContinue));
  EXPECT_EQ("graphic", outcome());
}

TEST_F(PrintingModeTest, WhatIsDoneToAClosedFormIsIgnored) {
  operatorDoes([](PrintingModeEvents& events) {
    events.clicked(kContinue);
    events.clicked(kText);
    events.clicked(kContinue);
    events.clicked(kCancel);
    events.keyPressed(kContinue, kF6Key, 0);
  });
  EXPECT_EQ("graphic", outcome());
  EXPECT_EQ("choose graphic, show, step, close, hidden, gone", script.log);
  EXPECT_EQ("", api->log);
}

// --- Keys.

TEST_F(PrintingModeTest, F6OnAnyControlConfirms) {
  for (const PrintingModeControl control : kControls) {
    operatorDoes(pressKey(kF6Key, control));
    EXPECT_EQ("graphic", outcome()) << shownControl(control);
    EXPECT_EQ(
        "key frmChoosePrintingMode frmChoosePrintingMode 117 0, press CommandButton "
        "cmdContinue, ",
        api->log);
    EXPECT_EQ("choose graphic, show, step, close, hidden, gone", script.log);
    operatorDoes(click(kText), pressKey(kF6Key, control));
    EXPECT_EQ("text", outcome()) << shownControl(control);
  }
}

TEST_F(PrintingModeTest, EscOnAnyControlCancels) {
  for (const PrintingModeControl control : kControls) {
    operatorDoes(click(kText), pressKey(kEscapeKey, control));
    EXPECT_EQ("cancelled", outcome()) << shownControl(control);
    EXPECT_EQ(
        "key frmChoosePrintingMode frmChoosePrintingMode 27 0, press CommandButton "
        "cmdCancel, ",
        api->log);
  }
}

TEST_F(PrintingModeTest, OtherKeysAreOfferedAndNoMore) {
  operatorDoes(pressKey(13, kGraphic), pressKey(116, kText, 1), pressKey(118, kContinue, 2),
               pressKey(67, kCancel, 4), pressKey(0, kText, 7), click(kContinue));
  EXPECT_EQ("graphic", outcome());
  const std::string form = "key frmChoosePrintingMode frmChoosePrintingMode ";
  EXPECT_EQ(
      form + "13 0, " + form + "116 1, " + form + "118 2, " + form + "67 4, " + form + "0 7, ",
      api->log);
}

TEST_F(PrintingModeTest, TheShiftStateDoesNotMatter) {
  operatorDoes(pressKey(kF6Key, kText, 5));
  EXPECT_EQ("graphic", outcome());
  operatorDoes(pressKey(kEscapeKey, kText, 1));
  EXPECT_EQ("cancelled", outcome());
}

TEST_F(PrintingModeTest, AKeyThatTheServiceHandledDoesNothing) {
  for (const std::int16_t key : {kF6Key, kEscapeKey}) {
    api->handledKey = key;
    for (const PrintingModeControl control : kControls) {
      operatorDoes(click(kText), pressKey(key, control), click(kContinue));
      EXPECT_EQ("text", outcome()) << key << " on " << shownControl(control);
      EXPECT_EQ("choose graphic, show, step, choose text, step, step, close, hidden, gone",
                script.log);
      EXPECT_EQ(std::string::npos, api->log.find("press"));
    }
  }
}

TEST_F(PrintingModeTest, AServiceThatPressesNoButtonLeavesTheFormOpen) {
  api->press = [](Ref<Object>&) {};
  operatorDoes(pressKey(kF6Key, kText), pressKey(kEscapeKey, kText), click(kContinue));
  EXPECT_EQ("graphic", outcome());
  EXPECT_EQ("choose graphic, show, step, step, step, close, hidden, gone", script.log);
}

TEST_F(PrintingModeTest, AServiceMayReplaceItsOwnReferences) {
  api->press = [](Ref<Object>& button) {
    auto* late = dynamic_cast<LateObject*>(button.get());
    const Ref<LateObject> held(late);
    button = nullptr;
    modRDPGlobalValues::ofThisThread().refInsApi = nullptr;
    held->call(u"Click", {});
  };
  operatorDoes(pressKey(kF6Key, kText));
  EXPECT_EQ("graphic", outcome());
}

// --- Errors.

struct FailureCase {
  const char* shows;
  std::function<void(PrintingModeEvents&)> step;
  int failingChoose, failingClose, failingCall;  // the nth, 0 none
  const char* trail;
};

TEST_F(PrintingModeTest, AnErrorComesOutWithItsTrailAndTheFormClosed) {
  const FailureCase kCases[] = {
      {"the first choice", click(kContinue), 1, 0, 0, "Form_Load"},
      {"an option", click(kText), 2, 0, 0, ""},
      {"continuing", click(kContinue), 0, 1, 0, "cmdContinue_Click"},
      {"cancelling", click(kCancel), 0, 1, 0, "cmdCancel_Click"},
      {"a key on an option", pressKey(65, kGraphic), 0, 0, 1,
       "sCheckForSpecialKeys optPrintingMode_KeyDown"},
      {"a key on the other option", pressKey(65, kText), 0, 0, 1,
       "sCheckForSpecialKeys optPrintingMode_KeyDown"},
      {"a key on the first button", pressKey(65, kContinue), 0, 0, 1,
       "sCheckForSpecialKeys cmdContinue_KeyDown"},
      {"a key on the second button", pressKey(65, kCancel), 0, 0, 1,
       "sCheckForSpecialKeys cmdCancel_KeyDown"},
      {"pressing the button for F6", pressKey(kF6Key, kText), 0, 0, 2,
       "sCheckForSpecialKeys optPrintingMode_KeyDown"},
      {"pressing the button for Esc", pressKey(kEscapeKey, kCancel), 0, 0, 2,
       "sCheckForSpecialKeys cmdCancel_KeyDown"},
      {"closing for F6", pressKey(kF6Key, kCancel), 0, 1, 0,
       "cmdContinue_Click sCheckForSpecialKeys cmdCancel_KeyDown"},
      {"closing for Esc", pressKey(kEscapeKey, kContinue), 0, 1, 0,
       "cmdCancel_Click sCheckForSpecialKeys cmdContinue_KeyDown"},
  };
  for (const FailureCase& row : kCases) {
    SCOPED_TRACE(row.shows);
    script.chooseFault.raiseAt(row.failingChoose, kOverflow);
    script.closeFault.raiseAt(row.failingClose, kOverflow);
    api->fault.raiseAt(row.failingCall, kOverflow);
    operatorDoes(row.step, click(kContinue));
    const std::string inner = row.trail;
    EXPECT_EQ("6: " + inner + (inner.empty() ? "" : " ") + "fChoosePrintinMode", outcome());
    EXPECT_THAT(script.log, testing::EndsWith("gone"));
    if (inner != "Form_Load") {
      EXPECT_THAT(script.log, testing::EndsWith("close, hidden, gone"));
      EXPECT_THAT(script.log, testing::Not(testing::HasSubstr("step, step, step")));
    }
    script.chooseFault.never();
    script.closeFault.never();
    api->fault.never();
  }
}

TEST_F(PrintingModeTest, TheFormReportsAsAForm) {
  operatorDoes(pressKey(kF6Key, kText));
  script.closeFault.raiseAt(1, kOverflow);
  outcome();
  ASSERT_EQ(4u, error->reports.size());
  for (std::size_t i = 0; i < 3; ++i) {
    const RecordingError::Report& report = error->reports[i];
    EXPECT_EQ(u"frmChoosePrintingMode", report.className);
    EXPECT_EQ(u"Selección de Modo de Impresión", report.module);
    EXPECT_EQ(1, report.kind);
  }
  EXPECT_EQ(u"made to fail", error->reports[0].description);
  EXPECT_EQ(u"help.hlp", error->reports[0].helpFile);
  EXPECT_EQ(u"made to fail < cmdContinue_Click < sCheckForSpecialKeys < optPrintingMode_KeyDown",
            error->reports[3].description);
  EXPECT_EQ(u"clsLibTarvoRdp", error->reports[3].className);
  EXPECT_EQ(u"clsLibTarvoRdp", error->reports[3].module);
  EXPECT_EQ(2, error->reports[3].kind);
}

TEST_F(PrintingModeTest, AWindowThatCannotBeShownIsTheClientsError) {
  script.showFault.raiseAt(1, kOutOfMemory);
  EXPECT_EQ("7: fChoosePrintinMode", outcome());
  EXPECT_EQ("choose graphic, show, gone", script.log);
}

TEST_F(PrintingModeTest, WithoutAPlatformCallServiceAKeyIsAnError) {
  modRDPGlobalValues::ofThisThread().refInsApi = nullptr;
  operatorDoes(pressKey(65, kText), click(kContinue));
  EXPECT_EQ("91: sCheckForSpecialKeys optPrintingMode_KeyDown fChoosePrintinMode", outcome());
  operatorDoes(click(kContinue));
  EXPECT_EQ("graphic", outcome());
}

TEST_F(PrintingModeTest, WithoutAnErrorServiceThatIsTheError) {
  modRDPGlobalValues::ofThisThread().refInsError = nullptr;
  api->fault.raiseAt(1, kOverflow);
  operatorDoes(pressKey(65, kText));
  EXPECT_EQ("91: ", outcome());
  EXPECT_THAT(script.log, testing::EndsWith("close, hidden, gone"));
}

TEST_F(PrintingModeTest, TheFirstOfSeveralErrorsCounts) {
  api->fault.raiseAt(1, kOverflow);
  script.closeFault.raiseAt(1, kOutOfMemory);
  operatorDoes(pressKey(65, kText));
  EXPECT_EQ("6: sCheckForSpecialKeys optPrintingMode_KeyDown fChoosePrintinMode", outcome());
}

// --- The form and its controls as the service knows them.

class FormMembers : public PrintingModeTest {
 protected:
  FormMembers() { api->keeps = true; }

  // What `look` says while the form is shown.
  template <class Look>
  std::string whileShown(Look look) {
    std::string seen;
    api->press = [&](Ref<Object>& button) {
      auto* form = dynamic_cast<LateObject*>(api->kept.front().get());
      seen = look(*form, *dynamic_cast<LateObject*>(button.get()));
    };
    operatorDoes(pressKey(kF6Key, kText));
    last = outcome();
    return seen;
  }
  static Value at(LateObject& form, const Value& index) {
    const std::array<Value, 1> indexes{index};
    return form.get(u"optPrintingMode", indexes);
  }
  static LateObject& objectIn(const Value& value) {
    return dynamic_cast<LateObject&>(**value.tryGet<Ref<Object>>());
  }
  static std::string texts(LateObject& object) {
    return toUtf8(object.typeName()) + " " + show(object.get(u"NAME", {})) + " " +
           show(object.get(u"caption", {}));
  }

  std::string last;
};

TEST_F(FormMembers, HaveNamesTypesAndCaptions) {
  EXPECT_EQ(
      "frmChoosePrintingMode text \"frmChoosePrintingMode\" text \"Modos de Impresión "
      "Disponibles\"|"
      "CommandButton text \"cmdContinue\" text \"&Continuar\"|"
      "CommandButton text \"cmdCancel\" text \"C&ancelar\"|"
      "OptionButton text \"optPrintingMode\" text \"Impresión Gráfica\"|"
      "OptionButton text \"optPrintingMode\" text \"Impresión Texto\"",
      whileShown([](LateObject& form, LateObject& button) {
        EXPECT_EQ(&button, &objectIn(form.get(u"CMDCONTINUE", {})));
        return texts(form) + "|" + texts(button) + "|" +
               texts(objectIn(form.get(u"cmdCancel", {}))) + "|" +
               texts(objectIn(at(form, std::int16_t{0}))) + "|" + texts(objectIn(at(form, 1.0)));
      }));
}

TEST_F(FormMembers, AnOptionIsChosenByClickOrValue) {
  const std::string values = whileShown([](LateObject& form, LateObject&) {
    LateObject& graphic = objectIn(at(form, std::int16_t{0}));
    LateObject& text = objectIn(at(form, std::int32_t{1}));
    const auto both = [&] {
      return show(graphic.get(u"Value", {})) + show(text.get(u"Value", {}));
    };
    std::string seen = both();
    text.put(u"Value", {}, false);
    seen += both();
    text.put(u"value", {}, true);
    seen += both();
    graphic.call(u"CLICK", {});
    seen += both();
    text.put(u"Value", {}, std::int16_t{-1});
    EXPECT_EQ("int16 0", show(graphic.get(u"Index", {})));
    EXPECT_EQ("int16 1", show(text.get(u"Index", {})));
    objectIn(form.get(u"cmdContinue", {})).put(u"Value", {}, true);
    return seen + both();
  });
  const std::string first = show(Value(true)) + show(Value(false));
  const std::string second = show(Value(false)) + show(Value(true));
  EXPECT_EQ(first + first + second + first + second, values);
  EXPECT_EQ("text", last);
}

TEST_F(FormMembers, TakeNumbersOfAnyKind) {
  whileShown([](LateObject& form, LateObject&) {
    LateObject& text = objectIn(at(form, std::int16_t{1}));
    EXPECT_EQ(&text, &objectIn(at(form, Currency::ofUnits(1))));
    EXPECT_EQ(&text, &objectIn(at(form, 0.75)));
    EXPECT_EQ(kOverflow, errorNumberOf([&] { at(form, 1e10); }));
    text.put(u"Value", {}, Currency{});
    EXPECT_EQ(Value(false), text.get(u"Value", {}));
    text.put(u"Value", {}, Currency{1});
    EXPECT_EQ(Value(true), text.get(u"Value", {}));
    objectIn(form.get(u"cmdContinue", {})).put(u"Value", {}, Currency::ofUnits(-1));
    return "";
  });
  EXPECT_EQ("text", last);
}

TEST_F(FormMembers, SayWhatIsAMethod) {
  whileShown([](LateObject& form, LateObject& button) {
    EXPECT_TRUE(button.hasMethod(u"click"));
    EXPECT_FALSE(button.hasMethod(u"Value"));
    EXPECT_FALSE(form.hasMethod(u"Caption"));
    return "";
  });
}

TEST_F(FormMembers, AButtonsValueIsFalseAndTrueIsAClick) {
  whileShown([](LateObject& form, LateObject& button) {
    EXPECT_EQ(Value(false), button.get(u"Value", {}));
    button.put(u"Value", {}, false);
    objectIn(form.get(u"cmdCancel", {})).put(u"Value", {}, true);
    button.call(u"Click", {});  // the form is closed
    return "";
  });
  EXPECT_EQ("cancelled", last);
}

TEST_F(FormMembers, OthersDoNotExist) {
  whileShown([](LateObject& form, LateObject& button) {
    for (LateObject* object : {&form, &button}) {
      EXPECT_EQ(kNoSuchMember, errorNumberOf([&] { object->call(u"Caption", {}); }));
      EXPECT_EQ(kNoSuchMember, errorNumberOf([&] { object->get(u"Click", {}); }));
      EXPECT_EQ(kNoSuchMember, errorNumberOf([&] { object->get(u"Index", {}); }));
      EXPECT_EQ(kNoSuchMember, errorNumberOf([&] { object->put(u"Caption", {}, true); }));
    }
    EXPECT_EQ(kTypeMismatch, errorNumberOf([&] { button.put(u"Value", {}, Text(u"True")); }));
    EXPECT_EQ(kTypeMismatch, errorNumberOf([&] { at(form, Text(u"0")); }));
    EXPECT_EQ(kWrongNumberOfArguments, errorNumberOf([&] { form.get(u"optPrintingMode", {}); }));
    for (const double index : {-1.0, 1.5, 2.0}) {
      EXPECT_EQ(kSubscriptOutOfRange, errorNumberOf([&] { at(form, index); })) << index;
    }
    return "";
  });
}

TEST_F(FormMembers, OutliveTheirForm) {
  operatorDoes(pressKey(kF6Key, kText));
  ASSERT_EQ("graphic", outcome());
  ASSERT_EQ(2u, api->kept.size());
  auto& button = dynamic_cast<LateObject&>(*api->kept[1]);
  button.call(u"Click", {});  // the form is kept, but closed
  api->kept.front() = nullptr;
  EXPECT_EQ(kObjectNotSet, errorNumberOf([&] { button.call(u"Click", {}); }));
  EXPECT_EQ(kObjectNotSet, errorNumberOf([&] { button.get(u"Value", {}); }));
  EXPECT_EQ(u"CommandButton", button.typeName());
}

// --- The text for the operator.

TEST_F(PrintingModeTest, SaysWhereThePrinterIsChosen) {
  EXPECT_EQ(
      u"\r\nPara accesar a la opción de Escoger Impresora, debe dirigirse al menú T, seleccionar "
      u"la "
      u"opción 'Configuración de Impresión', una vez allí presione el botón 'Impresión Texto' y "
      u"ubíquese en la pestaña 'Escoger Impresora'",
      helpers->fMsgForLocateOptionChoosePrinter());
}

}  // namespace
}  // namespace tarvo::test
