// The line buffer and the clients' helpers of the server, as a compiled client has them.
#include "both_sides.h"
#include "reports/clsBody_members.h"
#include "ui/clsLibTarvoRdp_members.h"

namespace tarvo::com {
namespace {

constexpr HRESULT kSubscript = static_cast<HRESULT>(0x800A0009);

// "[\"a\" kind 0 ]": kind 0 has no value.
std::string shown(const VARIANT& variant) {
  Value value;
  valueFromVariant(variant, value);
  return show(value);
}

class BodyOfServer : public BothSides {
 protected:
  ComPtr<_clsBody> body_ = client::create<_clsBody>(client::library(), CLSID_clsBody);
};

std::string bounds(const VARIANT& array) {
  LONG first = -1;
  LONG last = -1;
  if (V_VT(&array) != (VT_ARRAY | VT_VARIANT) || SafeArrayGetDim(V_ARRAY(&array)) != 1) return "";
  SafeArrayGetLBound(V_ARRAY(&array), 1, &first);
  SafeArrayGetUBound(V_ARRAY(&array), 1, &last);
  return std::to_string(first) + " to " + std::to_string(last);
}

TEST_F(BodyOfServer, GivesItsLinesAsACopy) {
  Variant fresh;
  ASSERT_EQ(S_OK, body_->GetLinesArray(&fresh));
  EXPECT_EQ("0 to 50", bounds(fresh));
  EXPECT_THAT(shown(fresh), testing::StartsWith("[kind 0 kind 0 "));
  EXPECT_EQ(S_OK, body_->SetLinesArray(0, Bstr(u"{det.cant} ñ").get()));
  EXPECT_EQ(S_OK, body_->SetLinesArray(50, nullptr));
  Variant lines;
  ASSERT_EQ(S_OK, body_->GetLinesArray(&lines));
  EXPECT_THAT(shown(lines), testing::StartsWith("[\"{det.cant} ñ\" kind 0 "));
  EXPECT_THAT(shown(lines), testing::EndsWith(" kind 0 \"\" ]"));

  LONG first = 0;
  VARIANT other = holding(VT_I2, SHORT{7});
  SafeArrayPutElement(V_ARRAY(&lines), &first, &other);
  Variant again;
  body_->GetLinesArray(&again);
  EXPECT_THAT(shown(again), testing::StartsWith("[\"{det.cant} ñ\" kind 0 "));
}

TEST_F(BodyOfServer, RefusesALineOutside) {
  for (const SHORT index : {SHORT{-1}, SHORT{51}}) {
    EXPECT_EQ(kSubscript, body_->SetLinesArray(index, Bstr(u"fuera").get()));
    EXPECT_EQ("LibTarvoRdpCI|Subscript out of range", client::takeErrorText());
  }
}

TEST_F(BodyOfServer, KeepsItsNumbers) {
  const auto own = make<clsBody>();
  EXPECT_EQ(ownProperties(*own), earlyProperties<clsBody>(body_.get()));
  own->SetNumberOfLinesWithInformation(51);
  own->SetMaxNumberOfLinesToPrint(-1);
  own->SetNumberOfFirstLineOfBody(32767);
  own->SetUseNumberWithCharacterToTheLeftSide(true);
  own->SetCharacterToTheLeftSide(u"-");
  own->SetRecordNumberToPrint(-32768);
  own->SetHasInsertBody(-1);
  body_->SetNumberOfLinesWithInformation(51);
  body_->SetMaxNumberOfLinesToPrint(-1);
  body_->SetNumberOfFirstLineOfBody(32767);
  body_->SetUseNumberWithCharacterToTheLeftSide(VARIANT_TRUE);
  body_->SetCharacterToTheLeftSide(Bstr(u"-").get());
  body_->SetRecordNumberToPrint(-32768);
  body_->SetHasInsertBody(-1);
  EXPECT_EQ(ownProperties(*own), earlyProperties<clsBody>(body_.get()));
  EXPECT_EQ(ownProperties(*own), lateProperties<clsBody>(body_.get()));
}

class HelpersOfServer : public BothSides {
 protected:
  ComPtr<_clsLibTarvoRdp> helpers_ =
      client::create<_clsLibTarvoRdp>(client::library(), CLSID_clsLibTarvoRdp);
  ComPtr<_clsObSpecialVar> variable_ =
      client::create<_clsObSpecialVar>(client::library(), CLSID_clsObSpecialVar);

