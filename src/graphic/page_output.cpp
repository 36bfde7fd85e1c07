#include "graphic/page_output.h"

#include "frame/application.h"

namespace tarvo {

void failToPrint(TextView printerName, TextView reason) {
  Text description = u"Printer error: " + Text(printerName);
  if (!reason.empty()) description.append(u" (").append(reason).append(u")");
  throw RunTimeError(kPrinterError, {Text(application().title), description, {}, 0});
}

}  // namespace tarvo
