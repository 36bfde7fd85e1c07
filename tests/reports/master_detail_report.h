// The fixture of the master-detail report's tests: a world, a client, a report, and one template.
#pragma once

#include <gmock/gmock.h>

#include <string>

#include "frame/checked.h"
#include "master_detail_client.h"
#include "report_world.h"
#include "reports/clsObRepMasterDetail.h"

namespace tarvo::test {

class MasterDetailReport : public ::testing::Test {
 protected:
  static constexpr const char16_t* kPath = u"F/FACTURA.ID";

  void write(const std::string& typed) { world.files->write(kPath, templateBytes(typed)); }

  void init(int copies = 1) {
    report->sInit(callbacks, u"Factura", u"", u"", u"FACTURA", u"F/", narrow<std::int16_t>(copies));
  }

  // A record that answers CODIGO, and what it adds to the subtotal.
  void addRecord(const std::string& code, const std::string& amount = "0") {
    TypedValues record;
    record.add("CODIGO=text " + code);
    record.add("MONTO=number " + amount);
    client->records.push_back(record);
    client->amounts.push_back(currencyFromText(fromUtf8(amount)));
  }

  // What the report sends to the printer, without the frame of every report.
  std::string printed() {
    report->sPrintReport();
    return lastJob();
  }
  std::string lastJob() const {
    std::string bytes = world.spooler->jobs().back().bytes;
    const std::string begin = "\x1B@\x12";
    if (bytes.starts_with(begin)) bytes.erase(0, begin.size());
    for (const std::string end : {"\x12\f\x1B@", "\x12\r\n\r\n\r\n\r\n\r\n\x1B@"}) {
      if (bytes.ends_with(end)) bytes.erase(bytes.size() - end.size());
    }
    return bytes == "\x12" ? "" : bytes;  // nothing was printed
  }

  // The error's number, after which its trail is the world's.
  std::int32_t errorOfPrinting() {
    return errorNumberOf([&] { report->sPrintReport(); });
  }

  ReportWorld world;
  Ref<MasterDetailClient> client = make<MasterDetailClient>(world.calls);
  Ref<clsImplementIDMD> callbacks = client;
  Ref<clsObRepMasterDetail> report = make<clsObRepMasterDetail>(world.ports());
};

// So many lines, each with the line end of a template.
inline std::string repeated(int count, const std::string& line) {
  std::string all;
  for (int i = 0; i < count; ++i) all += line;
  return all;
}

inline int countOf(const std::string& text, const std::string& part) {
  int count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos;
       at = text.find(part, at + part.size())) {
    ++count;
  }
  return count;
}

}  // namespace tarvo::test
