// A ledger of many records by two ways: as a master-detail report, and by a program that knows its
// form by heart.  Both write the same bytes.
//
// The shape: pages of 60 lines, of which 8 header, 4 footer and 44 body lines for 22 records; a
// record has two lines, ten variables and two control words; a subtotal is carried.
#pragma once

#include <unistd.h>
#include <array>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <system_error>

#include "frame/clsImplementIDMD.h"
#include "frame/clsInitLibTarvoRpd.h"
#include "printer/clsUtilImp.h"
#include "reports/clsObRepMasterDetail.h"
#include "services/all.h"

namespace tarvo::bench {

inline constexpr const char* kLedgerTemplate =
    "...NMAXLINPAGINA=60\n"
    "FERRETERIA EL TORNILLO C.A.\n"
    "\n"
    "LIBRO DE INVENTARIO\n"
    "\n"
    "Vienen: {VIENEN,18}\n"
    "Codigo     Descripcion                    Cantidad       Precio           Monto\n"
    "Fecha      Lote       Almacen    Descuento Impuesto\n"
    "-------------------------------------------------------------------------------\n"
    "{CUERPO=44}\n"
    "{NEGRA}{ART.CODIGO,10} {ART.NOMBRE,30} {CANTIDAD,8,0} {PRECIO,12} {MONTO,15}{BLANCA}\n"
    "{FECHA,10} {LOTE,10} {ALMACEN,10} {DESCUENTO,9} {IMPUESTO,8}\n"
    "{FINCUERPO}\n"
    "-------------------------------------------------------------------------------\n"
    "Van: {VAN,18}\n"
    "\n"
    "ORIGINAL\n";

inline constexpr int kRecordsPerPage = 22;
inline constexpr int kVariables = 10;

struct LedgerRecord {
  Text code;
  Text name;
  Currency quantity;
  Currency price;
  Currency amount;
  Date date;
  Text lot;
  Text store;
  Currency discount;
  Currency tax;
};

inline const std::array<LedgerRecord, 4>& ledgerRecords() {
  static const std::array<LedgerRecord, 4> records{
      {{u"A-100", u"Tornillo de acero 3 pulgadas", Currency::ofUnits(1200), Currency{12'500},
        Currency::ofUnits(1500), Date{45000}, u"L-0001", u"Norte", Currency{25'000},
        Currency{160'000}},
       {u"B-2043", u"Cable de cobre 2.5 mm, rollo", Currency::ofUnits(12), Currency{853'000'000},
        Currency::ofUnits(1'023'600), Date{45031}, u"L-0412", u"Sur", Currency{0},
        Currency{16'377'600}},
       {u"C-17", u"Pintura blanca al agua, galon", Currency::ofUnits(7), Currency{124'505'000},
        Currency{871'535'000}, Date{45122}, u"", u"Deposito 3", Currency{1'000'000},
        Currency{13'944'500}},
       {u"D-999", u"Llave inglesa", Currency::ofUnits(31), Currency{45'990'000},
        Currency{1'425'690'000}, Date{45215}, u"L-7", u"Norte", Currency{0},
        Currency{22'811'000}}}};
  return records;
}

// A client as one writes it, over records in memory.
class LedgerClient final : public clsImplementIDMD {
 public:
  explicit LedgerClient(long count) : count_(count) {}

  bool fTranslateSpecialVarMD(Ref<clsObLineCharacts>& refLineToWrite, Currency) override {
    clsObSpecialVar& variable = *refLineToWrite->GetSpecialVar();
    const TextView field = variable.GetFieldName();
    const LedgerRecord& r = *record_;
    switch (field.front()) {
      case u'C':
        if (is(field, u"CODIGO")) return text(variable, r.code);
        if (is(field, u"CANTIDAD")) return number(variable, r.quantity);
        return false;
      case u'N':
        return is(field, u"NOMBRE") && text(variable, r.name);
      case u'P':
        return is(field, u"PRECIO") && number(variable, r.price);
      case u'M':
        return is(field, u"MONTO") && number(variable, r.amount);
      case u'F':
        if (!is(field, u"FECHA")) return false;
        variable.SetContentDate(r.date);
        return true;
      case u'L':
        return is(field, u"LOTE") && text(variable, r.lot);
      case u'A':
        return is(field, u"ALMACEN") && text(variable, r.store);
      case u'D':
        return is(field, u"DESCUENTO") && number(variable, r.discount);
      case u'I':
        return is(field, u"IMPUESTO") && number(variable, r.tax);
      default:
        return false;
    }
  }

  bool fReadFirstRecord() override {
    present_ = 0;
    return go();
  }
  bool fReadNextRecord() override {
    ++present_;
    return go();
  }
  void sAccumSubTotal(Currency& refMontoSubTotal) override { refMontoSubTotal += record_->amount; }
  bool fCanExecuteWriteReport(bool&, Text&) override { return true; }

 private:
  bool go() {
    record_ = &ledgerRecords()[static_cast<std::size_t>(present_) % ledgerRecords().size()];
    return present_ < count_;
  }
  // Names are compared as memory: the standard library's comparison goes character by character.
  template <std::size_t kSize>
  static bool is(TextView field, const char16_t (&name)[kSize]) {
    constexpr std::size_t kLength = kSize - 1;
    return field.size() == kLength &&
           std::memcmp(field.data(), name, kLength * sizeof(char16_t)) == 0;
  }
  static bool text(clsObSpecialVar& variable, const Text& value) {
    variable.SetContentString(value);
    return true;
  }
  static bool number(clsObSpecialVar& variable, Currency value) {
    variable.SetContentNumeric(value, false);
    return true;
  }

  const long count_;
  long present_ = 0;
  const LedgerRecord* record_ = nullptr;
};

// A folder with the template, while this object lives; each process has its own.
class LedgerFolder {
 public:
  LedgerFolder()
      : path_(std::filesystem::temp_directory_path() /
              ("tarvo-bench-" + std::to_string(getpid()))) {
    std::filesystem::create_directories(path_);
    std::ofstream(path_ / "LIBRO.ID", std::ios::binary) << kLedgerTemplate;
  }
  LedgerFolder(const LedgerFolder&) = delete;
  LedgerFolder& operator=(const LedgerFolder&) = delete;
  ~LedgerFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  Text path() const { return (path_ / "").u16string(); }

 private:
  std::filesystem::path path_;
};

// The library's way.
inline void printLedger(const Text& printerName, long records) {
  const LedgerFolder folder;
  Ref<clsUtilImp> printer = make<clsUtilImp>();
  LibTarvoCI::CoreServices services;
  services.handTo(*make<clsInitLibTarvoRpd>(), printer);
  printer->SetPrinterName(printerName);
  printer->SetCanPrintInTextMode(true);
  printer->SetChrFormFeed(u"\f");
  printer->SetChrBold(
      u"\x1B"
      u"E");
  printer->SetChrLight(
      u"\x1B"
      u"F");
  const auto report = make<clsObRepMasterDetail>();
  Ref<clsImplementIDMD> client = make<LedgerClient>(records);
  report->sInit(client, u"Libro", u"", u"", u"LIBRO", folder.path(), 1);
  report->sPrintReport();
}

// The yardstick: bytes into a buffer, without a template, a service or a check.
class HandWrittenLedger {
 public:
  explicit HandWrittenLedger(std::FILE* file) : file_(file) {}

  void print(long count) {
    Currency carried;
    long left = count;
    int line = 0;
    for (long i = 0; i < count; ++i, --left) {
      if (line == 0) header(i == 0, carried);
      record(kRecords.at(static_cast<std::size_t>(i) % kRecords.size()));
      carried.tenThousandths += kRecords[static_cast<std::size_t>(i) % kRecords.size()].amount;
      if (++line == kRecordsPerPage || left == 1) {
        for (; line < kRecordsPerPage; ++line) put("\r\n\r\n");
        footer(left == 1 ? Currency{} : carried);
        put("\f");
        line = 0;
      }
      if (size_ > buffer_.size() - 4096) flush();
    }
    flush();
  }

 private:
  struct Bytes {
    std::string code;
    std::string name;
    std::int64_t quantity;
    std::int64_t price;
    std::int64_t amount;
    int date;
    std::string lot;
    std::string store;
    std::int64_t discount;
    std::int64_t tax;
  };

  static std::vector<Bytes> bytesOf() {
    std::vector<Bytes> all;
    for (const LedgerRecord& r : ledgerRecords()) {
      all.push_back({toUtf8(r.code), toUtf8(r.name), r.quantity.tenThousandths,
                     r.price.tenThousandths, r.amount.tenThousandths,
                     static_cast<int>(r.date.serial), toUtf8(r.lot), toUtf8(r.store),
                     r.discount.tenThousandths, r.tax.tenThousandths});
    }
    return all;
  }
  const std::vector<Bytes> kRecords = bytesOf();

  void flush() {
    if (std::fwrite(buffer_.data(), 1, size_, file_) != size_) throw std::runtime_error("write");
    size_ = 0;
  }

  void put(std::string_view bytes) {
    std::memcpy(buffer_.data() + size_, bytes.data(), bytes.size());
    size_ += bytes.size();
  }
  void padded(const std::string& value, std::size_t width) {
    put(value);
    for (std::size_t i = value.size(); i < width; ++i) buffer_[size_++] = ' ';
  }
  void number(std::int64_t value, int width, int decimals) {
    char field[32];
    char* const end = field + sizeof field;
    char* at = end;
    std::uint64_t rest = static_cast<std::uint64_t>(value);
    rest = decimals == 0 ? (rest + 5000) / 10000 : (rest + 50) / 100;
    if (decimals > 0) {
      for (int i = 0; i < decimals; ++i, rest /= 10) *--at = static_cast<char>('0' + rest % 10);
      *--at = ',';
    }
    int digits = 0;
    do {
      if (digits != 0 && digits % 3 == 0) *--at = '.';
      *--at = static_cast<char>('0' + rest % 10);
      rest /= 10;
      ++digits;
    } while (rest != 0);
    for (int i = static_cast<int>(end - at); i < width; ++i) buffer_[size_++] = ' ';
    put({at, static_cast<std::size_t>(end - at)});
  }
  void date(int serial) {
    const int days = serial + 693899;
    const int era = days / 146097;
    const int dayOfEra = days % 146097;
    const int yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const int dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const int monthFromMarch = (5 * dayOfYear + 2) / 153;
    const int day = dayOfYear - (153 * monthFromMarch + 2) / 5 + 1;
    const int month = monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9;
    const int year = yearOfEra + era * 400 + (month <= 2 ? 1 : 0);
    const auto digit = [](int value) { return static_cast<char>('0' + value % 10); };
    const char written[10] = {digit(day / 10),    digit(day),        '/',
                              digit(month / 10),  digit(month),      '/',
                              digit(year / 1000), digit(year / 100), digit(year / 10),
                              digit(year)};
    put({written, sizeof written});
  }

  void header(bool isFirst, Currency carried) {
    put("FERRETERIA EL TORNILLO C.A.\r\n\r\nLIBRO DE INVENTARIO\r\n\r\n");
    if (!isFirst) {
      put("Vienen: ");
      number(carried.tenThousandths, 18, 2);
    }
    put("\r\nCodigo     Descripcion                    Cantidad       Precio           Monto\r\n"
        "Fecha      Lote       Almacen    Descuento Impuesto\r\n"
        "-------------------------------------------------------------------------------\r\n");
  }
  void footer(Currency carried) {
    put("-------------------------------------------------------------------------------\r\n"
        "Van: ");
    number(carried.tenThousandths, 18, 2);
    put("\r\n\r\nORIGINAL\r\n");
  }
  void record(const Bytes& r) {
    put("\x1B"
        "E");
    padded(r.code, 10);
    put(" ");
    padded(r.name, 30);
    put(" ");
    number(r.quantity, 8, 0);
    put(" ");
    number(r.price, 12, 2);
    put(" ");
    number(r.amount, 15, 2);
    put("\x1B"
        "F\r\n");
    date(r.date);
    put(" ");
    padded(r.lot, 10);
    put(" ");
    padded(r.store, 10);
    put(" ");
    number(r.discount, 9, 2);
    put(" ");
    number(r.tax, 8, 2);
    put("\r\n");
  }

  std::FILE* file_;
  std::array<char, 65536> buffer_;
  std::size_t size_ = 0;
};

inline void printLedgerByHand(const char* path, long records) {
  std::FILE* file = std::fopen(path, "wb");
  if (file == nullptr) throw std::runtime_error(path);
  HandWrittenLedger(file).print(records);
  std::fclose(file);
}

}  // namespace tarvo::bench
