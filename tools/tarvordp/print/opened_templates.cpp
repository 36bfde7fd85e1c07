#include "tarvordp/print/opened_templates.h"

#include <filesystem>
#include <utility>

namespace tarvordp {

OpenedTemplates::OpenedTemplates(tarvo::Ref<tarvo::TextFiles> files, JobRun& run)
    : files_(std::move(files)), run_(run) {}

// A master-detail report reads its template several times.
tarvo::Ref<tarvo::TextStream> OpenedTemplates::OpenTextFile(tarvo::TextView path) {
  tarvo::Ref<tarvo::TextStream> stream = files_->OpenTextFile(path);
  std::string name = tarvo::toUtf8(path);
  if (name != run_.templateFile) run_.lastName.clear();
  run_.templateFile = std::move(name);
  return stream;
}

std::string whereItEnded(const JobRun& run) {
  if (run.templateFile.empty()) return {};
  const std::string path = std::filesystem::path(run.templateFile).lexically_normal().string();
  const std::string kind = run.job.kind == ReportKind::form ? "form" : "master-detail";
  const std::string asked = run.lastName.empty()
                                ? ", before it asked for a value"
                                : ", which asked for " + tarvo::toUtf8(run.lastName) + " last";
  return "it happened while " + path + " was printed" + asked + "; \"tarvordp check --kind " +
         kind + " " + path + "\" may tell why";
}

}  // namespace tarvordp
