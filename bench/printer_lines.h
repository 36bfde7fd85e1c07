// A printer channel on a device that takes everything, and the lines that are written on it.
#pragma once

#include <array>
#include <string_view>

#include "frame/clsInitLibTarvoRpd.h"
#include "printer/clsUtilImp.h"
#include "services/all.h"

namespace tarvo::bench {

struct PrinterLine {
  const char* name;
  TextView text;
  std::uint8_t leftMargin;
};

inline constexpr TextView kPlain =
    u"001-4521  Cable de cobre 2.5 mm x 100 m, rollo        12     85.300,00 1.023.600";
inline constexpr TextView kSpanish =
    u"002-7790  Ca\u00F1er\u00EDa n\u00BA 3 para jard\u00EDn y ba\u00F1o, galvanizada  "
    u"3     12.450,50   37.351";
static_assert(kPlain.size() == 80 && kSpanish.size() == 80);

inline constexpr std::array<PrinterLine, 5> kPrinterLines{{{"plain", kPlain, 0},
                                                           {"spanish", kSpanish, 0},
                                                           {"plain_margin", kPlain, 8},
                                                           {"spanish_margin", kSpanish, 8},
                                                           {"empty", u"", 0}}};

// Hands the services over, and opens a job.
inline Ref<clsUtilImp> openPrinter() {
  Ref<clsUtilImp> channel = make<clsUtilImp>();
  LibTarvoCI::CoreServices services;
  services.handTo(*make<clsInitLibTarvoRpd>(), channel);
  channel->sInitializePrinterFileHandle(u"file:/dev/null", u"bench");
  return channel;
}

}  // namespace tarvo::bench
