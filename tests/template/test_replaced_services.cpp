// The translation of whole lines: services that are replaced between lines, and within one.
#include "template/two_worlds.h"

namespace tarvo::test {
namespace {

class ReplacedServices : public TranslatorTest {};
TARVO_WITH_EITHER_TEXT_SERVICE(ReplacedServices);

// Widths that nobody else reads so.
class DoublingConvert final : public ForwardingConvert {
 public:
  std::uint8_t fTextToByte(TextView valText) override {
    return static_cast<std::uint8_t>(2 * ForwardingConvert::fTextToByte(valText));
  }
};

TEST_P(ReplacedServices, ForgetsWhatItReadWithOtherServices) {
  const Ref<RecordingConvert> before = world.convert;
  const Ref<RecordingConvert> after =
      make<RecordingConvert>(world.otherCalls, make<DoublingConvert>());
  for (const int pass : kEveryPass) {
    SCOPED_TRACE(pass);
    world.convert = before;
    EXPECT_EQ(translated(u"{A,3}|{B,2}|"), "\"v  |v |\"");
    EXPECT_EQ(translated(u"{A,3}|{B,2}|"), "\"v  |v |\"");
    world.convert = after;
    EXPECT_EQ(translated(u"{A,3}|{B,2}|"), "\"v     |v   |\"");
  }
}

// From line to line it is another one; a third world sees the recording one throughout.
TEST_F(BypassedTextService, MayBeReplacedBetweenLines) {
  for (const SampleSource& source : {allSources()[5], allSources()[6], braceSources()[7]}) {
    SCOPED_TRACE(source.shows);
    Worlds worlds;
    TranslationWorld& changing = worlds.bypassed;
    int count = 0;
    for (const int pass : kEveryPass) {
      SCOPED_TRACE(pass);
      for (const TextView line : kSampleLines) {
        SCOPED_TRACE(toUtf8(line));
        changing.use(++count % 3 == 0 ? TranslationWorld::kAsked : TranslationWorld::kBypassed);
        worlds.expectSame(line, source.action);
      }
    }
  }
}

// Who is put in the text service's place in the middle of a line is asked from then on.
TEST_F(BypassedTextService, MayBeReplacedWithinALine) {
  TranslationWorld world(TranslationWorld::kBypassed);
  CallLog log;
  const SourceAction replaces = doing(2, [&log](auto&, TranslationWorld& inside) {
    inside.texto = make<RecordingTexto>(log, make<LibTarvoCI::clsTexto>());
    inside.useServices();
  });
  for (const int pass : kEveryPass) {
    SCOPED_TRACE(pass);
    log.clear();
    world.use(TranslationWorld::kBypassed);
    world.translate(u"{A}{B}{C}", replaces);
    EXPECT_EQ(dumpOf(*world.line), "\"vvv\"");
    EXPECT_EQ(log.linesOf("clsTexto.fDelete"),
              (std::vector<std::string>{"clsTexto.fDelete \"v{B}{C}\", 2, 2",
                                        "clsTexto.fDelete \"vv{C}\", 3, 2"}));
  }
}

// A new conversion service reads the variables that come after it, and no others.
TEST_P(ReplacedServices, ReadsEveryVariableWithTheServicesOfItsMoment) {
  const Ref<RecordingConvert> before = world.convert;
  const Ref<RecordingConvert> after =
      make<RecordingConvert>(world.otherCalls, make<DoublingConvert>());
  const SourceAction replaces = doing(1, [&after](auto&, TranslationWorld& inside) {
    inside.convert = after;
    inside.useServices();
  });
  for (const int pass : kEveryPass) {
    SCOPED_TRACE(pass);
    world.convert = before;
    EXPECT_EQ(translated(u"{A,3}|{B,3}|", replaces), "\"v  |v     |\"");
    world.convert = before;
    EXPECT_EQ(translated(u"{A,3}|{B,3}|"), "\"v  |v  |\"");
    EXPECT_EQ(translated(u"{A,3}|{B,3}|", replaces), "\"v  |v     |\"");
  }
}

}  // namespace
}  // namespace tarvo::test
