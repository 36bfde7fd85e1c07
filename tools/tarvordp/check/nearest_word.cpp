#include "tarvordp/check/nearest_word.h"

#include <algorithm>
#include <array>
#include <vector>

#include "frame/decimal.h"
#include "frame/upper_case.h"
#include "reports/library_variables.h"
#include "template/attribute_words.h"
#include "template/control_words.h"

namespace tarvordp {
namespace {

using tarvo::Text;
using tarvo::TextView;

// What people write instead, from other languages and habits: too far from the word to be found by
// its letters.
struct Habit {
  TextView written;
  TextView meant;
};

constexpr std::array kAttributeHabits = std::to_array<Habit>({{u"LEFT", u"IZQUIERDA"},
                                                              {u"RIGHT", u"DERECHA"},
                                                              {u"CENTER", u"CENTRO"},
                                                              {u"CENTRADO", u"CENTRO"},
                                                              {u"JUSTIFY", u"JUSTIFICADO"},
                                                              {u"IF", u"IIF"},
                                                              {u"SI", u"IIF"},
                                                              {u"FORMAT", u"DATEFORMAT"},
                                                              {u"FORMATO", u"DATEFORMAT"},
                                                              {u"FECHA", u"DATEFORMAT"},
                                                              {u"SINCERO", u"NOCERO"},
                                                              {u"SINCEROS", u"NOCERO"},
                                                              {u"SINBLANCOS", u"NOBLANCOS"},
                                                              {u"CEROS", u"CONCEROS"},
                                                              {u"RELLENAR", u"FILL"},
                                                              {u"REPETIR", u"FILL"},
                                                              {u"EMPTY", u"VACIO"}});

constexpr std::array kControlHabits = std::to_array<Habit>({{u"NEGRITA", u"NEGRA"},
                                                            {u"NEGRITAS", u"NEGRA"},
                                                            {u"NEGRILLA", u"NEGRA"},
                                                            {u"INICIONEGRITA", u"NEGRA"},
                                                            {u"FINNEGRA", u"BLANCA"},
                                                            {u"FINNEGRITA", u"BLANCA"},
                                                            {u"FINBOLD", u"LIGHT"},
                                                            {u"CONDENSADO", u"COMPRIMIDO"},
                                                            {u"CONDENSADA", u"COMPRIMIDO"},
                                                            {u"CONDENSED", u"COMPRIMIDO"},
                                                            {u"FINCOMP", u"NORMAL"},
                                                            {u"FINCOMPRIMIDO", u"NORMAL"},
                                                            {u"FINCONDENSADO", u"NORMAL"},
                                                            {u"EXPANDED", u"EXPANDIDO"},
                                                            {u"SUBRAYAR", u"SUBRAYADO"},
                                                            {u"UNDERLINE", u"SUBRAYADO"},
                                                            {u"SALTODEPAGINA", u"SALTAPAGINA"},
                                                            {u"SALTARPAGINA", u"SALTAPAGINA"},
                                                            {u"NUEVAPAGINA", u"SALTAPAGINA"},
                                                            {u"SALTALINEAS", u"SALTANLINEAS"},
                                                            {u"SALTALINEA", u"SALTANLINEAS"},
                                                            {u"TABULADOR", u"TAB"},
                                                            {u"REPETIR", u"REPEAT"}});

template <std::size_t kCount>
TextView habitOf(TextView written, const std::array<Habit, kCount>& habits) {
  for (const Habit& habit : habits) {
    if (habit.written == written) return habit.meant;
  }
  return {};
}

// A word so short has too many neighbours.
std::size_t strict(std::size_t length) { return length < 4 ? 0 : length < 7 ? 1 : 2; }
std::size_t generous(std::size_t length) { return length < 3 ? 0 : length < 5 ? 1 : 2; }

// The nearest of the words, no farther than `most` says for its length.
Text nearest(TextView word, const std::vector<TextView>& known, std::size_t (*most)(std::size_t)) {
  Text result;
  std::size_t best = Text::npos;
  for (const TextView each : known) {
    if (each.empty()) continue;
    const std::size_t distance = editDistance(word, each);
    if (distance <= most(each.size()) && distance < best) {
      best = distance;
      result = each;
    }
  }
  return result;
}

// C0 is written with a zero.
Text lookingAlike(TextView word, const std::vector<TextView>& known) {
  const auto plain = [](Text text) {
    std::replace(text.begin(), text.end(), u'0', u'O');
    std::replace(text.begin(), text.end(), u'1', u'I');
    return text;
  };
  for (const TextView each : known) {
    if (!each.empty() && plain(Text(word)) == plain(Text(each))) return Text(each);
  }
  return {};
}

const std::vector<TextView>& controlWords() {
  static const std::vector<TextView> kWords = [] {
    std::vector<TextView> words;
    for (const tarvo::ControlWord& each : tarvo::kControlWords) {
      words.insert(words.end(), {each.word, each.otherWord});
    }
    return words;
  }();
  return kWords;
}

const std::vector<TextView>& attributeWords() {
  static const std::vector<TextView> kWords = [] {
    std::vector<TextView> words;
    for (const tarvo::AttributeWord& each : tarvo::kAttributeWords) {
      words.insert(words.end(), {each.word, each.shortWord});
    }
    return words;
  }();
  return kWords;
}

}  // namespace

std::size_t editDistance(TextView a, TextView b) {
  std::vector<std::size_t> beforeLast(b.size() + 1);
  std::vector<std::size_t> last(b.size() + 1);
  std::vector<std::size_t> row(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::swap(beforeLast, last);
    std::swap(last, row);
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t change = last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, change});
      const bool areExchanged = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
      if (areExchanged) row[j] = std::min(row[j], beforeLast[j - 2] + 1);
    }
  }
  return row[b.size()];
}

