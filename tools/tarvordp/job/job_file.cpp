#include "tarvordp/job/job_file.h"

#include <array>
#include <filesystem>
#include <limits>
#include <string_view>
#include <utility>

#include "tarvordp/mistake.h"

namespace tarvordp {
namespace {

constexpr std::int64_t kGreatestByte = std::numeric_limits<std::uint8_t>::max();

constexpr std::array<std::string_view, 5> kFormKeys{"firstSheet", "secondSheet", "draft", "sheets",
                                                    "output"};
constexpr std::array<std::string_view, 7> kMasterDetailKeys{
    "template", "copies", "topMarginLines", "topMarginPoints", "details", "subtotal", "canPrint"};

// A word for each value.
template <class T>
struct Choice {
  std::string_view word;
  T value;
};

template <class T, std::size_t kSize>
T choose(const JsonValue& written, const std::array<Choice<T>, kSize>& choices) {
  const std::string& word = written.asText();
  std::string known;
  for (const Choice<T>& choice : choices) {
    if (word == choice.word) return choice.value;
    known.append(known.empty() ? "\"" : ", \"").append(choice.word).append("\"");
  }
  written.mistake("\"" + word + "\" is none of " + known);
}

constexpr std::array<Choice<ReportKind>, 2> kReports{
    {{"form", ReportKind::form}, {"master-detail", ReportKind::masterDetail}}};
constexpr std::array<Choice<tarvo::eHojaDeLaPlanilla>, 3> kSheets{
    {{"first", tarvo::eHP_PrimeraHoja},
     {"second", tarvo::eHP_SegundaHoja},
     {"both", tarvo::eHP_AmbasHojas}}};
constexpr std::array<Choice<tarvo::ePruebaODefinitiva>, 2> kOutputs{
    {{"definitive", tarvo::ePOD_Definitiva}, {"draft", tarvo::ePOD_Borrador}}};

void readText(KnownKeys& keys, std::string_view key, tarvo::Text& text) {
  if (const JsonValue* written = keys.optional(key)) text = tarvo::fromUtf8(written->asText());
}

void readByte(KnownKeys& keys, std::string_view key, std::int64_t least, std::uint8_t& number) {
  if (const JsonValue* written = keys.optional(key)) {
    number = static_cast<std::uint8_t>(written->asWholeNumber(least, kGreatestByte));
  }
}

template <std::size_t kSize>
void forbid(KnownKeys& keys, const std::array<std::string_view, kSize>& names,
            const std::string& report) {
  for (const std::string_view name : names) {
    if (const JsonValue* found = keys.optional(name)) {
      found->mistake("the key \"" + std::string(name) + "\" is for a " + report +
                     " report, and this is none");
    }
  }
}

std::string pathIn(const Job& job, const std::string& written) {
  return (std::filesystem::path(job.folder) / written).string();
}

void readForm(KnownKeys& keys, Job& job) {
  forbid(keys, kMasterDetailKeys, "master-detail");
  readText(keys, "firstSheet", job.firstSheet);
  readText(keys, "secondSheet", job.secondSheet);
  readText(keys, "draft", job.draft);
  if (const JsonValue* sheets = keys.optional("sheets")) job.sheets = choose(*sheets, kSheets);
  if (const JsonValue* output = keys.optional("output")) job.output = choose(*output, kOutputs);
}

void readCanPrint(const JsonValue& written, Job& job) {
  if (!written.is(JsonValue::Kind::object)) {
    job.canPrint = written.asBoolean();
    return;
  }
  KnownKeys keys(written);
  job.canPrint = false;
  job.refusal = tarvo::fromUtf8(keys.required("refuse").asText());
  keys.nothingElse();
}

void readMasterDetail(KnownKeys& keys, Job& job) {
  forbid(keys, kFormKeys, "form");
  job.templateName = tarvo::fromUtf8(keys.required("template").asText());
  readByte(keys, "copies", 1, job.copies);
  readByte(keys, "topMarginLines", 0, job.topMarginLines);
  readByte(keys, "topMarginPoints", 0, job.topMarginPoints);
  readText(keys, "subtotal", job.subtotal);
  job.subtotal = nameKey(job.subtotal);
  job.details = keys.optional("details");
  if (const JsonValue* canPrint = keys.optional("canPrint")) readCanPrint(*canPrint, job);
}

void readAnswers(const JsonValue& written, Job& job) {
  KnownKeys keys(written);
  if (const JsonValue* turnSheet = keys.optional("turnSheet"))
    job.turnSheet = turnSheet->asBoolean();
  if (const JsonValue* pause = keys.optional("pause")) job.pause = pause->asBoolean();
  keys.nothingElse();
}

// The library joins folder and name with nothing between.
tarvo::Text templateFolder(const Job& job, const std::string& written) {
  std::filesystem::path path(pathIn(job, written));
  path /= "";
  return tarvo::fromUtf8(path.string());
}

}  // namespace

Job readJob(JsonValue document) {
  Job job;
  job.document = std::make_shared<const JsonValue>(std::move(document));
  job.folder = std::filesystem::path(job.document->file()).parent_path().string();
  KnownKeys keys(*job.document);
  job.kind = choose(keys.required("report"), kReports);
  job.title = tarvo::fromUtf8(keys.required("title").asText());
  job.directory = templateFolder(job, keys.required("directory").asText());
  readText(keys, "user", job.user);
  readText(keys, "textFile", job.textFile);
  job.profile = keys.optional("profile");
  job.record = keys.optional("record");
  job.recordQuery = keys.optional("recordQuery");
  if (const JsonValue* answers = keys.optional("answers")) readAnswers(*answers, job);
  if (job.kind == ReportKind::form) {
    readForm(keys, job);
  } else {
    readMasterDetail(keys, job);
  }
  keys.nothingElse();
  return job;
}

Profile profileOf(const Job& job) {
  if (job.profile == nullptr) return {};
  if (!job.profile->is(JsonValue::Kind::text)) return readProfile(*job.profile);
  try {
    return findProfile(job.profile->text(), job.folder);
  } catch (const Mistake& wrong) {
    job.profile->mistake(wrong.what());
  }
}

}  // namespace tarvordp
