#include "printing.h"

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <sstream>

#include "equipment/temporary_folder.h"
#include "frame/codepage.h"
#include "frame/text.h"
#include "on_paper.h"
#include "tarvordp/command_line.h"

namespace tarvo::test {
namespace {

using Json = nlohmann::ordered_json;

bool isMasterDetail(const Example& example) { return example.templates[0].isMasterDetail(); }

std::string jobText(const Example& example) {
  Json job = Json::parse(example.json);
  const auto add = [&job](const char* key, const std::string& value) {
    if (!job.contains(key)) job[key] = value;
  };
  add("report", isMasterDetail(example) ? "master-detail" : "form");
  add("title", "Ejemplo");
  add("directory", ".");
  add("profile", kGuideProfile);
  if (isMasterDetail(example)) {
    add("template", example.templates[0].name);
  } else {
    add("firstSheet", example.templates[0].name);
    if (example.templates.size() > 1) add("secondSheet", example.templates[1].name);
  }
  return job.dump();
}

ReportEnd endOf(const Example& example) {
  if (!isMasterDetail(example)) return ReportEnd::kOfForm;
  const std::vector<std::string>& lines = example.templates[0].lines;
  const bool isUnlimited = std::find(lines.begin(), lines.end(), "{CUERPO=0}") != lines.end();
  return isUnlimited ? ReportEnd::kOfUnlimitedPage : ReportEnd::kOfPages;
}

std::string textOf(const Template& example) {
  std::string text;
  for (const std::string& line : example.lines) text += line + "\n";
  return text;
}

void writeTemplates(const Example& example, const TemporaryFolder& folder) {
  const Json job = Json::parse(example.json);
  const std::string directory = job.value("directory", ".");
  std::filesystem::create_directories(folder.path() / directory);
  for (const Template& each : example.templates) {
    const std::filesystem::path file = std::filesystem::path(directory) / (each.name + ".ID");
    folder.write(file.u16string(), templateBytes(textOf(each)));
  }
}

int run(const std::vector<std::string>& words, std::string& output, std::string& messages) {
  std::vector<const char*> arguments;
  for (const std::string& word : words) arguments.push_back(word.c_str());
  std::ostringstream out;
  std::ostringstream err;
  tarvordp::Console console{out, err};
  const int status = tarvordp::run(static_cast<int>(arguments.size()), arguments.data(), console);
  output += out.str();
  messages += err.str();
  return status;
}

}  // namespace

std::string templateBytes(const std::string& text) {
  std::string bytes;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    std::string encoded;
    CodePage::ofSystem().encode(fromUtf8(line), encoded);
    bytes += encoded + "\r\n";
  }
  return bytes;
}

void writeFiles(const Example& example, const std::string& jobName, const TemporaryFolder& folder) {
  writeTemplates(example, folder);
  folder.write(fromUtf8(jobName), example.json);
}

int runCommand(const std::string& command, std::string& output) {
  std::istringstream parts(command);
  std::vector<std::string> words;
  for (std::string word; parts >> word;) words.push_back(word);
  return run(words, output, output);
}

Printing print(const Example& example) {
  const TemporaryFolder folder;
  writeTemplates(example, folder);
  folder.write(u"job.json", jobText(example));
  const std::string job = (folder.path() / "job.json").string();
  const std::string printer = "file:" + (folder.path() / "out.prn").string();

  Printing printing;
  printing.status = run({"tarvordp", "print", job, "--printer", printer, "--yes"},
                        printing.messages, printing.messages);
  for (int number = 1;; ++number) {
    const std::string name = number == 1 ? "out.prn" : "out.prn." + std::to_string(number);
    if (!folder.has(fromUtf8(name))) break;
    printing.jobs.push_back(onPaper(folder.contentOf(fromUtf8(name)), endOf(example)));
  }
  return printing;
}

}  // namespace tarvo::test
