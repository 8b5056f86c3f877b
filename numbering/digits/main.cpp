// Writes Digits.cpp, the outlines of the ten digits of a font:
//   make-digits LiberationSans-Bold.ttf >numbering/Digits.cpp

#include <ft2build.h>

#include <iostream>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

namespace {

constexpr char kHead[] =
    R"(// Made by make-digits (digits/main.cpp) of Liberation Sans Bold 2.1.5; not to be edited.
//
// Digitized data copyright (c) 2010 Google Corporation with Reserved Font Arimo, Tinos and Cousine.
// Copyright (c) 2012 Red Hat, Inc. with Reserved Font Name Liberation.
//
// This file is licensed under the SIL Open Font License, Version 1.1: see OFL.txt beside it.

#include "numbering/Outline.h"

namespace numbering {

using enum Segment::Kind;

)";

void Write(const char *kind, const FT_Vector &end, const FT_Vector &control) {
  std::cout << "    {" << kind << ", " << end.x << ", " << end.y << ", " << control.x << ", "
            << control.y << "},\n";
}

int Move(const FT_Vector *end, void *) {
  Write("Move", *end, {});
  return 0;
}

int Line(const FT_Vector *end, void *) {
  Write("Line", *end, {});
  return 0;
}

int Curve(const FT_Vector *control, const FT_Vector *end, void *) {
  Write("Curve", *end, *control);
  return 0;
}

int Cubic(const FT_Vector *, const FT_Vector *, const FT_Vector *, void *) {
  return 1;  // of fonts of another kind
}

constexpr FT_Outline_Funcs kWriters = {Move, Line, Curve, Cubic, 0, 0};

bool WriteOutline(FT_Face face, int digit) {
  if (FT_Load_Char(face, '0' + digit, FT_LOAD_NO_SCALE) != 0) return false;
  std::cout << "static constexpr Segment kOutline" << digit << "[] = {\n";
  const bool written = FT_Outline_Decompose(&face->glyph->outline, &kWriters, nullptr) == 0;
  std::cout << "};\n";
  return written;
}

bool WriteDigits(FT_Face face) {
  std::cout << kHead;
  for (int digit = 0; digit < 10; ++digit) {
    if (!WriteOutline(face, digit)) return false;
  }
  std::cout << "\nconst int kUnitsPerEm = " << face->units_per_EM
            << ";\nconst Digit kDigits[10] = {\n";
  for (int digit = 0; digit < 10; ++digit) {
    if (FT_Load_Char(face, '0' + digit, FT_LOAD_NO_SCALE) != 0) return false;
    std::cout << "    {" << face->glyph->metrics.horiAdvance << ", kOutline" << digit << "},\n";
  }
  std::cout << "};\n\n}  // namespace numbering\n";
  return true;
}

}  // namespace

int main(int argc, char **argv) {
  FT_Library library = nullptr;
  FT_Face face = nullptr;
  if (argc != 2 || FT_Init_FreeType(&library) != 0 ||
      FT_New_Face(library, argv[1], 0, &face) != 0) {
    std::cerr << "usage: make-digits FONT\nFONT is a TrueType file that can be read\n";
    return 2;
  }
  const bool written = WriteDigits(face) && std::cout.flush();
  if (!written) std::cerr << argv[1] << ": has no digits whose curves are quadratic\n";
  FT_Done_FreeType(library);
  return written ? 0 : 1;
}
