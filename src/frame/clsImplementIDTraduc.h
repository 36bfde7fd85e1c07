// What a client of the form report implements: it answers the template's variables.
//
// A class of its own that answers nothing; a client derives from it (or fulfils its interface from
// outside) and hands the object to the engine, which keeps it as long as the engine lives.
//
// Called on the client's thread, inside its call to the engine, never from within another callback.
// An error that a callback raises ends the report, and comes out of the client's call.
#pragma once

#include "frame/object.h"

namespace tarvo {

class clsObLineCharacts;

class clsImplementIDTraduc : public Object {
 public:
  clsImplementIDTraduc();
  ~clsImplementIDTraduc() override;

  // Gives the line's variable (GetSpecialVar) its value with a SetContent... operation and answers
  // True; or answers False, and "No se encontró" is printed in its place.
  // Called once for each variable of each line that is translated, in their order; not for control
  // words and constants.
  virtual bool fTranslateSpecialVar(Ref<clsObLineCharacts>& refLineToWrite);

  // Lets the operator do something to the printer; the report goes on when it returns.
  virtual void sDisplayPauseDialog();
};

}  // namespace tarvo
