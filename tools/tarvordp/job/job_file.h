// A job file: what is printed, with which template, which data and which printer profile.
//
// One JSON object.  Every key is known or a mistake, and so is a key that belongs to the other kind
// of report.  Paths are relative to the folder of the file.  Reading a job reads the file alone;
// profile and data are got with the functions below.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "frame/enums.h"
#include "frame/text.h"
#include "tarvordp/job/details.h"
#include "tarvordp/json/json_value.h"
#include "tarvordp/profile/profile.h"

namespace tarvordp {

enum class ReportKind : std::uint8_t { form, masterDetail };

struct Job {
  std::shared_ptr<const JsonValue> document;  // into which the pointers below point
  std::string folder;                         // of the file; empty: the current one

  ReportKind kind = ReportKind::form;
  tarvo::Text title;
  tarvo::Text
      directory;  // of the templates, as the library wants it: with its separator at the end
  tarvo::Text user;
  tarvo::Text textFile;

  // Form reports.
  tarvo::Text firstSheet;
  tarvo::Text secondSheet;
  tarvo::Text draft;
  tarvo::eHojaDeLaPlanilla sheets = tarvo::eHP_AmbasHojas;
  tarvo::ePruebaODefinitiva output = tarvo::ePOD_Definitiva;

  // Master-detail reports.
  tarvo::Text templateName;
  std::uint8_t copies = 1;
  std::uint8_t topMarginLines = 0;
  std::uint8_t topMarginPoints = 0;
  tarvo::Text subtotal;  // a name in capitals; empty: nothing is added up
  bool canPrint = true;
  tarvo::Text refusal;  // what the operator is told when it cannot

  // What the job answers in the operator's place.
  std::optional<bool> turnSheet;
  std::optional<bool> pause;  // false: the report is given up there

  // Null when the key is not there.
  const JsonValue* profile = nullptr;
  const JsonValue* record = nullptr;
  const JsonValue* recordQuery = nullptr;
  const JsonValue* details = nullptr;
};

// The job that a document is.  Raises: Mistake with its place.
Job readJob(JsonValue document);

// The job's profile; an empty one when it names none.  Raises: Mistake.
Profile profileOf(const Job& job);

// The job's values: those of the record, and those of the query that adds to it.
struct JobData {
  NamedValues record;
  std::unique_ptr<Details> details;
};

// Reads the job's data.  What is read from one database is one state of it.
// Raises: Mistake with its place: in the job file, and in the data.
JobData openData(const Job& job, const Details::Listener& listener = {});

}  // namespace tarvordp
