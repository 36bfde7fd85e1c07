// tarvordp profiles [NAME]
#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "frame/text.h"
#include "printer/clsUtilImp_members.h"
#include "tarvordp/command_line.h"
#include "tarvordp/profile/code_text.h"
#include "tarvordp/profile/profile.h"
#include "tarvordp/profile/profile_check.h"

namespace tarvordp {
namespace {

constexpr std::size_t kBytesInRow = 8;

// A row of the table: property, bytes or value, the bytes in readable form, meaning.
using Row = std::array<std::string, 4>;

// In the words of the class's own description, which clients see as well.
std::string meaningOf(std::string_view property) {
  const auto& members = tarvo::Described<tarvo::clsUtilImp>::info.members;
  const auto member = std::ranges::find(members, property, &tarvo::MemberInfo::name);
  return member == members.end() ? "" : member->help;
}

Row valueRow(std::string_view property, const std::string& value) {
  return {std::string(property), value.empty() ? "-" : value, "", meaningOf(property)};
}

// Long codes take several rows.
void addCode(std::vector<Row>& rows, const Profile& profile, ControlCode code) {
  const std::string bytes = bytesSent(profile, code);
  const std::string_view all = bytes;
  rows.push_back(valueRow(propertyName(code), hexOf(all.substr(0, kBytesInRow))));
  rows.back()[2] = readableOf(all.substr(0, kBytesInRow));
  for (std::size_t at = kBytesInRow; at < all.size(); at += kBytesInRow) {
    const std::string_view part = all.substr(at, kBytesInRow);
    rows.push_back({"", hexOf(part), readableOf(part), ""});
  }
}

std::vector<Row> tableOf(const Profile& profile) {
  std::vector<Row> rows{
      {"property", "bytes", "", "meaning"},
      valueRow("PrinterName", tarvo::toUtf8(profile.printerName)),
      valueRow("MaxLinPage", std::to_string(profile.maxLinPage)),
      valueRow("MaxChrLinCondensed80Columns", std::to_string(profile.maxChrLinCondensed80Columns))};
  for (std::size_t i = 0; i < kControlCodes; ++i) {
    addCode(rows, profile, static_cast<ControlCode>(i));
  }
  rows.push_back(valueRow("CanPrintInTextMode", profile.canPrintInTextMode ? "true" : "false"));
  return rows;
}

void showTable(std::ostream& out, const std::vector<Row>& rows) {
  std::array<std::size_t, 3> widths{};
  for (const Row& row : rows) {
    for (std::size_t i = 0; i < widths.size(); ++i) widths[i] = std::max(widths[i], row[i].size());
  }
  for (const Row& row : rows) {
    std::string line;
    for (std::size_t i = 0; i < widths.size(); ++i) {
      line += row[i] + std::string(widths[i] - row[i].size() + 2, ' ');
    }
    line += row.back();
    out << line.substr(0, line.find_last_not_of(' ') + 1) << '\n';
  }
}

void showRemarks(std::ostream& out, const Profile& profile) {
  const std::vector<ProfileRemark> remarks = checkProfile(profile);
  if (remarks.empty())
    out << "Every mode can be switched off again, and no two codes are the same.\n";
  for (const ProfileRemark& remark : remarks) {
    const bool isWarning = remark.kind == ProfileRemark::Kind::warning;
    out << (isWarning ? "warning: " : "note: ") << remark.text << '\n';
  }
}

void showProfile(std::ostream& out, const std::string& name) {
  const Profile profile = findProfile(name, {});
  const ProfileNotes notes = notesOn(name);
  out << name << (notes.about.empty() ? "" : ": ") << notes.about << "\n\n";
  showTable(out, tableOf(profile));
  out << '\n';
  if (!notes.unsure.empty()) out << "note: " << notes.unsure << '\n';
  showRemarks(out, profile);
}

void listProfiles(std::ostream& out) {
  for (const std::string& name : shippedProfileNames()) {
    out << name << std::string(16 - std::min<std::size_t>(15, name.size()), ' ')
        << notesOn(name).about << '\n';
  }
  out << "\n\"tarvordp profiles NAME\" shows one of them, or a profile file, and checks it.\n";
}

}  // namespace

void addProfilesCommand(CLI::App& program, Console& console, int& status) {
  CLI::App* command = program.add_subcommand(
      "profiles", "List the shipped printer profiles, or show and check one");
  command->footer(
      "A profile file is a JSON object of the printer's properties; a control code is a text of\n"
      "characters 0 to 255, one for each byte: {\"ChrBold\": \"\\u001bE\"}.  A code that is\n"
      "missing is empty, a number is 0, and CanPrintInTextMode is false: master-detail reports "
      "are\n"
      "drawn as pages then, and a form's sheets are not printed.\n\n"
      "Exit status:\n"
      "  0  shown\n"
      "  2  wrong arguments, or no such profile, or a file that is none\n\n"
      "Examples:\n"
      "  tarvordp profiles\n"
      "  tarvordp profiles epson-9pin\n"
      "  tarvordp profiles my-printer.json");
  auto name = std::make_shared<std::string>();
  const CLI::Option* option =
      command->add_option("NAME", *name, "A shipped profile's name, or the path of a profile file");
  command->callback([name, option, &console, &status] {
    if (option->count() == 0) {
      listProfiles(console.out);
    } else {
      showProfile(console.out, *name);
    }
    status = kDone;
  });
}

}  // namespace tarvordp
