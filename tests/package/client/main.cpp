// A client of the installed library: two lines into a file.
#include <cstdio>

#include "printer/clsUtilImp.h"
#include "services/all.h"

int main(int count, char** arguments) {
  if (count != 2) return 2;
  auto printer = tarvo::make<tarvo::clsUtilImp>();
  LibTarvoCI::CoreServices services;
  services.handTo(*tarvo::make<tarvo::clsInitLibTarvoRpd>(), printer);
  printer->sInitializePrinterFileHandle(tarvo::fromUtf8(std::string("file:") + arguments[1]),
                                        u"Prueba");
  printer->sWriteLn(u"Año nuevo", 0);
  printer->sWriteLn(u"fin", 2);
  printer->sClosePrinterFileHandle();
  return 0;
}
