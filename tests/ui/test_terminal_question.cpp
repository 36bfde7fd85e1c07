// The question for the printing mode on a terminal: a pseudo-terminal stands for it.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "ui/printing_mode_window.h"

namespace tarvo::test {
namespace {

// The form's side: closes the window at the first button.
class Form final : public PrintingModeEvents {
 public:
  explicit Form(PrintingModeWindow& window) : window_(window) {}

  std::string log;

  void clicked(PrintingModeControl control) noexcept override {
    log += "click " + std::to_string(static_cast<int>(control)) + "; ";
    if (control == PrintingModeControl::kContinue || control == PrintingModeControl::kCancel) {
      window_.close();
    }
  }
  void keyPressed(PrintingModeControl, std::int16_t, std::int16_t) noexcept override {
    log += "key; ";
  }

 private:
  PrintingModeWindow& window_;
};

// In place of a standard stream's descriptor, until its end.
class Replaced {
 public:
  Replaced(int descriptor, int by) : descriptor_(descriptor), before_(dup(descriptor)) {
    dup2(by, descriptor);
  }
  Replaced(const Replaced&) = delete;
  Replaced& operator=(const Replaced&) = delete;
  ~Replaced() {
    dup2(before_, descriptor_);
    close(before_);
  }

 private:
  int descriptor_;
  int before_;
};

// The operator's side of the terminal, and the program's.
struct Terminal {
  int master = posix_openpt(O_RDWR | O_NOCTTY);
  int slave = -1;

  Terminal() {
    if (master < 0 || grantpt(master) != 0 || unlockpt(master) != 0) return;
    slave = open(ptsname(master), O_RDWR | O_NOCTTY);
  }
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;
  ~Terminal() {
    close(slave);
    close(master);
  }

  void type(const std::string& keys) const {
    ASSERT_EQ(static_cast<ssize_t>(keys.size()), write(master, keys.data(), keys.size()));
  }
};

constexpr const char* kQuestion =
    "[Modos de Impresión Disponibles] Seleccione el Modo de Impresión\n"
    "  1 Impresión Gráfica\n"
    "  2 Impresión Texto\n"
    "  0 Cancelar\n";

class TerminalQuestion : public testing::Test {
 protected:
  // What the form is told; what the operator saw is in `shown`.
  std::string ask(int input, PrintingModeControl chosen = PrintingModeControl::kGraphic) {
    std::FILE* const output = std::tmpfile();
    const auto window = platform::makePrintingModeWindow();
    Form form(*window);
    {
      const Replaced standardInput(STDIN_FILENO, input);
      const Replaced standardError(STDERR_FILENO, fileno(output));
      window->choose(chosen);
      window->showModal(form);
    }
    shown.clear();
    std::rewind(output);
    for (int c = std::fgetc(output); c != EOF; c = std::fgetc(output)) {
      shown += static_cast<char>(c);
    }
    std::fclose(output);
    return form.log;
  }
  std::string answer(const std::string& keys,
                     PrintingModeControl chosen = PrintingModeControl::kGraphic) {
    const Terminal terminal;
    EXPECT_GE(terminal.slave, 0);
    terminal.type(keys);
    return ask(terminal.slave, chosen);
  }

  std::string shown;
};

TEST_F(TerminalQuestion, TakesANumber) {
  EXPECT_EQ("click 0; click 2; ", answer("1\n"));
  EXPECT_EQ(std::string(kQuestion) + "1, 2, 0 [1]: ", shown);
  EXPECT_EQ("click 1; click 2; ", answer("2\n"));
  EXPECT_EQ("click 3; ", answer("0\n"));
}

TEST_F(TerminalQuestion, ConfirmsWhatIsChosenForAnEmptyLine) {
  EXPECT_EQ("click 2; ", answer("\n"));
  EXPECT_EQ("click 2; ", answer("\n", PrintingModeControl::kText));
  EXPECT_EQ(std::string(kQuestion) + "1, 2, 0 [2]: ", shown);
}

TEST_F(TerminalQuestion, AsksAgainForAnythingElse) {
  EXPECT_EQ("click 1; click 2; ", answer("3\n12\nsí\n 1\n2\n"));
  std::string expected = kQuestion;
  for (int i = 0; i < 5; ++i) expected += "1, 2, 0 [1]: ";
  EXPECT_EQ(expected, shown);
}

TEST_F(TerminalQuestion, TheEndOfTheInputClosesIt) {
  EXPECT_EQ("", answer("\x04"));
  EXPECT_EQ("", answer("5\n\x04"));
  EXPECT_EQ("click 0; click 2; ", answer("1\n")) << "the stream can be read again";
}

TEST_F(TerminalQuestion, WithoutATerminalWhatIsChosenIsConfirmedUnasked) {
  const int nothing = open("/dev/null", O_RDONLY);
  EXPECT_EQ("click 2; ", ask(nothing));
  EXPECT_EQ("", shown);
  close(nothing);
  int ends[2] = {};
  ASSERT_EQ(0, pipe(ends));
  EXPECT_EQ("click 2; ", ask(ends[0])) << "nothing is read from a pipe, which might never end";
  close(ends[0]);
  close(ends[1]);
}

}  // namespace
}  // namespace tarvo::test
