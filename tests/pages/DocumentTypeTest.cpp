#include "host/pages/DocumentType.h"

#include <gtest/gtest.h>

TEST(DocumentType, IsToldByTheBeginning) {
  EXPECT_EQ(TypeOfDocument("%PDF-1.7\n"), "application/pdf");
  EXPECT_EQ(TypeOfDocument("junk in front\n%PDF-1.4"), "application/pdf");
  EXPECT_EQ(TypeOfDocument("%!PS-Adobe-3.0"), "application/postscript");
  EXPECT_EQ(TypeOfDocument("\x1b%-12345X@PJL\n%!PS"), "application/postscript");
  EXPECT_EQ(TypeOfDocument("\xff\xd8\xff\xe0"), "image/jpeg");
  EXPECT_EQ(TypeOfDocument("\x89PNG\r\n\x1a\n"), "image/png");
  EXPECT_EQ(TypeOfDocument("Größe\n\f"), "text/plain");
}

TEST(DocumentType, IsUnknownOfOtherBytes) {
  for (const std::string_view bytes : {"",
                                       "\x7f"
                                       "ELF",
                                       "\x1b%-12345X@PJL ENTER LANGUAGE=PCL"}) {
    EXPECT_EQ(TypeOfDocument(bytes), "") << bytes;
  }
  EXPECT_EQ(TypeOfDocument(std::string_view("a\0b", 3)), "");
}
