// Distances between words, and letters of printers.
#include "check_test.h"
#include "tarvordp/check/nearest_word.h"
#include "tarvordp/check/parser_services.h"
#include "tarvordp/view/character_set.h"

namespace tarvordp::test {
namespace {

TEST(CheckWords, DistancesCountLetters) {
  EXPECT_EQ(editDistance(u"", u""), 0u);
  EXPECT_EQ(editDistance(u"", u"TAB"), 3u);
  EXPECT_EQ(editDistance(u"NEGRA", u"NEGRA"), 0u);
  EXPECT_EQ(editDistance(u"NEGR", u"NEGRA"), 1u);
  EXPECT_EQ(editDistance(u"NEGRAS", u"NEGRA"), 1u);
  EXPECT_EQ(editDistance(u"NEGRO", u"NEGRA"), 1u);
  EXPECT_EQ(editDistance(u"NERGA", u"NEGRA"), 1u);
  EXPECT_EQ(editDistance(u"NEGRITA", u"NEGRA"), 2u);
  EXPECT_EQ(editDistance(u"MONTO", u"TAB"), 5u);
}

TEST(CheckWords, OfAttributes) {
  EXPECT_EQ(nearestAttribute(u"JUSTIFICADA"), u"JUSTIFICADO");
  EXPECT_EQ(nearestAttribute(u"SINCOMA"), u"SINCOMAS");
  EXPECT_EQ(nearestAttribute(u"NOBLANCO"), u"NOBLANCOS");
  EXPECT_EQ(nearestAttribute(u"DATEFORMATO"), u"DATEFORMAT");
  EXPECT_EQ(nearestAttribute(u"IFF"), u"IIF");
  EXPECT_EQ(nearestAttribute(u"1IF"), u"IIF");
  EXPECT_EQ(nearestAttribute(u"VACÍO"), u"VACIO");
  EXPECT_EQ(nearestAttribute(u"QX"), u"");
  EXPECT_EQ(nearestAttribute(u""), u"");
  EXPECT_EQ(nearestAttribute(u"PATRONSEPARADOR"), u"PATRONSEPARADOR=");
}

TEST(CheckWords, OfControlWordsAndNotOfCommonFields) {
  EXPECT_EQ(nearestControlWord(u"SALTARPAGINA"), u"SALTAPAGINA");
  EXPECT_EQ(nearestControlWord(u"SALTAPAJINA"), u"SALTAPAGINA");
  EXPECT_EQ(nearestControlWord(u"NEGRA"), u"");
  for (const tarvo::TextView field :
       {u"NOMBRE", u"MONTO", u"TOTAL", u"CODIGO", u"FECHA", u"NUMERO", u"COMPRA", u"CAMPO", u"NOTA",
        u"TASA", u"SALDO", u"NETO", u"CEDULA", u"DIRECCION", u"TIPO", u"CANTIDAD", u"PRECIO"}) {
    EXPECT_EQ(nearestControlWord(field), u"") << tarvo::toUtf8(field);
    EXPECT_EQ(nearestLibraryVariable(field), u"") << tarvo::toUtf8(field);
    EXPECT_EQ(nearestMarker(field), u"") << tarvo::toUtf8(field);
  }
}

TEST(CheckLetterTables, AgreeWithWhatTheLibrarySends) {
  ParserServices services;
  for (const char16_t letter : tarvo::TextView(u"áéíóúñÑºaZ{~")) {
    const std::uint8_t byte = services.printedByte(letter);
    EXPECT_EQ(characterOf(CharacterSet::pc437, byte), letter);
    EXPECT_EQ(characterOf(CharacterSet::pc850, byte), letter);
  }
}

TEST(CheckLetterTables, HaveTheLettersWhereTheyBelong) {
  EXPECT_EQ(characterOf(CharacterSet::pc437, 0x9A), u'Ü');
  EXPECT_EQ(characterOf(CharacterSet::pc437, 0xE1), u'ß');
  EXPECT_EQ(characterOf(CharacterSet::pc437, 0xB3), u'│');
  EXPECT_EQ(characterOf(CharacterSet::pc437, 0xF8), u'°');
  EXPECT_EQ(characterOf(CharacterSet::pc850, 0xB5), u'Á');
  EXPECT_EQ(characterOf(CharacterSet::pc850, 0xD6), u'Í');
  EXPECT_EQ(characterOf(CharacterSet::pc850, 0xE0), u'Ó');
  EXPECT_EQ(characterOf(CharacterSet::pc850, 0xE9), u'Ú');
  EXPECT_EQ(characterOf(CharacterSet::pc850, 0xA8), u'¿');
  for (const char16_t letter : tarvo::TextView(u"ÁÍÓÚ€")) {
    EXPECT_FALSE(hasCharacter(CharacterSet::pc437, letter));
  }
  EXPECT_TRUE(hasCharacter(CharacterSet::pc437, u'É'));
  EXPECT_TRUE(hasCharacter(CharacterSet::pc858, u'€'));
  EXPECT_FALSE(hasCharacter(CharacterSet::pc850, u'€'));
}

TEST(CheckServices, ThoseOfBeforeComeBack) {
  auto& services = tarvo::modRDPGlobalValues::ofThisThread();
  const tarvo::Ref<tarvo::clsTexto> before = services.refInsTexto;
  {
    const ParserServices parser;
    EXPECT_TRUE(services.refInsTexto);
  }
  EXPECT_EQ(services.refInsTexto, before);
}

}  // namespace
}  // namespace tarvordp::test
