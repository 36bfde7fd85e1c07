// Messages as lines, and who answers questions.
#include "services/clsMessage.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "equipment/temporary_folder.h"
#include "services/failure.h"

namespace LibTarvoCI {
namespace {

using namespace std::string_literals;

class MessageTest : public ::testing::Test {
 protected:
  // A service that writes into a file; nobody can be asked.
  Ref<clsMessage> unattended() {
    return tarvo::make<clsMessage>(clsMessage::Console{output(), nullptr});
  }

  // The same with an operator who types `typed`.
  Ref<clsMessage> attended(const std::string& typed) {
    folder_.write(u"typed", typed);
    input_.reset(std::fopen((folder_.path() / "typed").string().c_str(), "rb"));
    return tarvo::make<clsMessage>(clsMessage::Console{output(), input_.get()});
  }

  // What was written so far.  Read through the file's name: what is still in a buffer is not there.
  std::string written() const { return folder_.contentOf(u"written"); }

  std::FILE* output() {
    if (!output_) {
      output_.reset(std::fopen((folder_.path() / "written").string().c_str(), "wb"));
    }
    return output_.get();
  }

 private:
  struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };
  using File = std::unique_ptr<std::FILE, Close>;

  tarvo::test::TemporaryFolder folder_;
  File output_;
  File input_;
};

constexpr const char* kPrompt = "Aceptar (A) o cancelar (C): ";

TEST_F(MessageTest, MessagesAreLinesWithTheirTitles) {
  const Ref<clsMessage> message = unattended();
  Text text = u"Impresora desconocida";
  message->sShowMessage(text);
  EXPECT_EQ(written(), "Impresora desconocida\n");
  message->sShowMessageWithTitle(u"No se encontró", u"Impresión de Plantilla");
  Text warning = u"El valor no existe";
  message->sWarning(warning);
  message->sWarningWithTitle(u"Sin permiso", u"Impresión de Factura");
  EXPECT_EQ(written(),
            "Impresora desconocida\n"
            "[Impresi\xC3\xB3n de Plantilla] No se encontr\xC3\xB3\n"
            "El valor no existe\n"
            "[Impresi\xC3\xB3n de Factura] Sin permiso\n");
  EXPECT_EQ(text, u"Impresora desconocida");
  EXPECT_EQ(warning, u"El valor no existe");
}

TEST_F(MessageTest, TextsAreWrittenWhole) {
  const struct {
    const char* shows;
    Text text;
    Text title;
    std::string line;
  } rows[] = {
      {"an empty title is none", u"a", u"", "a\n"},
      {"an empty text", u"", u"t", "[t] \n"},
      {"nothing", u"", u"", "\n"},
      {"line ends inside", u"a\r\n   en b\r\nc", u"", "a\n   en b\nc\n"},
      {"line ends that follow each other", u"a\r\n\r\nb", u"", "a\n\nb\n"},
      {"other returns stay", u"a\rb\n\rc", u"", "a\rb\n\rc\n"},
      {"a character 0", u"a\0b"s, u"t\0"s, "[t\0] a\0b\n"s},
      {"marks that a printing function would take", u"100 %s %n", u"%d", "[%d] 100 %s %n\n"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.shows);
    const std::string before = written();
    unattended()->sShowMessageWithTitle(row.text, row.title);
    EXPECT_EQ(written(), (before == "(missing)" ? "" : before) + row.line);
  }
}

TEST_F(MessageTest, WithoutATerminalQuestionsAreAccepted) {
  EXPECT_TRUE(unattended()->fAskAcceptCancel(u"Voltee la hoja", u"Factura"));
  EXPECT_EQ(written(), "[Factura] Voltee la hoja\n");
}

TEST_F(MessageTest, TheProgramsPolicyAnswers) {
  const Ref<clsMessage> message = attended("A\n");
  std::vector<Text> asked;
  bool answer = false;
  message->setAnswerPolicy([&](TextView text, TextView title) {
    asked.push_back(Text(title) + u": " + Text(text));
    return answer;
  });
  EXPECT_FALSE(message->fAskAcceptCancel(u"Voltee la hoja", u"Factura"));
  answer = true;
  EXPECT_TRUE(message->fAskAcceptCancel(u"Otra vez", u"Guía"));
  EXPECT_EQ(asked, (std::vector<Text>{u"Factura: Voltee la hoja", u"Guía: Otra vez"}));
  EXPECT_EQ(written(),
            "[Factura] Voltee la hoja\n[Gu\xC3\xAD"
            "a] Otra vez\n");
}

TEST_F(MessageTest, APolicyCanBeTakenBack) {
  const Ref<clsMessage> message = unattended();
  message->setAnswerPolicy([](TextView, TextView) { return false; });
  EXPECT_FALSE(message->fAskAcceptCancel(u"?", u""));
  message->setAnswerPolicy({});
  EXPECT_TRUE(message->fAskAcceptCancel(u"?", u""));
}

TEST_F(MessageTest, WhatAPolicyRaisesPasses) {
  const Ref<clsMessage> message = unattended();
  message->setAnswerPolicy([](TextView, TextView) -> bool {
    throw tarvo::RunTimeError(tarvo::kOverflow, {u"program", u"stop", {}, 0});
  });
  EXPECT_EQ(test::failureOf([&] { message->fAskAcceptCancel(u"?", u""); }), "6 program: stop");
}

TEST_F(MessageTest, TheOperatorAnswersAtATerminal) {
  const struct {
    const char* typed;
    bool accepted;
  } rows[] = {
      {"A\n", true},       {"a\n", true},   {"S\n", true},  {"s\n", true},         {"\n", true},
      {"aceptar\n", true}, {"A", true},     {"C\n", false}, {"c\n", false},        {"N\n", false},
      {"n\n", false},      {"no\n", false}, {"", false},    {"cancelar\n", false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.typed);
    EXPECT_EQ(attended(row.typed)->fAskAcceptCancel(u"?", u""), row.accepted);
  }
}

TEST_F(MessageTest, TheOperatorSeesTheQuestionAndThePrompt) {
  attended("a\n")->fAskAcceptCancel(u"Voltee la hoja", u"Factura");
  EXPECT_EQ(written(), "[Factura] Voltee la hoja\n"s + kPrompt);
}

TEST_F(MessageTest, TheOperatorIsAskedAgainUntilTheAnswerIsUnderstood) {
  const Ref<clsMessage> message = attended("x\n an\nquizás aceptar\nc\na\n");
  EXPECT_FALSE(message->fAskAcceptCancel(u"?", u""));
  EXPECT_EQ(written(), "?\n"s + kPrompt + kPrompt + kPrompt + kPrompt);
  // Each answer takes its own line only.
  EXPECT_TRUE(message->fAskAcceptCancel(u"?", u""));
  EXPECT_FALSE(attended("x\n")->fAskAcceptCancel(u"?", u""));
}

TEST_F(MessageTest, UnusualFoldersAreNamedAndAskedAbout) {
  const struct {
    std::int16_t code;
    std::string folder;
  } rows[] = {{2, "una carpeta de respaldo"},
              {1, "una carpeta de prueba"},
              {0, "una carpeta no habitual"},
              {-1, "una carpeta no habitual"}};
  std::string expected;
  for (const auto& row : rows) {
    SCOPED_TRACE(row.code);
    EXPECT_TRUE(unattended()->fWarnLocation(u"LibTarvoRdpCI", row.code));
    expected += "[LibTarvoRdpCI] El componente LibTarvoRdpCI se est\xC3\xA1 ejecutando desde " +
                row.folder +
                ". \xC2\xBF"
                "Desea continuar?\n";
    EXPECT_EQ(written(), expected);
  }
  EXPECT_FALSE(attended("C\n")->fWarnLocation(u"LibTarvoRdpCI", 2));
}

TEST_F(MessageTest, TheDefaultConsoleIsTheStandardErrorStream) {
  ::testing::internal::CaptureStderr();
  tarvo::make<clsMessage>()->sShowMessageWithTitle(u"texto", u"título");
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "[t\xC3\xADtulo] texto\n");
}

}  // namespace
}  // namespace LibTarvoCI
