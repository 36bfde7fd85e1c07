// A typical line of an invoice, by two ways: through the template language, and by a program that
// knows the line's form by heart.  Both make the same characters.
#pragma once

#include <array>
#include <cstdint>

#include "equipment/forwarding_services.h"
#include "frame/clsImplementIDTraduc.h"
#include "frame/clsInitLibTarvoRpd.h"
#include "frame/decimal.h"
#include "printer/clsUtilImp.h"
#include "services/all.h"
#include "template/line_translator.h"

namespace tarvo::bench {

inline constexpr TextView kTemplateLine =
    u"{NEGRA} {FACTURA.NUMERO,8,0} {CLIENTE.NOMBRE,30} {FACTURA.FECHA,10}"
    u" {DETALLE.CANTIDAD,10,0} {DETALLE.MONTO,16} "
    u"{CLIENTE.TIPO,IIF(\"C\",Contado,Credito),8}{BLANCA}";
inline constexpr int kVariables = 6;
inline constexpr int kControlWords = 2;

struct Invoice {
  Currency number;
  Text client;
  Date date;
  Currency quantity;
  Currency amount;
  Text type;
};

inline std::array<Invoice, 4> invoices() {
  return {{{Currency::ofUnits(10021), u"Ferreter\u00EDa El Tornillo C.A.", Date{45000},
            Currency::ofUnits(12), Currency{853'000'000}, u"C"},
           {Currency::ofUnits(10022), u"Inversiones La Esquina", Date{45031},
            Currency::ofUnits(1250), Currency{12'345'678'900}, u"R"},
           {Currency::ofUnits(10023), u"Jos\u00E9 Mart\u00EDnez e Hijos, Sucesores y Asociados",
            Date{45122}, Currency::ofUnits(3), Currency{-1'245'000}, u"C"},
           {Currency::ofUnits(10024), u"Panader\u00EDa", Date{45215}, Currency::ofUnits(40000),
            Currency{99'999'999'999}, u"R"}}};
}

// A client as one writes it.
class InvoiceClient final : public clsImplementIDTraduc {
 public:
  void setInvoice(const Invoice& invoice) noexcept { invoice_ = &invoice; }

  bool fTranslateSpecialVar(Ref<clsObLineCharacts>& refLineToWrite) override {
    clsObSpecialVar& variable = *refLineToWrite->GetSpecialVar();
    const TextView field = variable.GetFieldName();
    if (field == u"NUMERO") {
      variable.SetContentNumeric(invoice_->number, false);
    } else if (field == u"NOMBRE") {
      variable.SetContentString(invoice_->client);
    } else if (field == u"FECHA") {
      variable.SetContentDate(invoice_->date);
    } else if (field == u"CANTIDAD") {
      variable.SetContentNumeric(invoice_->quantity, false);
    } else if (field == u"MONTO") {
      variable.SetContentNumeric(invoice_->amount, false);
    } else if (field == u"TIPO") {
      variable.SetContentEnum(invoice_->type);
    } else {
      return false;
    }
    return true;
  }

 private:
  const Invoice* invoice_ = nullptr;
};

// The library's way, as an engine goes it.
class TemplateWay final : VariableSource {
 public:
  TemplateWay() {
    LibTarvoCI::CoreServices services;
    services.handTo(*make<clsInitLibTarvoRpd>(), printer_);
    printer_->SetChrBold(
        u"\x1B"
        u"E");
    printer_->SetChrLight(
        u"\x1B"
        u"F");
  }

  const Text& lineOf(const Invoice& invoice) {
    client_->setInvoice(invoice);
    line_->sClrRecord();
    translator_.translate(line_, kTemplateLine, *this);
    return line_->GetTextToPrint();
  }

 private:
  bool answer(Ref<clsObLineCharacts>& line) override { return client_->fTranslateSpecialVar(line); }

  Ref<clsUtilImp> printer_ = make<clsUtilImp>();
  Ref<InvoiceClient> client_ = make<InvoiceClient>();
  Ref<clsObLineCharacts> line_ = make<clsObLineCharacts>();
  LineTranslator translator_;
};

// The same with a text service that must be asked for every step, as one in another program is.
class AskedWay {
 public:
  AskedWay() { modRDPGlobalValues::ofThisThread().refInsTexto = make<test::ForwardingTexto>(); }

  const Text& lineOf(const Invoice& invoice) { return way_.lineOf(invoice); }

 private:
  TemplateWay way_;
};

// The yardstick: the same line without a template, a service or a check.
class HandWrittenWay {
 public:
  const Text& lineOf(const Invoice& invoice) {
    text_.assign(
        u"\x1B"
        u"E ");
    appendNumber(invoice.number, 8, 0);
    text_ += u' ';
    appendPadded(invoice.client, 30);
    text_ += u' ';
    appendDate(invoice.date);
    text_ += u' ';
    appendNumber(invoice.quantity, 10, 0);
    text_ += u' ';
    appendNumber(invoice.amount, 16, 2);
    text_ += u' ';
    appendPadded(invoice.type == u"C" ? TextView(u"Contado") : TextView(u"Credito"), 8);
    text_ +=
        u"\x1B"
        u"F";
    return text_;
  }

 private:
  void appendPadded(TextView value, std::size_t width) {
    text_.append(value.substr(0, width));
    if (value.size() < width) text_.append(width - value.size(), u' ');
  }

  // The digits from the last one on, "." before each third.
  void appendNumber(Currency value, std::size_t width, int decimals) {
    char16_t field[32];
    char16_t* const end = field + 32;
    char16_t* at = end;
    const bool isNegative = value.tenThousandths < 0;
    auto left =
        static_cast<std::uint64_t>(isNegative ? -value.tenThousandths : value.tenThousandths);
    left = decimals == 0 ? (left + 5000) / 10000 : (left + 50) / 100;
    if (decimals > 0) {
      for (int i = 0; i < decimals; ++i, left /= 10)
        *--at = static_cast<char16_t>(u'0' + left % 10);
      *--at = u',';
    }
    int digits = 0;
    do {
      if (digits != 0 && digits % 3 == 0) *--at = u'.';
      *--at = static_cast<char16_t>(u'0' + left % 10);
      left /= 10;
      ++digits;
    } while (left != 0);
    if (isNegative) *--at = u'-';
    const auto size = static_cast<std::size_t>(end - at);
    if (size < width) text_.append(width - size, u' ');
    text_.append(at, size);
  }

  // Civil date from a count of days.
  void appendDate(Date date) {
    const int days = static_cast<int>(date.serial) + 693899;  // from 1 March of year 0
    const int era = days / 146097;
    const int dayOfEra = days % 146097;
    const int yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const int dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const int monthFromMarch = (5 * dayOfYear + 2) / 153;
    const int day = dayOfYear - (153 * monthFromMarch + 2) / 5 + 1;
    const int month = monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9;
    const int year = yearOfEra + era * 400 + (month <= 2 ? 1 : 0);
    const auto digit = [](int value) { return static_cast<char16_t>(u'0' + value % 10); };
    const char16_t written[10] = {digit(day / 10),    digit(day),        u'/',
                                  digit(month / 10),  digit(month),      u'/',
                                  digit(year / 1000), digit(year / 100), digit(year / 10),
                                  digit(year)};
    text_.append(written, 10);
  }

  Text text_;
};

}  // namespace tarvo::bench