  // With an array of texts, or of VARIANTs that hold them.
  std::string extract(const VARIANT& lines, VARIANT_BOOL setsPrintLine = VARIANT_TRUE) {
    _clsObSpecialVar* variable = variable_.get();
    variable->AddRef();
    Bstr segment;
    const HRESULT status =
        helpers_->fExtractShortText(&variable, lines, setsPrintLine, segment.out());
    EXPECT_EQ(variable_.get(), variable) << "by reference, and not changed";
    variable->Release();
    return status == S_OK ? utf8(segment) : outcomeOf(status);
  }
  static std::string utf8(const Bstr& text) { return toUtf8(text.view()); }

  bool isEnd() {
    VARIANT_BOOL end = VARIANT_FALSE;
    variable_->GetEndOfRepeatPrintLine(&end);
    return end != VARIANT_FALSE;
  }

  // On the test's stack: texts as a client's array has them.
  struct Texts : Variant {
    Texts(VARTYPE type, std::initializer_list<TextView> texts) {
      SAFEARRAY* array = SafeArrayCreateVector(type, 0, static_cast<ULONG>(texts.size()));
      LONG index = 0;
      for (const TextView text : texts) {
        const Bstr item(text);
        VARIANT element = holding(VT_BSTR, item.get());
        SafeArrayPutElement(array, &index,
                            type == VT_BSTR ? static_cast<void*>(item.get()) : &element);
        ++index;
      }
      V_VT(this) = static_cast<VARTYPE>(VT_ARRAY | type);
      V_ARRAY(this) = array;
    }
  };
};

TEST_F(HelpersOfServer, CutATextIntoRows) {
  Variant rows;
  ASSERT_EQ(S_OK, helpers_->fToStringArray(Bstr(u"ABCDEFGH").get(), 3, 3, &rows));
  EXPECT_EQ("0 to 3", bounds(rows));
  EXPECT_EQ(R"(["ABC" "DEF" "GH" kind 0 ])", shown(rows));
  Variant none;
  EXPECT_EQ(kSubscript, helpers_->fToStringArray(Bstr(u"A").get(), -1, 3, &none));
  EXPECT_EQ(VT_EMPTY, V_VT(&none));
  EXPECT_EQ(
      "LibTarvoRdpCI|Subscript out of range\r\n   en clsLibTarvoRdp.fToStringArray "
      "(clsLibTarvoRdp)",
      client::takeErrorText());
}

TEST_F(HelpersOfServer, GiveAShortTextSegmentBySegment) {
  for (const VARTYPE type : {VT_BSTR, VT_VARIANT}) {
    const Texts lines(type, {u"uno dos tres", u" cuatro", u""});
    variable_->SetArrayPosition(1);
    variable_->SetLength(10);
    variable_->SetEndOfRepeatPrintLine(VARIANT_FALSE);
    EXPECT_EQ("uno dos", extract(lines));
    EXPECT_EQ("tres", extract(lines));
    EXPECT_FALSE(isEnd());
    EXPECT_EQ("cuatro", extract(lines));
    EXPECT_TRUE(isEnd());
    EXPECT_EQ("", extract(lines));
  }
}

TEST_F(HelpersOfServer, RefuseWhatIsNoShortText) {
  const Bstr text(u"uno dos");
  const VARIANT plain = holding(VT_BSTR, text.get());
  EXPECT_THAT(extract(plain),
              testing::StartsWith("13 LibTarvoRdpCI|Type mismatch: valShortText\r\n"));
  _clsObSpecialVar* none = nullptr;
  Bstr segment;
  const Texts lines(VT_BSTR, {u"uno"});
  EXPECT_EQ(static_cast<HRESULT>(0x800A005B),
            helpers_->fExtractShortText(&none, lines, VARIANT_FALSE, segment.out()));
  auto* wrong = reinterpret_cast<_clsObSpecialVar*>(helpers_.get());
  EXPECT_EQ(static_cast<HRESULT>(0x800A000D),
            helpers_->fExtractShortText(&wrong, lines, VARIANT_FALSE, segment.out()));
  EXPECT_EQ("LibTarvoRdpCI|Type mismatch: refVarEspecial", client::takeErrorText());
}

}  // namespace
}  // namespace tarvo::com
