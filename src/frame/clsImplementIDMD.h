// What a client of the master-detail report implements: it answers the template's variables, walks
// through the detail records, and adds up the subtotal.
//
// A class of its own that answers nothing; a client derives from it (or fulfils its interface from
// outside) and hands the object to the engine, which keeps it as long as the engine lives.
//
// Called on the client's thread, inside its call to the engine, never from within another callback.
// An error that a callback raises ends the report, and comes out of the client's call.
#pragma once

#include <cstdint>

#include "frame/currency.h"
#include "frame/object.h"
#include "frame/text.h"

namespace tarvo {

class clsObLineCharacts;

class clsImplementIDMD : public Object {
 public:
  clsImplementIDMD();
  ~clsImplementIDMD() override;

  // Gives the line's variable (GetSpecialVar) its value with a SetContent... operation and answers
  // True; or answers False, and "No se encontró" is printed in its place.
  //   valMontoSubTotal  the subtotal of the records before the present one
  // Called once for each variable each time its line is translated, in their order.  Where pages
  // have a length, lines are translated to measure them before they are translated to be printed,
  // so the same record must get the same answers.  Not called for control words, constants and the
  // engine's own variables.
  // On a line that repeats, sets the variable's EndOfRepeatPrintLine with its last value.
  virtual bool fTranslateSpecialVarMD(Ref<clsObLineCharacts>& refLineToWrite,
                                      Currency valMontoSubTotal);

  // Lets the operator do something to the printer; the report goes on when it returns.
  virtual void sDisplayPauseDialog();

  // Makes the first detail record the present one.  Called once for each copy.
  // False: there is none.
  virtual bool fReadFirstRecord();

  // Makes the next one the present one.  False: there is none.
  virtual bool fReadNextRecord();

  // Adds the present record's amount.  Called after the record was printed.
  virtual void sAccumSubTotal(Currency& refMontoSubTotal);

  // Whether the report may be printed; asked once, before the first copy.
  //   refMustShowErrorMsg, refErrorMsgToDisplay  for a False: what the operator is told, and
  //                                              whether.  Come in as False and empty.
  virtual bool fCanExecuteWriteReport(bool& refMustShowErrorMsg, Text& refErrorMsgToDisplay);

  // How many detail records there will be.  Asked only when the template does not limit the body.
  virtual std::int32_t fDetailRecordCount();
};

}  // namespace tarvo
