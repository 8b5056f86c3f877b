// Files of all kinds keep what they have, and get numbers.

#include <gmock/gmock.h>

#include "tests/support/NumberedPdf.h"
#include "tests/support/RawPdf.h"

using testing::HasSubstr;

namespace {

constexpr char kWords[] = "BT /F 12 Tf 50 750 Td (Some words) Tj ET";

std::string ThreePages() { return RawPdf({{kWords}, {kWords}, {kWords}}); }

void ExpectThreeNumbers(const std::string &pdf) {
  for (const bool over : {false, true}) {
    EXPECT_EQ(TextOfPdf(NumberedPdf(pdf, over)), "Some words 25 Some words 26 Some words 27");
  }
}

std::string WhyNot(const std::string &pdf) {
  try {
    NumberedPdf(pdf, false);
  } catch (const std::exception &error) {
    return error.what();
  }
  return "";
}

}  // namespace

TEST(AwkwardFiles, WithObjectStreams) {
  ExpectThreeNumbers(ChangedByQpdf(ThreePages(), {"--object-streams=generate"}));
}

TEST(AwkwardFiles, Linearized) { ExpectThreeNumbers(ChangedByQpdf(ThreePages(), {"--linearize"})); }

TEST(AwkwardFiles, EncryptedForTheirOwner) {
  for (const char *bits : {"128", "256"}) {
    std::vector<std::string> options = {"--encrypt", "", "owner", bits, "--print=low"};
    if (options[3] == "128") options.push_back("--use-aes=y");
    ExpectThreeNumbers(ChangedByQpdf(ThreePages(), options));
  }
}

TEST(AwkwardFiles, ThatNeedAPasswordAreRefused) {
  const std::string locked = ChangedByQpdf(ThreePages(), {"--encrypt", "secret", "owner", "256"});
  EXPECT_THAT(WhyNot(locked), HasSubstr("password"));
}

TEST(AwkwardFiles, WhoseTableOfObjectsIsWrong) {
  std::string broken = ThreePages();
  broken.insert(broken.find("2 0 obj"), "% something that moves all that follows\n");
  ExpectThreeNumbers(broken);
  ExpectThreeNumbers(ThreePages().substr(0, ThreePages().rfind("startxref")));
}

TEST(AwkwardFiles, ThatAreNoneAreRefused) {
  for (const char *content : {"", "%PDF-1.7\n", "%PDF-1.7\ntrailer << /Root 1 0 R >>", "hello"}) {
    EXPECT_NE(WhyNot(content), "") << content;
  }
}

TEST(AwkwardFiles, KeepWhatIsNoPage) {
  const std::string pdf = RawPdf(
      {{"/OC /Layer BDC /P << /MCID 0 >> BDC BT /F 12 Tf 50 750 Td (Some words) Tj ET EMC EMC",
        "/MediaBox [0 0 595 842] /StructParents 0 /Annots [14 0 R] /Resources << /Font << /F 3 0 R "
        ">> "
        "/Properties << /Layer 12 0 R >> >>"}},
      {"<< /Type /Outlines /First 11 0 R /Last 11 0 R /Count 1 >>",
       "<< /Title (Chapter One) /Parent 10 0 R /Dest (Start) >>",
       "<< /Type /OCG /Name (Layer One) >>",
       PdfStream("<x:xmpmeta/>", "/Type /Metadata /Subtype /XML"),
       "<< /Type /Annot /Subtype /Link /Rect [0 0 100 100] /A << /S /URI /URI "
       "(http://example.org/) >> "
       ">>",
       "<< /Type /StructTreeRoot /K << /S /P /K 0 >> >>",
       PdfStream("attached", "/Type /EmbeddedFile")},
      "/Outlines 10 0 R /Metadata 13 0 R /PageLabels << /Nums [0 << /S /r /P (Front-) >>] >> "
      "/OCProperties << /OCGs [12 0 R] /D << /ON [12 0 R] >> >> /StructTreeRoot 15 0 R /MarkInfo "
      "<< "
      "/Marked true >> /Names << /EmbeddedFiles << /Names [(a.txt) << /Type /Filespec /F (a.txt) "
      "/EF "
      "<< /F 16 0 R >> >>] >> >> /Lang (en)");
  for (const bool over : {false, true}) {
    const std::string numbered =
        ChangedByQpdf(NumberedPdf(pdf, over), {"--qdf", "--object-streams=disable"});
    for (const char *part :
         {"(Chapter One)", "(Layer One)", "<x:xmpmeta/>", "(http://example.org/)",
          "/StructTreeRoot", "/MCID 0", "(Front-)", "(a.txt)", "attached", "/Marked true",
          "/Lang (en)", "/Dest (Start)"}) {
      EXPECT_THAT(numbered, HasSubstr(part)) << over;
    }
    EXPECT_EQ(TextOfPdf(numbered), "Some words 25");
  }
}

TEST(AwkwardFiles, TextIsFoundAsBeforeAndTheNumberAsOneWordMore) {
  std::string content = "BT /F 12 Tf 14 TL 60 780 Td\n";
  for (int line = 0; line < 50; ++line) {
    content +=
        "(A line that goes over the whole width of the paper, as books "
        "do.) Tj T*\n";
  }
  const std::string pdf = RawPdf({{content + "ET"}});
  const std::string words = TextOfPdf(pdf);
  for (const int start : {7, 725, 998}) {
    for (const bool over : {false, true}) {
      std::string found = TextOfPdf(NumberedPdf(pdf, over, ChoicesWith(start)));
      const std::string number = std::to_string(start);
      const size_t place = found.find(number);
      ASSERT_NE(place, std::string::npos) << found;
      found.erase(place == 0 ? 0 : place - 1, number.size() + 1);
      EXPECT_EQ(found, words) << start << over;
    }
  }
}

TEST(AwkwardFiles, FiveThousandPagesShareTheirFonts) {
  const std::string pdf = RawPdf(std::vector<RawPage>(5000, {kWords}));
  const std::string behind = NumberedPdf(pdf, false), over = NumberedPdf(pdf, true);
  EXPECT_LT(behind.size(), pdf.size() + 5000 * 400);
  EXPECT_LT(over.size(), pdf.size() + 5000 * 500 + 400'000);
  EXPECT_EQ(numbering::PagesOfDocument(behind), 5000u);
  const std::string found = TextOfPdf(over);
  for (const char *word : {" 25 ", " 999 ", " 1000 ", " 5023 "})
    EXPECT_THAT(found, HasSubstr(word));
}