Text nearestAttribute(TextView word) {
  if (const TextView meant = habitOf(word, kAttributeHabits); !meant.empty()) return Text(meant);
  if (Text alike = lookingAlike(word, attributeWords()); !alike.empty()) return alike;
  if (Text found = nearest(word, attributeWords(), generous); !found.empty()) return found;
  const TextView pattern = word.substr(0, word.find_first_of(u"= :"));
  constexpr std::size_t kMost = 3;
  const TextView known = tarvo::kSeparatorPatternStart;
  if (editDistance(pattern, known.substr(0, known.size() - 1)) <= kMost) return Text(known);
  return {};
}

Text nearestControlWord(TextView field) {
  if (tarvo::controlOf(field) != tarvo::Control::kNone) return {};
  if (const TextView meant = habitOf(field, kControlHabits); !meant.empty()) return Text(meant);
  return nearest(field, controlWords(), strict);
}

Text nearestLibraryVariable(TextView field) {
  if (tarvo::libraryVariable(field) != tarvo::LibraryVariable::kNone) return {};
  return nearest(field, {u"FINRENGLONESDOCUMENTOS", u"VIENEN", u"NUMERAR"},
                 [](std::size_t length) -> std::size_t { return length < 10 ? 1 : 2; });
}

Text nearestConstant(TextView name) {
  if (name == u"NMAXLINPAGINA" || name == u"MEDIACARTA") return {};
  return nearest(name, {u"NMAXLINPAGINA", u"MEDIACARTA"},
                 [](std::size_t) -> std::size_t { return 3; });
}

Text nearestMarker(TextView inside) {
  Text name = tarvo::upperCase(inside.substr(0, inside.find_first_of(u"=:,")));
  std::erase(name, u' ');
  std::erase(name, u'_');
  if (name == u"INSERTOCUERPO" || name == u"UNINSERTO" || name == u"INSERTO") {
    return u"{UNINSERTOCUERPO}";
  }
  if (name == u"FINDECUERPO" || name == u"FINDELCUERPO") return u"{FINCUERPO}";
  const Text found = nearest(name, {u"CUERPO", u"FINCUERPO", u"UNINSERTOCUERPO"}, strict);
  if (found == u"CUERPO") return u"{CUERPO=n}";
  return found.empty() ? Text() : u"{" + found + u"}";
}

}  // namespace tarvordp
