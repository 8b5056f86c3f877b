#include "filter/Envelope.h"

#include <gtest/gtest.h>

TEST(Envelope, IsWhatLiesAroundTheDocument) {
  const std::string before = "\x1b%-12345X@PJL ENTER LANGUAGE=PDF\n", behind = "\x1b%-12345X";
  const std::string document = "%PDF-1.7\n1 0 obj\nstartxref\n7\n%%EOF\n";
  const std::string bytes = before + document + behind;
  const Envelope envelope = EnvelopeOf(bytes);
  EXPECT_EQ(envelope.before, before);
  EXPECT_EQ(envelope.document, document);
  EXPECT_EQ(envelope.behind, behind);
}

TEST(Envelope, HasTheCommentsOfOtherPrograms) {
  const Envelope envelope = EnvelopeOf(
      "%PDF-1.7\r\n%\xbf\xf7\xa2\xfe\n% This file was generated\n%%PDFTOPDFNumCopies : 2\n1 0 "
      "obj\n% no "
      "comment\n%%EOF\n");
  EXPECT_EQ(envelope.comments, "% This file was generated\n%%PDFTOPDFNumCopies : 2\n");
  EXPECT_TRUE(envelope.was_laid_out);
  EXPECT_FALSE(envelope.was_numbered);
}

TEST(Envelope, TellsOurOwnWork) {
  const Envelope envelope =
      EnvelopeOf("%PDF-1.7\n%\xbf\n" + std::string(kNumberedMark) + "1 0 obj\n%%EOF\n");
  EXPECT_TRUE(envelope.was_numbered);
  EXPECT_EQ(envelope.comments, "");
  EXPECT_FALSE(EnvelopeOf("%PDF-1.7\n1 0 obj\n" + std::string(kNumberedMark)).was_numbered);
}

TEST(Envelope, WithoutADocumentIsEmpty) {
  for (const char *bytes : {"", "hello", "%!PS-Adobe-3.0\n"}) {
    EXPECT_TRUE(EnvelopeOf(bytes).document.empty()) << bytes;
  }
}

// What was appended to it, and damaged, is no language of a printer's.
TEST(Envelope, BrokenPartsBelongToTheDocument) {
  const std::string bytes = "%PDF-1.7\n1 0 obj\nstartxref\n7\n%%EOF\n2 0 obj\nstartxref\n";
  EXPECT_EQ(EnvelopeOf(bytes).document, bytes);
  EXPECT_EQ(EnvelopeOf("%PDF-1.7\n1 0 obj\n").document, "%PDF-1.7\n1 0 obj\n");
}
