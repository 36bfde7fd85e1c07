// What a report costs on its way through the graphic channel into a PDF file.
#include <benchmark/benchmark.h>

#include <string>

#include "frame/clsInitLibTarvoRpd.h"
#include "graphic/clsARObRep.h"
#include "graphic/deflate.h"
#include "graphic/pdf_writer.h"
#include "printer/clsUtilImp.h"
#include "services/all.h"

namespace tarvo::bench {
namespace {

constexpr int kRows = 10'000;

// A row of a price list; no two are the same.
Text row(int number) {
  const std::string id = std::to_string(100'000 + number);
  const std::string price = std::to_string(number * 7919 % 1'000'000);
  return u"002-" + fromAscii(id) + u"  Cañería nº 3 para jardín y baño, galvanizada  " +
         fromAscii(std::string(12 - price.size(), ' ') + price) + u",50";
}

void handServicesOver() {
  Ref<clsUtilImp> printer = make<clsUtilImp>();
  printer->SetChrCondensed(u"\x0F");
  printer->SetChrBold(
      u"\x1B"
      u"E");
  printer->SetChrLight(
      u"\x1B"
      u"F");
  LibTarvoCI::CoreServices services;
  services.handTo(*make<clsInitLibTarvoRpd>(), printer);
}

void setRate(benchmark::State& state) { state.SetItemsProcessed(state.iterations() * kRows); }

// From the first line to the file, as a report does it.
void report(benchmark::State& state) {
  handServicesOver();
  for (auto _ : state) {
    const Ref<clsARObRep> channel = make<clsARObRep>();
    channel->sInit(u"file:/dev/null", u"Lista de precios", ePD_Disk);
    for (int i = 0; i < kRows; ++i) channel->sWriteLn(row(i), 0);
    channel->sCloseGraphicHandle();
  }
  setRate(state);
}

// The lines alone.
void lines(benchmark::State& state) {
  handServicesOver();
  const Text line = row(1);
  for (auto _ : state) {
    const Ref<clsARObRep> channel = make<clsARObRep>();
    channel->sInit(u"", u"Lista de precios", ePD_Disk);
    for (int i = 0; i < kRows; ++i) channel->sWriteLn(line, 0);
    channel->sCancelGraphicPrintProcess();
  }
  setRate(state);
}

// The file alone.
void pdf(benchmark::State& state) {
  const Ref<PagedText> pages = make<PagedText>(PageFormat());
  for (int i = 0; i < kRows; ++i) pages->addRow(row(i));
  std::size_t size = 0;
  for (auto _ : state) {
    const std::string file = pdfOf(*pages, u"Lista de precios");
    benchmark::DoNotOptimize(file.data());
    size = file.size();
  }
  setRate(state);
  state.counters["bytes"] = static_cast<double>(size);
}

BENCHMARK(report)->Name("report_10000_rows")->Unit(benchmark::kMillisecond);
BENCHMARK(lines)->Name("lines_10000_rows")->Unit(benchmark::kMillisecond);
BENCHMARK(pdf)->Name("pdf_10000_rows")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tarvo::bench

BENCHMARK_MAIN();
