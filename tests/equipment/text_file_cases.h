// What the lines of a text file are: bytes in, lines out.  Every platform's port for template files
// (reports/text_files.h) answers so.
#pragma once

#include <string>
#include <vector>

#include "frame/text.h"
#include "reports/text_files.h"

namespace tarvo::test {

struct TextFileCase {
  const char* shows;
  std::string bytes;
  std::vector<Text> lines;
};

// A program's bytes with character 0 among them.
template <std::size_t kSize>
std::string bytesOf(const char (&literal)[kSize]) {
  return std::string(literal, kSize - 1);
}

inline const std::vector<TextFileCase>& textFileCases() {
  constexpr std::size_t kMegabyte = 1 << 20;
  static const std::vector<TextFileCase> kCases{
      {"an empty file has no line", "", {}},
      {"one line without an end", "uno", {u"uno"}},
      {"an end at the end begins no line", "uno\r\n", {u"uno"}},
      {"CR LF", "uno\r\ndos\r\n", {u"uno", u"dos"}},
      {"LF", "uno\ndos\n", {u"uno", u"dos"}},
      {"both in one file", "uno\ndos\r\ntres", {u"uno", u"dos", u"tres"}},
      {"empty lines count", "\r\n\n\r\nuno\n\n", {u"", u"", u"", u"uno", u""}},
      {"nothing but an end", "\n", {u""}},
      {"nothing but CR LF", "\r\n", {u""}},
      {"a lone CR stays", "uno\rdos\r\n\rtres\r\n", {u"uno\rdos", u"\rtres"}},
      {"of two CR before LF, one stays", "uno\r\r\ndos\n", {u"uno\r", u"dos"}},
      {"LF CR: the CR begins the next line", "uno\n\rdos\n", {u"uno", u"\rdos"}},
      {"a CR at the end of the file stays", "uno\ndos\r", {u"uno", u"dos\r"}},
      {"a file of one CR", "\r", {u"\r"}},
      {"character 0 is like any other",
       bytesOf("a\0b\r\n\0\r\n\0\0"),
       {Text(u"a\0b", 3), Text(u"\0", 1), Text(u"\0\0", 2)}},
      {"Ctrl-Z ends nothing",
       "uno\x1A"
       "dos\r\n\x1A",
       {u"uno\u001Ados", u"\u001A"}},
      {"form feed, tab, escape and blanks stay", " \f\t\x1B \v\x7F \r\n", {u" \f\t\x1B \v\x7F "}},
      {"bytes above 127 are characters of the code page",
       "\xD1"
       "and\xFA \x80 \x93\x94\r\n\xA0\n",
       {u"Ñandú € “”", u"\u00A0"}},
      {"UTF-8 is nothing special",
       "\xEF\xBB\xBF"
       "a\xC3\xB1o\n",
       {u"ï»¿aÃ±o"}},
      {"UTF-16 is nothing special",
       bytesOf("\xFF\xFE"
               "a\0\n\0"),
       {Text(u"ÿþa\0", 4), Text(u"\0", 1)}},
      {"a line of 255, 256 and 257 characters",
       std::string(255, 'a') + "\r\n" + std::string(256, 'b') + "\r\n" + std::string(257, 'c'),
       {Text(255, u'a'), Text(256, u'b'), Text(257, u'c')}},
      {"an end divided by a block of 16384 bytes",
       std::string(16383, 'a') + "\r\nb",
       {Text(16383, u'a'), u"b"}},
      {"an end behind a block of 16384 bytes",
       std::string(16384, 'a') + "\r\nb",
       {Text(16384, u'a'), u"b"}},
      {"a block of 16384 bytes that ends with CR",
       std::string(16383, 'a') + "\rb\n",
       {Text(16383, u'a') + u"\rb"}},
      {"a line of a megabyte",
       std::string(kMegabyte, 'x') + "\nend",
       {Text(kMegabyte, u'x'), u"end"}},
  };
  return kCases;
}

// The lines of a file, as a report engine takes them.
inline std::vector<Text> readLines(TextFiles& files, TextView path) {
  const Ref<TextStream> stream = files.OpenTextFile(path);
  std::vector<Text> lines;
  Text line;
  while (!stream->AtEndOfStream()) {
    stream->ReadLine(line);
    lines.push_back(line);
  }
  stream->Close();
  return lines;
}

}  // namespace tarvo::test
