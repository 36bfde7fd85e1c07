#include "services/clsTexto.h"

#include <algorithm>
#include <limits>
#include <new>
#include <stdexcept>

#include "frame/decimal.h"
#include "services/character_map.h"

namespace LibTarvoCI {
namespace {

constexpr char16_t kBlank = u' ';
constexpr std::size_t kNone = TextView::npos;

// A position as an index from 0.
std::size_t indexOf(std::int32_t position, TextView about) {
  if (position < 1) fail(tarvo::kInvalidProcedureCall, about);
  return static_cast<std::size_t>(position) - 1;
}

std::size_t countOf(std::int32_t count, TextView about) {
  if (count < 0) fail(tarvo::kInvalidProcedureCall, about);
  return static_cast<std::size_t>(count);
}

std::int32_t toInt32(std::size_t count) {
  if (count > std::numeric_limits<std::int32_t>::max()) fail(tarvo::kOverflow, u"valText");
  return static_cast<std::int32_t>(count);
}

// The count may be anything that a client wrote, so this is where memory can run out.
void appendMany(Text& text, std::size_t count, char16_t character) try {
  text.append(count, character);
} catch (const std::bad_alloc&) {
  fail(tarvo::kOutOfMemory, {});
} catch (const std::length_error&) {
  fail(tarvo::kOutOfMemory, {});
}

void fillUpTo(Text& text, std::size_t width, char16_t character) {
  if (text.size() < width) appendMany(text, width - text.size(), character);
}

TextView withoutTrailingBlanks(TextView text) {
  return text.substr(0, text.find_last_not_of(kBlank) + 1);  // "none" + 1 is 0
}

void alignRight(TextView text, std::size_t width, Text& result) {
  const TextView kept = withoutTrailingBlanks(text);
  result.clear();
  if (kept.size() < width) appendMany(result, width - kept.size(), kBlank);
  result.append(kept);
}

// Puts the next item of a list at `count`, into a text that is there already when there is one.
void putItem(TextList& list, std::size_t& count, TextView item) {
  if (count < list.size()) {
    list[count].assign(item);
  } else {
    list.emplace_back(item);
  }
  ++count;
}

}  // namespace

std::int32_t clsTexto::fPosition(TextView valText, TextView valSearched, std::int32_t valStart) {
  const std::size_t start = indexOf(valStart, u"valStart");
  if (valSearched.empty()) return 0;
  const std::size_t found = valText.find(valSearched, start);
  return found == kNone ? 0 : toInt32(found + 1);
}

void clsTexto::fPart(TextView valText, std::int32_t valStart, std::int32_t valCount, Text& result) {
  const std::size_t start = std::min(indexOf(valStart, u"valStart"), valText.size());
  const std::size_t count = countOf(valCount, u"valCount");
  result.assign(valText.substr(start, count == 0 ? kNone : count));
}

std::int32_t clsTexto::fLength(TextView valText) { return toInt32(valText.size()); }

void clsTexto::fTrim(TextView valText, Text& result) { result.assign(tarvo::trimBlanks(valText)); }

void clsTexto::fReplaceAll(TextView valText, TextView valOld, TextView valNew, Text& result) {
  std::size_t found = valOld.empty() ? kNone : valText.find(valOld);
  if (found == kNone) {
    result.assign(valText);
    return;
  }
  if (valOld.size() == 1 && valNew.size() == 1) {
    result.assign(valText);
    std::replace(result.begin() + static_cast<std::ptrdiff_t>(found), result.end(), valOld[0],
                 valNew[0]);
    return;
  }
  result.clear();
  std::size_t from = 0;
  for (; found != kNone; found = valText.find(valOld, from)) {
    result.append(valText, from, found - from).append(valNew);
    from = found + valOld.size();
  }
  result.append(valText, from);
}

void clsTexto::replaceEach(TextView text, std::span<const Replacement> replacements, Text& result) {
  CharacterMap map;
  if (!map.take(replacements)) {
    tarvo::clsTexto::replaceEach(text, replacements, result);
    return;
  }
  result.assign(text);
  map.applyTo(result);
}

void clsTexto::fSplit(TextView valText, TextView valSeparator, TextList& result) {
  std::size_t count = 0;
  std::size_t from = 0;
  if (!valSeparator.empty()) {
    for (std::size_t found = valText.find(valSeparator); found != kNone;
         found = valText.find(valSeparator, from)) {
      putItem(result, count, valText.substr(from, found - from));
      from = found + valSeparator.size();
    }
  }
  putItem(result, count, valText.substr(from));
  result.resize(count);
}

void clsTexto::fDelete(TextView valText, std::int32_t valStart, std::int32_t valDistance,
                       Text& result) {
  const std::size_t start = std::min(indexOf(valStart, u"valStart"), valText.size());
  const std::size_t distance = countOf(valDistance, u"valDistance");
  const std::size_t rest = valText.size() - start;
  const TextView tail = valText.substr(start + (distance < rest ? distance + 1 : rest));
  result.assign(valText.substr(0, start)).append(tail);
}

void clsTexto::fInsert(TextView valText, TextView valInserted, std::int32_t valPosition,
                       Text& result) {
  const std::size_t at = std::min(indexOf(valPosition, u"valPosition"), valText.size());
  result.assign(valText.substr(0, at)).append(valInserted).append(valText.substr(at));
}

void clsTexto::fStrip(TextView valText, TextView valCharacter, Text& result) {
  result.assign(valText);
  if (!valCharacter.empty()) std::erase(result, valCharacter.front());
}

void clsTexto::fRepeat(TextView valCharacter, std::int32_t valCount, Text& result) {
  if (valCharacter.empty()) fail(tarvo::kInvalidProcedureCall, u"valCharacter");
  const std::size_t count = countOf(valCount, u"valCount");
  result.clear();
  appendMany(result, count, valCharacter.front());
}

void clsTexto::fAlignLeft(TextView valText, std::int32_t valWidth, Text& result) {
  const std::size_t width = countOf(valWidth, u"valWidth");
  const TextView kept = withoutTrailingBlanks(valText);
  const bool fillsTheWidth = valText.size() >= width;
  const bool endsInBlank = kept.size() != valText.size();
  // A number field is as wide as it was asked for and carries its blanks before the number.
  result.assign(fillsTheWidth && !endsInBlank ? tarvo::trimBlanks(kept) : kept);
  fillUpTo(result, width, kBlank);
}

void clsTexto::fAlignRight(TextView valText, std::int32_t valWidth, Text& result) {
  alignRight(valText, countOf(valWidth, u"valWidth"), result);
}

void clsTexto::fAlignCenter(TextView valText, std::int32_t valWidth, Text& result) {
  const std::size_t width = countOf(valWidth, u"valWidth");
  const TextView kept = tarvo::trimBlanks(valText);
  result.clear();
  if (kept.size() < width) appendMany(result, (width - kept.size()) / 2, kBlank);
  result.append(kept);
  fillUpTo(result, width, kBlank);
}

void clsTexto::fPadOrCut(TextView valText, std::int32_t valWidth, TextView valFill, Text& result) {
  const std::size_t width = countOf(valWidth, u"valWidth");
  result.assign(valText.substr(0, width));
  if (result.size() == width) return;
  if (valFill.empty()) fail(tarvo::kInvalidProcedureCall, u"valFill");
  const std::size_t filledFrom = result.size();
  fillUpTo(result, width, valFill.front());
  if (valFill.size() == 1) return;
  for (std::size_t i = filledFrom; i < width; ++i) {
    result[i] = valFill[(i - filledFrom) % valFill.size()];
  }
}

void clsTexto::fLeftMargin(TextView valText, std::uint8_t valMargin, Text& result) {
  result.assign(valMargin, kBlank).append(valText);
}

void clsTexto::fFitToWidth(TextView valText, std::uint8_t valWidth, Text& result) {
  alignRight(valText, valWidth, result);
  result.resize(valWidth);
}

bool clsTexto::fHolds(TextView valText, TextView valMarker) {
  return !valMarker.empty() && valText.find(valMarker) != kNone;
}

}  // namespace LibTarvoCI
