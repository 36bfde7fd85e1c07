// Template files by the scripting runtime's file-system object, late bound.
//
// COM must be in use on the client's thread, which it is when a COM client calls.  The runtime
// decodes the bytes by the system's code page.  Seen with Wine's scripting runtime only; that the
// system's own one divides lines at the same places is its documentation's word.
#include "reports/text_files.h"

#include <array>
#include <optional>
#include <span>
#include <vector>

#include "frame/com/error_info.h"

namespace tarvo::platform {
namespace {

using com::Variant;

constexpr CLSID kFileSystemObject = {
    0x0D43FE01, 0xF093, 0x11CF, {0x89, 0x40, 0x00, 0xA0, 0xC9, 0x05, 0x42, 0x28}};
constexpr LONG kForReading = 1;
constexpr LONG kPlainBytes = 0;

VARIANT variantOf(LONG number) noexcept {
  VARIANT variant{};
  V_VT(&variant) = VT_I4;
  V_I4(&variant) = number;
  return variant;
}

VARIANT variantOf(BSTR text) noexcept {
  VARIANT variant{};
  V_VT(&variant) = VT_BSTR;
  V_BSTR(&variant) = text;
  return variant;
}

VARIANT falseVariant() noexcept {
  VARIANT variant{};
  V_VT(&variant) = VT_BOOL;
  V_BOOL(&variant) = VARIANT_FALSE;
  return variant;
}

void require(Variant& variant, VARTYPE type) {
  if (V_VT(&variant) != type) com::check(VariantChangeType(&variant, &variant, 0, type));
}

// An object of the runtime, by its dispatch interface.
class ScriptingObject {
 public:
  explicit ScriptingObject(com::ComPtr<IDispatch> object) noexcept : object_(std::move(object)) {}

  DISPID idOf(TextView name) const {
    const com::Bstr text(name);
    OLECHAR* names = text.get();
    DISPID id = DISPID_UNKNOWN;
    com::check(object_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id));
    return id;
  }

  // `arguments`: the last one first.
  void invoke(DISPID id, WORD flags, std::span<VARIANT> arguments, VARIANT* result) const {
    DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    EXCEPINFO exception{};
    SetErrorInfo(0, nullptr);
    const HRESULT status = object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                           result, &exception, nullptr);
    if (FAILED(status)) com::raiseForeignError(status, &exception);
  }

 private:
  com::ComPtr<IDispatch> object_;
};

// The same for all streams of the runtime, so they are asked for once.
struct StreamMembers {
  DISPID atEndOfStream = DISPID_UNKNOWN;
  DISPID readLine = DISPID_UNKNOWN;
  DISPID close = DISPID_UNKNOWN;

  void findOnce(const ScriptingObject& stream) {
    if (close != DISPID_UNKNOWN) return;
    atEndOfStream = stream.idOf(u"AtEndOfStream");
    readLine = stream.idOf(u"ReadLine");
    close = stream.idOf(u"Close");
  }
};

bool isAtEnd(const ScriptingObject& stream, const StreamMembers& members) {
  Variant answer;
  stream.invoke(members.atEndOfStream, DISPATCH_PROPERTYGET, {}, &answer);
  require(answer, VT_BOOL);
  return V_BOOL(&answer) != VARIANT_FALSE;
}

Text lineOf(const ScriptingObject& stream, const StreamMembers& members) {
  Variant answer;
  stream.invoke(members.readLine, DISPATCH_METHOD, {}, &answer);
  require(answer, VT_BSTR);
  return Text(com::viewOf(V_BSTR(&answer)));
}

// Every line of a stream, which is closed whatever happens.
std::vector<Text> takeLines(const ScriptingObject& stream, StreamMembers& members) {
  members.findOnce(stream);
  std::vector<Text> lines;
  try {
    while (!isAtEnd(stream, members)) lines.push_back(lineOf(stream, members));
  } catch (...) {
    try {
      stream.invoke(members.close, DISPATCH_METHOD, {}, nullptr);
    } catch (const RunTimeError&) {  // the first error is the one to tell
    }
    throw;
  }
  stream.invoke(members.close, DISPATCH_METHOD, {}, nullptr);
  return lines;
}

// The file is read at once and closed again: a page that breaks while its header is printed opens
// the template a second time, which not every scripting runtime bears.
class ScriptingStream final : public TextStream {
 public:
  explicit ScriptingStream(std::vector<Text> lines) noexcept : lines_(std::move(lines)) {}

  bool AtEndOfStream() override { return next_ == lines_.size(); }

  void ReadLine(Text& line) override {
    if (AtEndOfStream()) throw RunTimeError(kInputPastEndOfFile);
    line = lines_[next_++];
  }

  void Close() override {
    lines_.clear();
    next_ = 0;
  }

 private:
  std::vector<Text> lines_;
  std::size_t next_ = 0;
};

class FileSystem {
 public:
  // Raises: 429 when the system has no scripting runtime.
  FileSystem() : files_(make()), openTextFile_(files_.idOf(u"OpenTextFile")) {}

  com::ComPtr<IDispatch> open(TextView path) const {
    const com::Bstr pathText(path);
    std::array<VARIANT, 4> arguments{variantOf(kPlainBytes), falseVariant(), variantOf(kForReading),
                                     variantOf(pathText.get())};
    Variant stream;
    files_.invoke(openTextFile_, DISPATCH_METHOD, arguments, &stream);
    require(stream, VT_DISPATCH);
    return com::ComPtr<IDispatch>(V_DISPATCH(&stream));
  }

 private:
  static com::ComPtr<IDispatch> make() {
    com::ComPtr<IDispatch> files;
    if (FAILED(CoCreateInstance(kFileSystemObject, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                files.outVoid()))) {
      throw RunTimeError(kCannotCreateObject, u"Scripting.FileSystemObject");
    }
    return files;
  }

  ScriptingObject files_;
  DISPID openTextFile_;
};

class ScriptingTextFiles final : public TextFiles {
 public:
  Ref<TextStream> OpenTextFile(TextView path) override {
    // The runtime would cut the name there, and open another file.
    if (path.find(u'\0') != TextView::npos) throw RunTimeError(kFileNotFound, path);
    if (!files_) files_.emplace();
    return make<ScriptingStream>(takeLines(ScriptingObject(files_->open(path)), members_));
  }

 private:
  std::optional<FileSystem> files_;
  StreamMembers members_;
};

}  // namespace

Ref<TextFiles> makeTextFiles() { return make<ScriptingTextFiles>(); }

}  // namespace tarvo::platform
