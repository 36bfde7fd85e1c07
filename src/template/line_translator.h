// The translation of template lines: every variable of a line is read, answered, formatted and put
// into its place, from left to right, until no "{" is left.
//
// What both kinds of report do with a line; printing it is theirs.  A value that holds a "{" is
// read again like the template.
#pragma once

#include <array>

#include "frame/borrowed.h"
#include "frame/object.h"
#include "template/clsObLineCharacts.h"
#include "template/services_seen.h"
#include "template/template_line.h"
#include "template/text_key.h"

namespace tarvo {

// Who knows the values.
class VariableSource {
 public:
  // Gives the line's variable its value and answers True; or False, when it does not know it.
  // Called for every variable that is neither a control word nor a constant ("@"), each time.
  virtual bool answer(Ref<clsObLineCharacts>& line) = 0;

  // Called after a False, when the variable has "No se encontró" for its value.
  virtual void notFound(clsObLineCharacts&) {}

  // Gives the line's variable a text that the library has for it: what a control word sends, a
  // constant, "No se encontró".
  virtual void setText(clsObLineCharacts& line, TextView text) {
    line.GetSpecialVar()->SetContentString(text);
  }

 protected:
  ~VariableSource() = default;
};

class LineTranslator {
 public:
  // Sets the line object to the template line and resolves it; of a comment, takes the pause word.
  // REQUIRES: the line object was cleared.
  // Raises: 6 when a line has more than 32,767 variables, values with a "{" among them; 91 without
  // a line object; what the variable, the source and the services raise.
  void translate(Ref<clsObLineCharacts>& line, TextView templateLine, VariableSource& source);

 private:
  static constexpr std::size_t kMostLines = 1024;
  static constexpr std::size_t kRecent = 64;
  static constexpr std::size_t kLongestLine = 4096;  // longer ones are not kept

  void forgetLines();
  TemplateLine* lineOf(TextView text);
  Ref<TemplateLine> findOrMake(TextView text);
  static void takeKnownComment(clsObLineCharacts& line, const TemplateLine& comment);
  bool takeComment(clsObLineCharacts& line, TextView templateLine);
  void resolveVariables(Ref<clsObLineCharacts>& line, Ref<clsObLineCharacts> held,
                        VariableSource& source);
  bool giveLibrarysValue(clsObLineCharacts& line, VariableSource& source);
  void askSource(Ref<clsObLineCharacts>& line, VariableSource& source);

  TextMap<Ref<TemplateLine>> lines_;
  std::array<Ref<TemplateLine>, kRecent> recent_;  // by where the text stood in memory
  ServicesSeen services_;
  Kept<Text> content_;  // kept storage, borrowed (frame/borrowed.h)
};

}  // namespace tarvo
