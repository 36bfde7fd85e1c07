// Pages in a form that a test can write down.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "frame/text.h"
#include "tarvordp/view/page_model.h"

namespace tarvordp {

inline std::string dump(const Look& look) {
  return "w" + std::to_string(look.width) + (look.expanded ? " expanded" : "") +
         (look.bold ? " bold" : "") + (look.underlined ? " underlined" : "") +
         (look.italic ? " italic" : "");
}

inline std::string dump(const Run& run) {
  const std::string pass = run.pass == 0 ? "" : " pass" + std::to_string(run.pass);
  const std::string place = " @" + std::to_string(run.x) + pass;
  const int width = run.unknown.width;
  const std::string graphics = width > 0 ? " w" + std::to_string(width) : "";
  if (!run.unknown.empty()) return place + " " + shownBetweenBrackets(run.unknown) + graphics;
  return place + " " + dump(run.look) + (run.isTab ? " tab" : "") + " \"" +
         tarvo::toUtf8(run.text) + "\"";
}

// "12+12 @0 w72 "PRUEBA"": a line of its top, how far the paper moved after it, and its runs.
inline std::string dump(const Page& page) {
  std::string all;
  for (const Line& line : page.lines) {
    all +=
        std::to_string(line.top) + "+" + std::to_string(line.advance) + (line.goesOn ? "..." : "");
    for (const Run& run : line.runs) all += dump(run);
    all += '\n';
  }
  return all + (page.ejected ? "ejected" : "end") + " of " + std::to_string(page.height) + "\n";
}

inline std::vector<Page> pagesOf(std::string_view bytes, const Profile& profile) {
  std::vector<Page> pages;
  makePages(bytes, profile, [&](const Page& page) { pages.push_back(page); });
  return pages;
}

inline std::string dumpOf(std::string_view bytes, const Profile& profile) {
  std::string all;
  for (const Page& page : pagesOf(bytes, profile)) all += dump(page);
  return all;
}

// A profile as a file has it.
inline Profile profileFrom(const std::string& json) {
  return readProfile(readJsonText(json, "p.json"));
}

}  // namespace tarvordp
