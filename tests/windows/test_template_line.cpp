// The template line of the server, beside that of this program.
#include "both_sides.h"

namespace tarvo::com {
namespace {

class TemplateLineOfServer : public BothSides {
 protected:
  ComPtr<_clsObLineCharacts> server_ =
      client::create<_clsObLineCharacts>(client::library(), CLSID_clsObLineCharacts);
  Ref<clsObLineCharacts> own_ = make<clsObLineCharacts>();

  void expectSame() {
    const std::string expected = ownProperties(*own_);
    EXPECT_EQ(expected, earlyProperties<clsObLineCharacts>(server_.get()));
    EXPECT_EQ(expected, lateProperties<clsObLineCharacts>(server_.get()));
    unsigned char lines = 99;
    EXPECT_EQ(S_OK, server_->fNumberOfPrintedLinesThatWillFill(&lines));
    EXPECT_EQ(own_->fNumberOfPrintedLinesThatWillFill(), lines);
    ComPtr<_clsObSpecialVar> variable;
    ASSERT_EQ(S_OK, server_->GetSpecialVar(variable.out()));
    EXPECT_EQ(ownProperties(*own_->GetSpecialVar()),
              earlyProperties<clsObSpecialVar>(variable.get()));
  }

  void clear() {
    own_->sClrRecord();
    EXPECT_EQ(S_OK, server_->sClrRecord());
  }
};

TEST_F(TemplateLineOfServer, IsNewWithEverythingFalse) {
  expectSame();
  clear();
  expectSame();
}

TEST_F(TemplateLineOfServer, KeepsWhatItsSettersAreGiven) {
  for (int which = 0; which < 4; ++which) {
    setAllEnds(*own_, server_.get(), which);
    expectSame();
  }
}

TEST_F(TemplateLineOfServer, KnowsEveryControlWord) {
  for (const char16_t* word : {u"SNP",          u"SALTANPUNTOS", u"SNL",       u"SALTANLINEAS",
                               u"COMP",         u"COMPRIMIDO",   u"EXPANDIDO", u"FINEXPANDIDO",
                               u"NORM",         u"NORMAL",       u"NEGRA",     u"BOLD",
                               u"BLANCA",       u"LIGHT",        u"NB",        u"NBLANCOS",
                               u"SALTAPAGINA",  u"TAB",          u"REPEAT",    u"SUBRAYADO",
                               u"FINSUBRAYADO", u" bold ",       u"NEGRITA",   u""}) {
    SCOPED_TRACE(toUtf8(word));
    clear();
    own_->GetSpecialVar()->SetLength(3);
    ComPtr<_clsObSpecialVar> variable;
    server_->GetSpecialVar(variable.out());
    variable->SetLength(3);
    Text ownContent = u"antes";
    Bstr content(ownContent);
    const bool expected = own_->fSpecialVarIsAnyControlChar(word, ownContent);
    VARIANT_BOOL known = 1;
    EXPECT_EQ(S_OK, server_->fSpecialVarIsAnyControlChar(Bstr(word).get(), content.out(), &known));
    EXPECT_EQ(expected ? VARIANT_TRUE : VARIANT_FALSE, known);
    EXPECT_EQ(toUtf8(ownContent), toUtf8(content.view()));
    expectSame();
  }
}

TEST_F(TemplateLineOfServer, ReplacesItsVariablesOneAfterTheOther) {
  const Text line = u"A {R.A,5} B {R.B,CONDICION} C {R.C,VACIO}";
  clear();
  own_->SetTextToWrite(line);
  server_->SetTextToWrite(Bstr(line).get());
  for (int variable = 0; variable < 3; ++variable) {
    own_->sExtractSpecialVar(Text(own_->GetTextToWrite()));
    Bstr text;
    server_->GetTextToWrite(text.out());
    EXPECT_EQ(S_OK, server_->sExtractSpecialVar(text.get()));
    expectSame();
    ComPtr<_clsObSpecialVar> serversVariable;
    server_->GetSpecialVar(serversVariable.out());
    own_->GetSpecialVar()->SetContentString(u"xyz");
    serversVariable->SetContentString(Bstr(u"xyz").get());
    own_->sFormatSpecialVar();
    EXPECT_EQ(S_OK, server_->sFormatSpecialVar());
    own_->sReplaceVarInTextToWrite();
    EXPECT_EQ(S_OK, server_->sReplaceVarInTextToWrite());
    expectSame();
  }
  Bstr printed;
  server_->GetTextToPrint(printed.out());
  EXPECT_EQ("A xyz   B  C ", toUtf8(printed.view()));
}

TEST_F(TemplateLineOfServer, TakesAComment) {
  clear();
  Text comment = u"  ... pausa ";
  Bstr text(comment);
  own_->sExtractComment(comment);
  EXPECT_EQ(S_OK, server_->sExtractComment(text.out()));
  EXPECT_EQ(comment, text.view()) << "by reference, and not changed";
  VARIANT_BOOL isPause = VARIANT_FALSE;
  EXPECT_EQ(S_OK,
            server_->fCheckAnyPrintingControlVarInCommentary(Bstr(u"   pausa ").get(), &isPause));
  EXPECT_TRUE(own_->fCheckAnyPrintingControlVarInCommentary(u"   pausa "));
  EXPECT_EQ(VARIANT_TRUE, isPause);
  expectSame();
}

TEST_F(TemplateLineOfServer, ShowsTheSameVariableAsLongAsSomebodyHoldsIt) {
  ComPtr<_clsObSpecialVar> first;
  ComPtr<_clsObSpecialVar> second;
  server_->GetSpecialVar(first.out());
  server_->GetSpecialVar(second.out());
  EXPECT_EQ(first.get(), second.get());
}

TEST_F(TemplateLineOfServer, TakesAnotherVariableAndNothingAndNoOtherObject) {
  const auto other = client::create<_clsObSpecialVar>(client::library(), CLSID_clsObSpecialVar);
  EXPECT_EQ(S_OK, server_->SetSpecialVar(other.get()));
  ComPtr<_clsObSpecialVar> now;
  server_->GetSpecialVar(now.out());
  EXPECT_EQ(other.get(), now.get());

  EXPECT_EQ(static_cast<HRESULT>(0x800A000D),
            server_->SetSpecialVar(reinterpret_cast<_clsObSpecialVar*>(server_.get())));
  EXPECT_EQ("LibTarvoRdpCI|Type mismatch: valNewValue", client::takeErrorText());

  EXPECT_EQ(S_OK, server_->SetSpecialVar(nullptr));
  _clsObSpecialVar* none = other.get();
  EXPECT_EQ(S_OK, server_->GetSpecialVar(&none));
  EXPECT_EQ(nullptr, none);
  Bstr field;
  EXPECT_EQ(static_cast<HRESULT>(0x800A005B), server_->GetField(field.out()));
  EXPECT_EQ("LibTarvoRdpCI|Object variable not set", client::takeErrorText());
  EXPECT_EQ(static_cast<HRESULT>(0x800A005B), server_->sFormatSpecialVar());
  EXPECT_EQ(
      "LibTarvoRdpCI|Object variable not set\r\n   en "
      "clsObLineCharacteristic.sFormatSpecialVar (Lib. Impresión Texto - Ob Line)",
      client::takeErrorText());
}

// The variable outlives its line as long as a client holds it.
TEST_F(TemplateLineOfServer, LeavesItsVariableToWhoHoldsIt) {
  ComPtr<_clsObSpecialVar> variable;
  server_->GetSpecialVar(variable.out());
  server_.reset();
  EXPECT_EQ(S_OK, variable->sExtract(Bstr(u"{R.A}").get()));
  Bstr field;
  variable->GetFieldName(field.out());
  EXPECT_EQ(u"A", field.view());
}

}  // namespace
}  // namespace tarvo::com
