#include "support/echo.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using vx::text::echo;

TEST(Echo, ShortPrintableTextStaysAsItIs) {
  EXPECT_EQ(echo("+proj=utm +zone=37"), "+proj=utm +zone=37");
  EXPECT_EQ(echo(""), "");
  EXPECT_EQ(echo("карта.shp"), "карта.shp");
}

TEST(Echo, ControlCharactersBecomeQuestionMarks) {
  EXPECT_EQ(echo("a\nb\tc\x1b[2J\x7f"), "a?b?c?[2J?");
}

TEST(Echo, LongTextIsCutWithItsLength) {
  const std::string text(100000, 'x');
  EXPECT_EQ(echo(text, 10), "xxxxxxxxxx... (100000 bytes)");
  EXPECT_EQ(echo(text).size(), 160u + std::string("... (100000 bytes)").size());
}

TEST(Echo, CutNeverSplitsACharacter) {
  // Each Cyrillic letter takes two bytes; a cut at an odd count backs off to the letter's start.
  EXPECT_EQ(echo("кккк", 3), "к... (8 bytes)");
  EXPECT_EQ(echo("кккк", 4), "кк... (8 bytes)");
}

}  // namespace
