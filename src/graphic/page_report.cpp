#include "graphic/page_report.h"

#include <utility>

#include "frame/enums.h"
#include "graphic/late_arguments.h"

namespace tarvo {
namespace {

constexpr TextView kDraftLayout = u"rpxFormDraft";

}  // namespace

PageReport::PageReport(Ref<PageOutput> output)
    : output_(std::move(output)), detail_(make<DetailSection>()), settings_(make<PageSettings>()) {}

Value PageReport::call(TextView name, std::span<const Value> arguments) {
  if (equalIgnoringAsciiCase(name, "ApplyLayout")) return applyLayout(arguments);
  if (equalIgnoringAsciiCase(name, "BindText")) {
    bindText(arguments);
  } else if (equalIgnoringAsciiCase(name, "SetFont")) {
    setFont(arguments);
  } else if (equalIgnoringAsciiCase(name, "Run")) {
    run(arguments);
  } else {
    return ReportPart::call(name, arguments);
  }
  return {};
}

Value PageReport::get(TextView name, std::span<const Value> indexes) {
  if (equalIgnoringAsciiCase(name, "PageSettings")) {
    requireCount(indexes, 0);
    return Ref<Object>(settings_);
  }
  if (!equalIgnoringAsciiCase(name, "Sections")) return ReportPart::get(name, indexes);
  requireCount(indexes, 1);
  const TextView section = textArgument(indexes[0], name);
  if (!equalIgnoringAsciiCase(section, "Detail")) throw RunTimeError(kNoSuchMember, section);
  return Ref<Object>(detail_);
}

bool PageReport::applyLayout(std::span<const Value> arguments) {
  requireCount(arguments, 1);
  const TextView layout = textArgument(arguments[0], u"layout");
  if (layout.substr(0, layout.find(u'|')) != kDraftLayout) return false;
  detail_ = make<DetailSection>();
  settings_ = make<PageSettings>();
  return true;
}

void PageReport::bindText(std::span<const Value> arguments) {
  requireCount(arguments, 3);
  LateObject& box = textBox(arguments[0]);
  box.put(u"Column", {}, arguments[1]);
  if (integerArgument(arguments[2], u"width") != 0) box.put(u"Width", {}, arguments[2]);
}

void PageReport::setFont(std::span<const Value> arguments) {
  requireCount(arguments, 5);
  LateObject& box = textBox(arguments[0]);
  box.put(u"FontName", {}, arguments[1]);
  box.put(u"FontSize", {}, arguments[2]);
  box.put(u"FontBold", {}, arguments[3]);
  box.put(u"FontItalic", {}, arguments[4]);
}

void PageReport::run(std::span<const Value> arguments) {
  requireCount(arguments, 7);
  const bool toPrinter = booleanArgument(arguments[0], u"toPrinter");
  const TextView title = textArgument(arguments[1], u"title");
  const bool modal = booleanArgument(arguments[2], u"modal");
  const TextView printer = textArgument(arguments[3], u"printer");
  const std::int32_t device = integerArgument(arguments[4], u"device");
  textArgument(arguments[5], u"option1");
  textArgument(arguments[6], u"option2");
  if (device < ePD_Screen || device > ePD_Disk) {
    throw RunTimeError(kInvalidProcedureCall, u"device");
  }
  const Ref<const PagedText> pages = layOut();
  if (toPrinter || device == ePD_Printer) {
    output_->print(pages, title, printer);
  } else if (device == ePD_Disk) {
    output_->save(pages, title, printer);
  } else {
    output_->show(pages, title, modal);
  }
}

LateObject& PageReport::textBox(const Value& name) const {
  const Ref<LateObject> control = detail_->control(textArgument(name, u"control"));
  if (dynamic_cast<TextBox*>(control.get()) == nullptr) {
    throw RunTimeError(kNoSuchMember, textArgument(name, u"control"));
  }
  return *control;
}

Ref<const PagedText> PageReport::layOut() const {
  const TextBox& box = detail_->text();
  PageFormat format = settings_->format();
  box.giveFontTo(format);
  const Ref<PagedText> pages = make<PagedText>(std::move(format), box.width());
  const Ref<LineTable> lines = detail_->data().lines();
  Text row;
  for (lines->moveFirst(); !lines->atEnd(); lines->moveNext()) {
    if (box.isBound()) lines->text(row);
    pages->addRow(row);
  }
  return pages;
}

}  // namespace tarvo
